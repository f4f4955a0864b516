import uPlot from "uplot";
import "uplot/dist/uPlot.min.css";
import { formatLap } from "kelfunzioni/core";
import type { State } from "./address.js";
import { fill, fixed, h, labelled, number, save, select, table } from "./dom.js";
import type { Answer, Axis, Name, Requests, Session, Span } from "./protocol.js";
import { texts } from "./texts.js";
import Worker from "./worker.js?worker&inline";

const COLOURS = [["#0a58ca", "#8ab4f8"], ["#b3261e", "#ff9d94"], ["#1b7f3b", "#7ddc9a"], ["#8a5a00", "#f2c063"], ["#7b3fb5", "#d0a8ff"], ["#00727d", "#6fdbe6"]] as const;
const dark = matchMedia("(prefers-color-scheme: dark)");
const colour = (i: number): string => (COLOURS[i % COLOURS.length] as readonly [string, string])[dark.matches ? 1 : 0];
const style = (name: string): string => getComputedStyle(document.documentElement).getPropertyValue(name).trim();

/** Asks the worker. */
function asking(module: ArrayBuffer) {
  const worker = new Worker();
  const waiting = new Map<number, { resolve(value: never): void; reject(error: Error): void; progress: ((done: number) => void) | undefined }>();
  let next = 0;
  worker.addEventListener("message", (event: MessageEvent<Answer>) => {
    const answer = event.data;
    const one = waiting.get(answer.id);
    if ("done" in answer) return one?.progress?.(answer.done);
    waiting.delete(answer.id);
    if ("error" in answer) one?.reject(new Error(answer.error));
    else one?.resolve(answer.value as never);
  });
  // A worker that cannot start, or runs out of memory, answers nothing more.
  worker.addEventListener("error", (event) => {
    for (const one of waiting.values()) one.reject(new Error(`${texts.failed}: ${event.message}`));
    waiting.clear();
  });
  const ask = <N extends Name>(name: N, what: Requests[N][0], progress?: (done: number) => void): Promise<Requests[N][1]> =>
    new Promise((resolve, reject) => {
      waiting.set(++next, { resolve, reject, progress });
      worker.postMessage({ id: next, name, what });
    });
  const started = ask("start", { module });
  return async <N extends Name>(name: N, what: Requests[N][0], progress?: (done: number) => void): Promise<Requests[N][1]> => {
    await started;
    return ask(name, what, progress);
  };
}

