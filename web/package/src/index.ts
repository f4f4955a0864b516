/**
 * What the identifiers and samples of racing data loggers mean; recordings, captures and laps.
 *
 * The module is started when this file is imported. To give its bytes yourself, as a page without a server must, import
 * "kelfunzioni/core" and await `init(bytes)`.
 */
import { init } from "./core.js";

async function start(): Promise<void> {
  const url = new URL("./kelfunzioni.wasm", import.meta.url);
  if (url.protocol === "file:") {
    const { readFile } = await import("node:fs/promises");
    await init(await readFile(url));
    return;
  }
  const answer = await fetch(url);
  if (!answer.ok) throw new Error(`${url.href} cannot be fetched: ${answer.status} ${answer.statusText}`);
  await init(await answer.arrayBuffer());
}

await start();

export * from "./core.js";
