// What the page and its worker tell each other.
//
// The module goes as bytes: compiled, a page that was opened from a file could not hand it to its worker.
import type { Lap } from "kelfunzioni/core";

export interface ChannelInfo { readonly name: string; readonly unit: string; readonly units: readonly string[]; readonly decimals: number; readonly drawable: boolean }

export interface Session {
  readonly name: string;
  readonly channels: readonly ChannelInfo[];
  readonly rows: number;
  readonly notes: string;
  readonly leftover: number;
  readonly timed: boolean;
  readonly placed: boolean;
  readonly speed: boolean;
  readonly first: number;
  readonly last: number;
  readonly metres: number;
  readonly laps: readonly Lap[];
  readonly lapNotes: string;
}

export type Axis = "time" | "distance";
/** A span of the axis; null: all of it. */
export type Span = readonly [number, number] | null;
export interface Curve { readonly x: Float64Array; readonly y: Float64Array }

export interface Requests {
  start: [{ module: ArrayBuffer }, null];
  open: [{ files: readonly File[] }, Session];
  unit: [{ channel: number; unit: string }, null];
  curves: [{ channels: readonly number[]; axis: Axis; span: Span; points: number }, readonly Curve[]];
  track: [{ channel: number; points: number }, { x: Float64Array; y: Float64Array; value: Float64Array }];
  compare: [{ lap: number; channel: number }, { distance: Float64Array; lap: Float64Array; best: Float64Array; gap: Float64Array }];
  csv: [{ channels: readonly number[]; axis: Axis; span: Span }, Blob];
}
export type Name = keyof Requests;
export interface Question<N extends Name = Name> { readonly id: number; readonly name: N; readonly what: Requests[N][0] }
export type Answer = { readonly id: number } & ({ readonly value: unknown } | { readonly error: string } | { readonly done: number });
