import { formatLap, type Lap } from "kelfunzioni/core";
import type { Asking } from "./asking.js";
import { colour } from "./colours.js";
import { fill, fixed, h, labelled, number, select, table } from "./dom.js";
import { dataOf, plotOf } from "./plot.js";
import type { Session } from "./protocol.js";
import { texts } from "./texts.js";

const LEAST_WIDTH = 240;
const AT_ONCE = 300;

export function lapTable(laps: readonly Lap[], notes: string): HTMLElement {
  if (laps.length === 0) return h("section", {}, h("h3", {}, texts.laps), h("p", {}, `${texts.noLaps}: ${notes}`));
  const kmh = (speed: number | null): string => (speed === null ? "" : fixed(speed * 3.6, 1));
  const rows = (some: readonly Lap[]): HTMLElement =>
    table(texts.laps, Object.values(texts.lapColumns), some.map((lap) => [
      String(lap.number), lap.milliseconds === null ? "" : formatLap(lap.milliseconds), lap.gap === null ? "" : fixed(lap.gap, 3),
      kmh(lap.topSpeed), kmh(lap.leastSpeed), number(lap.rows), lap.best ? texts.best : lap.note]), [0, 1, 2, 3, 4, 5]);
  const all = h("div", {}, rows(laps.slice(0, AT_ONCE)));
  const more = laps.length <= AT_ONCE ? null
    : h("p", {}, `${texts.firstOf(number(AT_ONCE), number(laps.length))} `, h("button", { onclick: () => { fill(all, rows(laps)); more?.remove(); } }, texts.showAll));
  return h("section", {}, h("h3", {}, texts.laps), h("p", { class: "quiet" }, notes), all, more);
}

/** Two laps one over the other along their way, and below them the time between them. */
export function comparison(session: Session, laps: readonly Lap[], ask: Asking, channel: () => number, wrong: (error: unknown) => void): { element: HTMLElement; draw(): void } | null {
  const timed = laps.flatMap((lap, i) => (lap.note === "" && lap.milliseconds !== null && lap.start !== null ? [i] : []));
  const best = timed.find((i) => laps[i]?.best);
  if (timed.length < 2 || best === undefined || !session.speed) return null;
  const name = (i: number): string => texts.lapName(String(laps[i]?.number), laps[i]?.best ?? false);
  const choices = timed.filter((i, place) => place < AT_ONCE || i === best).map((i) => [String(i), name(i)] as const);
  const place = h("div");
  let [lap, other] = [timed.find((i) => i !== best) ?? best, best];
  let plots: ReturnType<typeof plotOf>[] = [];
  const draw = async (): Promise<void> => {
    const shown = channel();
    try {
      const answer = await ask("compare", { lap: laps[lap] as Lap, other: laps[other] as Lap, channel: shown });
      const info = session.channels[shown];
      for (const { plot } of plots) plot.destroy();
      const width = Math.max(LEAST_WIDTH, place.clientWidth);
      const cursor = { cursor: { sync: { key: "compare" } } };
      const what = `${info?.name} ${info?.unit}`.trim();
      const over = plotOf([{ label: `${what} · ${name(lap)}`, colour: colour(1) }, { label: name(other), colour: colour(0) }], 200, width, cursor);
      const gap = plotOf([{ label: texts.gapTitle(name(lap), name(other)), colour: colour(2), fill: `${colour(2)}30` }], 140, width, cursor);
      fill(place, over.element, gap.element, h("p", { class: "quiet" }, texts.axisColumn.distance));
      over.plot.setData(dataOf(answer.distance, answer.lap, answer.other));
      gap.plot.setData(dataOf(answer.distance, answer.gap));
      plots = [over, gap];
    } catch (error) {
      wrong(error);
    }
  };
  const choose = (text: string, chosen: number, set: (i: number) => void): HTMLElement =>
    labelled(text, select(choices, String(chosen), (next) => { set(Number(next)); void draw(); }));
  const element = h("section", {}, h("h3", {}, texts.compare),
    h("div", { class: "row" }, choose(texts.compareLap, lap, (i) => { lap = i; }), choose(texts.compareOther, other, (i) => { other = i; })), place);
  return { element, draw: () => void draw() };
}
