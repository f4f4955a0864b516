import type { Numbers } from "./growing.js";
import type { Curve, Span } from "./protocol.js";

const BLOCK = 64;

/** A column, and the least and the greatest value of each 64 rows, so that a curve of millions of them is drawn at once. */
export class Drawable {
  private readonly low: Numbers;
  private readonly high: Numbers;

  constructor(readonly values: Numbers) {
    const blocks = Math.ceil(values.length / BLOCK);
    const kind = values.constructor as new (length: number) => Numbers;
    this.low = new kind(blocks);
    this.high = new kind(blocks);
    for (let i = 0; i < blocks; i++) {
      const [low, high] = extremes(values, values, i * BLOCK, Math.min((i + 1) * BLOCK, values.length));
      this.low[i] = low;
      this.high[i] = high;
    }
  }

  /** The rows of a span with no more points than can be seen: of each piece its least and its greatest value. */
  curve(along: Float64Array | null, [from, to]: readonly [number, number], points: number): Curve {
    const x = (row: number): number => (along === null ? row : (along[row] ?? 0));
    if (to - from <= points * 2)
      return { x: Float64Array.from({ length: to - from }, (_, i) => x(from + i)), y: Float64Array.from(this.values.subarray(from, to)) };
    const blocks = to - from > points * 4 * BLOCK;
    const unit = blocks ? BLOCK : 1;
    const [low, high] = blocks ? [this.low, this.high] : [this.values, this.values];
    const [first, last] = [Math.floor(from / unit), Math.ceil(to / unit)];
    const xs = new Float64Array(points * 2);
    const ys = new Float64Array(points * 2);
    for (let i = 0; i < points; i++) {
      const begin = first + Math.floor((i * (last - first)) / points);
      const end = first + Math.floor(((i + 1) * (last - first)) / points);
      [ys[2 * i], ys[2 * i + 1]] = extremes(low, high, begin, end);
      xs[2 * i] = xs[2 * i + 1] = x(begin * unit);
    }
    return { x: xs, y: ys };
  }
}

/** Values that are not numbers are left out; what has no others has none. */
function extremes(lows: Numbers, highs: Numbers, from: number, to: number): [number, number] {
  let low = Infinity;
  let high = -Infinity;
  for (let row = from; row < to; row++) {
    const least = lows[row] as number;
    const most = highs[row] as number;
    if (least < low) low = least;
    if (most > high) high = most;
  }
  return low > high ? [NaN, NaN] : [low, high];
}

/** The first row that is not before a place. */
export function rowAt(along: Float64Array, wanted: number): number {
  let low = 0;
  let high = along.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if ((along[middle] as number) < wanted) low = middle + 1;
    else high = middle;
  }
  return low;
}

/** The rows of a span, and one more on each side, so that curves reach the edges. */
export function rowsOf(along: Float64Array | null, span: Span, rows: number): readonly [number, number] {
  if (span === null) return [0, rows];
  if (along === null) return [Math.max(0, Math.floor(span[0])), Math.min(rows, Math.ceil(span[1]) + 1)];
  return [Math.max(0, rowAt(along, span[0]) - 1), Math.min(rows, rowAt(along, span[1]) + 1)];
}