/** Recordings and captures as curves, laps and a track. */
export function recordings(module: ArrayBuffer): { element: HTMLElement; show(state: State): void } {
  let ask: ReturnType<typeof asking> | undefined;
  let session: Session | null = null;
  let shown: number[] = [];
  let axis: Axis = "time";
  let span: Span = null;
  let plots: uPlot[] = [];

  const status = h("p", { role: "status", class: "quiet" }, texts.chosenNone);
  const wrong = h("p", { role: "alert", class: "error" });
  const body = h("div");
  const picker = h("input", { type: "file", multiple: true, class: "hidden", "aria-label": texts.choose, tabindex: -1, onchange: (event) => { void load([...((event.target as HTMLInputElement).files ?? [])]); } });
  const drop = h("div", { class: "drop" }, h("p", {}, texts.recordingsIntro), h("button", { onclick: () => picker.click() }, texts.choose), picker);
  const element = h("div", {}, h("h2", {}, texts.tabs.recordings), drop, status, wrong, body);
  for (const name of ["dragenter", "dragover"]) element.addEventListener(name, (event) => { event.preventDefault(); drop.classList.add("over"); });
  element.addEventListener("dragleave", () => drop.classList.remove("over"));
  element.addEventListener("drop", (event) => { event.preventDefault(); drop.classList.remove("over"); void load([...(event.dataTransfer?.files ?? [])]); });

  async function load(files: File[]): Promise<void> {
    if (files.length === 0) return;
    ask ??= asking(module);
    wrong.textContent = "";
    try {
      session = await ask("open", { files }, (done) => { status.textContent = texts.reading(done); });
      span = null;
      axis = "time";
      shown = session.channels.flatMap((channel, i) => (channel.drawable && channel.unit !== "" ? [i] : [])).slice(0, 3);
      status.textContent = [session.name, texts.rows(number(session.rows)), session.notes, session.leftover > 0 ? texts.leftover(session.leftover) : "", session.timed ? "" : texts.noTime].filter((one) => one !== "").join(" · ");
      draw();
      element.dataset["drawn"] = String(Number(element.dataset["drawn"] ?? 0) + 1);
    } catch (error) {
      session = null;
      fill(body);
      status.textContent = texts.chosenNone;
      wrong.textContent = (error as Error).message;
    }
  }

  const curves = h("div", { class: "curves" });
  const full = (): [number, number] => (session === null ? [0, 1] : axis === "distance" ? [0, session.metres] : [session.first, session.last]);

  let busy = false;
  let again = false;
  async function drawCurves(): Promise<void> {
    if (session === null || ask === undefined) return;
    if (busy) { again = true; return; }
    busy = true;
    const open = session;
    const width = Math.max(260, curves.clientWidth || 800);
    const data = await ask("curves", { channels: shown, axis, span, points: Math.min(2000, width) });
    if (plots.length !== shown.length || plots.some((plot, i) => plot.root.dataset["channel"] !== String(shown[i]) || plot.root.dataset["axis"] !== axis)) {
      for (const plot of plots) plot.destroy();
      plots = shown.map((channel, i) => {
        const info = open.channels[channel];
        const label = `${info?.name ?? ""} ${info?.unit ?? ""}`.trim();
        const line = { stroke: style("--ink"), grid: { stroke: style("--line") }, ticks: { stroke: style("--line") } };
        const plot = new uPlot(
          {
            width, height: 190, cursor: { sync: { key: "curves" }, drag: { x: true, y: false } },
            scales: { x: { time: false } },
            axes: [line, { ...line, size: 62 }],
            series: [{ label: !open.timed ? texts.rowsAxis : axis === "time" ? `${texts.time} s` : `${texts.distance} m`, value: (_, value) => (value === null ? "" : number(value)) },
              { label, stroke: colour(i), width: 1.5, value: (_, value) => (value === null ? "" : fixed(value, info?.decimals ?? 1)) }],
            hooks: { setSelect: [(one) => { if (one.select.width > 3) zoom([one.posToVal(one.select.left, "x"), one.posToVal(one.select.left + one.select.width, "x")]); one.setSelect({ left: 0, top: 0, width: 0, height: 0 }, false); }] },
          },
          [[], []],
          h("div"),
        );
        plot.root.dataset["channel"] = String(channel);
        plot.root.dataset["axis"] = axis;
        plot.root.setAttribute("role", "img");
        plot.root.setAttribute("aria-label", label);
        plot.over.addEventListener("dblclick", () => zoom(null));
        return plot;
      });
      fill(curves, ...plots.map((plot) => plot.root));
    }
    plots.forEach((plot, i) => {
      const one = data[i];
      if (one === undefined) return;
      plot.setData([one.x, one.y] as unknown as uPlot.AlignedData, false);
      const [min, max] = span ?? full();
      plot.batch(() => { plot.setScale("x", { min, max }); });
    });
    curves.dataset["frames"] = String(Number(curves.dataset["frames"] ?? 0) + 1);
    busy = false;
    if (again) { again = false; void drawCurves(); }
  }

  function zoom(next: Span): void {
    const [least, most] = full();
    span = next === null ? null : [Math.max(least, next[0]), Math.min(most, next[1])];
    if (span !== null && (span[1] - span[0] >= most - least || span[1] <= span[0])) span = null;
    void drawCurves();
  }
  function move(factor: number, by: number): void {
    const [from, to] = span ?? full();
    const middle = (from + to) / 2 + (to - from) * by;
    const half = ((to - from) * factor) / 2;
    zoom([middle - half, middle + half]);
  }

  function channelList(open: Session): HTMLElement {
    return h("div", { class: "channels", role: "group", "aria-label": texts.channels, tabindex: 0 },
      open.channels.map((channel, i) => {
        if (!channel.drawable) return null;
        const box = h("input", { type: "checkbox", checked: shown.includes(i), onchange: () => { shown = shown.includes(i) ? shown.filter((one) => one !== i) : [...shown, i]; void drawCurves(); } });
        const unit = channel.units.length < 2 ? h("span", { class: "quiet" }, channel.unit)
          : select(channel.units.map((one) => [one, one]), channel.unit, (chosen) => {
            void ask?.("unit", { channel: i, unit: chosen }).then(() => {
              session = { ...open, channels: open.channels.map((one, place) => (place === i ? { ...one, unit: chosen } : one)) };
              for (const plot of plots) plot.root.dataset["channel"] = "";
              void drawCurves();
            });
          });
        if (unit instanceof HTMLSelectElement) unit.setAttribute("aria-label", `${texts.unit}: ${channel.name}`);
        return h("div", { class: "channel" }, h("label", {}, box, channel.name), unit);
      }));
  }

  function lapTable(open: Session): HTMLElement {
    if (open.laps.length === 0) return h("section", {}, h("h3", {}, texts.laps), h("p", {}, `${texts.noLaps}: ${open.lapNotes}`));
    const kmh = (speed: number | null): string => (speed === null ? "" : fixed(speed * 3.6, 1));
    return h("section", {}, h("h3", {}, texts.laps), h("p", { class: "quiet" }, open.lapNotes),
      table(texts.laps, Object.values(texts.lapColumns), open.laps.map((lap) => [
        String(lap.number), lap.milliseconds === null ? "" : formatLap(lap.milliseconds), lap.gap === null ? "" : fixed(lap.gap, 3),
        kmh(lap.topSpeed), kmh(lap.leastSpeed), number(lap.rows), lap.best ? texts.best : lap.note]), [0, 1, 2, 3, 4, 5]));
  }

  function compare(open: Session): HTMLElement | null {
    const good = open.laps.flatMap((lap, i) => (lap.note === "" && !lap.best && lap.milliseconds !== null ? [[String(i), String(lap.number)] as const] : []));
    if (good.length === 0 || !open.speed || !open.laps.some((lap) => lap.best)) return null;
    const place = h("div");
    let lap = (good[0] as readonly [string, string])[0];
    const drawIt = async (): Promise<void> => {
      const channel = shown[0] ?? 0;
      const answer = await ask?.("compare", { lap: Number(lap), channel });
      if (answer === undefined) return;
      const info = open.channels[channel];
      const line = { stroke: style("--ink"), grid: { stroke: style("--line") }, ticks: { stroke: style("--line") } };
      const width = Math.max(260, curves.clientWidth || 800);
      const common = { width, scales: { x: { time: false } }, axes: [line, { ...line, size: 62 }], cursor: { sync: { key: "compare" } } };
      const x = { label: `${texts.distance} m` };
      const first = new uPlot({ ...common, height: 200, series: [x, { label: `${info?.name} ${texts.compareLap} ${open.laps[Number(lap)]?.number}`, stroke: colour(1) }, { label: texts.best, stroke: colour(0) }] },
        [answer.distance, answer.lap, answer.best] as unknown as uPlot.AlignedData);
      const second = new uPlot({ ...common, height: 140, series: [x, { label: texts.gapTitle, stroke: colour(2), fill: `${colour(2)}30` }] }, [answer.distance, answer.gap] as unknown as uPlot.AlignedData);
      fill(place, first.root, second.root);
    };
    void drawIt();
    return h("section", {}, h("h3", {}, texts.compare), labelled(texts.compareLap, select(good, lap, (chosen) => { lap = chosen; void drawIt(); })), place);
  }

  function track(open: Session): HTMLElement | null {
    if (!open.placed) return null;
    const canvas = h("canvas", { class: "track", role: "img", "aria-label": texts.track });
    let channel = Math.max(0, open.channels.findIndex((one) => one.unit === "km/h" || one.unit === "mph"));
    const legend = h("p", { class: "quiet" });
    const drawIt = async (): Promise<void> => {
      const answer = await ask?.("track", { channel, points: 4000 });
      if (answer === undefined) return;
      const range = (all: Float64Array): [number, number] => all.reduce<[number, number]>(([low, high], one) => (one === one ? [Math.min(low, one), Math.max(high, one)] : [low, high]), [Infinity, -Infinity]);
      const [x0, x1] = range(answer.x);
      const [y0, y1] = range(answer.y);
      const [v0, v1] = range(answer.value);
      const scale = devicePixelRatio || 1;
      const [w, t] = [canvas.clientWidth || 400, canvas.clientHeight || 300];
      canvas.width = w * scale;
      canvas.height = t * scale;
      const pen = canvas.getContext("2d");
      if (pen === null) return;
      pen.scale(scale, scale);
      const factor = Math.min((w - 24) / (x1 - x0 || 1), (t - 24) / (y1 - y0 || 1));
      for (let i = 0; i < answer.x.length; i++) {
        const part = ((answer.value[i] as number) - v0) / (v1 - v0 || 1);
        if (!(part >= 0)) continue;
        pen.fillStyle = `hsl(${240 - 240 * part} 85% ${dark.matches ? 62 : 42}%)`;
        pen.fillRect(12 + ((answer.x[i] as number) - x0) * factor - 1.5, t - 12 - ((answer.y[i] as number) - y0) * factor - 1.5, 3, 3);
      }
      const info = open.channels[channel];
      legend.textContent = `${info?.name}: ${fixed(v0, info?.decimals ?? 1)} – ${fixed(v1, info?.decimals ?? 1)} ${info?.unit}`;
    };
    requestAnimationFrame(() => void drawIt());
    return h("section", {}, h("h3", {}, texts.track),
      labelled(texts.trackBy, select(open.channels.flatMap((one, i) => (one.drawable ? [[String(i), one.name] as const] : [])), String(channel), (chosen) => { channel = Number(chosen); void drawIt(); })), legend, canvas);
  }

  function png(): void {
    const pictures = plots.map((plot) => plot.ctx.canvas);
    const width = Math.max(...pictures.map((one) => one.width), 1);
    const all = h("canvas");
    all.width = width;
    all.height = pictures.reduce((sum, one) => sum + one.height, 0);
    const pen = all.getContext("2d");
    if (pen === null) return;
    pen.fillStyle = style("--page");
    pen.fillRect(0, 0, all.width, all.height);
    let top = 0;
    for (const one of pictures) { pen.drawImage(one, 0, top); top += one.height; }
    all.toBlob((blob) => { if (blob !== null) save("curves.png", blob); });
  }

  function draw(): void {
    const open = session;
    if (open === null) return;
    for (const plot of plots) plot.destroy();
    plots = [];
    const button = (text: string, work: () => void): HTMLElement => h("button", { onclick: work }, text);
    fill(body, h("div", { class: "session" },
      h("section", {}, h("h3", {}, texts.channels), channelList(open)),
      h("div", { class: "curves" }, h("h3", {}, texts.curves),
        h("div", { class: "row" },
          open.speed ? labelled(texts.over, select([["time", texts.time], ["distance", texts.distance]], axis, (chosen) => { axis = chosen as Axis; span = null; void drawCurves(); })) : null,
          button(texts.zoomIn, () => move(0.5, 0)), button(texts.zoomOut, () => move(2, 0)), button(texts.left, () => move(1, -0.5)), button(texts.right, () => move(1, 0.5)), button(texts.whole, () => zoom(null)),
          button(texts.exportCsv, () => { void ask?.("csv", { channels: shown, axis, span }).then((blob) => save("curves.csv", blob)); }), button(texts.exportPng, png)),
        curves, lapTable(open), compare(open), track(open))));
    void drawCurves();
  }

  addEventListener("resize", () => { for (const plot of plots) plot.setSize({ width: Math.max(260, curves.clientWidth), height: 190 }); });
  dark.addEventListener("change", draw);
  return { element, show: () => undefined };
}
