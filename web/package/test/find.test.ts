import { describe, expect, it } from "vitest";
import { Function as Fn, KelError, NotFoundError, closeTo, compose, find, known, search } from "../dist/index.js";
import { kelfunJson } from "./tools.js";

const QUERIES = ["speed", "wheel front left", "oil", "tyre", "coolant", "0x0B8E", "fid_obj_oil", "celsius", "kph", "gps", "lap",
  "REF_SPEED", "press", "temp mph", "water temp", "left", "a", "1", "Lambda 1 (L)", "rpm", "accelerometer x"];

describe("search", () => {
  for (const words of QUERIES)
    it(`finds for '${words}' what kelfun finds, in its order`, () => {
      let native: any[] = [];
      try {
        native = kelfunJson("find", words).found;
      } catch {
        /* nothing was found, and its status says so */
      }
      expect(search(words).map((one) => [one.function.hex, one.match, one.matched.map((m) => m.key), one.matched.map((m) => m.text)])).toEqual(
        native.map((row) => [row.identifier, row.match, row.key, row.matched]),
      );
    });

  it("names words that are near", () => expect(closeTo("tempreature")).toContain("temperature"));
  it("refuses no words", () => expect(() => find("  ")).toThrow(/nothing to search for; accepted/));
});

describe("a function", () => {
  it("is its number, its digits, its legacy identifier, its name or its fields", () => {
    for (const what of [0x05070010, "0x05070010", "84344848", "ref_speed_fl", "speed wheel fl",
      { quantity: "speed", position: "wheel", leftright: "left", frontrear: "FRONT" }] as const)
      expect(new Fn(what).hex, String(what)).toBe("0x05070010");
  });

  it("is known by every name that only it has", () => {
    expect(known().length).toBeGreaterThan(150);
    expect(new Fn("Oil Pressure").hex).toBe(kelfunJson("fid", "Oil Pressure").identifier);
  });

  it("is refused with the nearest name", () => {
    expect(() => new Fn("oil presure")).toThrow(NotFoundError);
    expect(() => new Fn("oil presure")).toThrow(/no name 'oil presure'; did you mean 'Oil Pressure'\?/);
    expect(() => new Fn("speed")).toThrow(/the name of 2 functions; accepted: 0x00000010/);
    for (const wrong of [-1, 1.5, 2 ** 32, NaN]) expect(() => new Fn(wrong)).toThrow(KelError);
    expect(() => new Fn("12x")).toThrow(/is no identifier; accepted/);
    expect(() => new Fn("a\0b")).toThrow(/NUL/);
  });

  it("refuses a unit that it does not have", () => {
    expect(() => new Fn(0x10).unit("kmh")).toThrow(/there is no unit of .* 'kmh'; did you mean 'km\/h'\? accepted: km\/h, mph/);
    expect(() => new Fn(0x10).decimals("bar")).toThrow(NotFoundError);
  });

  it("has subfields where it is a packet", () => {
    const lap = new Fn({ details: "laptime" });
    expect(lap.isPacket).toBe(true);
    expect(lap.packetType?.name).toBe("lap-2g");
    expect(lap.subfields.map((row) => row.function?.name ?? null)).toContain("Lap Time");
    expect(new Fn(0x10).subfields).toEqual([]);
  });

  it("has a camera row where the camera shows it", () => {
    expect(new Fn("REF_SPEED").camera?.unit).toBe("km/h");
    expect(new Fn(0x7fffffff).camera).toBeNull();
  });
});

describe("fields", () => {
  it("make the identifier that kelfun makes", () => {
    expect(compose({ quantity: "speed", position: "wheel", number: 3 })).toBe(
      Number(kelfunJson("fid", "--quantity", "speed", "--position", "wheel", "--number", "3").identifier),
    );
  });
  it("are refused where they exclude each other or are unknown", () => {
    expect(() => compose({ quantity: "sped" })).toThrow(/there is no quantity 'sped'; did you mean 'speed'\?/);
    expect(() => compose({ number: 3, leftright: "left" })).toThrow(/exclude each other/);
    expect(() => compose({ details: "gps", object: "oil" })).toThrow(/exclude/);
    expect(() => compose({ number: 64 })).toThrow(/accepted: a whole number from 0 to 63/);
  });
});
