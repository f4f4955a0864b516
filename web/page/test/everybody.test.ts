// The page for everybody: by keys alone, on any screen, light and dark, with no finding of axe. KEL_WEB_PICTURES: a folder for
// pictures of it.
import { join } from "node:path";
import { describe, expect, it } from "vitest";
import { file, findings, give, inBrowser, open, type Given } from "./browser.js";
import { simulated } from "./session.js";

const pictures = process.env["KEL_WEB_PICTURES"];
const session = simulated();
const both = (): Given[] => [file("kart.samples", session.samples), file("kart.channels", session.channels)];
const { page, fresh } = inBrowser();
const SCREENS = [["", 1280, 900], ["narrow-", 320, 900], ["wide-", 3840, 2160]] as const;
// Contrast is another in the dark and the order another on a narrow screen; the rest is the same.
const LOOKED_THROUGH = ["light", "dark", "narrow-light"];

for (const scheme of ["light", "dark"] as const)
  for (const [name, width, height] of SCREENS)
    it(`nothing is wider than the screen, and axe has no finding: ${scheme}, ${width} wide`, async () => {
      const [context, its] = await fresh({ viewport: { width, height }, colorScheme: scheme });
      for (const tab of ["explorer", "decoder", "recordings"]) {
        await open(its, tab === "explorer" ? "#q=wheel&fid=0x05070010&unit=mph" : `#tab=${tab}`);
        if (tab === "recordings") {
          await give(its, both());
          await its.waitForFunction(() => document.querySelectorAll(".uplot").length === 5);
          await its.locator(".plots").focus();
          await its.keyboard.press("ArrowRight");
          await its.waitForFunction(() => document.querySelector(".curves > [aria-live]")?.textContent);
        }
        expect(await its.evaluate(() => document.documentElement.scrollWidth - innerWidth)).toBeLessThanOrEqual(0);
        if (pictures !== undefined) await its.screenshot({ path: join(pictures, `web-${tab}-${name}${scheme}.png`), fullPage: true });
        if (LOOKED_THROUGH.includes(name + scheme)) expect(await findings(its), tab).toEqual([]);
      }
      await context.close();
    });

describe("what is seen now and then", () => {
  it("has no finding of axe either: complaints, programs, nothing found, files being read", async () => {
    await open(page(), "#q=zzzz&fid=0x00000014&unit=min%2Fkm");
    for (const summary of (await page().locator("details summary").all()).slice(0, 3)) await summary.click();
    expect(await findings(page()), "programs and warnings").toEqual([]);
    await open(page(), "#tab=decoder&fid=nothing&bytes=1x");
    expect(await findings(page()), "complaints").toEqual([]);
    await open(page(), "#tab=decoder&fid=0x11&type=int16&bytes=7B0x");
    expect(await findings(page()), "a wrong character").toEqual([]);
    await open(page(), "#tab=recordings");
    await give(page(), [file("random.bin", new Uint8Array(100))]);
    expect(await findings(page()), "a damaged file").toEqual([]);
    await page().evaluate(() => { (document.querySelector("progress")?.parentElement as HTMLElement).hidden = false; });
    expect(await findings(page()), "files being read").toEqual([]);
  });

  it("can be done by keys alone, from the top to a lap beside another", async () => {
    await open(page(), "#tab=recordings");
    await give(page(), both());
    await page().waitForFunction(() => document.querySelectorAll(".uplot").length === 5);
    await page().evaluate(() => (document.activeElement as HTMLElement).blur());
    const seen = new Set<string>();
    for (let i = 0; i < 80; i++) {
      await page().keyboard.press("Tab");
      seen.add(await page().evaluate(() => {
        const one = document.activeElement as HTMLElement;
        const outlined = getComputedStyle(one).outlineStyle !== "none" || one === document.body;
        return `${one.getAttribute("aria-label") ?? one.textContent?.trim() ?? ""}${outlined ? "" : " (focus not seen)"}`;
      }));
    }
    for (const name of ["Recordings", "Choose files", "Channels", "Unit: Wheel Speed", "Over", "Zoom in", "All of it", "Save as CSV", "Save as PNG", "Curves", "Laps", "Lap", "Beside", "Colour"])
      expect([...seen]).toContain(name);
    expect([...seen].filter((name) => name.includes("not seen"))).toEqual([]);
  });
});
