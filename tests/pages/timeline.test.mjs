// The timeline, and the whole of a comparison.

import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { Browser } from "./browser.mjs";

let browser;

before(async () => (browser = await Browser.start()));
after(() => browser.stop());

const kShown = "#t1 tbody tr:not(.spacer, [hidden])";

/** How many rows a filter leaves. Missing: Infinity without a filter. */
async function readShown(tab) {
  const text = await tab.textContent("#t1 .count output");
  return text.includes(" of ") ? Number(text.split(" ")[0].replaceAll(",", "")) : Infinity;
}

async function waitForFilter(tab, isOn) {
  await tab.waitForFunction((on) => / of /.test(document.querySelector("#t1 .count output").textContent) === on, isOn);
}

test("the timeline is filtered by severity, log and a brushed window", async () => {
  await browser.with("windows/timeline.html", {}, async (tab) => {
    await tab.uncheck("tr[data-severity='2'] input");
    await waitForFilter(tab, true);
    assert.equal(await tab.locator(`${kShown} .severity:has(.is-attention)`).count(), 0);
    assert.ok((await tab.locator(`${kShown} .severity:has(.is-failed)`).count()) > 0);
    await tab.check("tr[data-severity='2'] input");
    await waitForFilter(tab, false);

    await tab.selectOption("#t1 select", { label: "TLM Event" });
    await waitForFilter(tab, true);
    const logs = await tab.$$eval(`${kShown} .log`, (cells) => cells.map((cell) => cell.textContent));
    assert.ok(logs.length > 0 && logs.every((log) => log === "TLM Event"));
    await tab.selectOption("#t1 select", { index: 0 });
    await waitForFilter(tab, false);

    const lane = await tab.locator(".lane").first().boundingBox();
    await tab.mouse.move(lane.x + lane.width * 0.25, lane.y + 5);
    await tab.mouse.down();
    await tab.mouse.move(lane.x + lane.width * 0.75, lane.y + 5);
    await tab.mouse.up();
    await waitForFilter(tab, true);
    const [from, to] = await tab.$$eval(".overview input[type='text']", (inputs) => inputs.map((input) => input.value));
    const times = await tab.$$eval(`${kShown} th`, (cells) => cells.map((cell) => cell.firstChild.textContent.trim()));
    assert.ok(times.length > 0 && times.every((time) => time >= from && time <= to));
  });
});

test("a long timeline has the texts of its logs, and leads to their rows", async () => {
  await browser.with("linux/timeline.html", {}, async (tab) => {
    const inPage = await tab.evaluate(() => document.querySelector("#t1-r1 .brk").textContent);
    await tab.waitForSelector("#t1.long");
    assert.equal(await tab.textContent("#t1-r1 .brk"), inPage);
    await tab.fill(".overview input[type='text'] >> nth=0", "2030-01-01");
    await tab.press(".overview input[type='text'] >> nth=0", "Tab");
    await waitForFilter(tab, true);
    assert.equal(await readShown(tab), 0);
    await tab.click(".overview button");
    await waitForFilter(tab, false);
    await tab.click("#t1-r1 .log a");
    await tab.waitForSelector(".is-target, tr:target");
    assert.ok((await tab.textContent(".is-target, tr:target")).includes(inPage));
  });
});

test("the whole of a comparison is shown without scripts", async () => {
  await browser.with("compare/hw_info.html", { javaScriptEnabled: false }, async (tab) => {
    const whole = tab.locator(".everywhere");
    assert.equal(await whole.isVisible(), false);
    await tab.click(".only-differs");
    assert.equal(await whole.isVisible(), true);
  });
});
