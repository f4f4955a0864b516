import { KelError, noSuch } from "./errors.js";
import { call, callText, callUnsigned, f64, i32, u32, u64, view, within, type Memory } from "./module.js";
import { choicesInWords, orError, type Table } from "./recording.js";

/** A line across the track that is passed in one direction. */
export interface FinishLine {
  readonly latitude: number;
  readonly longitude: number;
  /** Degrees from north, clockwise. */
  readonly heading: number;
  /** From end to end, m. */
  readonly width?: number;
}

export interface LapOptions {
  /** "any": the logger's, if it has any and no line is given; else by GPS. */
  source?: "any" | "logger" | "gps";
  line?: FinishLine;
  /** Ends of sectors in the order in which they are driven: metres behind the finish line, or lines. */
  splits?: readonly (number | FinishLine)[];
  /** Shortest lap by GPS, s. */
  least?: number;
}

const SOURCES = ["any", "logger", "gps"] as const;
const NOTES = ["", "out", "in", "no fix", "wrong way", "stood"] as const;

/** A lap. A number that is not known is null. */
export interface Lap {
  readonly number: number;
  readonly session: number;
  /** "" for a lap that counts; else why it does not. */
  readonly note: (typeof NOTES)[number];
  readonly best: boolean;
  readonly milliseconds: number | null;
  readonly sectors: readonly (number | null)[];
  /** s, from the start of its session */
  readonly start: number | null;
  /** s, to the best lap */
  readonly gap: number | null;
  /** m/s */
  readonly topSpeed: number | null;
  /** m/s */
  readonly leastSpeed: number | null;
  /** m */
  readonly distance: number | null;
  readonly rows: number;
}

/** The laps, and what there is to say of them. */
export class Laps extends Array<Lap> {
  notes: readonly string[] = [];

  get best(): Lap | undefined {
    return this.find((lap) => lap.best);
  }

  static override get [Symbol.species](): ArrayConstructor {
    return Array;
  }
}

const orNull = (value: number): number | null => (Number.isNaN(value) || value === -1 ? null : value);
const number = (value: number): number | null => (Number.isNaN(value) ? null : value);

function writeLine(at: number, line: FinishLine): void {
  const record = view();
  record.setFloat64(at, line.latitude, true);
  record.setFloat64(at + 8, line.longitude, true);
  record.setFloat64(at + 16, line.heading, true);
  record.setFloat64(at + 24, line.width ?? 0, true);
}

function choices(memory: Memory, options: LapOptions): number {
  const source = SOURCES.indexOf(options.source ?? "any");
  if (source < 0) throw noSuch("source of laps", String(options.source), SOURCES);
  const splits = options.splits ?? [];
  const at = memory.take(32);
  const line = options.line === undefined ? 0 : memory.take(32);
  if (options.line !== undefined) writeLine(line, options.line);
  const ends = memory.take(48 * splits.length);
  splits.forEach((split, i) => {
    if (typeof split !== "number") return writeLine(ends + 48 * i + 8, split);
    if (!(split > 0)) throw new KelError(`a split at ${split} m; accepted: metres above 0, or a line`);
    view().setFloat64(ends + 48 * i, split, true);
  });
  [source, splits.length, line, ends].forEach((value, i) => view().setUint32(at + 4 * i, value, true));
  view().setFloat64(at + 16, options.least ?? 0, true);
  view().setUint32(at + 28, choicesInWords(), true);
  return at;
}

function read(at: number): Lap {
  const sectors = u32(at + 24);
  return {
    number: i32(at),
    session: u32(at + 4),
    note: NOTES[u32(at + 8)] ?? "",
    best: i32(at + 12) !== 0,
    milliseconds: orNull(i32(at + 16)),
    sectors: Array.from({ length: u32(at + 20) }, (_, i) => orNull(i32(sectors + 4 * i))),
    start: number(f64(at + 32)),
    gap: number(f64(at + 40)),
    topSpeed: number(f64(at + 48)),
    leastSpeed: number(f64(at + 56)),
    distance: number(f64(at + 64)),
    rows: u64(at + 72),
  };
}

/** Puts the laps of a stream together. */
export class LapFinder {
  private handle: number;

  constructor(table: Table) {
    this.handle = orError((error) => call("kelGiriApri", table.open, error));
  }

  /** Takes the rows at hand: behind each piece of a stream. */
  add(): void {
    orError((error) => call("kelGiriAggiungi", this.handle, error));
  }

  /** The laps of the rows that it has taken. */
  laps(options: LapOptions = {}): Laps {
    return within((memory) => {
      const chosen = choices(memory, options);
      orError((error) => call("kelGiriCalcola", this.handle, chosen, error));
      const found = new Laps();
      const at = memory.take(80);
      for (let i = 0; i < callUnsigned("kelGiriNumero", this.handle); i++)
        if (call("kelGiriGiro", this.handle, i, at) !== 0) found.push(read(at));
      found.notes = callText("kelGiriDetto", this.handle)
        .split("\n")
        .filter((line) => line !== "");
      return found;
    });
  }

  close(): void {
    call("kelGiriChiudi", this.handle);
    this.handle = 0;
  }
}

/** The laps of a recording or a capture, as its logger has timed them or by GPS. */
export function laps(table: Table, options: LapOptions = {}): Laps {
  const finder = new LapFinder(table);
  try {
    finder.add();
    return finder.laps(options);
  } finally {
    finder.close();
  }
}
