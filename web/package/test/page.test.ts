import { readFileSync } from "node:fs";
import { join } from "node:path";
import { expect, it } from "vitest";
import * as kelfunzioni from "../dist/index.js";
import { inFolder, kelsim } from "./tools.js";

const files = inFolder((folder) => {
  const [channels, samples] = ["k.channels", "k.samples"].map((name) => join(folder, name)) as [string, string];
  kelsim("--laps", "2", "--channels", channels, "--samples", samples);
  return { channels: new Uint8Array(readFileSync(channels)), samples: new Uint8Array(readFileSync(samples)) };
});

/** What the example of the page gives: each line that ends in a comment is an expression and its answer. */
it("the example of docs/web.md runs and gives what it says", async () => {
  const page = readFileSync(new URL("../../../docs/web.md", import.meta.url), "utf8");
  const example = /```js\nimport \{ (.*) \} from "kelfunzioni";\n(.*?)```/s.exec(page);
  const [, names = "", code = ""] = example ?? [];
  const given: unknown[] = [];
  const run = code.replace(/^(?!const)(.+); \/\/ .*$/gm, "given.push($1);");
  expect(run.match(/given\.push/g)?.length).toBe(4);
  const program = new Function(...names.split(", "), "given", "bytes", "channels", "samples", `return (async () => {${run}})();`);
  const parts = names.split(", ").map((name) => (kelfunzioni as Record<string, unknown>)[name]);
  await program(...parts, given, new Uint8Array([100, 0]), files.channels, files.samples);
  const [name, units, miles, values] = given as [string, string[], Float32Array, Float32Array];
  expect(page).toContain(`// ${JSON.stringify(name)}`);
  expect(page).toContain(`// [${units.map((unit) => JSON.stringify(unit)).join(", ")}]`);
  expect(page).toContain(`// Float32Array [${Array.from(miles, (mile) => shortest(mile)).join(", ")}]`);
  expect(values).toEqual(new Float32Array([100]));
});

/** A float as short as it can be told from its neighbours. */
function shortest(value: number): string {
  for (let digits = 1; ; ++digits) {
    const text = String(Number(value.toPrecision(digits)));
    if (Math.fround(Number(text)) === value) return text;
  }
}
