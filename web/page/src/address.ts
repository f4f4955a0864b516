// What is shown stands in the address behind #, so that a link restores it.
export type State = Record<string, string>;

export const read = (): State => Object.fromEntries(new URLSearchParams(location.hash.slice(1)));

export function write(state: State): void {
  const address = `#${new URLSearchParams(state).toString()}`;
  if (address !== location.hash) history.replaceState(null, "", address);
}
