import { execFileSync } from "node:child_process";
import { writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { Function as Fn, convert } from "kelfunzioni";
import { expect, it } from "vitest";
import { inFolder, root, tools } from "../../package/test/tools.js";
import { inBrowser, open } from "./browser.js";

const { fresh } = inBrowser();
const build = dirname(tools);
const libraries = ["src/funzioni", "src/registrazioni", "python/src/native"].map((folder) => join(build, folder));

/** What a program prints when it is copied into a file, made and run. */
function run(language: string, code: string, folder: string): string {
  const env = {
    ...process.env, LC_ALL: "C", PATH: `${join(tools, "kelfun")}:${process.env["PATH"]}`, LD_LIBRARY_PATH: libraries.join(":"),
    PYTHONPATH: join(root, "python/src"), KELFUNZIONI_LIBRARIES: libraries.join(":"), PYTHONDONTWRITEBYTECODE: "1",
  };
  const name = join(folder, { C: "a.c", "C++": "a.cpp", Python: "a.py", Shell: "a.sh" }[language] as string);
  writeFileSync(name, code);
  const out = (...words: string[]): string => execFileSync(words[0] as string, words.slice(1), { env, encoding: "utf8" });
  if (language === "Python") return out("/usr/bin/python3", name);
  if (language === "Shell") return out("sh", "-e", name);
  const compiler = language === "C" ? ["gcc", "-std=c11"] : ["g++", "-std=c++17"];
  out(...compiler, "-Wall", "-Wextra", "-Werror", `-I${join(root, "include")}`, name, "-o", join(folder, "a"), `-L${libraries[0]}`, "-lkelfunzioni");
  return out(join(folder, "a"));
}

// A speed as it is found and in its base unit, a unit with an offset, a pace, and a function without units.
const SHOWN = [["0x05070010", ""], ["0x05070010", "km/h"], ["0x00000011", "F"], ["0x00000014", "min/km"], ["NONE", ""]] as const;

it("the programs to copy can be made and run, and print what the page shows", async () => {
  const [context, its] = await fresh({ permissions: ["clipboard-read", "clipboard-write"] });
  for (const [identifier, unit] of SHOWN) {
    const one = new Fn(identifier === "NONE" ? noUnits() : identifier);
    await open(its, `#fid=${one.hex}${unit === "" ? "" : `&unit=${encodeURIComponent(unit)}`}`);
    const [long, short] = [await its.locator(".detail h2").textContent(), await its.locator(".detail dd").nth(2).textContent()];
    const blocks = its.locator(".detail details");
    expect(await blocks.count()).toBe(4);
    await inFolder(async (folder) => {
      for (const block of await blocks.all()) {
        const language = (await block.locator("summary").textContent()) as string;
        if ((await block.getAttribute("open")) === null) await block.locator("summary").click();
        await block.getByRole("button", { name: "Copy" }).click();
        await expect.poll(() => block.getByRole("button").textContent()).toBe("Copied");
        const printed = run(language, await its.evaluate(() => navigator.clipboard.readText()), folder);
        const where = `${one.hex} ${unit} ${language}`;
        expect(printed, where).toContain(language === "C" ? short : long);
        if (one.units.length === 0) continue;
        const target = unit || (one.unitTable.find((row) => row.unit !== one.baseUnit && !row.reciprocal)?.unit ?? "");
        const value = new RegExp(`(-?[\\d.]+(?:e-?\\d+)?) +${target.replace("/", "\\/")}(?![\\w/])`).exec(language === "Shell" ? (printed.split("RESULT")[1] ?? "").replace(/^.*\n/, "").replace(one.baseUnit, "") : printed)?.[1];
        expect(Number(value) / convert(100, one, one.baseUnit, target), where).toBeCloseTo(1, 5);
        if (unit === "") {
          const cell = its.locator("[aria-label=Units] tbody tr").filter({ has: its.getByRole("cell", { name: target, exact: true }) }).locator("td").nth(1);
          expect(Number(value) / Number((await cell.textContent())?.replaceAll(",", "")), where).toBeCloseTo(1, 5);
        }
      }
    });
  }
  await context.close();
});

/** An identifier with a name and without units. */
const noUnits = (): number => {
  for (let object = 0; object < 256; object++) for (let quantity = 1; quantity < 128; quantity++) {
    const one = new Fn(quantity + (object << 7));
    if (one.name !== "" && one.shortName !== "" && one.units.length === 0 && !one.isPacket) return one.identifier;
  }
  throw new Error("every function has units");
};
