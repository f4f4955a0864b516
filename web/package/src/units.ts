import { asFunction, type FunctionLike } from "./function.js";
import { call, callText, f32, within } from "./module.js";

/** value * gain + offset */
export interface Conversion {
  readonly gain: number;
  readonly offset: number;
}

/** What turns values of one unit of a function into another, in single precision; null stands for its base unit. */
export function conversion(what: FunctionLike, from: string | null, to: string | null): Conversion {
  const one = asFunction(what);
  return within((memory) => {
    const at = memory.take(16);
    const [source, target] = [from, to].map((unit) => memory.text(one.unit(unit ?? undefined))) as [number, number];
    call("kelFunGetConvDatas", at, one.identifier, source, target);
    return { gain: f32(at + 8), offset: f32(at + 4) };
  });
}

/**
 * Values of one unit of a function in another, with the bits that the library gives; null stands for the base unit. A pace,
 * such as "min/km", is converted as any other unit is: `conversionWarning` says where that is not what people expect.
 */
export function convert(value: number, what: FunctionLike, from: string | null, to: string | null): number;
export function convert(
  values: ArrayLike<number>,
  what: FunctionLike,
  from: string | null,
  to: string | null,
): Float32Array;
export function convert(
  values: number | ArrayLike<number>,
  what: FunctionLike,
  from: string | null,
  to: string | null,
): number | Float32Array {
  const { gain, offset } = conversion(what, from, to);
  const plain = gain === 1 && offset === 0;
  const f = Math.fround;
  const single = (value: number): number => (plain ? f(value) : f(f(f(value) * gain) + offset));
  return typeof values === "number" ? single(values) : Float32Array.from(values, single);
}

/** What to say of a conversion whose result is not what most people expect; "" for nothing. */
export function conversionWarning(value: number, what: FunctionLike, from: string | null, to: string | null): string {
  const one = asFunction(what);
  return within((memory) =>
    callText(
      "kelWebAvvisoUnita",
      one.identifier,
      memory.text(one.unit(from ?? undefined)),
      memory.text(one.unit(to ?? undefined)),
      value,
    ),
  );
}
