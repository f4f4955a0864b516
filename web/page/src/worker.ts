// Recordings are read here, so that the page stays free.
import { Capture, Recording, RecordingError, init, laps, type Lap, type Table } from "kelfunzioni/core";
import type { Axis, Curve, Name, Question, Requests, Session, Span } from "./protocol.js";
import { texts } from "./texts.js";

const CHANNEL_RECORD = 112;
const KEPT = 8;

let table: Table | undefined;
let times: Float64Array | null = null;
let metres: Float64Array | null = null;
let found: readonly Lap[] = [];
const kept = new Map<number, Float64Array | Float32Array>();

const opened = (): Table => {
  if (table === undefined) throw new Error(texts.chosenNone);
  return table;
};

/** The values of a column, not a number where a row has none. */
function values(channel: number): Float64Array | Float32Array {
  let all = kept.get(channel);
  if (all === undefined) {
    const { values: read, valid } = opened().read(channel);
    all = read instanceof Float32Array || read instanceof Float64Array ? read : Float64Array.from(read as Uint32Array, Number);
    for (let i = 0; i < all.length; i++) if (((valid[i >> 3] ?? 0) & (1 << (i & 7))) === 0) all[i] = NaN;
    if (kept.size >= KEPT) kept.delete(kept.keys().next().value as number);
  } else kept.delete(channel);
  kept.set(channel, all);
  return all;
}

const columnNamed = (test: (name: string, unit: string) => boolean): number =>
  opened().columns.findIndex((column) => test(column.name.toLowerCase(), column.unit));
const speedColumn = (): number => {
  const inUnits = (unit: string): boolean => unit === "km/h" || unit === "mph";
  const gps = columnNamed((name, unit) => name.includes("gps") && name.includes("speed") && inUnits(unit));
  const any = columnNamed((name, unit) => name.includes("speed") && !name.includes("gps") && inUnits(unit));
  // That of GPS knows no slip, but where the fix was lost the wheels know better.
  const whole = gps >= 0 && values(gps).every((one) => one === one);
  return whole || any < 0 ? gps : any;
};

/** Metres driven until each row, by the speed. */
function distance(): Float64Array | null {
  const speed = speedColumn();
  if (metres !== null || speed < 0 || times === null) return metres;
  const factor = opened().columns[speed]?.unit === "mph" ? 0.44704 : 1 / 3.6;
  const v = values(speed);
  metres = new Float64Array(v.length);
  for (let i = 1, sum = 0, pace = 0; i < v.length; i++) {
    const step = (times[i] ?? 0) - (times[i - 1] ?? 0);
    const one = v[i] as number;
    if (one === one) pace = one;
    if (step > 0 && step < 10) sum += step * pace * factor;
    metres[i] = sum;
  }
  return metres;
}

const axisOf = (axis: Axis): Float64Array | null => (axis === "distance" ? distance() : times);

/** The rows of a span. */
function rowsOf(along: Float64Array | null, span: Span): readonly [number, number] {
  const rows = opened().rows;
  if (span === null) return [0, rows];
  if (along === null) return [Math.max(0, Math.floor(span[0])), Math.min(rows, Math.ceil(span[1]) + 1)];
  const place = (wanted: number): number => {
    let low = 0;
    let high = rows;
    while (low < high) {
      const middle = (low + high) >> 1;
      if ((along[middle] ?? 0) < wanted) low = middle + 1;
      else high = middle;
    }
    return low;
  };
  return [Math.max(0, place(span[0]) - 1), Math.min(rows, place(span[1]) + 1)];
}

/** A curve with no more points than can be seen: of each piece its least and its greatest value. */
function curve(channel: number, along: Float64Array | null, span: Span, points: number): Curve {
  const v = values(channel);
  const [from, to] = rowsOf(along, span);
  const x = (row: number): number => (along === null ? row : (along[row] ?? 0));
  const many = to - from;
  if (many <= points * 2) {
    const xs = Float64Array.from({ length: many }, (_, i) => x(from + i));
    return { x: xs, y: Float64Array.from(v.subarray(from, to)) };
  }
  const xs = new Float64Array(points * 2);
  const ys = new Float64Array(points * 2);
  for (let i = 0; i < points; i++) {
    const begin = from + Math.floor((i * many) / points);
    const end = from + Math.floor(((i + 1) * many) / points);
    let low = NaN;
    let high = NaN;
    for (let row = begin; row < end; row++) {
      const one = v[row] as number;
      if (!(one >= low)) low = one === one ? one : low;
      if (!(one <= high)) high = one === one ? one : high;
    }
    xs[2 * i] = xs[2 * i + 1] = x(begin);
    ys[2 * i] = low;
    ys[2 * i + 1] = high;
  }
  return { x: xs, y: ys };
}

type Progress = (done: number) => void;

async function openFiles(files: readonly File[], progress: Progress): Promise<Table> {
  const whole = files.reduce((sum, file) => sum + file.size, 0) || 1;
  const tell = (done: number): void => progress(done / whole);
  if (files.length === 1) {
    const capture = await Capture.open(files[0] as File, tell);
    if (capture.rows > 0) return capture;
    capture.close();
    throw new RecordingError(texts.needBoth((files[0] as File).name));
  }
  if (files.length !== 2) throw new RecordingError(texts.tooMany);
  // The channels are whole records of 112 bytes, and as a rule the smaller file.
  const [a, b] = [...files].sort((one, other) => one.size - other.size) as [File, File];
  const swapped = a.size % CHANNEL_RECORD !== 0 && b.size % CHANNEL_RECORD === 0;
  return swapped ? Recording.open(b, a, {}, tell) : Recording.open(a, b, {}, tell);
}

