import { KelError, noSuch } from "./errors.js";
import { call, callLines, callUnsigned } from "./module.js";

/** The format of a sample. */
export interface SampleType {
  readonly code: number;
  /** "int16" */
  readonly name: string;
  /** Bytes of one sample; 0 for a type without. */
  readonly bytes: number;
  /** "signed 16-bit integer" */
  readonly content: string;
}

let all: readonly SampleType[] | undefined;

/** All sample types, by code. */
export function sampleTypes(): readonly SampleType[] {
  all ??= callLines("kelWebTipi").map(([name = "", content = ""], code) => ({
    code,
    name,
    bytes: callUnsigned("kelFunGetSamplSize", code),
    content,
  }));
  return all;
}

/** A sample type by its name, in any case, or its code. */
export function sampleType(what: string | number): SampleType {
  const types = sampleTypes();
  if (typeof what === "number") {
    const found = types[what];
    if (found === undefined)
      throw new KelError(`there is no sample type ${what}; accepted: 0 to ${types.length - 1}, or a name such as int16`);
    return found;
  }
  const word = what.trim().toLowerCase().replaceAll("_", "-");
  const found = types.find((type) => type.name === word);
  if (found === undefined) throw noSuch("sample type", what, types.map((type) => type.name));
  return found;
}

/** The sample type of a packet channel; undefined for every other function. */
export function packetType(identifier: number): SampleType | undefined {
  const code = call("kelWebTipoPacchetto", identifier);
  return code < 0 ? undefined : sampleType(code);
}
