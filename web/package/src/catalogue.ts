import { fieldValues, hex, isTableEnd, layout, vocabulary, vocabularyNames, packetQuantity } from "./fields.js";
import { CatalogueFunction, cameraRow, type UnitInfo } from "./function.js";
import { asWritten, callLines, textAt, table, u32, i32, text, callUnsigned } from "./module.js";
import { conversion } from "./units.js";
import { sampleType, sampleTypes } from "./sampletype.js";

/** Everything that the library knows, as the JSON document of `kelfun catalogue` has it. */
export type Catalogue = ReturnType<typeof catalogue>;

const orNull = (word: string): string | null => (word === "" ? null : word);

const fields = (): Record<string, unknown> =>
  Object.fromEntries(
    vocabularyNames.map((name) => [
      name,
      vocabulary(name).map(({ value, xml, shortText, text: shown }) => ({ value, xml, short_text: shortText, text: shown })),
    ]),
  );

function identifierLayout(): unknown[] {
  const packet = layout(packetQuantity()).map((place) => place.field);
  const numbered = layout(1 << 22).map((place) => place.field);
  const plain = layout(0);
  const when = (field: string): string | null => {
    if (field === "object" || field === "position") return "quantity is not a packet";
    if (field === "details" || field === "specialisation") return "quantity is a packet";
    if (field === "number") return "numbered is 1";
    return numbered.includes(field as never) ? null : "numbered is 0";
  };
  const entry = ({ field, bit, bits }: { field: string; bit: number; bits: number }): unknown => ({
    field,
    bit,
    bits,
    when: when(field),
  });
  const all: unknown[] = [];
  plain.forEach((place, i) => {
    all.push(entry(place));
    const other = packet[i];
    if (other !== undefined && other !== place.field) all.push(entry({ ...place, field: other }));
    if (place.field === "numbered") all.push(entry({ field: "number", bit: 23, bits: 6 }));
  });
  return all;
}

const unitRow = (row: UnitInfo): unknown => ({
  unit: row.unit,
  code: row.code,
  gain: row.gain,
  offset: row.offset,
  reciprocal: row.reciprocal,
  decimals: row.decimals,
  max_decimals: row.maxDecimals,
  min_decimals: row.minDecimals,
});

function objects(quantity: number): unknown[] {
  const rows = table("uib_grandezza_fisica_uiv");
  const all: unknown[] = [];
  for (let at = rows; !isTableEnd(u32(at)); at += 28) {
    const key = u32(at);
    if ((key & 0x7f) !== quantity) continue;
    const one = new CatalogueFunction(key);
    const units = one.unitTable;
    all.push({
      identifier: one.hex,
      object: (key >>> 7) & 0xff,
      name: textAt(at + 8),
      short_name: orNull(textAt(at + 4)),
      base_unit: one.baseUnit,
      units: units.map(unitRow),
      conversions: units.flatMap((from) =>
        units
          .filter((to) => to !== from)
          .map((to) => {
            const { gain, offset } = conversion(one, from.unit, to.unit);
            return { from: from.unit, to: to.unit, gain: asWritten(gain), offset: asWritten(offset) };
          }),
      ),
    });
  }
  return all;
}

const named = (one: CatalogueFunction): Record<string, unknown> => ({
  identifier: one.hex,
  name: one.name,
  short_name: one.shortName,
  legacy_id: one.legacyId,
});

function functions(): unknown[] {
  return callLines("kelWebFunzioni").map(([quantity, identifier, name]) => {
    const one = new CatalogueFunction(Number(identifier));
    const { sides, inout, numbers } = one.choices;
    const choice = (entry: { text: string; function: CatalogueFunction }): unknown => ({
      text: entry.text,
      ...named(entry.function),
    });
    return {
      quantity: fieldValues("quantity")[Number(quantity)]?.text ?? "",
      ...named(one),
      name,
      units: one.units,
      sides: sides.map(choice),
      inout: inout.map(choice),
      numbers,
    };
  });
}

function packets(): unknown[] {
  return callLines("kelWebPacchetti").map(([identifier = ""]) => {
    const one = new CatalogueFunction(Number(identifier));
    const type = one.packetType ?? sampleType("none");
    let at = callUnsigned("search_sottocampi_struct", (one.identifier >>> 7) & 0xff, (one.identifier >>> 15) & 0x1f);
    return {
      identifier: one.hex,
      details: (one.identifier >>> 7) & 0xff,
      specialisation: (one.identifier >>> 15) & 0x1f,
      sample_type: type.code,
      bytes: type.bytes,
      subfields: one.subfields.map((row) => {
        const names = { channel_short_name: orNull(textAt(at + 32)), channel_name: orNull(textAt(at + 36)) };
        at += 40;
        return {
          identifier: row.function?.hex ?? hex(0),
          name: row.function?.name ?? null,
          offset: row.offset,
          bit: row.bit,
          bits: row.bits,
          sample_type: row.sampleType,
          base_unit: row.function?.baseUnit ?? null,
          ...names,
        };
      }),
    };
  });
}

function camera(): unknown[] {
  return callLines("kelWebCamera").map(([name, visible, place]) => {
    const at = Number(place);
    const row = cameraRow(at);
    return {
      table: name,
      code: row.code,
      identifier: hex(u32(at)),
      short_name: row.shortName,
      name: row.name,
      unit: row.unit,
      scale: row.scale,
      factor: row.factor,
      sample_type: row.sampleType,
      legacy_id: row.legacyId,
      visible: visible === "1",
    };
  });
}

function legacyIdentifiers(): unknown[] {
  const all: unknown[] = [];
  const add = (exported: string, size: number, name: string, fid: number, short: number): void => {
    for (let at = table(exported); !isTableEnd(u32(at + fid)); at += size)
      all.push({
        legacy_id: textAt(at + short + 8),
        identifier: hex(u32(at + fid)),
        short_name: textAt(at + short),
        name: textAt(at + short + 4),
        table: name,
      });
  };
  add("funz_ZumikoCam_base", 36, "basic", 0, 20);
  add("funz_ZumikoCam_estese", 36, "extended", 0, 20);
  add("funz_Kel", 16, "legacy", 12, 0);
  return all;
}

/** Everything that the library knows, as one document. */
export function catalogue(version = "0.1.0") {
  const codes = table("udm_codici");
  return {
    format: 1,
    library: "libkelfunzioni",
    version,
    identifier_layout: identifierLayout(),
    fields: fields(),
    quantities: fieldValues("quantity").map(({ value, xml, text: shown }) => ({
      value,
      xml,
      text: shown,
      objects: objects(value),
    })),
    functions: functions(),
    unit_codes: Array.from({ length: 33 }, (_, i) => ({ code: i32(codes + 8 * i + 4), unit: text(u32(codes + 8 * i)) })),
    sample_types: sampleTypes().map(({ code, name, bytes, content }) => ({ code, name, bytes, content })),
    packets: packets(),
    camera: camera(),
    legacy_identifiers: legacyIdentifiers(),
  };
}