async function open(files: readonly File[], progress: Progress): Promise<Session> {
  table?.close();
  table = undefined;
  times = metres = null;
  kept.clear();
  found = [];
  const next = await openFiles(files, progress);
  table = next;
  times = next.times();
  let lapNotes = "";
  try {
    const list = laps(next);
    found = [...list];
    lapNotes = list.notes.join(" ");
  } catch (error) {
    lapNotes = (error as Error).message;
  }
  const columns = next.columns;
  return {
    name: files.map((file) => file.name).join(", "),
    channels: columns.map((column) => ({
      name: column.name,
      unit: column.unit,
      units: column.function?.units.includes(column.unit) ? column.function.units : column.unit ? [column.unit] : [],
      decimals: column.decimals,
      drawable: column.kind !== "none" && column.kind !== "instant",
    })),
    rows: next.rows,
    notes: next.notes,
    leftover: next.leftover,
    timed: times !== null,
    placed: columnNamed((name) => name === "latitude") >= 0,
    speed: speedColumn() >= 0 && times !== null,
    first: times?.[0] ?? 0,
    last: times?.at(-1) ?? next.rows,
    metres: distance()?.at(-1) ?? 0,
    laps: found,
    lapNotes,
  };
}

/** A column along the distance of a lap, and the time since its start. */
function along(lap: Lap, channel: number, distances: Float64Array): { value: Float64Array; time: Float64Array } {
  const start = (times?.[0] ?? 0) + (lap.start ?? 0);
  const [from, to] = rowsOf(times, [start, start + (lap.milliseconds ?? 0) / 1000]);
  const way = distance() as Float64Array;
  const v = values(channel);
  const value = new Float64Array(distances.length);
  const time = new Float64Array(distances.length);
  for (let i = 0, row = from; i < distances.length; i++) {
    const wanted = (way[from] as number) + (distances[i] as number);
    while (row + 1 < to - 1 && (way[row + 1] as number) < wanted) row++;
    const step = (way[row + 1] as number) - (way[row] as number);
    const part = step > 0 ? Math.min(1, Math.max(0, (wanted - (way[row] as number)) / step)) : 0;
    const between = (all: Float64Array | Float32Array): number => (all[row] as number) + ((all[row + 1] as number) - (all[row] as number)) * part;
    value[i] = between(v);
    time[i] = between(times as Float64Array) - start;
  }
  return { value, time };
}

const handlers: { [N in Name]: (what: Requests[N][0], progress: Progress) => Promise<Requests[N][1]> | Requests[N][1] } = {
  async start({ module }) {
    await init(module);
    return null;
  },
  open: ({ files }, progress) => open(files, progress),
  unit({ channel, unit }) {
    opened().setUnit(channel, unit);
    kept.delete(channel);
    return null;
  },
  curves: ({ channels, axis, span, points }) => channels.map((channel) => curve(channel, axisOf(axis), span, points)),
  track({ channel, points }) {
    const latitude = values(columnNamed((name) => name === "latitude"));
    const longitude = values(columnNamed((name) => name === "longitude"));
    const v = values(channel);
    const step = Math.max(1, Math.floor(v.length / points));
    const many = Math.floor(v.length / step);
    const middle = (latitude.find((one) => one === one) ?? 0) * (Math.PI / 180);
    const pick = (all: Float64Array | Float32Array, factor: number): Float64Array => Float64Array.from({ length: many }, (_, i) => (all[i * step] as number) * factor);
    return { x: pick(longitude, Math.cos(middle)), y: pick(latitude, 1), value: pick(v, 1) };
  },
  compare({ lap, channel }) {
    const best = found.find((one) => one.best) as Lap;
    const points = 1000;
    const length = Math.min(best.distance ?? 0, found[lap]?.distance ?? 0) || distance()?.at(-1) || 0;
    const distances = Float64Array.from({ length: points }, (_, i) => (i * length) / (points - 1));
    const one = along(found[lap] as Lap, channel, distances);
    const other = along(best, channel, distances);
    return { distance: distances, lap: one.value, best: other.value, gap: one.time.map((time, i) => time - (other.time[i] as number)) };
  },
  csv({ channels, axis, span }) {
    const way = axisOf(axis);
    const [from, to] = rowsOf(way, span);
    const columns = opened().columns;
    const data = channels.map(values);
    const cell = (text: string): string => (/[",\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);
    const head = [way === null ? "row" : axis === "time" ? "time s" : "distance m", ...channels.map((one) => `${columns[one]?.name} ${columns[one]?.unit}`.trim())];
    const lines: string[] = [head.map(cell).join(",")];
    const parts: string[] = [];
    for (let row = from; row < to; row++) {
      const first = way === null ? String(row) : (way[row] as number).toFixed(3);
      lines.push([first, ...data.map((all, i) => { const one = all[row] as number; return one === one ? one.toFixed(Math.max(columns[channels[i] as number]?.decimals ?? 0, 3)) : ""; })].join(","));
      if (lines.length > 10000) { parts.push(`${lines.join("\n")}\n`); lines.length = 0; }
    }
    return new Blob([...parts, `${lines.join("\n")}\n`], { type: "text/csv" });
  },
};

addEventListener("message", (event: MessageEvent<Question>) => {
  const { id, name, what } = event.data;
  let told = 0;
  const progress = (done: number): void => {
    if (performance.now() - told < 50) return;
    told = performance.now();
    postMessage({ id, done });
  };
  Promise.resolve()
    .then(() => (handlers[name] as (what: unknown, progress: Progress) => unknown)(what, progress))
    .then((value) => postMessage({ id, value }))
    .catch((error: unknown) => postMessage({ id, error: (error as Error).message }));
});
