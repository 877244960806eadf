// What people do with the pages.

import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { Browser, inChromium } from "./browser.mjs";
import { kLongRows, kNeedle } from "./folders.mjs";

const kFirst = "#t1 tbody tr:not(.spacer, [hidden]) > :nth-child";
const kClipboard = ["clipboard-read", "clipboard-write"];
let browser;

before(async () => (browser = await Browser.start()));
after(() => browser.stop());

const readCount = (tab) => tab.textContent("#t1 .count output");
const readColumn = (tab, column) =>
  tab.$$eval(`${kFirst}(${column})`, (cells) => cells.map((cell) => cell.textContent));

async function waitForCount(tab, text) {
  await tab.waitForFunction((wanted) => document.querySelector("#t1 .count output").textContent === wanted, text);
}

async function copyTable(tab) {
  await tab.click("#t1 .copy");
  await tab.waitForFunction(() => document.querySelector("#t1 .copy").textContent === "Copied");
  return (await tab.evaluate(() => navigator.clipboard.readText())).split("\n");
}

test("the front page leads to the failed drive's very cell", async () => {
  await browser.with("windows/index.html", {}, async (tab) => {
    const source = tab.locator(".health tbody.has-failed tr", { hasText: "defunct" }).locator(".c-source a").first();
    const [, value] = (await source.textContent()).split(" = ");
    await source.click();
    await tab.waitForSelector(":target");
    const cell = await tab.$eval(":target", (target) => ({
      text: target.textContent,
      top: target.getBoundingClientRect().top,
      ground: getComputedStyle(target).backgroundColor,
      plain: getComputedStyle(document.body).backgroundColor,
    }));
    assert.ok(cell.text.includes(value), `${cell.text} has ${value}`);
    assert.ok(cell.top > 0 && cell.top < 900, "the cell is on the screen");
    assert.notEqual(cell.ground, cell.plain);
  });
});

test("a table is sorted by magnitude, then the other way, then as collected", async () => {
  await browser.with("linux/processes.html", {}, async (tab) => {
    const labels = await tab.$$eval("#t1 thead th", (cells) => cells.map((cell) => cell.textContent));
    const column = labels.findIndex((label) => label.startsWith("Memory Usage")) + 1;
    const header = `#t1 thead th:nth-child(${column})`;
    const collected = await readColumn(tab, column);
    const toNumbers = (texts) => texts.filter(Boolean).map((text) => Number(text.replaceAll(",", "").split(" ")[0]));
    await tab.click(`${header} .sort`);
    assert.equal(await tab.getAttribute(header, "aria-sort"), "ascending");
    const ascending = toNumbers(await readColumn(tab, column));
    assert.deepEqual(ascending, [...toNumbers(collected)].sort((a, b) => a - b));
    assert.notDeepEqual(await readColumn(tab, column), collected);
    await tab.click(`${header} .sort`);
    assert.deepEqual(toNumbers(await readColumn(tab, column)), ascending.reverse());
    await tab.click(`${header} .sort`);
    assert.equal(await tab.getAttribute(header, "aria-sort"), "none");
    assert.deepEqual(await readColumn(tab, column), collected);
  });
});

test("all findings of a subsystem can be seen, also without scripts", inChromium, async () => {
  await browser.with("windows/index.html", { javaScriptEnabled: false }, async (tab) => {
    const disks = tab.locator(".health tbody").first();
    const [, more] = /and (\d+) more/.exec(await disks.locator(".more").textContent());
    assert.equal(await disks.locator(".further").first().isVisible(), false);
    await disks.locator(".more label").click();
    assert.equal(await disks.locator(".further .c-source a:visible").count(), Number(more));
  });
});

test("texts are sorted in natural order", async () => {
  await browser.with("long/processes.html", { permissions: kClipboard }, async (tab) => {
    await waitForCount(tab, "5,000 rows");
    await tab.click("#t1 thead th:nth-child(3) .sort");
    await tab.waitForSelector("#t1-r4321");
    const names = await readColumn(tab, 3);
    const first = names.indexOf(`brandt ${kNeedle}`) + 1;
    assert.deepEqual(names.slice(first, first + 12), [...Array(12).keys()].map((i) => `worker ${i}`));
    const sorted = (await copyTable(tab)).map((row) => row.split(",")[1]).filter((name) => /^[wZ]/.test(name));
    assert.ok(sorted.length > 4990);
    const { compare } = new Intl.Collator("en", { numeric: true, sensitivity: "base" });
    assert.deepEqual(sorted.filter((name, i) => i > 0 && compare(sorted[i - 1], name) > 0), []);
  });
});

