// The package as people get it: packed, unpacked into a folder of another project, and used by Node, esbuild, Vite and a plain
// page.
import { execFileSync } from "node:child_process";
import { copyFileSync, mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync } from "node:fs";
import { createServer, type Server } from "node:http";
import { tmpdir } from "node:os";
import { extname, join } from "node:path";
import { build as esbuild } from "esbuild";
import { chromium, type Browser } from "playwright-core";
import { build as vite } from "vite";
import { afterAll, beforeAll, expect, it } from "vitest";
import { chromiumPath } from "./browser.js";

const here = new URL("../../package/", import.meta.url).pathname;
const TYPES: Record<string, string> = { ".js": "text/javascript", ".html": "text/html", ".wasm": "application/wasm" };
const PROGRAM = 'import { convert, find } from "kelfunzioni";\nglobalThis.answer = `${find("wheel front left")[0].name} ${convert(100, 0x10, "km/h", "mph").toFixed(4)}`;\n';
const ANSWER = "Speed Wheel FL 62.1371";

let folder: string;
let browser: Browser;

beforeAll(async () => {
  folder = mkdtempSync(join(tmpdir(), "kelpack-"));
  execFileSync("npm", ["pack", "--silent", "--pack-destination", folder], { cwd: here, stdio: ["ignore", "pipe", "ignore"] });
  const installed = join(folder, "node_modules/kelfunzioni");
  mkdirSync(installed, { recursive: true });
  execFileSync("tar", ["-xzf", join(folder, packed()), "-C", installed, "--strip-components=1"]);
  writeFileSync(join(folder, "package.json"), '{ "type": "module", "private": true }');
  writeFileSync(join(folder, "program.js"), PROGRAM);
  browser = await chromium.launch({ executablePath: chromiumPath, args: ["--no-sandbox"] });
});
afterAll(async () => {
  await browser.close();
  rmSync(folder, { recursive: true });
});

const packed = (): string => readdirSync(folder).find((name) => name.endsWith(".tgz")) as string;

/** What a page of a folder answers, from a server, as a package cannot be loaded from a file. */
async function answered(root: string, html: string): Promise<unknown> {
  writeFileSync(join(root, "index.html"), html);
  const server: Server = createServer((request, answer) => {
    try {
      const name = join(root, request.url === "/" ? "index.html" : new URL(request.url ?? "", "http://a").pathname);
      const bytes = readFileSync(name);
      answer.writeHead(200, { "content-type": TYPES[extname(name)] ?? "application/octet-stream" }).end(bytes);
    } catch {
      answer.writeHead(404).end();
    }
  });
  await new Promise<void>((done) => server.listen(0, "127.0.0.1", done));
  const page = await browser.newPage();
  try {
    await page.goto(`http://127.0.0.1:${(server.address() as { port: number }).port}/`);
    await page.waitForFunction(() => "answer" in globalThis, null, { timeout: 20000 });
    return await page.evaluate(() => (globalThis as { answer?: unknown }).answer);
  } finally {
    await page.close();
    server.close();
  }
}

it("has at most 150 KB packed, and nothing but code, types, the module and its papers", () => {
  expect(statSync(join(folder, packed())).size).toBeLessThanOrEqual(150000);
  const names = execFileSync("tar", ["-tzf", join(folder, packed())], { encoding: "utf8" }).trim().split("\n");
  for (const name of names) expect(name).toMatch(/^package\/(dist\/[\w.]+\.(js|d\.ts|wasm)|package\.json|README\.md|LICENSE)$/);
});

it("works in Node", () => {
  const printed = execFileSync(process.execPath, ["--input-type=module", "-e", 'await import("./program.js"); console.log(globalThis.answer);'], { cwd: folder, encoding: "utf8" });
  expect(printed.trim()).toBe(ANSWER);
});

it("works in a plain page", async () => {
  const map = '<script type="importmap">{ "imports": { "kelfunzioni": "./node_modules/kelfunzioni/dist/index.js" } }</script>';
  expect(await answered(folder, `${map}<script type="module" src="program.js"></script>`)).toBe(ANSWER);
});

it("works bundled by esbuild, with the module beside the bundle", async () => {
  const out = join(folder, "esbuild");
  await esbuild({ entryPoints: [join(folder, "program.js")], bundle: true, format: "esm", external: ["node:*"], outfile: join(out, "program.js"), logLevel: "error" });
  copyFileSync(join(folder, "node_modules/kelfunzioni/dist/kelfunzioni.wasm"), join(out, "kelfunzioni.wasm"));
  expect(await answered(out, '<script type="module" src="program.js"></script>')).toBe(ANSWER);
});

it("works bundled by esbuild into one file, the module within it", async () => {
  writeFileSync(join(folder, "whole.js"), 'import wasm from "kelfunzioni/kelfunzioni.wasm";\nimport { init } from "kelfunzioni/core";\nimport { convert, find } from "kelfunzioni/core";\ninit(wasm).then(() => {\n' + PROGRAM.split("\n")[1] + "\n});\n");
  const out = join(folder, "whole");
  await esbuild({ entryPoints: [join(folder, "whole.js")], bundle: true, format: "iife", loader: { ".wasm": "binary" }, outfile: join(out, "program.js"), logLevel: "error" });
  expect(await answered(out, '<script src="program.js"></script>')).toBe(ANSWER);
});

it("works bundled by Vite, which is Rollup, without any setting", async () => {
  writeFileSync(join(folder, "index.html"), '<script type="module" src="/program.js"></script>');
  await vite({ root: folder, logLevel: "error", configFile: false, build: { target: "es2022", outDir: "vite" } });
  const out = join(folder, "vite");
  expect(await answered(out, readFileSync(join(out, "index.html"), "utf8"))).toBe(ANSWER);
});
