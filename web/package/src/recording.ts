import { KelError, RecordingError, noSuch } from "./errors.js";
import { CatalogueFunction } from "./function.js";
import {
  Memory,
  allocate,
  bytes,
  call,
  callCount,
  callText,
  callUnsigned,
  i32,
  release,
  text,
  textAt,
  u32,
  u64,
  view,
  within,
} from "./module.js";

const ERROR = 512;
const TEXT = 32;
const STAMPS = ["found", "none", "u32ms", "u64us"] as const;
const KINDS = ["float", "double", "uint32", "instant", "none"] as const;
const BYTES = { float: 4, double: 8, uint32: 4, instant: 8, none: 0 } as const;

/** The time stamp before each record. */
export type Stamps = (typeof STAMPS)[number];

export interface RecordingOptions {
  /** "found": that whose stamps run forward in even steps. */
  stamps?: Stamps;
  /** Samples lie one behind the other, whatever the channel records say. */
  compact?: boolean;
  /** GPS packets as the device shows them, not in WGS 84. */
  device?: boolean;
  /** A column of texts for each packet too. */
  packets?: boolean;
  /** Records a second where there are no stamps. */
  rate?: number;
}

export interface ColumnInfo {
  readonly name: string;
  readonly longName: string;
  readonly unit: string;
  readonly function: CatalogueFunction | null;
  readonly channel: number;
  readonly kind: (typeof KINDS)[number];
  readonly decimals: number;
}

/** Rows of a column. */
export interface Column {
  readonly info: ColumnInfo;
  /** One a row, 0 where the row has none; instants are microseconds since 1970, UTC. */
  readonly values: Float32Array | Float64Array | Uint32Array | BigInt64Array;
  /** Bit i, the lowest of a byte first: whether row i has a value. */
  readonly valid: Uint8Array;
}

export interface Rows {
  from?: number;
  count?: number;
}

/** Where rows lie that the module is to read: bytes of the caller, or those of a file that come piece by piece. */
export type Bytes = Uint8Array | { readonly size: number; stream(): ReadableStream<Uint8Array> };

/** The message of an error that a function of the module has written, if it says that it failed. */
export function orError(work: (error: number) => number): number {
  return within((memory) => {
    const error = memory.take(ERROR);
    const result = work(error) >>> 0;
    if (result === 0) throw new RecordingError(text(error, ERROR) || "it cannot be read");
    return result;
  });
}

/** Records or GPS solutions as a table: a row a record, a column a channel, a subfield or a field of a solution. */
export abstract class Table {
  private described: readonly ColumnInfo[] | undefined;

  protected constructor(
    private handle: number,
    private readonly data: number,
  ) {}

  /** For the package itself. */
  get open(): number {
    if (this.handle === 0) throw new KelError("the recording is closed; accepted: one that is open");
    return this.handle;
  }

  /** The first of the rows at hand: 0 but for a stream. */
  get first(): number {
    return callCount("kelRegPrima", this.open);
  }

  /** Which framing was found, and what speaks against the one that was asked for. */
  get notes(): string {
    return callText("kelRegDetto", this.open);
  }

  /** How many rows are at hand: all, but for a stream. */
  get rows(): number {
    return callCount("kelRegRighe", this.open);
  }

  /** Bytes behind the last whole record or message. */
  get leftover(): number {
    return callCount("kelRegAvanzo", this.open);
  }

  get columns(): readonly ColumnInfo[] {
    const open = this.open;
    this.described ??= within((memory) => {
      const at = memory.take(48);
      return Array.from({ length: callUnsigned("kelRegNumColonne", open) }, (_, i) => {
        call("kelRegDescrivi", open, i, at);
        const identifier = u32(at + 12);
        return {
          name: textAt(at),
          longName: textAt(at + 4),
          unit: textAt(at + 8),
          function: identifier === 0 ? null : new CatalogueFunction(identifier),
          channel: u32(at + 16),
          kind: KINDS[u32(at + 20)] ?? "none",
          decimals: i32(at + 24),
        };
      });
    });
    return this.described;
  }

  /** The seconds of rows; null where records have no time. */
  times(rows: Rows = {}): Float64Array | null {
    const [from, many] = this.within(rows);
    return within((memory) => {
      const at = memory.take(8 * many);
      if (call("kelRegTempi", this.open, BigInt(from), many, at) === 0) return null;
      return new Float64Array(bytes().slice(at, at + 8 * many).buffer);
    });
  }

