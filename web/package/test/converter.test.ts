import { describe, expect, it } from "vitest";
import { Converter, Function as Fn, formatLap, formatLapLine, known, parseLap, sampleType, sampleTypes } from "../dist/index.js";
import { kelfun, kelfunJson } from "./tools.js";

const bytesOf = (digits: string): Uint8Array => Uint8Array.from(digits.match(/../g) ?? [], (pair) => parseInt(pair, 16));

describe("a converter", () => {
  it("gives values, status words and texts of many samples", () => {
    const one = new Converter(0x11, { sampleType: "int16", unit: "F", decimals: 1 });
    const samples = bytesOf("7B00FFCF");
    const { values, status } = one.decode(samples);
    expect([...status]).toEqual([0, 4]);
    expect(values[0]).toBeCloseTo(253.4, 4);
    expect(values[1]).toBe(0);
    expect(one.texts(samples)[1]).toBe("---");
  });

  it("decodes random samples of every function as kelfun decode does", () => {
    let state = 1;
    const random = (): number => (state = (Math.imul(state, 1103515245) + 12345) >>> 0) >>> 16;
    const types = sampleTypes().filter((type) => type.bytes > 0);
    for (const [i, identifier] of known().entries()) {
      if (i % 9 !== 0) continue;
      const one = new Fn(identifier);
      const type = one.packetType ?? types[random() % types.length];
      if (type === undefined || one.isPacket) continue;
      const data = Uint8Array.from({ length: type.bytes }, () => random() & 255);
      const digits = [...data].map((byte) => byte.toString(16).padStart(2, "0")).join("");
      const unit = one.units[random() % Math.max(one.units.length, 1)];
      const decimals = random() % 4;
      const options = ["--type", type.name, "--width", "9", "--decimals", String(decimals), ...(unit === undefined ? [] : ["--unit", unit])];
      const row = kelfunJson("decode", one.hex, ...options, digits).samples[0];
      const conv = new Converter(one, { sampleType: type.name, width: 9, decimals, ...(unit === undefined ? {} : { unit }) });
      const { values, status } = conv.decode(data);
      expect([conv.texts(data)[0], status[0]], `${one.hex} ${type.name} ${digits}`).toEqual([row.text, row.status ?? 0]);
      if (row.value !== null && status[0] === 0) expect(values[0]).toBe(Math.fround(row.value));
    }
  });

  it("says what is wrong with its arguments", () => {
    expect(() => new Converter(0x10)).toThrow(/does not tell the format of its samples; accepted: sampleType/);
    expect(() => new Converter(0x10, { sampleType: "int61" })).toThrow(/there is no sample type 'int61'; did you mean 'int16'\?/);
    expect(() => new Converter(0x10, { sampleType: 99 })).toThrow(/accepted: 0 to 24/);
    expect(() => new Converter(0x10, { sampleType: "int16", unit: "mhp" })).toThrow(/did you mean 'mph'\?/);
    expect(() => new Converter(0x10, { sampleType: "int16", width: 99 })).toThrow(/accepted: a whole number from 0 to 31/);
    expect(() => new Converter(0x10, { sampleType: "int16", alignment: "middle" as never })).toThrow(/accepted: right, left, compact/);
    expect(() => new Converter(0x10, { sampleType: "int16" }).decode(new Uint8Array(3))).toThrow(/3 bytes are no whole samples/);
    expect(() => sampleType("nothing like it")).toThrow(/accepted: int32/);
  });
});

describe("lap times", () => {
  it("are those of kelfun lap", () => {
    for (const ms of [0, 1, 83456, 3723000, -1, 2 ** 31 - 1, -(2 ** 31)])
      expect(formatLap(ms)).toBe(JSON.parse(kelfun("lap", "--json", "--", String(ms))).laps?.[0]?.text ?? formatLap(ms));
    expect(formatLap(83456)).toBe("1:23.456");
    expect(parseLap("1:23.456")).toBe(83456);
    expect(parseLap("")).toBe(0);
    expect(formatLapLine(12, 83456)).toBe(" 12 - 1:23.456");
    expect(() => formatLap(1.5)).toThrow(/accepted: a whole number/);
  });
});
