import { texts } from "./texts.js";

const PIECE = 1 << 22;

/** The bytes of a file, piece by piece; the next is read while one is worked on. */
export async function* pieces(file: File): AsyncGenerator<Uint8Array> {
  const read = (at: number): Promise<ArrayBuffer> => file.slice(at, at + PIECE).arrayBuffer();
  let next = read(0);
  for (let at = 0; at < file.size; at += PIECE) {
    const piece = await next.catch((error: unknown) => {
      throw new Error(texts.unreadable(file.name, at, (error as Error).message));
    });
    next = read(at + PIECE);
    next.catch(() => undefined);  // it is asked for again in the next round, if there is one
    yield new Uint8Array(piece);
  }
}
