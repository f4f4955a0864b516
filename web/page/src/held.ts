import { type Lap, type Table } from "kelfunzioni/core";
import { Drawable, rowAt, rowsOf } from "./curve.js";
import type { Numbers } from "./growing.js";
import type { Axis, ChannelInfo, Comparison, Curve, Row, Session, Span } from "./protocol.js";
import { Gathered, Source, type Progress } from "./source.js";
import { texts } from "./texts.js";

const KEPT = 12;
const FIRST = 3;
const COMPARED = 1000;
const MS_IN_MPH = 0.44704;
const LINES = 10000;

const nothing = (): void => undefined;
const inUnits = (unit: string): boolean => unit === "km/h" || unit === "mph";

/** A recording that is shown: its times, and the columns that are looked at. */
export class Held {
  private times: Float64Array | null = null;
  private metres: Float64Array | null = null;
  private rows = 0;
  private channels: readonly ChannelInfo[] = [];
  private readonly units = new Map<number, string>();
  private readonly kept = new Map<number, Drawable>();
  private reading: Promise<unknown> = Promise.resolve();
  private wanted = true;

  constructor(private readonly source: Source) {}

  /** Ends what it is doing; it is asked nothing more. */
  cancel(): void {
    this.wanted = false;
    this.kept.clear();
  }

  async open(name: string, progress: Progress): Promise<Session> {
    let chosen: readonly number[] = [];
    let gathered: Gathered | undefined;
    const { notes, leftover } = await this.source.pass(
      (table, part) => {
        this.rows += table.rows;
        gathered?.add(table, part);
      },
      () => this.wanted,
      progress,
      (table) => {
        this.channels = described(table);
        chosen = this.channels.flatMap((channel, i) => (channel.drawable && channel.unit !== "" ? [i] : [])).slice(0, FIRST);
        gathered = new Gathered(table, chosen, true);
      },
    );
    if (this.source.capture && this.rows === 0) throw new Error(texts.needBoth(this.source.file.name));
    this.keep(chosen, gathered?.values ?? []);
    this.times = gathered?.times ?? null;
    return {
      name,
      channels: this.channels,
      chosen,
      rows: this.rows,
      notes,
      leftover,
      timed: this.times !== null,
      placed: this.places.length === 2,
      speed: this.times !== null && this.named((_, unit) => inUnits(unit)) >= 0,
      first: this.times?.[0] ?? 0,
      last: this.times?.at(-1) ?? this.rows,
    };
  }

  /** Shows a channel in another unit from now on. */
  unit(channel: number, unit: string): void {
    this.units.set(channel, unit);
    this.kept.delete(channel);
    this.channels = this.channels.map((one, i) => (i === channel ? { ...one, unit } : one));
  }

  async curves(channels: readonly number[], axis: Axis, span: Span, points: number): Promise<readonly Curve[]> {
    const way = await this.along(axis);
    const columns = await this.columns(channels);
    const rows = rowsOf(way, span, this.rows);
    return columns.map((column) => column.curve(way, rows, points));
  }

  /** The row that is nearest to a place on the axis. */
  async row(channels: readonly number[], axis: Axis, place: number): Promise<Row> {
    const way = await this.along(axis);
    const columns = await this.columns(channels);
    const last = Math.max(0, this.rows - 1);
    let at = Math.min(last, way === null ? Math.max(0, Math.round(place)) : rowAt(way, place));
    if (way !== null && at > 0 && place - (way[at - 1] as number) < (way[at] as number) - place) at--;
    return { x: way === null ? at : (way[at] ?? 0), values: columns.map((column) => column.values[at] ?? NaN) };
  }

  async length(): Promise<number> {
    return (await this.distance())?.at(-1) ?? 0;
  }

  async track(channel: number, points: number): Promise<{ x: Float64Array; y: Float64Array; value: Float64Array }> {
    const columns = await this.columns([...this.places, channel]);
    const [latitude, longitude, values] = columns.map((one) => one.values) as [Numbers, Numbers, Numbers];
    const step = Math.max(1, Math.floor(this.rows / points));
    const many = Math.floor(this.rows / step);
    const middle = (latitude.find((one) => one === one) ?? 0) * (Math.PI / 180);
    const pick = (all: Numbers, factor: number): Float64Array => Float64Array.from({ length: many }, (_, i) => (all[i * step] as number) * factor);
    return { x: pick(longitude, Math.cos(middle)), y: pick(latitude, 1), value: pick(values, 1) };
  }

  /** A channel in two laps, along the way since their starts, and the time that one is behind the other. */
  async compare(lap: Lap, other: Lap, channel: number): Promise<Comparison> {
    const way = (await this.distance()) as Float64Array;
    const [column] = await this.columns([channel]);
    const length = Math.min(other.distance ?? 0, lap.distance ?? 0) || way.at(-1) || 0;
    const distance = Float64Array.from({ length: COMPARED }, (_, i) => (i * length) / (COMPARED - 1));
    const values = (column as Drawable).values;
    const one = this.alongLap(lap, values, way, distance);
    const two = this.alongLap(other, values, way, distance);
    return { distance, lap: one.value, other: two.value, gap: one.time.map((time, i) => time - (two.time[i] as number)) };
  }