test("a filter leaves the rows that have all words, and says how many", async () => {
  await browser.with("linux/installed_packages.html", {}, async (tab) => {
    const all = await readCount(tab);
    await tab.fill("#t1 .filter input", "LIB perl");
    await tab.waitForFunction(() => / of /.test(document.querySelector("#t1 .count output").textContent));
    const rows = await tab.$$eval("#t1 tbody tr:not([hidden])", (found) => found.map((row) => row.textContent.toLowerCase()));
    assert.ok(rows.length > 0 && rows.every((row) => row.includes("lib") && row.includes("perl")));
    assert.equal(await readCount(tab), `${rows.length} of ${all}`);
    await tab.fill("#t1 .filter input", "");
    await waitForCount(tab, all);
  });
});

test("what is shown is copied as CSV", async () => {
  await browser.with("long/processes.html", { permissions: kClipboard }, async (tab) => {
    await waitForCount(tab, "5,000 rows");
    await tab.fill("#t1 .filter input", "quotes");
    await waitForCount(tab, "1 of 5,000 rows");
    await tab.check("#t1 .show-raw");
    const [labels, row, ...rest] = await copyTable(tab);
    assert.match(labels, /^PID,Name,User,/);
    assert.match(row, /^3,"<\/script>.*& ""quotes"" 'single'/);
    assert.match(row, /Ready \[2\]/);
    assert.deepEqual(rest, [""]);
  });
});

test("a long table has the rows of the window only, and every one of them can be reached", async () => {
  await browser.with("long/processes.html", {}, async (tab) => {
    await waitForCount(tab, "5,000 rows");
    assert.equal(await tab.getAttribute("#t1 table", "aria-rowcount"), String(kLongRows + 1));
    assert.ok(await tab.locator("#t1 tbody tr").count() < 100);
    await tab.$eval("#t1 .scroll", (box) => (box.scrollTop = box.scrollHeight));
    await tab.waitForSelector(`#t1-r${kLongRows}`);
    const row = await tab.$eval(`#t1-r${kLongRows}`, (element) => ({
      index: element.ariaRowIndex ?? element.getAttribute("aria-rowindex"),
      bottom: element.getBoundingClientRect().bottom,
      edge: element.closest(".scroll").getBoundingClientRect().bottom,
    }));
    assert.equal(row.index, String(kLongRows + 1));
    assert.ok(row.bottom <= row.edge + 1, "the last row is within the window");
  });
});

test("a link leads to a row of a long table, also past a filter", async () => {
  await browser.with("long/processes.html#t1-r4321", {}, async (tab) => {
    await tab.waitForSelector("#t1-r4321.is-target", { state: "visible" });
    assert.match(await tab.textContent("#t1 .row-detail"), new RegExp(kNeedle));
    await tab.fill("#t1 .filter input", "user1");
    await tab.waitForFunction(() => / of /.test(document.querySelector("#t1 .count output").textContent));
    await tab.evaluate(() => (location.hash = "t1-r2"));
    await tab.waitForSelector("#t1-r2.is-target");
    assert.equal(await tab.inputValue("#t1 .filter input"), "");
  });
});

test("the search finds a text in any report from any page, by keyboard", async () => {
  await browser.with("long/index.html", {}, async (tab) => {
    await tab.focus("#search");
    await tab.keyboard.type(kNeedle.toLowerCase());
    await tab.waitForFunction(() => /^1 row of/.test(document.querySelector(".found output")?.textContent ?? ""));
    assert.equal(await tab.textContent(".found mark"), kNeedle);
    await tab.keyboard.press("ArrowDown");
    await tab.keyboard.press("ArrowDown");
    await tab.keyboard.press("Enter");
    await tab.waitForURL(/processes\.html#t1-r4321$/);
    await tab.waitForSelector("#t1-r4321.is-target");
    await tab.fill("#search", "no such text");
    await tab.waitForFunction(() => /^No match in/.test(document.querySelector(".found output").textContent));
    await tab.keyboard.press("Escape");
    assert.equal(await tab.isVisible(".found"), false);
  });
});

test("the theme is chosen on one page and holds on the next", async () => {
  await browser.with("linux/index.html", { colorScheme: "light" }, async (tab) => {
    const readPaper = () => tab.evaluate(() => getComputedStyle(document.body).backgroundColor);
    const light = await readPaper();
    await tab.selectOption("#theme", "dark");
    const dark = await readPaper();
    assert.notEqual(dark, light);
    await tab.click(".side a[href='hw_info.html']");
    await tab.waitForURL(/hw_info/);
    assert.equal(await readPaper(), dark);
    assert.equal(await tab.inputValue("#theme"), "dark");
    await tab.selectOption("#theme", "");
    assert.equal(await readPaper(), light);
  });
});

test("everything can be reached by keyboard", async () => {
  await browser.with("linux/installed_packages.html", {}, async (tab) => {
    await tab.keyboard.press("Tab");
    assert.equal(await tab.evaluate(() => document.activeElement.textContent), "Skip to content");
    const wanted = ["#search", ".side a[aria-current]", "#theme", "#t1 .filter input", "#t1 .copy", "#t1 .sort", "#t1 td.n a"];
    const met = new Set();
    for (let i = 0; i < 120 && met.size < wanted.length; ++i) {
      await tab.keyboard.press("Tab");
      const now = await tab.evaluate((all) => all.filter((one) => document.activeElement.matches(one)), wanted);
      now.forEach((one) => met.add(one));
    }
    assert.deepEqual(wanted.filter((one) => !met.has(one)), []);
  });
});

test("without scripts every table can be read, and a long one leads to all of its rows", inChromium, async () => {
  await browser.with("long/processes.html", { javaScriptEnabled: false }, async (tab) => {
    assert.equal(await readCount(tab), "2,000 of 5,000 rows");
    assert.equal(await tab.locator("#t1 tbody tr").count(), 2000);
    assert.equal(await tab.isVisible("#t1-r2000"), true);
    assert.equal(await tab.isVisible("#t1 .filter"), false);
    assert.equal(await tab.isVisible("#search"), false);
    await tab.click("#t1 .table-note a");
    assert.equal((await tab.textContent("body")).trim().split("\n").length, kLongRows + 1);
  });
});

test("a page prints without side bar and tools, a long table with its first rows", inChromium, async () => {
  await browser.with("windows/drive_health.html", {}, async (tab) => {
    await tab.emulateMedia({ media: "print" });
    for (const gone of [".side", ".tools", ".anchor"])
      assert.equal(await tab.$eval(gone, (element) => getComputedStyle(element).display), "none", gone);
    // Where a header is repeated on the next sheet, its buttons are missing.
    assert.equal(await tab.$$eval(".sort", (all) => all.some((one) => getComputedStyle(one).display !== "contents")), false);
    const paper = await tab.pdf({ format: "A4", preferCSSPageSize: true });
    assert.equal(paper.subarray(0, 5).toString(), "%PDF-");
  });
  await browser.with("long/processes.html", {}, async (tab) => {
    await waitForCount(tab, "5,000 rows");
    await tab.evaluate(() => dispatchEvent(new Event("beforeprint")));
    assert.equal(await tab.locator("#t1 tbody tr").count(), 2000);
    await tab.evaluate(() => dispatchEvent(new Event("afterprint")));
    assert.ok(await tab.locator("#t1 tbody tr").count() < 100);
  });
});

test("the search over a fleet leads to a machine on a further page, and its row to the report", async () => {
  await browser.with("fleet/fleet-index/index.html", {}, async (tab) => {
    await tab.fill("#search", "node99");
    await tab.locator("#search-found .line", { hasText: "node99" }).click();
    await tab.waitForSelector("tr:target");
    assert.match(tab.url(), /index~2\.html#t2-r/);
    await tab.locator("tr:target a").click();
    assert.match(tab.url(), /fleet\/node99\/index\.html$/);
  });
});
