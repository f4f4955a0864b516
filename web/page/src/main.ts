import { init, search } from "kelfunzioni/core";
import { read, write } from "./address.js";
import { decoder } from "./decoder.js";
import { fill, h } from "./dom.js";
import { explorer } from "./explorer.js";
import { unpacked } from "./module.js";
import { recordings } from "./recordings.js";
import "./style.css";
import { texts } from "./texts.js";

type Tab = keyof typeof texts.tabs;
const TABS = Object.keys(texts.tabs) as Tab[];

async function start(): Promise<void> {
  const module = await unpacked();
  await init(module);
  const views = { explorer: explorer(), decoder: decoder(), recordings: recordings(module) };
  const panels = Object.fromEntries(
    TABS.map((tab) => [tab, h("div", { role: "tabpanel", id: `panel-${tab}`, "aria-labelledby": `tab-${tab}` }, views[tab].element)]),
  ) as unknown as Record<Tab, HTMLElement>;
  const buttons = TABS.map((tab) =>
    h("button", { role: "tab", id: `tab-${tab}`, "aria-controls": `panel-${tab}`, onclick: () => { write(tab === "explorer" ? {} : { tab }); show(tab); } }, texts.tabs[tab]),
  );

  function show(tab: Tab): void {
    TABS.forEach((one, i) => {
      buttons[i]?.setAttribute("aria-selected", String(one === tab));
      if (buttons[i]) buttons[i].tabIndex = one === tab ? 0 : -1;
      panels[one].hidden = one !== tab;
    });
    views[tab].show(read());
  }

  const list = h("div", { role: "tablist", "aria-label": texts.title }, buttons);
  list.addEventListener("keydown", (event) => {
    const step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
    if (step === 0) return;
    const next = buttons[(buttons.indexOf(document.activeElement as HTMLButtonElement) + step + TABS.length) % TABS.length];
    next?.focus();
    next?.click();
  });
  fill(document.body, h("header", {}, h("h1", {}, texts.title), h("p", {}, texts.tagline), list), h("main", {}, Object.values(panels)));
  const fromAddress = (): void => show(TABS.find((tab) => tab === read()["tab"]) ?? "explorer");
  addEventListener("hashchange", fromAddress);
  fromAddress();
  document.documentElement.dataset["ready"] = "1";
  performance.mark("ready");
  setTimeout(() => search(" a"), 0);  // its tables are made before the first key
}

start().catch((error: unknown) => fill(document.body, h("main", {}, h("h1", {}, texts.failed), h("p", { role: "alert" }, (error as Error).message))));
