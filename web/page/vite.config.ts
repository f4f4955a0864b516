// The page as one file: styles, code, the worker and the module lie in it.
import { readFileSync, renameSync } from "node:fs";
import { createRequire } from "node:module";
import { gzipSync } from "node:zlib";
import { defineConfig, type Plugin } from "vite";
import { viteSingleFile } from "vite-plugin-singlefile";

const NAME = "virtual:kelfunzioni.wasm";

// The module as text: compressed, in base 64.
const moduleAsText: Plugin = {
  name: "module-as-text",
  resolveId: (id) => (id === NAME ? `\0${NAME}` : undefined),
  load(id) {
    if (id !== `\0${NAME}`) return undefined;
    const path = createRequire(import.meta.url).resolve("kelfunzioni/kelfunzioni.wasm");
    return `export default ${JSON.stringify(gzipSync(readFileSync(path), { level: 9 }).toString("base64"))}`;
  },
};

const renamed: Plugin = {
  name: "renamed",
  closeBundle: () => renameSync("../dist/page/index.html", "../dist/kelfunzioni.html"),
};

export default defineConfig({
  plugins: [moduleAsText, viteSingleFile({ removeViteModuleLoader: true }), renamed],
  build: { target: "es2022", outDir: "../dist/page", emptyOutDir: true, modulePreload: false },
  // A page that was opened from a file may not start a worker that is a module.
  worker: { format: "iife" },
});
