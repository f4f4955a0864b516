import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";

export const root = new URL("../../../", import.meta.url).pathname;

/** The native tools, which the package is held against: KEL_TOOLS, or this tree's release build. */
export const tools = process.env["KEL_TOOLS"] ?? join(root, "build/release/tools");
const kelfunPath = join(tools, "kelfun/kelfun");
if (!existsSync(kelfunPath)) throw new Error(`there is no ${kelfunPath}: build kelfun and kelsim first, or set KEL_TOOLS`);

export const digestValues = join(root, "tests/digest/values.txt");
export const digestProgram = join(process.env["KEL_WEB_NATIVE"] ?? join(root, "build/web/native"), "kel_digest.wasm");

export const kelfun = (...words: string[]): string =>
  execFileSync(kelfunPath, words, { encoding: "utf8", maxBuffer: 1 << 28, stdio: ["ignore", "pipe", "pipe"] });
export const kelfunJson = (...words: string[]): any => JSON.parse(kelfun(...words, "--json"));
export const kelsim = (...words: string[]): string =>
  execFileSync(join(tools, "simulatore/kelsim"), words, { encoding: "utf8", stdio: ["ignore", "pipe", "pipe"] });

/** A folder for the time of some work, or of what it promises. */
export function inFolder<Result>(work: (folder: string) => Result): Result {
  const folder = mkdtempSync(join(tmpdir(), "kelweb-"));
  const remove = (): void => rmSync(folder, { recursive: true, force: true });
  try {
    const result = work(folder);
    if (result instanceof Promise) return result.finally(remove) as Result;
    remove();
    return result;
  } catch (cause) {
    remove();
    throw cause;
  }
}
