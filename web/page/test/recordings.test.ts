import { readFileSync } from "node:fs";
import type { Page } from "playwright-core";
import { describe, expect, it } from "vitest";
import { errorOf, file, give, inBrowser, open, statusOf, type Given } from "./browser.js";
import { simulated } from "./session.js";

const session = simulated();
const both = (): Given[] => [file("kart.samples", session.samples), file("kart.channels", session.channels)];
const { page, fresh } = inBrowser();

const lapRows = (on: Page): Promise<(string | null)[][]> =>
  on.locator("[aria-label=Laps] tbody tr").evaluateAll((lines) => lines.map((line) => [...line.querySelectorAll("td")].map((cell) => cell.textContent)));
const native = (laps: any[]): string[][] => laps.map((lap) => [String(lap.lap), lap.time ?? ""]);
const saved = async (on: Page, button: string): Promise<Buffer> => {
  const download = on.waitForEvent("download");
  await on.getByRole("button", { name: button }).click();
  return readFileSync(await (await download).path());
};
const frames = (on: Page): Promise<number> => on.locator(".plots").evaluate((one) => Number((one as HTMLElement).dataset["frames"]));
const times = async (on: Page): Promise<number[]> => (await saved(on, "Save as CSV")).toString("utf8").trim().split("\n").slice(1).map((line) => Number(line.split(",")[0]));

describe("a recording", () => {
  it("has the laps of kelfun laps, curves, a comparison and a track", async () => {
    await open(page(), "#tab=recordings");
    await give(page(), both());
    expect((await lapRows(page())).map((row) => row.slice(0, 2))).toEqual(native(session.laps));
    await page().waitForFunction(() => document.querySelectorAll(".uplot").length === 5);
    expect(await page().locator("canvas.track").count()).toBe(1);
    expect(await statusOf(page())).toContain("1,553 rows");
  });

  it("is saved as what is seen: numbers with a point, and a picture", async () => {
    await page().getByRole("button", { name: "Zoom in" }).click();
    const csv = (await saved(page(), "Save as CSV")).toString("utf8").split("\n");
    expect(csv[0]).toMatch(/^time s,Wheel Speed km\/h/);
    expect(csv.length).toBeGreaterThan(500);
    expect(csv.length).toBeLessThan(1000);
    expect((await saved(page(), "Save as PNG")).subarray(1, 4).toString()).toBe("PNG");
  });

  it("of a capture has the laps of kelfun laps too, one file after another", async () => {
    await give(page(), [file("kart.ubx", session.ubx)]);
    expect((await lapRows(page())).map((row) => row.slice(0, 2))).toEqual(native(session.gpsLaps));
    await give(page(), both());
    expect((await lapRows(page())).map((row) => row.slice(0, 2))).toEqual(native(session.laps));
  });

  it("shows numbers as a German writes them, and saves them with a point", async () => {
    const [context, german] = await fresh({ locale: "de-DE", viewport: { width: 1000, height: 800 } });
    await open(german, "#tab=recordings");
    await give(german, both());
    expect((await lapRows(german))[1]?.[3]).toBe("87,7");
    expect(await statusOf(german)).toContain("1.553 rows");
    const csv = (await saved(german, "Save as CSV")).toString("utf8").split("\n");
    expect(csv[20]).toMatch(/^\d+\.\d{3},-?\d+\.\d+,-?\d+\.\d+,-?\d+\.\d+$/);
    await context.close();
  });

  it("changes the unit of a channel, and curves over distance", async () => {
    await open(page(), "#tab=recordings");
    await give(page(), both());
    const kmh = (await saved(page(), "Save as CSV")).toString("utf8").split("\n")[700]?.split(",")[1];
    await page().getByLabel("Unit: Wheel Speed", { exact: true }).selectOption("mph");
    await page().waitForFunction(() => document.querySelector(".plot .label")?.textContent === "Wheel Speed mph");
    const mph = (await saved(page(), "Save as CSV")).toString("utf8").split("\n")[700]?.split(",")[1];
    expect(Number(mph)).toBeCloseTo(Number(kmh) * 0.621371, 1);
    await page().getByLabel("Over", { exact: true }).selectOption("distance");
    await page().waitForFunction(() => document.querySelectorAll(".plots .uplot").length === 3);
    const far = (await saved(page(), "Save as CSV")).toString("utf8").trim().split("\n");
    expect(far[0]).toMatch(/^distance m,/);
    expect(Number(far.at(-1)?.split(",")[0])).toBeGreaterThan(2000);
  });
});

