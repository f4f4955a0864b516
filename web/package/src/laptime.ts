import { whole } from "./errors.js";
import { call, callText, within } from "./module.js";

const LEAST = -(2 ** 31);
const MOST = 2 ** 31 - 1;

/** A lap time as text: 83456 ms is "1:23.456". */
export function formatLap(milliseconds: number): string {
  return callText("kelWebTempo", whole(milliseconds, "the lap time", LEAST, MOST));
}

/** The milliseconds of a text: "1:23.456" is 83456. The library refuses no text. */
export function parseLap(time: string): number {
  return within((memory) => call("kelWebLeggiTempo", memory.text(time)));
}

/** A line of a lap list: " 12 - 1:23.456". */
export function formatLapLine(lap: number, milliseconds: number): string {
  return callText(
    "kelWebNumeroETempo",
    whole(lap, "the lap number", LEAST, MOST),
    whole(milliseconds, "the lap time", LEAST, MOST),
  );
}
