import { KelError } from "./errors.js";
import { callLines, within } from "./module.js";
import { CatalogueFunction } from "./function.js";

/** A text of a function that holds a word. */
export interface MatchedText {
  /** "name", "short name", "legacy identifier", "unit", "field" or "identifier" */
  readonly key: string;
  readonly text: string;
}

/** A function that holds all words. */
export interface Match {
  readonly function: CatalogueFunction;
  /** How well the worst of the words was found. */
  readonly match: "exact" | "prefix" | "word" | "part";
  readonly matched: readonly MatchedText[];
}

/** The functions that hold all words in their texts, best first, with where they hold them. */
export function search(words: string): Match[] {
  if (words.trim() === "") throw new KelError("there is nothing to search for; accepted: words of a name, unit or identifier, such as oil");
  const lines = within((memory) => callLines("kelWebCerca", memory.text(words)));
  return lines.map(([identifier, match, ...texts]) => ({
    function: new CatalogueFunction(Number(identifier)),
    match: match as Match["match"],
    matched: Array.from({ length: texts.length / 2 }, (_, i) => ({ key: texts[2 * i] ?? "", text: texts[2 * i + 1] ?? "" })),
  }));
}

/** The functions that hold all words in their texts, best first. */
export const find = (words: string): CatalogueFunction[] => search(words).map((match) => match.function);

/** Words of the catalogue that are like one that nothing holds, the nearest first. */
export const closeTo = (word: string): string[] =>
  within((memory) => callLines("kelWebVicine", memory.text(word))).map(([one = ""]) => one);

let identifiers: readonly number[] | undefined;

/** Every identifier that the library has a name of its own for, by quantity, object and position. */
export const known = (): readonly number[] =>
  (identifiers ??= callLines("kelWebNoti").map(([identifier]) => Number(identifier)));

/** The functions that have a name; of short names only where no long one is the same. */
export const named = (name: string): number[] =>
  within((memory) => callLines("kelWebChiamati", memory.text(name))).map(([identifier]) => Number(identifier));

/** All names and legacy identifiers. */
export const allNames = (): string[] => callLines("kelWebNomi").map(([name = ""]) => name);
