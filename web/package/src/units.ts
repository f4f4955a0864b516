import { asFunction, type CatalogueFunction, type FunctionLike } from "./function.js";
import { call, f32, within } from "./module.js";

/** value * gain + offset */
export interface Conversion {
  readonly gain: number;
  readonly offset: number;
}

/** What turns values of one unit of a function into another, in single precision. Paces are not in it: see `convert`. */
export function conversion(what: FunctionLike, from: string, to: string): Conversion {
  const one = asFunction(what);
  return within((memory) => {
    const at = memory.take(16);
    call("kelFunGetConvDatas", at, one.identifier, memory.text(one.unit(from)), memory.text(one.unit(to)));
    return { gain: f32(at + 8), offset: f32(at + 4) };
  });
}

const reciprocal = (one: CatalogueFunction, unit: string): boolean =>
  one.unitTable.find((row) => row.unit === unit)?.reciprocal ?? false;

/**
 * Values of one unit of a function in another; without `from` they are in the base unit. A pace, such as "min/km", is one
 * divided by the value that the library converts.
 */
export function convert(what: FunctionLike, value: number, to: string, from?: string): number;
export function convert(what: FunctionLike, values: ArrayLike<number>, to: string, from?: string): Float32Array;
export function convert(
  what: FunctionLike,
  values: number | ArrayLike<number>,
  to: string,
  from?: string,
): number | Float32Array {
  const one = asFunction(what);
  const source = one.unit(from);
  const target = one.unit(to);
  const { gain, offset } = conversion(one, source, target);
  const before = reciprocal(one, source);
  const after = reciprocal(one, target);
  const f = Math.fround;
  const single = (value: number): number => {
    if (source === target) return f(value);
    const start = before ? f(1 / f(value)) : f(value);
    const result = f(f(start * gain) + offset);
    return after ? f(1 / result) : result;
  };
  return typeof values === "number" ? single(values) : Float32Array.from(values, single);
}
