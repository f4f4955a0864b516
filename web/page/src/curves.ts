import uPlot from "uplot";
import type { Asking } from "./asking.js";
import { colour, style } from "./colours.js";
import { fill, fixed, h, number, save } from "./dom.js";
import { onKeys, onTouch, onWheel, type Moves } from "./gestures.js";
import { dataOf, plotOf, type Plot } from "./plot.js";
import type { Axis, Session, Span } from "./protocol.js";
import { texts } from "./texts.js";

const HEIGHT = 190;
const LEAST_WIDTH = 240;
const MOST_POINTS = 2000;
const BESIDE = 0.5;  // of a span more is asked for on each side, to be there when it is moved

/** Curves of the channels that are chosen, one below the other. */
export class Curves {
  readonly element = h("div", { class: "plots", tabindex: 0, role: "application", "aria-label": texts.curves, "aria-describedby": "curves-help" });
  readonly live = h("p", { class: "quiet", "aria-live": "polite" });
  readonly help = h("p", { class: "quiet", id: "curves-help" }, texts.curvesHelp);
  private plots: Plot[] = [];
  private span: Span = null;
  private place: number | null = null;
  private metres = 0;
  private drawing = false;
  private again = false;
  private asked = false;
  axis: Axis = "time";
  channels: readonly number[];

  constructor(
    private session: Session,
    private readonly ask: Asking,
    private readonly wrong: (error: unknown) => void,
  ) {
    this.channels = session.chosen;
    const width = (): readonly [number, number] => {
      const over = this.plots[0]?.plot.over.getBoundingClientRect();
      return [over?.left ?? 0, over?.width || 1];
    };
    const moves: Moves = {
      zoom: (factor, at) => this.zoomBy(factor, at),
      pan: (by) => this.pan(by),
      whole: () => this.zoom(null),
      step: (by) => this.step(by),
      edge: (last) => this.edge(last),
      zoomAtCursor: (factor) => this.zoomAtCursor(factor),
      hide: () => this.hide(),
    };
    onWheel(this.element, width, moves);
    onTouch(this.element, width, moves);
    onKeys(this.element, moves);
    new ResizeObserver(() => this.fit()).observe(this.element);
  }

  /** What is seen, for others to draw or save. */
  get seen(): { channels: readonly number[]; axis: Axis; span: Span } {
    return { channels: this.channels, axis: this.axis, span: this.span };
  }

  choose(channels: readonly number[]): void {
    this.channels = channels;
    this.renew();
  }

  /** A channel has another unit. */
  changed(session: Session): void {
    this.session = session;
    this.renew();
  }

  async over(axis: Axis): Promise<void> {
    if (axis === "distance") this.metres = await this.ask("metres", null);
    this.axis = axis;
    this.span = null;
    this.hide();
    this.renew();
  }

  /** Makes the plots anew, for other channels, units or colours. */
  renew(): void {
    for (const { plot } of this.plots) plot.destroy();
    this.plots = [];
    fill(this.element);
    void this.draw();
  }

  end(): void {
    for (const { plot } of this.plots) plot.destroy();
    this.plots = [];
  }

  zoom(next: Span): void {
    const [least, most] = this.full;
    let span = next;
    if (span !== null) {
      const wide = Math.min(span[1] - span[0], most - least);
      const from = Math.min(Math.max(span[0], least), most - wide);
      span = [from, from + wide];
      if (!(wide > (most - least) * 1e-9)) return;
      if (wide >= most - least) span = null;
    }
    this.span = span;
    this.rescale();
    void this.draw();
  }

  zoomBy(factor: number, at: number): void {
    const [from, to] = this.shown;
    const kept = from + (to - from) * at;
    this.zoom([kept - (kept - from) * factor, kept + (to - kept) * factor]);
  }

  pan(by: number): void {
    const [from, to] = this.shown;
    const step = (to - from) * by;
    this.zoom([from + step, to + step]);
  }

  png(): void {
    const scale = devicePixelRatio || 1;
    const head = 26 * scale;
    const pictures = this.plots.map(({ plot, label, colour: ink }) => ({ canvas: plot.ctx.canvas, label, ink }));
    const all = h("canvas");
    all.width = Math.max(...pictures.map(({ canvas }) => canvas.width), 1);
    all.height = pictures.reduce((sum, { canvas }) => sum + canvas.height + head, 0) || 1;
    const pen = all.getContext("2d");
    if (pen === null) return;
    pen.fillStyle = style("--page");
    pen.fillRect(0, 0, all.width, all.height);
    pen.font = `${14 * scale}px system-ui, sans-serif`;
    let top = 0;
    for (const { canvas, label, ink } of pictures) {
      pen.fillStyle = ink;
      pen.fillText(label, 8 * scale, top + 18 * scale);
      pen.drawImage(canvas, 0, top + head);
      top += canvas.height + head;
    }
    all.toBlob((blob) => { if (blob !== null) save("curves.png", blob); });
  }

  private get full(): readonly [number, number] {
    return this.axis === "distance" ? [0, this.metres] : [this.session.first, this.session.last];
  }

  private get shown(): readonly [number, number] {
    return this.span ?? this.full;
  }

  private get width(): number {
    return Math.max(LEAST_WIDTH, this.element.clientWidth);
  }

  private get axisName(): string {
    return this.session.timed ? texts.axisColumn[this.axis] : texts.rowsAxis;
  }