  /** The values of rows of a column. */
  read(column: string | number, rows: Rows = {}): Column {
    return this.readAll([column], rows)[0] as Column;
  }

  /** The same of several columns: what they have in common is worked out once. */
  readAll(columns: readonly (string | number)[], rows: Rows = {}): Column[] {
    const [from, many] = this.within(rows);
    const chosen = columns.map((column) => this.column(column));
    return within((memory) => {
      const places = chosen.map(({ info }) => [memory.take(BYTES[info.kind] * many), memory.take(Math.ceil(many / 8))] as const);
      this.fill(memory, from, many, chosen.map(({ place }, i) => [place, ...(places[i] as readonly [number, number]), 0]));
      return chosen.map(({ info }, i) => {
        const [values, valid] = places[i] as readonly [number, number];
        const raw = bytes().slice(values, values + BYTES[info.kind] * many).buffer;
        return {
          info,
          values:
            info.kind === "double"
              ? new Float64Array(raw)
              : info.kind === "uint32"
                ? new Uint32Array(raw)
                : info.kind === "instant"
                  ? new BigInt64Array(raw)
                  : new Float32Array(raw),
          valid: bytes().slice(valid, valid + Math.ceil(many / 8)),
        };
      });
    });
  }

  /** The texts of rows of a column, as the library shows them. */
  texts(column: string | number, rows: Rows = {}): string[] {
    const { place } = this.column(column);
    const [from, many] = this.within(rows);
    return within((memory) => {
      const at = memory.take(TEXT * many);
      this.fill(memory, from, many, [[place, 0, 0, at]]);
      return Array.from({ length: many }, (_, i) => text(at + TEXT * i, TEXT));
    });
  }

  /** Shows a column in another unit of its function. */
  setUnit(column: string | number, unit: string): void {
    const { place, info } = this.column(column);
    const done = within((memory) => call("kelRegUnita", this.open, place, memory.text(unit)));
    if (done === 0) throw noSuch(`unit of ${info.name}`, unit, info.function?.units ?? []);
    this.described = undefined;
  }

  /** The rows of a span of time: the first and how many; null where there is none. */
  between(start: number, stop: number): Required<Rows> | null {
    return within((memory) => {
      const at = memory.take(16);
      if (call("kelRegTratto", this.open, start, stop, at, at + 8) === 0) return null;
      return { from: u64(at), count: u64(at + 8) };
    });
  }

  /** Gives its memory back. */
  close(): void {
    if (this.handle === 0) return;
    call("kelRegChiudi", this.handle);
    release(this.data);
    this.handle = 0;
  }

  private column(which: string | number): { place: number; info: ColumnInfo } {
    const all = this.columns;
    const place = typeof which === "number" ? which : all.findIndex((one) => one.name === which);
    const info = all[place];
    if (info === undefined) throw noSuch("column", String(which), all.map((one) => one.name));
    return { place, info };
  }

  private within(rows: Rows): readonly [number, number] {
    const { first } = this;
    const end = first + this.rows;
    const from = rows.from ?? first;
    const many = rows.count ?? end - from;
    if (!Number.isInteger(from) || !Number.isInteger(many) || from < first || many < 0 || from + many > end)
      throw new KelError(`rows ${from} to ${from + many} are not in it; accepted: ${first} to ${end}`);
    return [from, many];
  }

  /** Each reading is a column, and where its values, their bitmap and its texts are to be put; 0: nowhere. */
  private fill(memory: Memory, from: number, count: number, readings: readonly (readonly number[])[]): void {
    const at = memory.take(16 * readings.length);
    readings.flat().forEach((place, i) => view().setUint32(at + 4 * i, place, true));
    if (call("kelRegLeggi", this.open, BigInt(from), count, at, readings.length) === 0)
      throw new KelError(`out of memory: ${count} rows cannot be read at once`);
  }
}

/** Room in the module for so many bytes, filled by the work; released again where that fails. */
async function stored(source: Bytes, progress?: (done: number) => void): Promise<{ at: number; size: number }> {
  if (source instanceof Uint8Array) {
    const at = allocate(source.length);
    bytes().set(source, at);
    return { at, size: source.length };
  }
  const at = allocate(source.size);
  try {
    let done = 0;
    const reader = source.stream().getReader();
    for (let piece = await reader.read(); !piece.done; piece = await reader.read()) {
      if (done + piece.value.length > source.size) throw new RecordingError("the file has grown while it was read");
      bytes().set(piece.value, at + done);
      done += piece.value.length;
      progress?.(done);
    }
    return { at, size: done };
  } catch (cause) {
    release(at);
    throw cause;
  }
}

