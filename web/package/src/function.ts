import { KelError, NotFoundError, noSuch } from "./errors.js";
import {
  bitsOf,
  compose,
  fieldValues,
  hex,
  isTableEnd,
  layout,
  packetQuantity,
  type FieldName,
  type Fields,
} from "./fields.js";
import { asWritten, call, callLines, callText, callUnsigned, f32, i32, nearest, text, textAt, u16, u32, within } from "./module.js";
import { allNames, named } from "./find.js";
import { packetType, type SampleType } from "./sampletype.js";

/** What stands for a function: itself, its identifier, its digits, legacy identifier or name, or its fields. */
export type FunctionLike = CatalogueFunction | number | string | Fields;

/** One field of an identifier. */
export interface Field {
  readonly field: FieldName;
  readonly bit: number;
  readonly bits: number;
  readonly value: number;
  /** "FID_PHI_SPEED"; null for a value without a name. */
  readonly xml: string | null;
  readonly text: string | null;
}

export interface Choices {
  readonly sides: readonly { readonly text: string; readonly function: CatalogueFunction }[];
  readonly inout: readonly { readonly text: string; readonly function: CatalogueFunction }[];
  readonly numbers: { readonly first: number; readonly last: number } | null;
}

export interface UnitInfo {
  readonly unit: string;
  readonly code: number | null;
  readonly decimals: number;
  readonly maxDecimals: number;
  readonly minDecimals: number;
  readonly gain: number;
  readonly offset: number;
  readonly reciprocal: boolean;
}

/** A quantity within a packet. */
export interface Subfield {
  /** null for a reserved one. */
  readonly function: CatalogueFunction | null;
  readonly offset: number;
  readonly bit: number | null;
  readonly bits: number | null;
  readonly sampleType: number;
}

export interface CameraRow {
  readonly code: number | null;
  readonly shortName: string;
  readonly name: string;
  readonly unit: string;
  readonly scale: number;
  readonly factor: number;
  readonly sampleType: number;
  readonly legacyId: string;
}

/** A function of the catalogue: what a channel measures. */
export class CatalogueFunction {
  readonly identifier: number;

  constructor(what: FunctionLike) {
    this.identifier = identifierOf(what);
  }

  /** "0x05070010" */
  get hex(): string {
    return hex(this.identifier);
  }

  /** The long name: "Speed Wheel FL". */
  get name(): string {
    return callText("kelWebNome", this.identifier, 0);
  }

  /** The long name with the text of every field. */
  get fullName(): string {
    return callText("kelWebNome", this.identifier, 1);
  }

  get shortName(): string {
    return within((memory) => {
      const at = memory.take(32);
      call("kelFunGetNomeFunzioneShort", at, 0, this.identifier);
      return text(at, 32);
    });
  }

  /** "REF_SPEED_FL"; null where there is none. */
  get legacyId(): string | null {
    return callText("kelWebIdVecchio", this.identifier) || null;
  }

  /** The first unit; "" where the function has none. */
  get baseUnit(): string {
    return text(callUnsigned("kelFunGetUnitaBase", this.identifier));
  }

  get units(): readonly string[] {
    return this.unitTable.map((row) => row.unit);
  }

  /** The units with their decimals and conversions from the base unit. */
  get unitTable(): readonly UnitInfo[] {
    const row = callUnsigned("kelFunGetUIVs", this.identifier);
    if (row === 0) return [];
    const units = u32(row + 16);
    return Array.from({ length: i32(row + 12) }, (_, i) => {
      const at = units + 28 * i;
      const code = call("kelFunGetUdmCode", u32(at));
      return {
        unit: textAt(at),
        code: code < 0 ? null : code,
        decimals: i32(at + 16),
        maxDecimals: i32(at + 20),
        minDecimals: i32(at + 24),
        gain: asWritten(f32(at + 8)),
        offset: asWritten(f32(at + 4)),
        reciprocal: i32(at + 12) !== 0,
      };
    });
  }

  /** A unit of the function: the base unit where none is named. */
  unit(unit?: string): string {
    if (unit === undefined) return this.baseUnit;
    const units = this.units;
    if (units.includes(unit)) return unit;
    const found = units.filter((one) => one.toLowerCase() === unit.toLowerCase());
    if (found.length === 1) return found[0] as string;
    throw noSuch(`unit of ${this.name || this.hex}`, unit, units);
  }

  /** The decimals that a unit is shown with unless somebody chooses. */
  decimals(unit?: string): number {
    const one = this.unit(unit);
    return within((memory) => call("kelFunGetNumDecimaliDefault", this.identifier, memory.text(one)));
  }

