import uPlot from "uplot";
import "uplot/dist/uPlot.min.css";
import { style } from "./colours.js";
import { h } from "./dom.js";

export interface Line { readonly label: string; readonly colour: string; readonly fill?: string }

/** A plot of lines over one axis, with its name and the values at the cursor above it. */
export interface Plot {
  readonly element: HTMLElement;
  readonly plot: uPlot;
  readonly label: string;
  readonly colour: string;
  /** Shows what the cursor is at; "" for nothing. */
  tell(text: string): void;
}

const gap = (all: ArrayLike<number>): (number | null)[] => Array.from(all, (one) => (one === one ? one : null));

export function plotOf(lines: readonly Line[], height: number, width: number, options: Partial<uPlot.Options> = {}): Plot {
  const axis = { stroke: style("--ink"), grid: { stroke: style("--line") }, ticks: { stroke: style("--line") } };
  const value = h("output", { class: "value" });
  const element = h("div", { class: "plot" },
    h("p", { class: "label" }, lines.map((line) => h("span", {}, h("span", { class: "swatch", style: `background:${line.colour}` }), line.label)), value));
  const plot = new uPlot(
    { width, height, legend: { show: false }, scales: { x: { time: false } }, axes: [{ ...axis, size: 32 }, { ...axis, size: 62 }],
      // A line of one pixel is drawn eight times as fast as one of one and a half, where no graphics card helps.
      series: [{}, ...lines.map((line) => ({ stroke: line.colour, width: 1, ...(line.fill === undefined ? {} : { fill: line.fill }) }))], ...options },
    [[], ...lines.map(() => [])],
    element,
  );
  const label = lines.map((line) => line.label).join(", ");
  plot.root.setAttribute("role", "img");
  plot.root.setAttribute("aria-label", label);
  return { element, plot, label, colour: lines[0]?.colour ?? "", tell: (text) => { value.textContent = text; } };
}

/** Where there is no value, there is a gap. */
export const dataOf = (x: ArrayLike<number>, ...lines: readonly ArrayLike<number>[]): uPlot.AlignedData =>
  [x, ...lines.map(gap)] as unknown as uPlot.AlignedData;
