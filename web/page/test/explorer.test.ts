import { describe, expect, it } from "vitest";
import { kelfun, kelfunJson } from "../../package/test/tools.js";
import { inBrowser, open } from "./browser.js";

const { page, fresh } = inBrowser();

describe("the explorer", () => {
  it("shows every identifier of the catalogue with the names and units of the command line", async () => {
    await open(page());
    const identifiers = [...new Set(kelfun("catalogue").match(/0x[0-9A-F]{8}/g))].filter((one) => one !== "0x00000000");
    expect(identifiers.length).toBeGreaterThan(130);
    const shown = await page().evaluate(async (all) => {
      const seen: unknown[] = [];
      for (const fid of all) {
        location.hash = `#fid=${fid}`;
        await new Promise((done) => addEventListener("hashchange", () => setTimeout(done, 0), { once: true }));
        const detail = document.querySelector(".detail")!;
        seen.push({
          name: detail.querySelector("h2")!.textContent,
          facts: [...detail.querySelectorAll("dd")].map((one) => one.textContent),
          units: [...detail.querySelectorAll("[aria-label=Units] tbody tr")].map((line) => line.querySelector("td")!.textContent!.replace(" (pace)", "")),
        });
      }
      return seen;
    }, identifiers);
    identifiers.forEach((identifier, i) => {
      const row = kelfunJson("fid", identifier);
      expect(shown[i], identifier).toEqual({
        name: row.long_name || "none",
        facts: [identifier, String(row.decimal), row.short_name || "none", row.legacy_id || "none", row.base_unit || "none"],
        units: (row.units ?? []).map((one: any) => one.unit),
      });
    });
  });

  it("searches in the order of kelfun find, and opens what is chosen by keys", async () => {
    await open(page());
    await page().getByRole("searchbox").fill("wheel left mph");
    const shown = await page().locator(".result code").allTextContents();
    expect(shown).toEqual(kelfunJson("find", "wheel left mph").found.map((one: any) => one.identifier));
    await page().keyboard.press("ArrowDown");
    await page().keyboard.press("Enter");
    expect(await page().locator(".detail h2").textContent()).toBe("Speed Wheel RL");
    expect(page().url()).toContain("fid=0x03070010");
  });

  it("restores what a link says, and changes fields", async () => {
    await open(page(), "#fid=0x05070010&unit=mph");
    expect(await page().locator(".detail h2").textContent()).toBe("Speed Wheel FL");
    expect(await page().getByLabel("Unit", { exact: true }).inputValue()).toBe("mph");
    await page().getByLabel("left/right", { exact: true }).selectOption({ label: "Right" });
    expect(await page().locator(".detail h2").textContent()).toBe("Speed Wheel FR");
    expect(page().url()).toContain("fid=0x04870010");
  });

  it("shows numbers as the reader writes them", async () => {
    const [context, german] = await fresh({ locale: "de-DE" });
    await open(german, "#fid=0x05070010&unit=mph");
    const row = german.locator("[aria-label=Units] tbody tr").first();
    const kmh = kelfunJson("convert", "0x05070010", "100", "--from", "mph", "--to", "km/h").values[0].result;
    expect(await row.locator("td").nth(1).textContent()).toBe(kmh.toPrecision(7).replace(".", ","));
    await context.close();
  });
});

describe("the decoder", () => {
  it("shows value, status and text", async () => {
    await open(page(), "#tab=decoder&fid=0x11&type=int16&unit=F&bytes=7B00+FFCF");
    const cells = await page().locator("#panel-decoder td").allTextContents();
    expect(cells).toEqual(["0", "253.4 F", "0", kelfunJson("decode", "0x11", "--type", "int16", "--unit", "F", "7B00").samples[0].text, "1", "0 F", "4", "---"]);
  });
  it("marks what is wrong where it is wrong", async () => {
    await open(page(), "#tab=decoder&fid=0x11&type=int16");
    await page().getByLabel("Bytes", { exact: true }).fill("7B0x");
    expect(await page().locator("mark").textContent()).toBe("x");
    expect(await page().locator("#complaint").textContent()).toContain("'x' at character 4");
    await page().getByLabel("Function", { exact: true }).fill("temprature");
    expect(await page().locator("#complaint").textContent()).toContain("did you mean 'Temperature'");
  });
});
