import { RecordingError, Stream, type Table } from "kelfunzioni/core";
import { Growing, type Numbers } from "./growing.js";
import { pieces } from "./pieces.js";
import { texts } from "./texts.js";

const CHANNEL_RECORD = 112;
const MOST_CHANNELS = 65536 * CHANNEL_RECORD;

export type Progress = (part: number) => void;

/** The files of a recording or a capture. They are read anew for whatever is asked of them, and never held as a whole. */
export class Source {
  private constructor(
    private readonly channels: Uint8Array | null,
    readonly file: File,
  ) {}

  static async of(files: readonly File[]): Promise<Source> {
    const [one, other] = [...files].sort((a, b) => a.size - b.size);
    if (one === undefined || files.length > 2) throw new RecordingError(texts.tooMany);
    if (other === undefined) return new Source(null, one);
    // The channels are whole records of 112 bytes, and as a rule the smaller file.
    const swapped = one.size % CHANNEL_RECORD !== 0 && other.size % CHANNEL_RECORD === 0 && other.size <= MOST_CHANNELS;
    const [head, samples] = swapped ? [other, one] : [one, other];
    if (head.size > MOST_CHANNELS) throw new RecordingError(texts.noChannels(head.name, head.size));
    const channels = new Uint8Array(await head.arrayBuffer());
    return new Source(channels, samples);
  }

  /** Reads the file from its beginning to its end: `take` is called for the rows of each piece. `wanted` may end it. */
  async pass(take: (rows: Table, part: number) => void, wanted: () => boolean, progress: Progress, set: (all: Table) => void = () => undefined): Promise<{ notes: string; leftover: number }> {
    const { size } = this.file;
    const stream = this.channels === null ? Stream.capture() : Stream.recording(this.channels, { size });
    try {
      set(stream);
      let done = 0;
      for await (const piece of pieces(this.file)) {
        if (!wanted()) throw new RecordingError(texts.cancelled);
        stream.push(piece);
        done += piece.length;
        take(stream, done / size);
        progress(done / size);
      }
      stream.end();
      take(stream, 1);
      return { notes: stream.notes, leftover: stream.leftover };
    } finally {
      stream.close();
    }
  }

  get capture(): boolean {
    return this.channels === null;
  }
}

/** Columns of a table that comes piece by piece, and its times. */
export class Gathered {
  private readonly columns: readonly Growing<Numbers>[];
  private readonly stamps: Growing<Float64Array> | null;
  timed = true;

  constructor(
    table: Table,
    private readonly wanted: readonly number[],
    withTimes: boolean,
  ) {
    this.columns = wanted.map((column) => new Growing<Numbers>(table.columns[column]?.kind === "float" ? Float32Array : Float64Array));
    this.stamps = withTimes ? new Growing(Float64Array) : null;
  }

  add(table: Table, part: number): void {
    if (table.rows === 0) return;
    if (this.stamps !== null) {
      const times = table.times();
      this.timed = times !== null;
      if (times !== null) this.stamps.add(times, part);
    }
    table.readAll(this.wanted).forEach(({ values, valid }, i) => {
      const numbers = values instanceof BigInt64Array ? Float64Array.from(values, Number) : values instanceof Uint32Array ? Float64Array.from(values) : values;
      for (let row = 0; row < numbers.length; row++) if (((valid[row >> 3] ?? 0) & (1 << (row & 7))) === 0) numbers[row] = NaN;
      this.columns[i]?.add(numbers, part);
    });
  }

  get times(): Float64Array | null {
    return this.timed ? (this.stamps?.values ?? null) : null;
  }

  get values(): readonly Numbers[] {
    return this.columns.map((column) => column.values);
  }
}
