import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { describe, expect, it } from "vitest";
import { digestProgram, digestValues } from "./tools.js";

const runner = `
  import { readFileSync } from "node:fs";
  import { WASI } from "node:wasi";
  const wasi = new WASI({ version: "preview1", args: ["kel_digest", process.argv[2]] });
  const module = await WebAssembly.compile(readFileSync(process.argv[1]));
  wasi.start(await WebAssembly.instantiate(module, wasi.getImportObject()));
`;

describe("the digest of all operations", () => {
  for (const rounds of [2000, 20000])
    it(`of ${rounds} rounds is that of every other machine`, { timeout: 120000 }, () => {
      const lines = readFileSync(digestValues, "utf8").split("\n").filter((line) => line !== "" && !line.startsWith("#"));
      const place = lines[0]?.split("\t").indexOf(String(rounds)) ?? -1;
      const kept = Object.fromEntries(lines.slice(1).map((line) => [line.split("\t")[0], line.split("\t")[place]]));
      const answer = execFileSync(
        process.execPath,
        ["--no-warnings", "--input-type=module", "-e", runner, digestProgram, String(rounds)],
        { encoding: "utf8" },
      );
      const ours = Object.fromEntries(answer.trim().split("\n").map((line) => line.split("\t")));
      expect(Object.keys(ours).length).toBeGreaterThan(80);
      expect(ours).toEqual(kept);
    });
});