let words = 0;

/** What the module's messages call the choices: the names that they have here. They stay as long as the module. */
export function choicesInWords(): number {
  if (words === 0) {
    const memory = new Memory();
    words = memory.take(20);
    ["stamps", "compact", "line", "least", "splits"].forEach((word, i) => {
      const at = memory.text(word);
      view().setUint32(words + 4 * i, at, true);
    });
  }
  return words;
}

/** The choices of a recording as the module takes them, and how long a stream will be. */
function opening(memory: Memory, options: RecordingOptions, size = 0): number {
  const stamps = STAMPS.indexOf(options.stamps ?? "found");
  if (stamps < 0) throw noSuch("framing", String(options.stamps), STAMPS);
  const at = memory.take(40);
  const record = view();
  record.setUint32(at, stamps, true);
  record.setUint32(at + 4, options.compact ? 1 : 0, true);
  record.setUint32(at + 8, options.device ? 1 : 0, true);
  record.setUint32(at + 12, options.packets ? 1 : 0, true);
  record.setFloat64(at + 16, options.rate ?? 0, true);
  record.setBigUint64(at + 24, BigInt(size), true);
  record.setUint32(at + 32, choicesInWords(), true);
  return at;
}

/** A logger's recording: its channel records, and the records of samples. */
export class Recording extends Table {
  /** Opens one. `samples` may be a file: it is copied piece by piece, so that it is in memory once. */
  static async open(
    channels: Bytes,
    samples: Bytes,
    options: RecordingOptions = {},
    progress?: (done: number) => void,
  ): Promise<Recording> {
    within((memory) => opening(memory, options));  // says what is wrong before anything is read
    const head = await stored(channels);
    let data = { at: 0, size: 0 };
    try {
      data = await stored(samples, progress);
      const handle = orError((error) =>
        within((memory) => {
          return call("kelRegApri", head.at, head.size, data.at, data.size, opening(memory, options), error);
        }),
      );
      return new Recording(handle, data.at);
    } catch (cause) {
      release(data.at);
      throw cause;
    } finally {
      release(head.at);
    }
  }

  /** The framing of the records. */
  get stamps(): Stamps {
    return STAMPS[callUnsigned("kelRegOrario", this.open)] ?? "found";
  }
}

/** The byte stream of a u-blox receiver: a row for each solution. */
export class Capture extends Table {
  static async open(stream: Bytes, progress?: (done: number) => void): Promise<Capture> {
    const data = await stored(stream, progress);
    try {
      return new Capture(
        orError((error) => call("kelRegApriUbx", data.at, data.size, error)),
        data.at,
      );
    } catch (cause) {
      release(data.at);
      throw cause;
    }
  }
}

/**
 * A recording or a capture that comes piece by piece and is not kept: its rows are those of the last piece, and a file of any
 * length takes the memory of one piece.
 */
export class Stream extends Table {
  private room = { at: 0, size: 0 };

  /** The samples of these channels. A length that is known helps to find the framing. */
  static recording(channels: Uint8Array, options: RecordingOptions & { size?: number } = {}): Stream {
    return new Stream(
      orError((error) =>
        within((memory) => {
          const head = memory.write(channels);
          return call("kelRegApri", head, channels.length, 0, 0, opening(memory, options, options.size), error);
        }),
      ),
      0,
    );
  }

  static capture(): Stream {
    return new Stream(orError((error) => call("kelRegApriUbx", 0, 0, error)), 0);
  }

  /** Takes the next piece; the rows of the one before go. */
  push(piece: Uint8Array): void {
    if (piece.length === 0) return;
    if (piece.length > this.room.size) {
      release(this.room.at);
      this.room = { at: 0, size: 0 };
      this.room = { at: allocate(piece.length), size: piece.length };
    }
    bytes().set(piece, this.room.at);
    orError((error) => call("kelRegSpingi", this.open, this.room.at, piece.length, error));
  }

  /** There are no more: what was held back until the framing was known is at hand. */
  end(): void {
    orError((error) => call("kelRegSpingi", this.open, 0, 0, error));
  }

  override close(): void {
    super.close();
    release(this.room.at);
    this.room = { at: 0, size: 0 };
  }
}
