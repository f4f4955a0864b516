import { describe, expect, it } from "vitest";
import { Function as Fn, catalogue, convert, conversion } from "../dist/index.js";
import { kelfun, kelfunJson } from "./tools.js";

const native = JSON.parse(kelfun("catalogue"));
const ours: any = catalogue(native.version);

describe("the catalogue", () => {
  for (const part of Object.keys(native))
    it(`has the command line's ${part}`, () => expect(ours[part]).toEqual(native[part]));

  it("has no other parts", () => expect(Object.keys(ours)).toEqual(Object.keys(native)));
});

describe("every identifier of the catalogue", () => {
  const identifiers = [...new Set<string>(JSON.stringify(native).match(/0x[0-9A-F]{8}/g))].filter((one) => one !== "0x00000000");
  const rows: any[] = identifiers.map((one) => kelfunJson("fid", one));

  it("is one that the package knows", () => {
    expect(identifiers.length).toBeGreaterThan(130);
    for (const one of identifiers) expect(new Fn(one).hex).toBe(one);
  });

  it("has the names, units, fields and choices that kelfun fid shows", () => {
    for (const row of rows) {
      const one = new Fn(row.identifier);
      expect(
        {
          long: one.name,
          short: one.shortName,
          legacy: one.legacyId,
          base: one.baseUnit,
          units: one.unitTable.map((u) => [u.unit, u.code, u.decimals, u.maxDecimals, u.minDecimals, u.gain, u.offset, u.reciprocal]),
          fields: one.fields.filter((f) => f.field !== "numbered").map((f) => [f.value, f.xml, f.text]),
          choices: [...one.choices.sides, ...one.choices.inout].map((c) => [c.text, c.function.hex]),
        },
        row.identifier,
      ).toEqual({
        long: row.long_name,
        short: row.short_name ?? "",
        legacy: row.legacy_id,
        base: row.base_unit ?? "",
        units: (row.units ?? []).map((u: any) => [u.unit, u.code, u.decimals, u.max_decimals, u.min_decimals, u.gain, u.offset, u.reciprocal]),
        fields: row.fields.filter((f: any) => f.field !== "numbered").map((f: any) => [f.value, f.xml, f.text]),
        choices: (row.choices ?? []).filter((c: any) => c.choice !== "number").map((c: any) => [c.text, c.identifier]),
      });
    }
  });

  it("converts between its units as kelfun convert does", () => {
    for (const row of native.quantities.flatMap((q: any) => q.objects))
      for (const { from, to, gain, offset } of row.conversions) {
        const answer = kelfunJson("convert", row.identifier, "123.25", "-7", "--from", from, "--to", to);
        expect(conversion(row.identifier, from, to).gain).toBe(Math.fround(gain));
        expect(conversion(row.identifier, from, to).offset).toBe(Math.fround(offset));
        expect([...convert([123.25, -7], row.identifier, from, to)], `${row.identifier} ${from} ${to}`).toEqual(
          answer.values.map((value: any) => Math.fround(value.result)),
        );
      }
  });
});
