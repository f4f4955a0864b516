import { Function as Fn, closeTo, conversionWarning, convert, fieldValues, search, sampleType } from "kelfunzioni/core";
import { write, type State } from "./address.js";
import { programs } from "./code.js";
import { fill, h, labelled, number, select, table } from "./dom.js";
import { texts } from "./texts.js";

const WIDE: Record<string, readonly [number, number]> = {
  quantity: [0, 7], object: [7, 8], details: [7, 8], position: [15, 5], specialisation: [15, 5], inout: [20, 2],
  numbered: [22, 1], number: [23, 6], leftright: [23, 2], frontrear: [25, 2], updown: [27, 2],
};

const FIELD_NAMES: Record<string, string> = texts.fieldNames;

const copied = async (text: string): Promise<void> => navigator.clipboard.writeText(text);

const AT_ONCE = 20;
const ADDRESS_AFTER = 250;  // ms

/** Search on one side, and what is known of one function on the other. */
export function explorer(): { element: HTMLElement; show(state: State): void } {
  let fid = 0x05070010;
  let unit = "";
  let value = 100;
  const results = h("ul", { class: "results", "aria-label": texts.search });
  const count = h("p", { class: "quiet", role: "status" });
  const detail = h("section", { class: "detail", "aria-label": texts.identifier });
  const input = h("input", { type: "search", placeholder: texts.searchHint, autocomplete: "off", spellcheck: "false" });

  const remember = (): void => write({ ...(input.value ? { q: input.value } : {}), fid: new Fn(fid).hex, ...(unit ? { unit } : {}) });

  function open(next: number, chosen = ""): void {
    fid = next;
    unit = chosen;
    draw();
    remember();
  }

  const named = new Map<number, readonly [string, string, string]>();
  function result(one: Fn): HTMLElement {
    let words = named.get(one.identifier);
    if (words === undefined) named.set(one.identifier, (words = [one.name || one.shortName, one.hex, one.units.join(", ")]));
    return h("li", {},
      h("button", { class: "result", "aria-current": one.identifier === fid ? "true" : undefined, onclick: () => open(one.identifier) },
        h("span", { class: "name" }, words[0]), h("code", {}, words[1]), h("span", { class: "quiet" }, words[2])));
  }

  /** Those that are seen at once are shown at once, so that a key waits for no more; the others follow. */
  let rest = 0;
  function seek(): void {
    const words = input.value;
    const found = words.trim() === "" ? [] : search(words);
    fill(results, ...found.slice(0, AT_ONCE).map((match) => result(match.function)));
    clearTimeout(rest);
    const more = (from: number): void => {
      results.append(...found.slice(from, from + AT_ONCE).map((match) => result(match.function)));
      if (from + AT_ONCE < found.length) rest = setTimeout(more, 0, from + AT_ONCE);
    };
    if (found.length > AT_ONCE) rest = setTimeout(more, 0, AT_ONCE);
    count.textContent = words.trim() === "" ? "" : found.length > 0 ? texts.found(found.length) : texts.nothing(closeTo(words.trim().split(/\s+/)[0] ?? ""));
  }

  function bits(one: Fn): HTMLElement {
    const cells: HTMLElement[] = [];
    for (const field of [...one.fields].reverse()) {
      const [bit, width] = WIDE[field.field] ?? [0, 0];
      const set = (next: number): void => {
        const mask = (2 ** width - 1) << bit;
        open(((fid & ~mask) | (next << bit)) >>> 0);
      };
      const details = (fid >>> 7) & 0xff;
      const values = field.field === "numbered" || field.field === "number" ? [] : fieldValues(field.field, details);
      const name = FIELD_NAMES[field.field] ?? field.field;
      const control =
        field.field === "numbered"
          ? select([["0", texts.no], ["1", texts.yes]], String(field.value), (chosen) => set(Number(chosen)))
          : values.length === 0
            ? h("input", { type: "number", min: 0, max: 2 ** width - 1, value: field.value, onchange: (event) => set(Math.min(Math.max(0, Math.trunc(Number((event.target as HTMLInputElement).value))), 2 ** width - 1)) })
            : select(
                [...values.map((row) => [String(row.value), row.text ?? row.xml.split("_").slice(2).join(" ").toLowerCase()] as const),
                  ...(values[field.value] === undefined ? [[String(field.value), String(field.value)] as const] : [])],
                String(field.value),
                (chosen) => set(Number(chosen)),
              );
      control.setAttribute("aria-label", name);
      cells.push(
        h("div", { class: "field" }, h("span", { class: "range" }, width === 1 ? String(bit) : `${bit + width - 1}–${bit}`),
          h("span", { class: "bits", "aria-hidden": "true" }, field.value.toString(2).padStart(width, "0")), h("span", { class: "name" }, name), control),
      );
    }
    const rest = fid >>> 29;
    return h("div", { class: "picture" },
      h("div", { class: "field" }, h("span", { class: "range" }, "31–29"), h("span", { class: "bits" }, rest.toString(2).padStart(3, "0")), h("span", { class: "name" }, texts.unusedBits)), cells);
  }

  function units(one: Fn): HTMLElement | null {
    if (one.unitTable.length === 0) return null;
    const from = unit || one.baseUnit;
    const warning = h("p", { class: "warning", role: "status" });
    const rows = h("div");
    const live = (): void => {
      const notes = new Set<string>();
      fill(
        rows,
        table(
          texts.units,
          [texts.unit, texts.value, texts.decimals, texts.gain, texts.offset],
          one.unitTable.map((row) => {
            const note = conversionWarning(value, one, from, row.unit);
            if (note !== "") notes.add(note);
            return [row.unit + (row.reciprocal ? ` (${texts.pace})` : ""), number(convert(value, one, from, row.unit)), String(row.decimals), number(row.gain), number(row.offset)];
          }),
          [1, 2, 3, 4],
        ),
      );
      warning.textContent = [...notes].join(" ");
    };
    const entry = h("input", { type: "number", step: "any", value, oninput: (event) => { value = Number((event.target as HTMLInputElement).value); live(); } });
    const choose = select(one.units.map((name) => [name, name]), from, (chosen) => { unit = chosen; remember(); draw(); });
    live();
    return h("section", {}, h("h3", {}, texts.units), h("div", { class: "row" }, labelled(texts.value, entry), labelled(texts.unit, choose)), rows, warning);
  }

  function choices(one: Fn): HTMLElement | null {
    const { sides, inout, numbers } = one.choices;
    const button = (text: string, next: Fn): HTMLElement => h("button", { "aria-pressed": String(next.identifier === fid), onclick: () => open(next.identifier, unit) }, text);
    const groups: HTMLElement[] = [];
    if (sides.length > 0) groups.push(h("div", { class: "row", role: "group", "aria-label": texts.choiceKinds.side }, sides.map((choice) => button(choice.text, choice.function))));
    if (inout.length > 0) groups.push(h("div", { class: "row", role: "group", "aria-label": texts.choiceKinds.inout }, inout.map((choice) => button(choice.text, choice.function))));
    if (numbers !== null) {
      const all = Array.from({ length: numbers.last - numbers.first + 1 }, (_, i) => numbers.first + i);
      groups.push(h("div", { class: "row", role: "group", "aria-label": texts.choiceKinds.number },
        all.map((n) => button(String(n), new Fn(((fid & ~0x1fc00000) | (1 << 22) | (n << 23)) >>> 0)))));
    }
    return groups.length === 0 ? null : h("section", {}, h("h3", {}, texts.choices), groups);
  }

  function programsOf(one: Fn): HTMLElement {
    return h("section", {}, h("h3", {}, texts.code),
      programs(one, unit).map(([language, code], i) => {
        const shown = h("pre", { tabindex: 0, "aria-label": language }, h("code", {}, code));
        const copy = h("button", { onclick: () => {
          // Where the clipboard is closed to pages, what is to be copied is selected.
          copied(code).then(() => { copy.textContent = texts.copied; }, () => { getSelection()?.selectAllChildren(shown); copy.textContent = texts.selected; });
        } }, texts.copy);
        return h("details", { open: i === 3 }, h("summary", {}, language), copy, shown);
      }));
  }

  function draw(): void {
    const one = new Fn(fid);
    if (unit !== "" && !one.units.includes(unit)) unit = "";
    const fact = (name: string, text: string): HTMLElement => h("div", {}, h("dt", {}, name), h("dd", {}, text || texts.none));
    const camera = one.camera;
    fill(
      detail,
      h("h2", {}, one.name || texts.none),
      h("dl", {}, fact(texts.identifier, one.hex), fact(texts.decimal, String(fid)), fact(texts.shortName, one.shortName), fact(texts.legacy, one.legacyId ?? ""), fact(texts.baseUnit, one.baseUnit)),
      h("section", {}, h("h3", {}, texts.fields), bits(one)),
      choices(one),
      units(one),
      camera && h("section", {}, h("h3", {}, texts.camera),
        table(texts.camera, Object.values(texts.cameraColumns), [[camera.code === null ? texts.none : String(camera.code), camera.shortName, camera.name, camera.unit, number(camera.scale)]], [0, 4])),
      one.subfields.length === 0 ? null : h("section", {}, h("h3", {}, texts.subfields),
        table(texts.subfields, Object.values(texts.subfieldColumns), one.subfields.map((row) => {
          const inner = row.function;
          return [
            inner === null ? texts.reserved : h("button", { class: "link", onclick: () => open(inner.identifier) }, inner.name),
            String(row.offset), row.bits === null ? "" : `${row.bit}+${row.bits}`, row.sampleType < 25 ? sampleType(row.sampleType).name : "",
          ];
        }), [1])),
      programsOf(one),
    );
    for (const button of results.querySelectorAll("button")) button.toggleAttribute("aria-current", button.querySelector("code")?.textContent === one.hex);
  }

  // The address follows when the typing pauses: a browser takes its time for it.
  let later = 0;
  input.addEventListener("input", () => {
    seek();
    clearTimeout(later);
    later = setTimeout(remember, ADDRESS_AFTER);
  });
  results.addEventListener("keydown", (event) => {
    const step = event.key === "ArrowDown" ? 1 : event.key === "ArrowUp" ? -1 : 0;
    if (step === 0) return;
    const all = [...results.querySelectorAll("button")];
    const next = all[all.indexOf(document.activeElement as HTMLButtonElement) + step] ?? (step < 0 ? input : null);
    next?.focus();
    event.preventDefault();
  });
  input.addEventListener("keydown", (event) => {
    if (event.key === "ArrowDown") { results.querySelector("button")?.focus(); event.preventDefault(); }
  });

  return {
    element: h("div", { class: "explorer" }, h("div", { class: "search" }, labelled(texts.search, input), count, results), detail),
    show(state) {
      const wanted = Number(state["fid"]);
      if (state["fid"] !== undefined && Number.isInteger(wanted) && wanted >= 0 && wanted <= 0xffffffff) fid = wanted;
      unit = state["unit"] ?? "";
      input.value = state["q"] ?? "";
      seek();
      draw();
    },
  };
}
