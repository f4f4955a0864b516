// The page in Debian's Chromium, from a file, without network. KEL_WEB_PICTURES: a folder for pictures of it.
import { readFileSync } from "node:fs";
import { join } from "node:path";
import AxeBuilder from "@axe-core/playwright";
import { chromium, type Browser, type BrowserContext, type Page } from "playwright-core";
import { afterAll, beforeAll, describe, expect, it } from "vitest";
import { inFolder, kelfun, kelfunJson, kelsim } from "../../package/test/tools.js";

const address = new URL("../../dist/kelfunzioni.html", import.meta.url).href;
const pictures = process.env["KEL_WEB_PICTURES"];

let browser: Browser;
let context: BrowserContext;
let page: Page;
const complaints: string[] = [];

async function fresh(options: Parameters<Browser["newContext"]>[0] = {}): Promise<[BrowserContext, Page]> {
  const one = await browser.newContext({ locale: "en-GB", ...options });
  await one.setOffline(true);
  one.setDefaultTimeout(10000);
  const next = await one.newPage();
  next.on("pageerror", (error) => complaints.push(error.message));
  next.on("request", (request) => { if (!/^(file|blob|data):/.test(request.url())) complaints.push(request.url()); });
  return [one, next];
}

async function open(hash = "", on = page): Promise<void> {
  await on.goto("about:blank");
  await on.goto(address + hash);
  await on.waitForSelector("html[data-ready]");
}

const session = inFolder((folder) => {
  const [channels, samples] = ["kart.channels", "kart.samples"].map((name) => join(folder, name)) as [string, string];
  kelsim("--laps", "3", "--channels", channels, "--samples", samples);
  return { channels: readFileSync(channels), samples: readFileSync(samples), laps: kelfunJson("laps", channels, samples).laps as any[] };
});
const file = (name: string, buffer: Buffer): { name: string; mimeType: string; buffer: Buffer } => ({ name, mimeType: "application/octet-stream", buffer });

async function drop(files: ReturnType<typeof file>[], on = page): Promise<void> {
  const before = await on.evaluate(() => {
    const error = document.querySelector("#panel-recordings .error");
    if (error !== null) error.textContent = "";
    return document.querySelector("#panel-recordings [data-drawn]")?.getAttribute("data-drawn") ?? "0";
  });
  await on.locator('input[type="file"]').setInputFiles(files);
  await on.waitForFunction((old) => {
    const text = document.querySelector("#panel-recordings .error")?.textContent;
    return text || (document.querySelector("#panel-recordings [data-drawn]")?.getAttribute("data-drawn") ?? "0") !== old;
  }, before);
}

beforeAll(async () => {
  browser = await chromium.launch({ executablePath: process.env["KEL_CHROMIUM"] ?? "/usr/bin/chromium", args: ["--no-sandbox"] });
  [context, page] = await fresh({ viewport: { width: 1280, height: 900 } });
});
afterAll(async () => {
  await browser.close();
  expect(complaints).toEqual([]);
});

describe("the explorer", () => {
  it("shows every identifier of the catalogue with the names and units of the command line", async () => {
    await open();
    const identifiers = [...new Set(kelfun("catalogue").match(/0x[0-9A-F]{8}/g))].filter((one) => one !== "0x00000000");
    for (const identifier of identifiers) {
      const row = kelfunJson("fid", identifier);
      const shown = await page.evaluate(async (fid) => {
        location.hash = `#fid=${fid}`;
        await new Promise((done) => setTimeout(done, 0));
        await new Promise((done) => requestAnimationFrame(done));
        const detail = document.querySelector(".detail")!;
        return {
          name: detail.querySelector("h2")!.textContent,
          facts: [...detail.querySelectorAll("dd")].map((one) => one.textContent),
          units: [...detail.querySelectorAll("[aria-label=Units] tbody tr")].map((line) => line.querySelector("td")!.textContent!.replace(" (pace)", "")),
        };
      }, identifier);
      expect(shown, identifier).toEqual({
        name: row.long_name || "none",
        facts: [identifier, String(row.decimal), row.short_name || "none", row.legacy_id || "none", row.base_unit || "none"],
        units: (row.units ?? []).map((one: any) => one.unit),
      });
    }
  });

  it("searches in the order of kelfun find, and opens what is chosen by keys", async () => {
    await open();
    await page.getByRole("searchbox").fill("wheel left mph");
    const shown = await page.locator(".result code").allTextContents();
    expect(shown).toEqual(kelfunJson("find", "wheel left mph").found.map((one: any) => one.identifier));
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Enter");
    expect(await page.locator(".detail h2").textContent()).toBe("Speed Wheel RL");
    expect(page.url()).toContain("fid=0x03070010");
  });

  it("restores what a link says, and changes fields", async () => {
    await open("#fid=0x05070010&unit=mph");
    expect(await page.locator(".detail h2").textContent()).toBe("Speed Wheel FL");
    expect(await page.getByLabel("Unit", { exact: true }).inputValue()).toBe("mph");
    await page.getByLabel("left/right", { exact: true }).selectOption({ label: "Right" });
    expect(await page.locator(".detail h2").textContent()).toBe("Speed Wheel FR");
    expect(page.url()).toContain("fid=0x04870010");
  });
});

