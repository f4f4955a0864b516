// The page in Debian's Chromium, from a file, without network: what its tests share.
import AxeBuilder from "@axe-core/playwright";
import { chromium, type Browser, type BrowserContext, type Page } from "playwright-core";
import { afterAll, beforeAll, expect } from "vitest";

export const address = new URL("../../dist/kelfunzioni.html", import.meta.url).href;
export const chromiumPath = process.env["KEL_CHROMIUM"] ?? "/usr/bin/chromium";

export interface Given { readonly name: string; readonly mimeType: string; readonly buffer: Buffer }
export const file = (name: string, bytes: Uint8Array): Given => ({ name, mimeType: "application/octet-stream", buffer: Buffer.from(bytes) });

/** A browser for the tests of a file, and a page in it. What goes wrong in any page, or asks for the network, fails them. */
export function inBrowser(): { fresh(options?: Parameters<Browser["newContext"]>[0]): Promise<[BrowserContext, Page]>; page(): Page } {
  let browser: Browser;
  let page: Page;
  const complaints: string[] = [];
  const fresh = async (options: Parameters<Browser["newContext"]>[0] = {}): Promise<[BrowserContext, Page]> => {
    const context = await browser.newContext({ locale: "en-GB", ...options });
    await context.setOffline(true);
    context.setDefaultTimeout(20000);
    const next = await context.newPage();
    next.on("pageerror", (error) => complaints.push(error.message));
    next.on("console", (message) => { if (message.type() === "error") complaints.push(message.text()); });
    next.on("request", (request) => { if (!/^(file|blob|data):/.test(request.url())) complaints.push(request.url()); });
    return [context, next];
  };
  beforeAll(async () => {
    browser = await chromium.launch({ executablePath: chromiumPath, args: ["--no-sandbox"] });
    [, page] = await fresh({ viewport: { width: 1280, height: 900 } });
  });
  afterAll(async () => {
    await browser.close();
    expect(complaints).toEqual([]);
  });
  return { fresh, page: () => page };
}

export async function open(page: Page, hash = ""): Promise<void> {
  await page.goto("about:blank");
  await page.goto(address + hash);
  await page.waitForSelector("html[data-ready]");
}

export const errorOf = (page: Page): Promise<string | null> => page.locator("#panel-recordings .error").textContent();
export const statusOf = (page: Page): Promise<string | null> => page.locator("#panel-recordings > div > [role=status]").textContent();

/** Gives files to the page, and waits until they are drawn with their laps, or until it says what is wrong with them. */
export async function give(page: Page, files: readonly Given[] | readonly string[]): Promise<void> {
  await page.evaluate(() => {
    const panel = document.querySelector("#panel-recordings > div") as HTMLElement;
    delete panel.dataset["laps"];
    (panel.querySelector(".error") as HTMLElement).textContent = "";
  });
  await page.locator('input[type="file"]').setInputFiles(files as Given[]);
  await page.waitForFunction(() => {
    const panel = document.querySelector("#panel-recordings > div") as HTMLElement;
    return panel.querySelector(".error")?.textContent || panel.dataset["laps"] !== undefined;
  });
}

/** What axe finds, as lines. */
export async function findings(page: Page): Promise<string[]> {
  const { violations } = await new AxeBuilder({ page: page as never }).analyze();
  return violations.map((one) => `${one.id}: ${one.nodes.map((node) => node.target.join(" ")).slice(0, 3).join("; ")}`);
}