  get fields(): readonly Field[] {
    const details = bitsOf(this.identifier, { field: "details", bit: 7, bits: 8 });
    return layout(this.identifier).map((place) => {
      const value = bitsOf(this.identifier, place);
      const plain = place.field === "numbered" || place.field === "number";
      const row = plain ? undefined : fieldValues(place.field, details)[value];
      return { ...place, value, xml: row?.xml ?? null, text: row?.text ?? null };
    });
  }

  get choices(): Choices {
    const sides: { text: string; function: CatalogueFunction }[] = [];
    const inout: { text: string; function: CatalogueFunction }[] = [];
    let numbers: Choices["numbers"] = null;
    for (const [kind, one, other = ""] of callLines("kelWebScelte", this.identifier)) {
      const value = Number(one);
      const of = (bits: number): CatalogueFunction => new CatalogueFunction(((this.identifier & PLACE) | bits) >>> 0);
      if (kind === "side") sides.push({ text: other, function: of(value) });
      else if (kind === "inout") inout.push({ text: other, function: of((value & 3) << 20) });
      else numbers = { first: value, last: Number(other) };
    }
    return { sides, inout, numbers };
  }

  get isPacket(): boolean {
    return (this.identifier & 0x7f) === packetQuantity();
  }

  /** The type of its samples; null where only the channel knows it. */
  get packetType(): SampleType | null {
    return packetType(this.identifier) ?? null;
  }

  /** The quantities within a packet; none for other functions. */
  get subfields(): readonly Subfield[] {
    if (!this.isPacket) return [];
    const details = (this.identifier >>> 7) & 0xff;
    const specialisation = (this.identifier >>> 15) & 0x1f;
    const rows: Subfield[] = [];
    let at = callUnsigned("search_sottocampi_struct", details, specialisation);
    for (; at !== 0 && !isTableEnd(u32(at)); at += 40) {
      const identifier = u32(at);
      const bits = u16(at + 10);
      rows.push({
        function: identifier === 0 ? null : new CatalogueFunction(identifier),
        offset: u32(at + 4),
        bit: bits === 0 ? null : u16(at + 8),
        bits: bits === 0 ? null : bits,
        sampleType: u32(at + 16),
      });
    }
    return rows;
  }

  /** What the on-board camera knows of the function; null where it does not show it. */
  get camera(): CameraRow | null {
    const at = callUnsigned("kelFunGetParamZumikoCam", this.identifier);
    return at === 0 || isTableEnd(u32(at)) ? null : cameraRow(at);
  }

  toString(): string {
    return `Function(${this.hex}, '${this.name}')`;
  }
}

export function cameraRow(at: number): CameraRow {
  const code = i32(at + 12);
  return {
    code: code < 0 ? null : code,
    shortName: textAt(at + 20),
    name: textAt(at + 24),
    unit: textAt(at + 4),
    scale: asWritten(f32(at + 8)),
    factor: asWritten(f32(at + 16)),
    sampleType: i32(at + 32),
    legacyId: textAt(at + 28),
  };
}

export const asFunction = (what: FunctionLike): CatalogueFunction =>
  what instanceof CatalogueFunction ? what : new CatalogueFunction(what);

// All but in/out, sides and number.
const PLACE = ~0x1ff00000;

const ACCEPTED =
  "accepted: a number of 32 bits, hexadecimal (0x10) or decimal (16), a legacy identifier (REF_SPEED), a name " +
  "('Oil Pressure') or fields ({ quantity: 'speed' })";

function identifierOf(what: FunctionLike): number {
  if (what instanceof CatalogueFunction) return what.identifier;
  if (typeof what === "object") return compose(what);
  if (typeof what === "string") return identifierOfText(what);
  if (!Number.isInteger(what) || what < 0 || what > 0xffffffff)
    throw new KelError(`${String(what)} is no identifier; ${ACCEPTED}`);
  return what;
}

function identifierOfText(word: string): number {
  const number = within((memory) => {
    const at = memory.take(4);
    return call("kelWebLeggiFid", memory.text(word), at) !== 0 ? u32(at) : undefined;
  });
  if (number !== undefined) return number;
  const found = named(word);
  if (found.length === 1) return found[0] as number;
  if (found.length > 1) {
    const some = found.slice(0, 8).map((one) => `${hex(one)} (${new CatalogueFunction(one).shortName})`);
    throw new KelError(`'${word}' is the name of ${found.length} functions; accepted: ${some.join(", ")}`);
  }
  if (!/^[a-z_]/i.test(word)) throw new KelError(`'${word}' is no identifier; ${ACCEPTED}`);
  const near = nearest(word, allNames());
  const perhaps = near === undefined ? "" : `did you mean '${near}'? `;
  throw new NotFoundError(`there is no legacy identifier and no name '${word}'; ${perhaps}${ACCEPTED}`, near);
}