describe("the decoder", () => {
  it("shows value, status and text", async () => {
    await open("#tab=decoder&fid=0x11&type=int16&unit=F&bytes=7B00+FFCF");
    const cells = await page.locator("#panel-decoder td").allTextContents();
    expect(cells).toEqual(["0", "253.4 F", "0", kelfunJson("decode", "0x11", "--type", "int16", "--unit", "F", "7B00").samples[0].text, "1", "0 F", "4", "---"]);
  });
  it("marks what is wrong where it is wrong", async () => {
    await open("#tab=decoder&fid=0x11&type=int16");
    await page.getByLabel("Bytes", { exact: true }).fill("7B0x");
    expect(await page.locator("mark").textContent()).toBe("x");
    expect(await page.locator("#complaint").textContent()).toContain("'x' at character 4");
    await page.getByLabel("Function", { exact: true }).fill("temprature");
    expect(await page.locator("#complaint").textContent()).toContain("did you mean 'Temperature'");
  });
});

describe("recordings", () => {
  it("have the laps of kelfun laps, curves, a comparison and a track", async () => {
    await open("#tab=recordings");
    await drop([file("kart.samples", session.samples), file("kart.channels", session.channels)]);
    await page.waitForSelector(".uplot");
    const rows = await page.locator("[aria-label=Laps] tbody tr").evaluateAll((lines) => lines.map((line) => [...line.querySelectorAll("td")].map((cell) => cell.textContent)));
    expect(rows.length).toBe(session.laps.length);
    const table = kelfunJsonLaps();
    rows.forEach((row, i) => expect(row.slice(0, 2)).toEqual(table[i]));
    expect(await page.locator(".uplot").count()).toBe(5);
    await page.getByRole("button", { name: "Zoom in" }).click();
    const download = page.waitForEvent("download");
    await page.getByRole("button", { name: "Save as CSV" }).click();
    const csv = readFileSync(await (await download).path(), "utf8");
    expect(csv.split("\n")[0]).toMatch(/^time s,Wheel Speed km\/h/);
    expect(csv.split("\n").length).toBeGreaterThan(500);
  });

  it("that are damaged say what and where, and the next one opens", async () => {
    await open("#tab=recordings");
    await drop([file("a.channels", session.channels.subarray(0, 100)), file("a.samples", session.samples)]);
    expect(await page.locator("#panel-recordings .error").textContent()).toMatch(/100 bytes are no channel records/);
    await drop([file("random.bin", Buffer.from(Uint8Array.from({ length: 5000 }, (_, i) => (i * 7919) & 255)))]);
    expect(await page.locator("#panel-recordings .error").textContent()).toMatch(/alone is not a recording/);
    await drop([file("kart.channels", session.channels), file("kart.samples", session.samples.subarray(0, -3))]);
    expect(await page.locator("#panel-recordings [role=status]").first().textContent()).toContain("left out");
  });
});

const kelfunJsonLaps = (): string[][] => session.laps.map((lap: any) => [String(lap.lap), lap.time ?? ""]);

describe("for everybody", () => {
  for (const scheme of ["light", "dark"] as const)
    for (const width of [1280, 320] as const)
      it(`axe has no finding: ${scheme}, ${width} wide`, async () => {
        const [one, its] = await fresh({ viewport: { width, height: 900 }, colorScheme: scheme });
        for (const tab of ["explorer", "decoder", "recordings"]) {
          await open(tab === "explorer" ? "#q=wheel&fid=0x05070010&unit=mph" : `#tab=${tab}`, its);
          if (tab === "recordings") { await drop([file("kart.samples", session.samples), file("kart.channels", session.channels)], its); await its.waitForTimeout(400); }
          expect(await its.evaluate(() => document.documentElement.scrollWidth - innerWidth)).toBeLessThanOrEqual(0);
          if (pictures !== undefined) await its.screenshot({ path: join(pictures, `web-${tab}-${width === 320 ? "narrow-" : ""}${scheme}.png`), fullPage: true });
          const found = await new AxeBuilder({ page: its as never }).analyze();
          expect(found.violations.map((one) => `${one.id}: ${one.nodes.map((node) => node.target.join(" ")).slice(0, 3).join("; ")}`), tab).toEqual([]);
        }
        await one.close();
      });
});
