import { Converter, Function as Fn, sampleTypes } from "kelfunzioni/core";
import { write, type State } from "./address.js";
import { fill, h, labelled, number, select, table } from "./dom.js";
import { texts } from "./texts.js";

interface Digits { readonly bytes: Uint8Array; readonly wrong: { readonly at: number; readonly text: string } | null }

/** Bytes in hexadecimal; blanks and colons between them, and a 0x before them, are let through. */
export function readDigits(text: string): Digits {
  const bytes: number[] = [];
  let half = -1;
  for (let at = /^\s*0x/i.exec(text)?.[0].length ?? 0; at < text.length; at++) {
    const character = text[at] as string;
    if (/[\s:]/.test(character) && half < 0) continue;
    const digit = /[0-9a-f]/i.test(character) ? parseInt(character, 16) : -1;
    if (digit < 0) return { bytes: Uint8Array.from(bytes), wrong: { at, text: texts.wrongCharacter(character, at + 1) } };
    if (half < 0) half = digit;
    else { bytes.push(half * 16 + digit); half = -1; }
  }
  return { bytes: Uint8Array.from(bytes), wrong: half < 0 ? null : { at: text.length - 1, text: texts.halfByte } };
}

/** Bytes as values, status words and texts. */
export function decoder(): { element: HTMLElement; show(state: State): void } {
  const state = { tab: "decoder", fid: "0x05070010", bytes: "7B00 FFCF", type: "int16", unit: "", width: "8", decimals: "" };
  const form = h("div", { class: "row" });
  const answer = h("div");
  const complaint = h("p", { class: "error", role: "alert", id: "complaint" });
  const marked = h("pre", { class: "marked", "aria-hidden": "true" });

  const field = (name: keyof typeof state, text: string, props: Record<string, string> = {}): HTMLElement =>
    labelled(text, h("input", { value: state[name], autocomplete: "off", spellcheck: "false", "aria-describedby": "complaint", ...props,
      oninput: (event) => { state[name] = (event.target as HTMLInputElement).value; if (name === "fid") draw(); else decode(); } }));

  function decode(): void {
    write({ ...state });
    fill(marked);
    try {
      const digits = readDigits(state.bytes);
      const one = new Fn(state.fid);
      const known = one.packetType;
      const type = known?.name ?? state.type;
      const conv = new Converter(one, {
        sampleType: type, width: Number(state.width),
        ...(state.unit ? { unit: state.unit } : {}), ...(state.decimals === "" ? {} : { decimals: Number(state.decimals) }),
      });
      const size = conv.sampleType.bytes;
      if (size === 0) throw new Error(texts.noBytes);
      const whole = digits.bytes.subarray(0, digits.bytes.length - (digits.bytes.length % size));
      const { values, status } = conv.decode(whole);
      const shown = conv.texts(whole);
      fill(answer, table(texts.decode, Object.values(texts.decodeColumns),
        shown.map((text, i) => [String(i), `${number(values[i] ?? 0)} ${conv.unit}`, String(status[i] ?? 0), h("code", { class: "display" }, text)]), [0, 1, 2]));
      const rest = digits.bytes.length % size;
      complaint.textContent = digits.wrong?.text ?? (rest === 0 ? "" : texts.wrongLength(digits.bytes.length, size));
      if (digits.wrong !== null)
        fill(marked, state.bytes.slice(0, digits.wrong.at), h("mark", {}, state.bytes[digits.wrong.at] ?? ""), state.bytes.slice(digits.wrong.at + 1));
    } catch (error) {
      fill(answer);
      complaint.textContent = (error as Error).message;
    }
  }

  function draw(): void {
    let one: Fn | null = null;
    try { one = new Fn(state.fid); } catch { /* decode says what is wrong */ }
    const old = form.querySelector<HTMLInputElement>("input");
    const held = document.activeElement === old ? old : null;
    const first = held?.closest("label") ?? field("fid", texts.functionField);
    const units = one?.units ?? [];
    if (!units.includes(state.unit)) state.unit = "";
    const unitBox = units.length === 0 ? null : labelled(texts.unit, select(units.map((unit) => [unit, unit]), state.unit || (units[0] ?? ""), (chosen) => { state.unit = chosen; decode(); }));
    const typeBox = one?.packetType ? null : labelled(texts.sampleType, select(sampleTypes().map((type) => [type.name, `${type.name}: ${type.content}`]), state.type, (chosen) => { state.type = chosen; decode(); }));
    const rest = [field("bytes", texts.bytes), typeBox, unitBox, field("width", texts.width, { type: "number", min: "0", max: "31" }), field("decimals", texts.decimals, { type: "number", min: "0", max: "7" })];
    if (held) { while (first.nextSibling) first.nextSibling.remove(); form.append(...rest.filter((box) => box !== null)); }
    else fill(form, first, ...rest);
    decode();
  }

  return {
    element: h("div", { class: "decoder" }, h("h2", {}, texts.tabs.decoder), h("p", {}, texts.decoderIntro), form, marked, complaint, answer),
    show(next) {
      for (const name of Object.keys(state) as (keyof typeof state)[]) if (next[name] !== undefined) state[name] = next[name];
      state.tab = "decoder";
      draw();
    },
  };
}
