/** What fingers, wheel and keys ask of a span that is shown. Places are parts of its width: 0 at the left, 1 at the right. */
export interface Moves {
  /** Shows `factor` times as much, with what lies at a place staying there. */
  zoom(factor: number, at: number): void;
  /** Goes on by so many widths. */
  pan(by: number): void;
  whole(): void;
  /** Moves the cursor by so many widths. */
  step(by: number): void;
  /** Moves the cursor to the first or the last place that is shown. */
  edge(last: boolean): void;
  /** Zooms at the cursor. */
  zoomAtCursor(factor: number): void;
  hide(): void;
}

const STEP = 0.01;
const LARGE_STEP = 0.1;
const LINE = 16;

/** Wheel and trackpad: sideways moves, with Ctrl or two fingers apart zooms; up and down scrolls the page as anywhere. */
export function onWheel(element: HTMLElement, width: () => readonly [number, number], moves: Moves): void {
  element.addEventListener("wheel", (event) => {
    const unit = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? LINE : 1;
    const [left, wide] = width();
    if (event.ctrlKey) moves.zoom(Math.exp(event.deltaY * unit * 0.005), Math.min(1, Math.max(0, (event.clientX - left) / wide)));
    else {
      const by = event.shiftKey && event.deltaX === 0 ? event.deltaY : event.deltaX;
      if (by === 0 || (!event.shiftKey && Math.abs(event.deltaY) > Math.abs(by))) return;
      moves.pan((by * unit) / wide);
    }
    event.preventDefault();
  }, { passive: false });
}

/** One finger moves, two zoom. */
export function onTouch(element: HTMLElement, width: () => readonly [number, number], moves: Moves): void {
  const fingers = new Map<number, number>();
  const gone = (event: PointerEvent): void => { fingers.delete(event.pointerId); };
  element.addEventListener("pointerdown", (event) => { if (event.pointerType === "touch") fingers.set(event.pointerId, event.clientX); });
  element.addEventListener("pointermove", (event) => {
    const before = fingers.get(event.pointerId);
    if (before === undefined) return;
    const [left, wide] = width();
    fingers.set(event.pointerId, event.clientX);
    const other = [...fingers].find(([id]) => id !== event.pointerId)?.[1];
    if (other === undefined) moves.pan((before - event.clientX) / wide);
    else moves.zoom(Math.max(8, Math.abs(before - other)) / Math.max(8, Math.abs(event.clientX - other)), (other - left) / wide);
  });
  for (const name of ["pointerup", "pointercancel"] as const) element.addEventListener(name, gone);
}

/** Every move by keys. */
export function onKeys(element: HTMLElement, moves: Moves): void {
  element.addEventListener("keydown", (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const step = event.shiftKey ? LARGE_STEP : STEP;
    const work: Record<string, () => void> = {
      ArrowLeft: () => moves.step(-step),
      ArrowRight: () => moves.step(step),
      Home: () => moves.edge(false),
      End: () => moves.edge(true),
      PageUp: () => moves.pan(-0.5),
      PageDown: () => moves.pan(0.5),
      "+": () => moves.zoomAtCursor(0.5),
      "=": () => moves.zoomAtCursor(0.5),
      "-": () => moves.zoomAtCursor(2),
      "0": () => moves.whole(),
      Escape: () => moves.hide(),
    };
    const one = work[event.key];
    if (one === undefined) return;
    one();
    event.preventDefault();
  });
}
