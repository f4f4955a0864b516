// Recordings are read here, so that the page stays free. Laps are looked for in a second one of these, which is then ended:
// it takes its time, and its memory goes with it.
import { LapFinder, init, type Table } from "kelfunzioni/core";
import { Held } from "./held.js";
import type { Name, Question, Requests } from "./protocol.js";
import { Source, type Progress } from "./source.js";
import { texts } from "./texts.js";

let held: Held | undefined;

const opened = (): Held => {
  if (held === undefined) throw new Error(texts.chosenNone);
  return held;
};

function cancel(): void {
  held?.cancel();
  held = undefined;
}

const handlers: { [N in Name]: (what: Requests[N][0], progress: Progress) => Promise<Requests[N][1]> | Requests[N][1] } = {
  async start({ module }) {
    await init(module);
    return null;
  },
  async open({ files }, progress) {
    cancel();
    const next = new Held(await Source.of(files));
    cancel();  // what was begun while the channels were read
    held = next;
    try {
      return await next.open(files.map((file) => file.name).join(", "), progress);
    } catch (error) {
      if (held === next) held = undefined;
      throw error;
    }
  },
  cancel() {
    cancel();
    return null;
  },
  async laps({ files }, progress) {
    let finder: LapFinder | undefined;
    const source = await Source.of(files);
    await source.pass(() => finder?.add(), () => true, progress, (table: Table) => { finder = new LapFinder(table); });
    const laps = (finder as LapFinder).laps();
    return { laps: [...laps], notes: laps.notes.join(" ") };
  },
  unit({ channel, unit }) {
    opened().unit(channel, unit);
    return null;
  },
  metres: () => opened().length(),
  curves: ({ channels, axis, span, points }) => opened().curves(channels, axis, span, points),
  row: ({ channels, axis, place }) => opened().row(channels, axis, place),
  track: ({ channel, points }) => opened().track(channel, points),
  compare: ({ lap, other, channel }) => opened().compare(lap, other, channel),
  csv: ({ channels, axis, span }) => opened().csv(channels, axis, span),
};

addEventListener("message", (event: MessageEvent<Question>) => {
  const { id, name, what } = event.data;
  let told = 0;
  const progress: Progress = (done) => {
    if (performance.now() - told < 50) return;
    told = performance.now();
    postMessage({ id, done });
  };
  Promise.resolve()
    .then(() => (handlers[name] as (what: unknown, progress: Progress) => unknown)(what, progress))
    .then((value) => postMessage({ id, value }))
    .catch((error: unknown) => postMessage({ id, error: (error as Error).message }));
});
