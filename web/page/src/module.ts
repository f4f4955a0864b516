import base64 from "virtual:kelfunzioni.wasm";

/** The module that lies in this page. */
export async function unpacked(): Promise<ArrayBuffer> {
  const bytes = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
  const plain = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"));
  return new Response(plain).arrayBuffer();
}
