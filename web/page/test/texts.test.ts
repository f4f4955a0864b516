import { readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import ts from "typescript";
import { expect, it } from "vitest";

const folder = new URL("../src/", import.meta.url).pathname;
// Programs to copy are in languages of their own.
const OTHERS = ["texts.ts", "code.ts"];
// Attributes that nobody reads, and names of keys.
const UNREAD = ["class", "style", "role", "type", "id", "for", "d", "font", "key"];
const CALLS = /querySelector|getPropertyValue|matchMedia|getContext|addEventListener|classList|locator|waitFor|createElement|setAttribute|removeAttribute|padStart|join|split|replace/;
const FILE = /^(virtual:)?\w+\.[a-z]+$/;
const KEYS = /^(Arrow(Left|Right|Up|Down)|Home|End|Page(Up|Down)|Escape|Enter)$/;

/** The words that a file would show: texts with a word of letters in them that stand where people read them. */
function shown(source: ts.SourceFile): string[] {
  const found: string[] = [];
  const look = (node: ts.Node): void => {
    const text = ts.isStringLiteralLike(node) || ts.isTemplateHead(node) || ts.isTemplateMiddle(node) || ts.isTemplateTail(node) ? node.text : undefined;
    if (text !== undefined && (/\p{L}{2,}[ ,.:]+\p{L}/u.test(text) || /^\p{Lu}\p{Ll}+/u.test(text)) && !KEYS.test(text) && !FILE.test(text) && !unread(node)) found.push(text);
    ts.forEachChild(node, look);
  };
  look(source);
  return found;
}

function unread(node: ts.Node): boolean {
  for (let one: ts.Node = node; one.parent !== undefined; one = one.parent) {
    const { parent } = one;
    if (ts.isImportDeclaration(parent)) return true;
    if (ts.isPropertyAssignment(parent) && UNREAD.includes(parent.name.getText().replaceAll('"', ""))) return true;
    if (ts.isCallExpression(parent) && CALLS.test(parent.expression.getText())) return true;
    if (ts.isBinaryExpression(parent) && /\.(font|fillStyle|strokeStyle)$/.test(parent.left.getText())) return true;
    if (ts.isBlock(parent) || ts.isSourceFile(parent)) return false;
  }
  return false;
}

const parsed = (name: string, text: string): ts.SourceFile => ts.createSourceFile(name, text, ts.ScriptTarget.ES2022, true);

it("all words of the page are in one file", () => {
  const files = readdirSync(folder).filter((name) => name.endsWith(".ts") && !OTHERS.includes(name));
  expect(files.length).toBeGreaterThan(10);
  const found = files.flatMap((name) => shown(parsed(name, readFileSync(join(folder, name), "utf8"))).map((text) => `${name}: ${text}`));
  expect(found).toEqual([]);
});

it("a word in another file would be noticed", () => {
  expect(shown(parsed("a.ts", 'h("p", { class: "one two" }, "Drop it here", `${n} rows left`);'))).toEqual(["Drop it here", " rows left"]);
  expect(shown(parsed("a.ts", 'h("button", {}, "Stop");'))).toEqual(["Stop"]);
});

it("every text is used", () => {
  const all = readdirSync(folder).filter((name) => name.endsWith(".ts") && name !== "texts.ts").map((name) => readFileSync(join(folder, name), "utf8")).join("\n");
  const names = [...readFileSync(join(folder, "texts.ts"), "utf8").matchAll(/^ {2}(\w+):/gm)].map((match) => match[1]);
  expect(names.length).toBeGreaterThan(60);
  expect(names.filter((name) => !all.includes(`texts.${name}`))).toEqual([]);
});