  async csv(channels: readonly number[], axis: Axis, span: Span): Promise<Blob> {
    const way = await this.along(axis);
    const data = (await this.columns(channels)).map((column) => column.values);
    const [from, to] = rowsOf(way, span, this.rows);
    const shown = channels.map((one) => this.channels[one]);
    const decimals = shown.map((one) => Math.max(one?.decimals ?? 0, 3));
    const cell = (text: string): string => (/[",\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);
    const head = [way === null ? texts.rowsAxis : texts.axisColumn[axis], ...shown.map((one) => `${one?.name} ${one?.unit}`.trim())];
    const parts = [`${head.map(cell).join(",")}\n`];
    for (let begin = from; begin < to && this.wanted; begin += LINES) {
      const lines: string[] = [];
      for (let row = begin; row < Math.min(begin + LINES, to); row++) {
        const cells = data.map((all, i) => { const one = all[row] as number; return one === one ? one.toFixed(decimals[i]) : ""; });
        lines.push([way === null ? String(row) : (way[row] as number).toFixed(3), ...cells].join(","));
      }
      parts.push(`${lines.join("\n")}\n`);
      await new Promise((done) => setTimeout(done, 0));  // other questions are answered in between
    }
    return new Blob(parts, { type: "text/csv" });
  }

  private named(test: (name: string, unit: string) => boolean): number {
    return this.channels.findIndex((channel) => test(channel.name.toLowerCase(), channel.unit));
  }

  /** Latitude and longitude, where there are both. */
  private get places(): readonly number[] {
    const both = [this.named((name) => name === "latitude"), this.named((name) => name === "longitude")];
    return both.includes(-1) ? [] : both;
  }

  private keep(channels: readonly number[], values: readonly Numbers[]): void {
    channels.forEach((channel, i) => this.kept.set(channel, new Drawable(values[i] as Numbers)));
    for (const old of this.kept.keys()) {
      if (this.kept.size <= Math.max(KEPT, channels.length)) break;
      if (!channels.includes(old)) this.kept.delete(old);
    }
  }

  /** Columns; those that are not at hand are read from the file, one such reading behind the other. */
  private async columns(channels: readonly number[]): Promise<readonly Drawable[]> {
    while (channels.some((channel) => !this.kept.has(channel))) {
      const before = this.reading;
      const next = before.then(async () => {
        const missing = [...new Set(channels.filter((channel) => !this.kept.has(channel)))];
        if (missing.length === 0) return;
        const units = missing.map((channel) => this.units.get(channel));
        let gathered: Gathered | undefined;
        await this.source.pass(
          (table, part) => gathered?.add(table, part),
          () => this.wanted,
          nothing,
          (table) => {
            missing.forEach((channel, i) => { const unit = units[i]; if (unit !== undefined) table.setUnit(channel, unit); });
            gathered = new Gathered(table, missing, false);
          },
        );
        const current = missing.map((channel, i) => this.units.get(channel) === units[i]);
        const values = gathered?.values ?? [];
        this.keep(missing.filter((_, i) => current[i]), values.filter((_, i) => current[i]));
      });
      this.reading = next.catch(nothing);
      await next;
    }
    return channels.map((channel) => this.kept.get(channel) as Drawable);
  }

  private async along(axis: Axis): Promise<Float64Array | null> {
    return axis === "distance" ? this.distance() : this.times;
  }

  /** Metres driven until each row, by the speed. */
  private async distance(): Promise<Float64Array | null> {
    if (this.metres !== null || this.times === null) return this.metres;
    const channel = await this.speed();
    if (channel < 0) return null;
    const [column] = await this.columns([channel]);
    const factor = this.channels[channel]?.unit === "mph" ? MS_IN_MPH : 1 / 3.6;
    const speeds = (column as Drawable).values;
    const metres = new Float64Array(speeds.length);
    for (let i = 1, sum = 0, pace = 0; i < speeds.length; i++) {
      const step = (this.times[i] ?? 0) - (this.times[i - 1] ?? 0);
      const one = speeds[i] as number;
      if (one === one) pace = one;
      if (step > 0 && step < 10) sum += step * pace * factor;
      metres[i] = sum;
    }
    return (this.metres = metres);
  }

  /** That of GPS knows no slip, but where the fix was lost the wheels know better. */
  private async speed(): Promise<number> {
    const gps = this.named((name, unit) => name.includes("gps") && inUnits(unit));
    const any = this.named((name, unit) => !name.includes("gps") && inUnits(unit));
    if (gps < 0 || any < 0) return Math.max(gps, any);
    // Places are wanted too, and come out of the same packet.
    const [column] = await this.columns([gps, ...this.places]);
    return (column as Drawable).values.every((one) => one === one) ? gps : any;
  }

  /** A column along the distances of a lap, and the time since its start. */
  private alongLap(lap: Lap, values: Numbers, way: Float64Array, distances: Float64Array): { value: Float64Array; time: Float64Array } {
    const times = this.times as Float64Array;
    const start = (times[0] ?? 0) + (lap.start ?? 0);
    const [from, to] = rowsOf(times, [start, start + (lap.milliseconds ?? 0) / 1000], this.rows);
    const value = new Float64Array(distances.length);
    const time = new Float64Array(distances.length);
    for (let i = 0, row = from; i < distances.length; i++) {
      const wanted = (way[from] as number) + (distances[i] as number);
      while (row + 1 < to - 1 && (way[row + 1] as number) < wanted) row++;
      const step = (way[row + 1] as number) - (way[row] as number);
      const part = step > 0 ? Math.min(1, Math.max(0, (wanted - (way[row] as number)) / step)) : 0;
      const between = (all: Numbers): number => (all[row] as number) + ((all[row + 1] as number) - (all[row] as number)) * part;
      value[i] = between(values);
      time[i] = between(times) - start;
    }
    return { value, time };
  }
}

const described = (table: Table): readonly ChannelInfo[] =>
  table.columns.map((column) => ({
    name: column.name,
    unit: column.unit,
    units: column.function?.units.includes(column.unit) ? column.function.units : column.unit ? [column.unit] : [],
    decimals: column.decimals,
    drawable: column.kind !== "none" && column.kind !== "instant",
  }));
