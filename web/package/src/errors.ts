import { nearest } from "./module.js";

/** What was wrong, in one line that says what is accepted. */
export class KelError extends Error {
  override name = "KelError";
}

/** There is no such thing; `nearest` is the right word that comes closest, if one does. */
export class NotFoundError extends KelError {
  override name = "NotFoundError";
  constructor(
    message: string,
    readonly nearest?: string,
  ) {
    super(message);
  }
}

/** Bytes that are no recording, or no such laps in it. */
export class RecordingError extends KelError {
  override name = "RecordingError";
}

/** "there is no unit 'kmh'; did you mean 'km/h'? accepted: km/h, mph" */
export function noSuch(what: string, word: string, accepted: readonly string[]): NotFoundError {
  const near = nearest(word, accepted);
  const perhaps = near === undefined ? "" : `did you mean '${near}'? `;
  const list = accepted.length === 0 ? "none" : accepted.join(", ");
  return new NotFoundError(`there is no ${what} '${word}'; ${perhaps}accepted: ${list}`, near);
}

/** A whole number within bounds, or an error that names them. */
export function whole(value: number, what: string, least: number, most: number): number {
  if (!Number.isInteger(value) || value < least || value > most)
    throw new KelError(`${what} is ${String(value)}; accepted: a whole number from ${least} to ${most}`);
  return value;
}
