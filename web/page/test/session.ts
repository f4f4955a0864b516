// What the simulator records, and the same many times over.
import { closeSync, openSync, readFileSync, writeSync } from "node:fs";
import { join } from "node:path";
import { inFolder, kelfunJson, kelsim } from "../../package/test/tools.js";

export interface Simulated { readonly channels: Buffer; readonly samples: Buffer; readonly ubx: Buffer; readonly laps: any[]; readonly gpsLaps: any[] }

export const simulated = (laps = 3): Simulated =>
  inFolder((folder) => {
    const [channels, samples, ubx] = ["kart.channels", "kart.samples", "kart.ubx"].map((name) => join(folder, name)) as [string, string, string];
    kelsim("--laps", String(laps), "--channels", channels, "--samples", samples);
    kelsim("--laps", String(laps), ubx);
    return {
      channels: readFileSync(channels), samples: readFileSync(samples), ubx: readFileSync(ubx),
      laps: kelfunJson("laps", channels, samples).laps, gpsLaps: kelfunJson("laps", ubx).laps,
    };
  });

const PERIOD = 100;  // ms from record to record

/** Writes a recording of at least so many bytes: the samples again and again, their time stamps running on. */
export function writeLong(samples: Buffer, record: number, bytes: number, path: string): void {
  const rows = samples.length / record;
  const first = samples.readUInt32LE(0);
  const file = openSync(path, "w");
  for (let done = 0, row = 0; done < bytes; done += samples.length) {
    const copy = Buffer.from(samples);
    for (let i = 0; i < rows; i++, row++) copy.writeUInt32LE((first + row * PERIOD) >>> 0, i * record);
    writeSync(file, copy);
  }
  closeSync(file);
}
