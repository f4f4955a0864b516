import type { Asking } from "./asking.js";
import { dark } from "./colours.js";
import { fixed, h, labelled, select } from "./dom.js";
import type { Session } from "./protocol.js";
import { texts } from "./texts.js";

const POINTS = 4000;
const EDGE = 12;
const DOT = 3;

const range = (all: Float64Array): [number, number] => {
  let [low, high] = [Infinity, -Infinity];
  for (const one of all) {
    if (one < low) low = one;
    if (one > high) high = one;
  }
  return [low, high];
};

/** Where the recording was driven, coloured by a channel: from blue for its least value to red for its greatest. */
export function track(session: Session, ask: Asking, wrong: (error: unknown) => void): { element: HTMLElement; draw(): void } | null {
  if (!session.placed) return null;
  const canvas = h("canvas", { class: "track", role: "img", "aria-label": texts.track });
  const legend = h("p", { class: "quiet" });
  let channel = Math.max(0, session.channels.findIndex((one) => one.unit === "km/h" || one.unit === "mph"));
  const draw = async (): Promise<void> => {
    try {
      const answer = await ask("track", { channel, points: POINTS });
      const [x0, x1] = range(answer.x);
      const [y0, y1] = range(answer.y);
      const [v0, v1] = range(answer.value);
      const info = session.channels[channel];
      const shown = (value: number): string => `${fixed(value, info?.decimals ?? 1)} ${info?.unit ?? ""}`.trim();
      legend.textContent = x0 > x1 || v0 > v1 ? texts.noValue : texts.trackLegend(info?.name ?? "", shown(v0), shown(v1));
      const scale = devicePixelRatio || 1;
      const [wide, tall] = [canvas.clientWidth || 400, canvas.clientHeight || 300];
      canvas.width = wide * scale;
      canvas.height = tall * scale;
      const pen = canvas.getContext("2d");
      if (pen === null || x0 > x1) return;
      pen.scale(scale, scale);
      const factor = Math.min((wide - 2 * EDGE) / (x1 - x0 || 1), (tall - 2 * EDGE) / (y1 - y0 || 1));
      const light = dark.matches ? 62 : 42;
      answer.x.forEach((x, i) => {
        const part = ((answer.value[i] as number) - v0) / (v1 - v0 || 1);
        if (!(part >= 0)) return;
        pen.fillStyle = `hsl(${240 - 240 * part} 85% ${light}%)`;
        pen.fillRect(EDGE + (x - x0) * factor - DOT / 2, tall - EDGE - ((answer.y[i] as number) - y0) * factor - DOT / 2, DOT, DOT);
      });
    } catch (error) {
      wrong(error);
    }
  };
  const choices = session.channels.flatMap((one, i) => (one.drawable ? [[String(i), one.name] as const] : []));
  const element = h("section", {}, h("h3", {}, texts.track),
    labelled(texts.trackBy, select(choices, String(channel), (chosen) => { channel = Number(chosen); void draw(); })), legend, canvas);
  return { element, draw: () => void draw() };
}