  private fit(): void {
    for (const { plot } of this.plots) if (plot.width !== this.width) plot.setSize({ width: this.width, height: HEIGHT });
  }

  private rescale(): void {
    const [min, max] = this.shown;
    for (const { plot } of this.plots) plot.setScale("x", { min, max });
    if (this.place !== null) this.point();
  }

  /** Asks for the curves of what is shown, one question at a time. */
  private async draw(): Promise<void> {
    if (this.drawing) { this.again = true; return; }
    this.drawing = true;
    try {
      const { channels } = this;
      const [from, to] = this.shown;
      const more = (to - from) * BESIDE;
      const span: Span = this.span === null ? null : [from - more, to + more];
      const points = Math.min(MOST_POINTS, this.width) * (span === null ? 1 : 1 + 2 * BESIDE);
      const curves = await this.ask("curves", { channels, axis: this.axis, span, points });
      if (channels === this.channels) {
        if (this.plots.length === 0) this.make();
        const [min, max] = this.shown;
        this.plots.forEach(({ plot }, i) => {
          const one = curves[i];
          if (one === undefined) return;
          plot.batch(() => {
            plot.setData(dataOf(one.x, one.y), false);
            plot.setScale("x", { min, max });
          });
        });
        this.element.dataset["frames"] = String(Number(this.element.dataset["frames"] ?? 0) + 1);
      }
    } catch (error) {
      this.wrong(error);
    }
    this.drawing = false;
    if (this.again) { this.again = false; void this.draw(); }
  }

  private make(): void {
    this.plots = this.channels.map((channel, i) => {
      const info = this.session.channels[channel];
      const label = `${info?.name ?? ""} ${info?.unit ?? ""}`.trim();
      const one = plotOf([{ label, colour: colour(i) }], HEIGHT, this.width, {
        cursor: { sync: { key: "curves" }, drag: { x: true, y: false } },
        hooks: {
          setSelect: [(plot) => {
            if (plot.select.width > 3) this.zoom([plot.posToVal(plot.select.left, "x"), plot.posToVal(plot.select.left + plot.select.width, "x")]);
            plot.setSelect({ left: 0, top: 0, width: 0, height: 0 }, false);
          }],
          setCursor: [(plot) => this.pointed(plot)],
        },
      });
      one.plot.over.addEventListener("dblclick", () => this.zoom(null));
      return one;
    });
    fill(this.element, ...this.plots.map(({ element }) => element));
  }

  /** The mouse has moved the cursor. */
  private pointed(plot: uPlot): void {
    const left = plot.cursor.left ?? -1;
    if (plot !== this.plots[0]?.plot || left < 0 || !plot.over.matches(":hover") && !this.plots.some((one) => one.plot.over.matches(":hover"))) return;
    this.place = plot.posToVal(left, "x");
    void this.tell(false);
  }

  /** Shows the cursor where it is. */
  private point(): void {
    for (const { plot } of this.plots) plot.setCursor({ left: plot.valToPos(this.place ?? 0, "x"), top: 0 }, false);
  }

  private step(by: number): void {
    const [from, to] = this.shown;
    const [least, most] = this.full;
    const next = this.place === null ? (from + to) / 2 : this.place + (to - from) * by;
    this.place = Math.min(most, Math.max(least, next));
    if (this.place < from || this.place > to) this.pan(by < 0 ? -0.5 : 0.5);
    this.point();
    void this.tell(true);
  }

  private edge(last: boolean): void {
    this.place = this.shown[last ? 1 : 0];
    this.point();
    void this.tell(true);
  }

  private zoomAtCursor(factor: number): void {
    const [from, to] = this.shown;
    const at = this.place === null || this.place < from || this.place > to ? 0.5 : (this.place - from) / (to - from);
    this.zoomBy(factor, at);
    const [left, right] = this.shown;
    this.live.textContent = texts.shownSpan(this.axisName, number(left), number(right));
  }

  private hide(): void {
    this.place = null;
    for (const { plot, tell } of this.plots) { plot.setCursor({ left: -10, top: -10 }, false); tell(""); }
    this.live.textContent = "";
  }

  /** The values of the row at the cursor, from the recording and not from what is drawn. By keys they are said, too. */
  private async tell(aloud: boolean): Promise<void> {
    if (this.asked && !aloud) return;
    this.asked = true;
    try {
      const place = this.place;
      if (place === null) return;
      const { channels } = this;
      const row = await this.ask("row", { channels, axis: this.axis, place });
      if (channels !== this.channels || this.place === null) return;
      const words = channels.map((channel, i) => {
        const info = this.session.channels[channel];
        const value = row.values[i] as number;
        return value === value ? `${fixed(value, info?.decimals ?? 1)} ${info?.unit ?? ""}`.trim() : texts.noValue;
      });
      this.plots.forEach((plot, i) => plot.tell(`${words[i]} · ${this.axisName} ${number(row.x)}`));
      if (aloud && place === this.place)
        this.live.textContent = [`${this.axisName} ${number(row.x)}`, ...channels.map((channel, i) => `${this.session.channels[channel]?.name}: ${words[i]}`)].join("; ");
      else if (place !== this.place) { this.asked = false; void this.tell(aloud); }
    } catch (error) {
      this.wrong(error);
    } finally {
      this.asked = false;
    }
  }
}
