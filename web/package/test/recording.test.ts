import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, expect, it } from "vitest";
import { Capture, LapFinder, Recording, RecordingError, Stream, laps, type Table } from "../dist/index.js";
import { inFolder, kelfunJson, kelsim } from "./tools.js";

const session = inFolder((folder) => {
  const [channels, samples, ubx] = ["k.channels", "k.samples", "k.ubx"].map((name) => join(folder, name)) as [string, string, string];
  kelsim("--laps", "3", "--channels", channels, "--samples", samples);
  kelsim("--laps", "3", ubx);
  return {
    channels: new Uint8Array(readFileSync(channels)),
    samples: new Uint8Array(readFileSync(samples)),
    ubx: new Uint8Array(readFileSync(ubx)),
    laps: kelfunJson("laps", channels, samples),
    gpsLaps: kelfunJson("laps", ubx),
    record: kelfunJson("record", channels, samples),
  };
});

const asKelfun = (table: Table): unknown[] =>
  laps(table).map((lap) => [lap.number, lap.milliseconds, lap.best, lap.rows]);

describe("a recording", () => {
  it("has the laps that kelfun laps shows", async () => {
    const recording = await Recording.open(session.channels, session.samples);
    expect(recording.notes).toContain("u32ms");
    const ours = laps(recording);
    expect(ours.length).toBe(session.laps.laps.length);
    session.laps.laps.forEach((row: any, i: number) => {
      const lap = ours[i];
      expect([lap?.number, lap?.milliseconds, lap?.rows]).toEqual([row.lap, row.time_ms ?? row.milliseconds ?? null, row.samples]);
    });
    expect(ours.best?.milliseconds).toBe(Math.min(...ours.filter((lap) => lap.note === "").map((lap) => lap.milliseconds ?? Infinity)));
    recording.close();
    expect(() => recording.rows).toThrow(/closed/);
  });

  it("has columns in the units that are chosen", async () => {
    const recording = await Recording.open(session.channels, session.samples);
    const speed = recording.columns.find((column) => column.unit === "km/h");
    expect(speed).toBeDefined();
    const before = recording.read(speed!.name).values;
    recording.setUnit(speed!.name, "mph");
    const after = recording.read(speed!.name).values;
    expect(before.length).toBe(recording.rows);
    expect(Number(after[500])).toBeCloseTo(Number(before[500]) * 0.621371, 2);
    expect(() => recording.setUnit(speed!.name, "mhp")).toThrow(/did you mean 'mph'/);
    expect(() => recording.read("nothing")).toThrow(/there is no column 'nothing'; .*accepted:/);
    expect(() => recording.read(0, { from: 0, count: 1e9 })).toThrow(/accepted: 0 to/);
    const times = recording.times();
    expect(times?.length).toBe(recording.rows);
    const part = recording.between(10, 20);
    expect(part?.count).toBeGreaterThan(50);
    recording.close();
  });

  it("may come piece by piece, as a file does", async () => {
    const recording = await Recording.open(session.channels, new Blob([session.samples]));
    expect(asKelfun(recording)).toEqual(asKelfun(await Recording.open(session.channels, session.samples)));
    recording.close();
  });

  it("may be streamed: the rows of a piece are at hand, and the laps are those of the whole", async () => {
    const whole = await Recording.open(session.channels, session.samples);
    const stream = Stream.recording(session.channels, { size: session.samples.length });
    const finder = new LapFinder(stream);
    const values: number[] = [];
    const times: number[] = [];
    const take = (): void => {
      if (stream.rows === 0) return;  // the framing is not known yet
      finder.add();
      values.push(...(stream.read(0).values as Float32Array));
      times.push(...(stream.times() as Float64Array));
    };
    for (let at = 0; at < session.samples.length; at += 7001) {
      stream.push(session.samples.subarray(at, at + 7001));
      take();
    }
    expect(stream.first).toBeGreaterThan(0);
    expect(() => stream.read(0, { from: 0 })).toThrow(/accepted: \d+ to \d+/);
    stream.end();
    take();
    expect(values).toEqual([...(whole.read(0).values as Float32Array)]);
    expect(times).toEqual([...(whole.times() as Float64Array)]);
    expect(finder.laps()).toEqual(laps(whole));
    finder.close();
    stream.close();
    whole.close();
  });

  it("gives several columns as it gives each", async () => {
    const recording = await Recording.open(session.channels, session.samples);
    const all = recording.columns.map((_, i) => i);
    expect(recording.readAll(all)).toEqual(all.map((i) => recording.read(i)));
    recording.close();
  });

  it("has messages in the words of this package", async () => {
    await expect(Recording.open(session.channels.slice(0, 112), session.samples)).rejects.toThrow(/; stamps may be none: /);
    const recording = await Recording.open(session.channels, session.samples);
    expect(() => laps(recording, { source: "gps", least: 3000 })).toThrow(/\(least\)/);
    recording.close();
  });

  it("that is damaged says what and where, and can be tried again", async () => {
    for (let i = 0; i < 40; i++) {
      await expect(Recording.open(session.channels.slice(0, 100), session.samples)).rejects.toThrow(/100 bytes are no channel records/);
      await expect(Recording.open(new Uint8Array(0), session.samples)).rejects.toThrow(RecordingError);
    }
    const wrong = session.channels.slice();
    wrong[20] = 200;
    await expect(Recording.open(wrong, session.samples)).rejects.toThrow(/channel 1 .*has sample type 200; known are 0 to 24/);
    const cut = await Recording.open(session.channels, session.samples.slice(0, -3));
    expect(cut.leftover).toBeGreaterThan(0);
    cut.close();
  });

  it("of random bytes is a table or an error, and never a trap", async () => {
    let state = 7;
    const random = (): number => (state = (Math.imul(state, 1103515245) + 12345) >>> 0) >>> 16;
    for (let i = 0; i < 200; i++) {
      const channels = session.channels.slice();
      for (let n = random() % 20; n > 0; n--) channels[random() % channels.length] = random() & 255;
      const samples = session.samples.slice(0, random() % 4000);
      for (let n = random() % 50; n > 0; n--) samples[random() % Math.max(samples.length, 1)] = random() & 255;
      try {
        const one = await Recording.open(channels, samples);
        one.columns.forEach((_, column) => one.read(column));
        try {
          laps(one);
        } finally {
          one.close();
        }
      } catch (error) {
        expect(error).toBeInstanceOf(RecordingError);
      }
    }
  });
});

describe("a capture", () => {
  it("has the laps that kelfun laps shows", async () => {
    const capture = await Capture.open(session.ubx);
    const ours = laps(capture);
    expect(ours.map((lap) => [lap.number, lap.milliseconds])).toEqual(
      session.gpsLaps.laps.map((row: any) => [row.lap, row.time_ms ?? row.milliseconds ?? null]),
    );
    capture.close();
  });

  it("of any bytes says that there are no laps in it", async () => {
    const capture = await Capture.open(new Uint8Array(1000).fill(0xb5));
    expect(capture.rows).toBe(0);
    expect(() => laps(capture)).toThrow(/no NAV-SOL and no NAV-PVT message/);
    capture.close();
  });

  it("refuses a source and splits that are none", async () => {
    const capture = await Capture.open(session.ubx);
    expect(() => laps(capture, { source: "gsp" as never })).toThrow(/did you mean 'gps'/);
    expect(() => laps(capture, { splits: [-1] })).toThrow(/accepted: metres above 0/);
    expect(() => laps(capture, { least: 0.5 })).toThrow(/accepted: seconds, 1 to 3600/);
    capture.close();
  });
});
