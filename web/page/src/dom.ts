type Child = Node | string | null | undefined;
type Props = Record<string, string | number | boolean | EventListener | undefined>;

/** An element with attributes, event handlers (`onclick`) and children. */
export function h<Tag extends keyof HTMLElementTagNameMap>(
  tag: Tag,
  props: Props = {},
  ...children: (Child | readonly Child[])[]
): HTMLElementTagNameMap[Tag] {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(props)) {
    if (value === undefined || value === false) continue;
    if (typeof value === "function") element.addEventListener(name.slice(2), value);
    else element.setAttribute(name, value === true ? "" : String(value));
  }
  for (const child of children.flat()) if (child !== null && child !== undefined) element.append(child);
  return element;
}

export const fill = (element: Element, ...children: Child[]): void =>
  element.replaceChildren(...children.filter((child): child is Node | string => child !== null && child !== undefined));

/** A table; columns whose head begins with a space are numbers. */
export function table(caption: string, head: readonly string[], rows: readonly (readonly Child[])[], numbers: readonly number[] = []): HTMLElement {
  const side = (i: number): string => (numbers.includes(i) ? "number" : "");
  return h(
    "div",
    { class: "scroll", tabindex: 0, role: "region", "aria-label": caption },
    h(
      "table",
      {},
      h("caption", { class: "hidden" }, caption),
      h("thead", {}, h("tr", {}, head.map((one, i) => h("th", { scope: "col", class: side(i) }, one)))),
      h("tbody", {}, rows.map((row) => h("tr", {}, row.map((cell, i) => h("td", { class: side(i) }, cell))))),
    ),
  );
}

/** A labelled control. */
export function labelled(text: string, control: HTMLElement): HTMLElement {
  control.setAttribute("aria-label", text);  // else the options of a choice would be part of its name
  return h("label", { class: "labelled" }, h("span", {}, text), control);
}

export const select = (options: readonly (readonly [string, string])[], chosen: string, change: (value: string) => void): HTMLSelectElement => {
  const element = h("select", {}, options.map(([value, text]) => h("option", { value, selected: value === chosen }, text)));
  element.addEventListener("change", () => change(element.value));
  return element;
};

const shown = new Intl.NumberFormat(undefined, { maximumSignificantDigits: 7 });
/** A number in the reader's format. */
export const number = (value: number): string => shown.format(value);
export const fixed = (value: number, decimals: number): string =>
  value.toLocaleString(undefined, { minimumFractionDigits: decimals, maximumFractionDigits: decimals });

export function save(name: string, data: Blob): void {
  const url = URL.createObjectURL(data);
  h("a", { href: url, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(url), 10000);
}
