const COLOURS = [
  ["#0a58ca", "#8ab4f8"],
  ["#b3261e", "#ff9d94"],
  ["#1b7f3b", "#7ddc9a"],
  ["#8a5a00", "#f2c063"],
  ["#7b3fb5", "#d0a8ff"],
  ["#00727d", "#6fdbe6"],
] as const;

export const dark = matchMedia("(prefers-color-scheme: dark)");
export const colour = (i: number): string => (COLOURS[i % COLOURS.length] as readonly [string, string])[dark.matches ? 1 : 0];
export const style = (name: string): string => getComputedStyle(document.documentElement).getPropertyValue(name).trim();
