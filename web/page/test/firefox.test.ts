// The page in Debian's Firefox, from a file, without network.
import { writeFileSync } from "node:fs";
import { join } from "node:path";
import puppeteer, { type Browser, type Page } from "puppeteer-core";
import { afterAll, beforeAll, expect, it } from "vitest";
import { inFolder, kelfunJson } from "../../package/test/tools.js";
import { address } from "./browser.js";
import { simulated } from "./session.js";

const complaints: string[] = [];
let browser: Browser;
let page: Page;

async function open(hash: string): Promise<void> {
  await page.goto("about:blank");
  await page.goto(address + hash);
  await page.waitForSelector("html[data-ready]");
}

beforeAll(async () => {
  browser = await puppeteer.launch({
    browser: "firefox", protocol: "webDriverBiDi", headless: true, executablePath: process.env["KEL_FIREFOX"] ?? "/usr/bin/firefox-esr",
    // A proxy that is not there: nothing is reached.
    extraPrefsFirefox: { "network.proxy.type": 1, "network.proxy.http": "127.0.0.1", "network.proxy.http_port": 9, "network.proxy.ssl": "127.0.0.1", "network.proxy.ssl_port": 9, "intl.accept_languages": "en-GB" },
  });
  page = await browser.newPage();
  page.on("pageerror", (error) => complaints.push((error as Error).message));
  page.on("console", (message) => { if (message.type() === "error") complaints.push(message.text()); });
  page.on("request", (request) => { if (!/^(file|blob|data|about):/.test(request.url())) complaints.push(request.url()); });
});
afterAll(async () => {
  await browser.close();
  expect(complaints).toEqual([]);
});

it("the explorer shows and finds what kelfun does", async () => {
  await open("#fid=0x05070010&unit=mph&q=wheel+left+mph");
  expect(await page.$eval(".detail h2", (one) => one.textContent)).toBe(kelfunJson("fid", "0x05070010").long_name);
  const found = await page.$$eval(".result code", (all) => all.map((one) => one.textContent));
  expect(found).toEqual(kelfunJson("find", "wheel left mph").found.map((one: any) => one.identifier));
});

it("the decoder decodes", async () => {
  await open("#tab=decoder&fid=0x11&type=int16&unit=F&bytes=7B00+FFCF");
  expect(await page.$$eval("#panel-decoder td", (all) => all.map((one) => one.textContent).slice(0, 3))).toEqual(["0", "253.4 F", "0"]);
});

it("a recording is read, moves by keys, and what is damaged says so", async () => {
  const session = simulated();
  await open("#tab=recordings");
  await inFolder(async (folder) => {
    const [channels, samples] = ["kart.channels", "kart.samples"].map((name) => join(folder, name)) as [string, string];
    writeFileSync(channels, session.channels);
    writeFileSync(samples, session.samples);
    const input = (await page.$("input[type=file]"))!;
    await input.uploadFile(channels, samples);
    await page.waitForSelector("[data-laps]");
    const rows = await page.$$eval("[aria-label=Laps] tbody tr", (all) => all.map((line) => [...line.querySelectorAll("td")].slice(0, 2).map((cell) => cell.textContent)));
    expect(rows).toEqual(session.laps.map((lap: any) => [String(lap.lap), lap.time ?? ""]));
    await page.focus(".plots");
    await page.keyboard.press("Home");
    await page.waitForFunction(() => document.querySelector(".curves > [aria-live]")?.textContent?.startsWith("time s 0; "));
    writeFileSync(samples, session.samples.subarray(0, 50));
    await input.uploadFile(samples);
    await page.waitForFunction(() => /alone is not a recording/.test(document.querySelector("#panel-recordings .error")?.textContent ?? ""));
  });
});
