// What the page and its worker tell each other.
//
// The module goes as bytes: compiled, a page that was opened from a file could not hand it to its worker.
import type { Lap } from "kelfunzioni/core";

export interface ChannelInfo {
  readonly name: string;
  readonly unit: string;
  readonly units: readonly string[];
  readonly decimals: number;
  readonly drawable: boolean;
}

export interface Session {
  readonly name: string;
  readonly channels: readonly ChannelInfo[];
  /** The channels to begin with. */
  readonly chosen: readonly number[];
  readonly rows: number;
  readonly notes: string;
  readonly leftover: number;
  readonly timed: boolean;
  readonly placed: boolean;
  readonly speed: boolean;
  readonly first: number;
  readonly last: number;
}

export type Axis = "time" | "distance";
/** A span of the axis; null: all of it. */
export type Span = readonly [number, number] | null;
export interface Curve { readonly x: Float64Array; readonly y: Float64Array }
/** What is known of one row: where it lies on the axis, and its values. */
export interface Row { readonly x: number; readonly values: readonly number[] }
export interface Comparison { readonly distance: Float64Array; readonly lap: Float64Array; readonly other: Float64Array; readonly gap: Float64Array }

export interface Requests {
  start: [{ module: ArrayBuffer }, null];
  open: [{ files: readonly File[] }, Session];
  cancel: [null, null];
  laps: [{ files: readonly File[] }, { laps: readonly Lap[]; notes: string }];
  unit: [{ channel: number; unit: string }, null];
  metres: [null, number];
  curves: [{ channels: readonly number[]; axis: Axis; span: Span; points: number }, readonly Curve[]];
  row: [{ channels: readonly number[]; axis: Axis; place: number }, Row];
  track: [{ channel: number; points: number }, { x: Float64Array; y: Float64Array; value: Float64Array }];
  compare: [{ lap: Lap; other: Lap; channel: number }, Comparison];
  csv: [{ channels: readonly number[]; axis: Axis; span: Span }, Blob];
}
export type Name = keyof Requests;
export interface Question<N extends Name = Name> { readonly id: number; readonly name: N; readonly what: Requests[N][0] }
export type Answer = { readonly id: number } & ({ readonly value: unknown } | { readonly error: string } | { readonly done: number });
