/**
 * The WebAssembly module and its memory. There is one for the page or the program; everything else of the package calls it.
 *
 * Views of the memory end when it grows, so none is kept: they are made anew for each use.
 */

type Call = (...values: (number | bigint)[]) => number;
type CallWide = (...values: (number | bigint)[]) => bigint;

let instance: WebAssembly.Instance | undefined;

/** Starts the module from its bytes, a response, or what was compiled of it. Starting it again does nothing. */
export async function init(wasm: BufferSource | WebAssembly.Module): Promise<void> {
  if (instance !== undefined) return;
  try {
    const module = wasm instanceof WebAssembly.Module ? wasm : await WebAssembly.compile(wasm);
    instance ??= await WebAssembly.instantiate(module, {});
  } catch (cause) {
    throw new Error(
      "the WebAssembly module of kelfunzioni does not start: it needs exceptions and SIMD, " +
        "which came with Chrome 95, Firefox 100, Safari 16.4 and Node 18",
      { cause },
    );
  }
  call("_initialize");
}

function exported(name: string): WebAssembly.ExportValue {
  if (instance === undefined) throw new Error("kelfunzioni has not been started: await init(...) first");
  const found = instance.exports[name];
  if (found === undefined) throw new Error(`the module has no ${name}`);
  return found;
}

/** Calls a function that gives a 32-bit number. */
export function call(name: string, ...values: (number | bigint)[]): number {
  return (exported(name) as Call)(...values);
}

/** The same of what is not below 0: addresses, counts, identifiers. */
export function callUnsigned(name: string, ...values: (number | bigint)[]): number {
  return call(name, ...values) >>> 0;
}

/** Calls a function that gives a 64-bit count. */
export function callCount(name: string, ...values: (number | bigint)[]): number {
  return Number(BigInt.asUintN(64, (exported(name) as unknown as CallWide)(...values)));
}

/** Where a table lies. */
export function table(name: string): number {
  return (exported(name) as WebAssembly.Global).value as number;
}

const buffer = (): ArrayBuffer => (exported("memory") as WebAssembly.Memory).buffer;
export const view = (): DataView => new DataView(buffer());
export const bytes = (): Uint8Array => new Uint8Array(buffer());

export const u8 = (at: number): number => bytes()[at] ?? 0;
export const u16 = (at: number): number => view().getUint16(at, true);
export const u32 = (at: number): number => view().getUint32(at, true);
export const i32 = (at: number): number => view().getInt32(at, true);
export const f32 = (at: number): number => view().getFloat32(at, true);
export const f64 = (at: number): number => view().getFloat64(at, true);
export const u64 = (at: number): number => Number(view().getBigUint64(at, true));

const decoder = new TextDecoder();
const encoder = new TextEncoder();

/** The text at an address: to its NUL, or so many bytes; "" for null. */
export function text(at: number, most = Infinity): string {
  if (at === 0) return "";
  const all = bytes();
  const end = all.indexOf(0, at);
  return decoder.decode(all.subarray(at, Math.min(end < 0 ? all.length : end, at + most)));
}

/** The text behind a pointer of a record. */
export const textAt = (at: number): string => text(u32(at));

/** A function whose result is a text. */
export const callText = (name: string, ...values: (number | bigint)[]): string => text(callUnsigned(name, ...values));

/** A function whose result is lines, their parts apart by tabs. */
export function callLines(name: string, ...values: (number | bigint)[]): string[][] {
  return callText(name, ...values)
    .split("\n")
    .slice(0, -1)
    .map((line) => line.split("\t"));
}

/** Memory of the module, cleared. */
export function allocate(size: number): number {
  const at = callUnsigned("malloc", Math.max(size, 1));
  if (at === 0) throw new RangeError(`out of memory: ${size} bytes more than the module can have`);
  bytes().fill(0, at, at + size);
  return at;
}

export function release(at: number): void {
  if (at !== 0) call("free", at);
}

/** Memory for the time of some work: whatever `take` and `write` give is released behind it. */
export function within<Result>(work: (memory: Memory) => Result): Result {
  const memory = new Memory();
  try {
    return work(memory);
  } finally {
    memory.release();
  }
}

export class Memory {
  private readonly taken: number[] = [];

  take(size: number): number {
    const at = allocate(size);
    this.taken.push(at);
    return at;
  }

  write(data: Uint8Array): number {
    const at = this.take(data.length);
    bytes().set(data, at);
    return at;
  }

  /** A text with its NUL. What follows a NUL of its own is lost, so it is refused. */
  text(value: string): number {
    if (value.includes("\0")) throw new TypeError("a text with a NUL character; accepted: text without one");
    return this.write(encoder.encode(`${value}\0`));
  }

  release(): void {
    for (const at of this.taken) release(at);
    this.taken.length = 0;
  }
}

/** The nearest right word, those that people use for it counted. */
export function nearest(word: string, words: readonly string[]): string | undefined {
  if (word.includes("\0")) return undefined;
  const found = within((memory) =>
    callText("kelWebVicino", memory.text(word), memory.text(words.join("\n"))),
  );
  return found === "" ? undefined : found;
}

/** The double that is written like a float: 0.621371, not 0.6213709712028503. */
export const asWritten = (value: number): number => call("kelWebComeScritto", value);
