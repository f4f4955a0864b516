import { describe, expect, it } from "vitest";
import { errorOf, file, give, inBrowser, open, statusOf, type Given } from "./browser.js";
import { simulated } from "./session.js";

const CHANNEL = 112;
const session = simulated();
const channels = (bytes: Uint8Array = session.channels): Given => file("kart.channels", bytes);
const samples = (bytes: Uint8Array = session.samples): Given => file("kart.samples", bytes);
const record = session.samples.length / 1553;
const { page } = inBrowser();

/** Numbers that look random and are the same in every run. */
function random(seed: number): () => number {
  let state = seed;
  return () => (state = (Math.imul(state, 1103515245) + 12345) >>> 0) >>> 16;
}
const randomBytes = (length: number, seed: number): Uint8Array => {
  const next = random(seed);
  return Uint8Array.from({ length }, () => next() & 255);
};

/** What the page says of files: its complaint, or what it shows of them. It must say one of both. */
async function said(...files: Given[]): Promise<string> {
  await give(page(), files);
  const text = (await errorOf(page())) || (await statusOf(page())) || "";
  expect(text).not.toBe("");
  return text;
}

describe("files that are damaged", () => {
  it("are cut at every boundary of their structure: the page says what is wrong and where, and the next ones open", { timeout: 240000 }, async () => {
    await open(page(), "#tab=recordings");
    // Channels: within the first record, at each record, around it.
    const one = CHANNEL;
    for (const length of [1, one - 1, one + 1, 5 * one + 50]) expect(await said(channels(session.channels.subarray(0, length)), samples()), String(length)).toMatch(new RegExp(`${length} bytes are no channel records`));
    for (let length = one; length < session.channels.length; length += one)
      expect(await said(channels(session.channels.subarray(0, length)), samples()), String(length)).toMatch(/the framing of the samples is not clear|bytes behind the last whole record|rows/);
    // Samples: no record, part of one, one, and at every field of the second.
    expect(await said(channels(), samples(session.samples.subarray(0, record - 1)))).toMatch(/whole record|time stamp|bytes/);
    for (const cut of [record, record + 1, record + 4, 2 * record - 1, 3 * record, 40 * record + 7]) {
      const text = await said(channels(), samples(session.samples.subarray(0, cut)));
      expect(text, String(cut)).toMatch(/row|record|time stamp/);
      if (cut > 10 * record) expect(text).toMatch(/^kart.*40 rows.*7 bytes behind the last whole record are left out/);
    }
    expect(await said(channels(), samples())).toContain("1,553 rows");
  });

  it("are empty", async () => {
    await open(page(), "#tab=recordings");
    expect(await said(channels(new Uint8Array(0)), samples())).toMatch(/kart\.|channel|bytes/);
    expect(await said(channels(), samples(new Uint8Array(0)))).toMatch(/0 rows|empty|no|bytes/);
    expect(await said(file("nothing.ubx", new Uint8Array(0)))).toMatch(/nothing\.ubx alone is not a recording/);
    expect(await said(channels(), samples(), file("third", new Uint8Array(3)))).toBe("Drop one recording: two files, or one capture.");
  });

  it("hold random bytes", async () => {
    await open(page(), "#tab=recordings");
    expect(await said(file("random.bin", randomBytes(5000, 1)))).toMatch(/random\.bin alone is not a recording/);
    expect(await said(file("a.bin", randomBytes(50 * CHANNEL, 2)), file("b.bin", randomBytes(100000, 3)))).toMatch(/channel \d+/);
    const next = random(5);
    for (let i = 0; i < 12; i++) {
      const head = Uint8Array.from(session.channels);
      for (let n = 1 + (next() % 8); n > 0; n--) head[next() % head.length] = next() & 255;
      const tail = Uint8Array.from(session.samples.subarray(0, 20000));
      for (let n = next() % 50; n > 0; n--) tail[next() % tail.length] = next() & 255;
      await said(channels(head), samples(tail));
    }
    const ubx = Uint8Array.from(session.ubx);
    for (let n = 0; n < 3000; n++) ubx[next() % ubx.length] = next() & 255;
    expect(await said(file("kart.ubx", ubx))).toMatch(/kart\.ubx/);
    expect(await said(channels(), samples())).toContain("1,553 rows");
  });

  it("are exchanged: the channels are found by their length", async () => {
    await open(page(), "#tab=recordings");
    expect(await said(file("a", session.samples), file("b", session.channels))).toContain("1,553 rows");
    expect(await said(file("a", session.samples.subarray(0, 10 * record + 1)), file("b", session.channels))).toMatch(/^a, b.*(10 rows|record)/);
  });

  it("of a gigabyte of zeros are read to their end, and the page answers meanwhile", { timeout: 240000 }, async () => {
    await open(page(), "#tab=recordings");
    const answer = await page().evaluate(async () => {
      // A gigabyte that takes no room: the same zeros again and again.
      const zeros = new Blob([new Uint8Array(1 << 20)]);
      const given = new DataTransfer();
      given.items.add(new File(Array.from({ length: 1024 }, () => zeros), "zeros.ubx"));
      const input = document.querySelector('input[type="file"]') as HTMLInputElement;
      const [status, error] = ["[role=status]", ".error"].map((name) => document.querySelector(`#panel-recordings > div > ${name}`) as HTMLElement);
      input.files = given.files;
      input.dispatchEvent(new Event("change"));
      let frames = 0;
      while (error!.textContent === "" && !status!.textContent!.includes("rows")) {
        await new Promise(requestAnimationFrame);
        frames++;
      }
      return { text: error!.textContent || status!.textContent, frames };
    });
    expect(answer.text).toMatch(/zeros\.ubx alone is not a recording/);
    expect(answer.frames).toBeGreaterThan(10);
    expect(await said(channels(), samples())).toContain("1,553 rows");
  });
});
