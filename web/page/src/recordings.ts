import type { Lap } from "kelfunzioni/core";
import { asking, type Asking } from "./asking.js";
import type { State } from "./address.js";
import { dark } from "./colours.js";
import { Curves } from "./curves.js";
import { fill, h, labelled, number, save, select } from "./dom.js";
import { comparison, lapTable } from "./laps.js";
import type { Axis, Session } from "./protocol.js";
import { texts } from "./texts.js";
import { track } from "./track.js";

/** Recordings and captures as curves, laps and a track. */
export function recordings(module: ArrayBuffer): { element: HTMLElement; show(state: State): void } {
  let reader: ReturnType<typeof asking> | undefined;
  let finder: ReturnType<typeof asking> | undefined;
  let loading = 0;
  let curves: Curves | undefined;
  let redraw: (() => void)[] = [];

  const status = h("p", { role: "status", class: "quiet" }, texts.chosenNone);
  const wrong = h("p", { role: "alert", class: "error" });
  const bar = h("progress", { max: 1, value: 0, "aria-label": texts.progress });
  const stop = h("button", { onclick: () => cancel() }, texts.cancel);
  const busy = h("div", { class: "row", hidden: true }, bar, stop);
  const body = h("div");
  const picker = h("input", { type: "file", multiple: true, class: "hidden", "aria-label": texts.choose, tabindex: -1, onchange: () => {
    const files = [...(picker.files ?? [])];
    picker.value = "";  // so that the same files can be chosen again
    void load(files);
  } });
  const drop = h("div", { class: "drop" }, h("p", {}, texts.recordingsIntro), h("button", { onclick: () => picker.click() }, texts.choose), picker);
  const element = h("div", {}, h("h2", {}, texts.tabs.recordings), drop, busy, status, wrong, body);
  for (const name of ["dragenter", "dragover"]) element.addEventListener(name, (event) => { event.preventDefault(); drop.classList.add("over"); });
  element.addEventListener("dragleave", () => drop.classList.remove("over"));
  element.addEventListener("drop", (event) => {
    event.preventDefault();
    drop.classList.remove("over");
    void load([...(event.dataTransfer?.files ?? [])]);
  });

  const complain = (error: unknown): void => {
    const { message } = error as Error;
    if (message !== texts.cancelled) wrong.textContent = message;
  };

  function clear(): void {
    finder?.end();
    finder = undefined;
    curves?.end();
    curves = undefined;
    redraw = [];
    fill(body);
    busy.hidden = true;
    wrong.textContent = "";
    status.textContent = texts.chosenNone;
  }

  function cancel(): void {
    loading++;
    void reader?.ask("cancel", null);
    clear();
    status.textContent = texts.cancelled;
  }

  async function load(files: File[]): Promise<void> {
    if (files.length === 0) return;
    const mine = ++loading;
    clear();
    reader ??= asking(module);
    const { ask } = reader;
    busy.hidden = false;
    bar.value = 0;
    status.textContent = texts.reading(0);
    try {
      const session = await ask("open", { files }, (part) => {
        if (mine !== loading) return;
        bar.value = part;
        status.textContent = texts.reading(part);
      });
      if (mine !== loading) return;
      status.textContent = [session.name, texts.rows(number(session.rows)), session.notes, session.leftover > 0 ? texts.leftover(number(session.leftover)) : "", session.timed ? "" : texts.noTime].filter((one) => one !== "").join(" · ");
      draw(session, ask, files);
      element.dataset["drawn"] = String(Number(element.dataset["drawn"] ?? 0) + 1);
    } catch (error) {
      if (mine === loading) complain(error);
    }
    if (mine !== loading) return;
    busy.hidden = true;
    if (curves === undefined) status.textContent = texts.chosenNone;
  }

  /** The laps come when they are found: a worker of their own looks for them, so that the curves need not wait. */
  async function findLaps(files: readonly File[], mine: number): Promise<{ laps: readonly Lap[]; notes: string }> {
    const own = asking(module);
    finder = own;
    try {
      return await own.ask("laps", { files });
    } catch (error) {
      return { laps: [], notes: (error as Error).message };
    } finally {
      own.end();
      if (mine === loading) finder = undefined;
    }
  }

  function channelList(session: Session, shown: Curves, ask: Asking, changed: (next: Session) => void): HTMLElement {
    let current = session;
    const chosen = new Set(shown.channels);
    return h("div", { class: "channels", role: "group", "aria-label": texts.channels, tabindex: 0 },
      session.channels.map((channel, i) => {
        if (!channel.drawable) return null;
        const box = h("input", { type: "checkbox", checked: chosen.has(i), onchange: () => {
          if (box.checked) chosen.add(i);
          else chosen.delete(i);
          shown.choose([...chosen]);
        } });
        if (channel.units.length < 2) return h("div", { class: "channel" }, h("label", {}, box, channel.name), h("span", { class: "quiet" }, channel.unit));
        const unit = select(channel.units.map((one) => [one, one]), channel.unit, (next) => {
          void ask("unit", { channel: i, unit: next }).then(() => {
            current = { ...current, channels: current.channels.map((one, place) => (place === i ? { ...one, unit: next } : one)) };
            changed(current);
          }, complain);
        });
        unit.setAttribute("aria-label", texts.unitOf(channel.name));
        return h("div", { class: "channel" }, h("label", {}, box, channel.name), unit);
      }));
  }

  function draw(session: Session, ask: Asking, files: readonly File[]): void {
    const shown = new Curves(session, ask, complain);
    curves = shown;
    const button = (text: string, work: () => void): HTMLElement => h("button", { onclick: work }, text);
    const laps = h("div", { class: "laps" }, h("h3", {}, texts.laps), h("p", { class: "quiet" }, texts.findingLaps));
    const where = h("div");
    const channels = channelList(session, shown, ask, (next) => shown.changed(next));
    fill(body, h("div", { class: "session" },
      h("section", {}, h("h3", {}, texts.channels), channels),
      h("div", { class: "curves" }, h("h3", {}, texts.curves),
        h("div", { class: "row" },
          session.speed ? labelled(texts.over, select([["time", texts.time], ["distance", texts.distance]], shown.axis, (chosen) => { shown.over(chosen as Axis).catch(complain); })) : null,
          button(texts.zoomIn, () => shown.zoomBy(0.5, 0.5)), button(texts.zoomOut, () => shown.zoomBy(2, 0.5)),
          button(texts.left, () => shown.pan(-0.5)), button(texts.right, () => shown.pan(0.5)), button(texts.whole, () => shown.zoom(null)),
          button(texts.exportCsv, () => { ask("csv", shown.seen).then((blob) => save("curves.csv", blob), complain); }), button(texts.exportPng, () => shown.png())),
        shown.help, shown.element, shown.live, laps, where)));
    shown.renew();
    void whenDrawn(shown).then(async () => {
      const mine = loading;
      const found = await findLaps(files, mine);
      if (mine !== loading) return;
      const compared = comparison(session, found.laps, ask, () => shown.channels[0] ?? 0, complain);
      const placed = track(session, ask, complain);
      fill(laps, lapTable(found.laps, found.notes), compared?.element);
      fill(where, placed?.element);
      redraw = [() => compared?.draw(), () => placed?.draw()];
      for (const one of redraw) one();
      element.dataset["laps"] = element.dataset["drawn"];
    });
  }

  const whenDrawn = (shown: Curves): Promise<void> =>
    new Promise((done) => {
      const look = (): void => { if (shown.element.dataset["frames"] !== undefined || shown !== curves) done(); else requestAnimationFrame(look); };
      look();
    });

  dark.addEventListener("change", () => { curves?.renew(); for (const one of redraw) one(); });
  return { element, show: () => undefined };
}
