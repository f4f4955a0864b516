import { readFileSync } from "node:fs";
import { expect, it } from "vitest";
import { digestProgram, digestValues } from "../../package/test/tools.js";
import { inBrowser, open } from "./browser.js";

const { page } = inBrowser();
const ROUNDS = 2000;

it("the digest of all operations in Chromium is that of every other machine", { timeout: 120000 }, async () => {
  const lines = readFileSync(digestValues, "utf8").split("\n").filter((line) => line !== "" && !line.startsWith("#"));
  const place = lines[0]?.split("\t").indexOf(String(ROUNDS)) ?? -1;
  const kept = Object.fromEntries(lines.slice(1).map((line) => [line.split("\t")[0], line.split("\t")[place]]));
  await open(page());
  const printed = await page().evaluate(async ([base64, rounds]) => {
    const bytes = Uint8Array.from(atob(base64!), (one) => one.charCodeAt(0));
    const words = ["kel_digest\0", `${rounds}\0`].map((word) => new TextEncoder().encode(word));
    let memory: WebAssembly.Memory;
    let output = "";
    const view = (): DataView => new DataView(memory.buffer);
    const ended = new Error("ended");
    // The few calls of a program that reads its arguments and prints.
    const calls: Record<string, (...values: number[]) => number> = {
      args_sizes_get(count, size) {
        view().setUint32(count!, words.length, true);
        view().setUint32(size!, words.reduce((sum, word) => sum + word.length, 0), true);
        return 0;
      },
      args_get(places, at) {
        words.forEach((word, i) => {
          view().setUint32(places! + 4 * i, at!, true);
          new Uint8Array(memory.buffer).set(word, at);
          at! += word.length;
        });
        return 0;
      },
      fd_write(_, pieces, many, written) {
        let all = 0;
        for (let i = 0; i < many!; i++) {
          const [at, length] = [view().getUint32(pieces! + 8 * i, true), view().getUint32(pieces! + 8 * i + 4, true)];
          output += new TextDecoder().decode(new Uint8Array(memory.buffer, at, length));
          all += length;
        }
        view().setUint32(written!, all, true);
        return 0;
      },
      fd_fdstat_get(_, at) {
        new Uint8Array(memory.buffer, at, 24).fill(0);
        view().setUint8(at!, 2);
        return 0;
      },
      proc_exit() { throw ended; },
    };
    const others = new Proxy(calls, { get: (all, name) => all[name as string] ?? (() => 8) });
    const module = await WebAssembly.compile(bytes);
    const imports = Object.fromEntries(WebAssembly.Module.imports(module).map(({ name }) => [name, others[name]]));
    const instance = await WebAssembly.instantiate(module, { wasi_snapshot_preview1: imports as WebAssembly.ModuleImports });
    memory = instance.exports["memory"] as WebAssembly.Memory;
    try {
      (instance.exports["_start"] as () => void)();
    } catch (error) {
      if (error !== ended) throw error;
    }
    return output;
  }, [readFileSync(digestProgram).toString("base64"), String(ROUNDS)]);
  const ours = Object.fromEntries(printed.trim().split("\n").map((line) => line.split("\t")));
  expect(Object.keys(ours).length).toBeGreaterThan(80);
  expect(ours).toEqual(kept);
});
