// Builds the package: its types by the compiler, its code as two entries over one shared file, without comments.
import { execFileSync } from "node:child_process";
import { createRequire } from "node:module";
import { rmSync } from "node:fs";
import { build } from "esbuild";

rmSync("dist", { recursive: true, force: true });
execFileSync(process.execPath, [createRequire(import.meta.url).resolve("typescript/bin/tsc"), "-p", "tsconfig.json"], {
  stdio: "inherit",
});
await build({
  entryPoints: ["src/index.ts", "src/core.ts"],
  outdir: "dist",
  bundle: true,
  splitting: true,
  format: "esm",
  target: "es2022",
  minifySyntax: true,
  minifyWhitespace: true,
  minifyIdentifiers: true,
  external: ["node:*"],
  chunkNames: "shared",
});