describe("curves", () => {
  it("have a cursor by keys whose values are those of the recording, said aloud", async () => {
    await open(page(), "#tab=recordings");
    await give(page(), both());
    const lines = (await saved(page(), "Save as CSV")).toString("utf8").trim().split("\n").slice(1).map((line) => line.split(",").map(Number));
    const live = page().locator(".curves > [aria-live]");
    const said = async (key: string, wanted: RegExp): Promise<string> => {
      await page().keyboard.press(key);
      await expect.poll(() => live.textContent()).toMatch(wanted);
      return (await live.textContent()) ?? "";
    };
    await page().locator(".plots").focus();
    const first = await said("Home", /^time s 0; /);
    expect(first).toContain(`Wheel Speed: ${lines[0]?.[1]?.toFixed(1)} km/h`);
    const last = lines.at(-1) as number[];
    await said("End", new RegExp(`^time s ${last[0]}; Wheel Speed: ${last[1]?.toFixed(1)} km/h`));
    await said("Home", /^time s 0; /);
    const step = await said("ArrowRight", /^time s 1\.6; /);
    const row = lines.find((line) => line[0] === 1.6) as number[];
    expect(step).toContain(`Wheel Speed: ${row[1]?.toFixed(1)} km/h`);
    await said("Shift+ArrowRight", /^time s 17\.1; /);
    await said("+", /^time s from 8\.\d+ to 86\.\d+$/);
    await said("-", /^time s from 0 to 155\.2$/);
    await page().keyboard.press("Escape");
    expect(await live.textContent()).toBe("");
  });

  it("go on by a sideways wheel, and zoom with Ctrl and wheel; a wheel alone scrolls the page", async () => {
    await page().getByRole("button", { name: "Zoom in" }).click();
    const [before] = await times(page());
    const over = page().locator(".plots .u-over").first();
    await over.scrollIntoViewIfNeeded();
    await over.hover();
    await page().mouse.wheel(200, 0);
    await expect.poll(async () => (await times(page()))[0]).toBeGreaterThan((before as number) + 5);
    const wide = (await times(page())).length;
    await over.hover();
    await page().keyboard.down("Control");
    await page().mouse.wheel(0, -200);
    await page().keyboard.up("Control");
    await expect.poll(async () => (await times(page())).length).toBeLessThan(wide * 0.6);
    const seen = await frames(page());
    await over.hover();
    await page().mouse.wheel(0, 100);
    await page().waitForTimeout(200);
    expect(await frames(page())).toBe(seen);
  });

  it("go on by one finger, and zoom by two", async () => {
    const [context, phone] = await fresh({ hasTouch: true, viewport: { width: 400, height: 800 } });
    await open(phone, "#tab=recordings");
    await give(phone, both());
    await phone.getByRole("button", { name: "Zoom in" }).click();
    const over = phone.locator(".plots .u-over").first();
    await over.scrollIntoViewIfNeeded();
    const box = (await over.boundingBox())!;
    const touch = await context.newCDPSession(phone);
    const [y, left, wide] = [box.y + box.height / 2, box.x, box.width];
    const fingers = async (...moves: number[][]): Promise<void> => {
      for (const [i, parts] of moves.entries())
        await touch.send("Input.dispatchTouchEvent", { type: i === 0 ? "touchStart" : "touchMove", touchPoints: parts.map((part, id) => ({ x: left + wide * part, y, id })) });
      await touch.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [] });
    };
    const before = await times(phone);
    await fingers([0.8], [0.7], [0.6], [0.5], [0.4]);
    await expect.poll(async () => (await times(phone))[0]).toBeGreaterThan((before[0] as number) + 10);
    await fingers([0.45, 0.55], [0.4, 0.6], [0.3, 0.7], [0.2, 0.8]);
    await expect.poll(async () => (await times(phone)).length).toBeLessThan(before.length * 0.5);
    await context.close();
  });
});

describe("while files are read", () => {
  it("others are taken in their place", async () => {
    await open(page(), "#tab=recordings");
    const input = page().locator('input[type="file"]');
    const long = file("long.samples", Buffer.concat(Array.from({ length: 40 }, () => session.samples)));
    await input.setInputFiles([file("kart.channels", session.channels), long]);
    await give(page(), both());
    expect(await statusOf(page())).toContain("1,553 rows");
    expect((await lapRows(page())).length).toBe(session.laps.length);
    expect(await errorOf(page())).toBe("");
  });

  it("the page answers, and reading can be stopped", async () => {
    await open(page(), "#tab=recordings");
    const stopped = await page().evaluate(async ([head, samples]) => {
      // A file of a gigabyte that takes no room: the same part of it again and again.
      const piece = new Blob([Uint8Array.from(atob(samples!), (one) => one.charCodeAt(0))]);
      const many = new Blob(Array.from({ length: 64 }, () => piece));
      const all = new File(Array.from({ length: 100 }, () => many), "huge.samples");
      const channels = new File([Uint8Array.from(atob(head!), (one) => one.charCodeAt(0))], "huge.channels");
      const given = new DataTransfer();
      given.items.add(channels);
      given.items.add(all);
      const input = document.querySelector('input[type="file"]') as HTMLInputElement;
      input.files = given.files;
      input.dispatchEvent(new Event("change"));
      const status = document.querySelector("#panel-recordings > div > [role=status]") as HTMLElement;
      let longest = 0;
      for (let before = performance.now(), frame = 0; frame < 20; frame++) {
        await new Promise(requestAnimationFrame);
        longest = Math.max(longest, performance.now() - before);
        before = performance.now();
      }
      const reading = status.textContent;
      ([...document.querySelectorAll("button")].find((one) => one.textContent === "Stop") as HTMLElement).click();
      await new Promise((done) => setTimeout(done, 100));
      return { size: all.size, reading, after: status.textContent, busy: document.querySelector("progress")?.checkVisibility(), longest };
    }, [session.channels.toString("base64"), session.samples.toString("base64")]);
    expect(stopped.size).toBeGreaterThan(1e9);
    expect(stopped.reading).toMatch(/^Reading: \d+ %$/);
    expect(stopped.after).toBe("Stopped: no file is open.");
    expect(stopped.busy).toBe(false);
    await give(page(), both());
    expect((await lapRows(page())).length).toBe(session.laps.length);
  });
});
