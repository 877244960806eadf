// Measures a table of many rows in Chromium, opened as a file: node bench/long_table.mjs TOOL [ROWS [RUNS]]
// Prints a Markdown table of medians. Needs the npm packages of tests/pages.

import { execFileSync } from "node:child_process";
import { mkdtempSync, openSync, readdirSync, readFileSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const home = dirname(fileURLToPath(import.meta.url));
const { chromium } = createRequire(join(home, "../tests/pages/package.json"))("playwright-core");
const [tool, rows = "100000", runs = "5"] = process.argv.slice(2);
/** For the browser to give memory back. Units: milliseconds. */
const kRest = 2000;
const folder = mkdtempSync(join(tmpdir(), "long-table-"));

function makePages() {
  const collection = join(folder, "long.mof");
  execFileSync("python3", [join(home, "long_table.py"), rows], { stdio: ["ignore", openSync(collection, "w"), "inherit"] });
  execFileSync(tool, ["report", collection, "-o", join(folder, "pages"), "--quiet"]);
}

/** Units: MB. Of the process with the page: the largest of the renderers. */
function readRendererMemory() {
  let largest = 0;
  for (const pid of readdirSync("/proc").filter((name) => /^\d+$/.test(name)))
    try {
      if (!readFileSync(`/proc/${pid}/cmdline`, "utf8").includes("--type=renderer")) continue;
      const pss = /^Pss:\s+(\d+) kB/m.exec(readFileSync(`/proc/${pid}/smaps_rollup`, "utf8"));
      largest = Math.max(largest, Number(pss?.[1] ?? 0) / 1000);
    } catch {
      // It has ended.
    }
  return largest;
}

/** In the page: milliseconds from the step to the second frame after its effect. */
function timeStep(name) {
  const frames = () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
  const count = () => document.querySelector("#t1 .count output").textContent;
  const until = async (test) => {
    while (!test()) await new Promise((done) => setTimeout(done, 1));
  };
  const clickSort = (label) =>
    [...document.querySelectorAll("#t1 .sort")].find((button) => button.textContent.startsWith(label)).click();
  const steps = {
    text: () => clickSort("Name"),
    number: () => clickSort("Memory"),
    date: () => clickSort("Creat"),
    async filter() {
      const field = document.querySelector("#t1 .filter input");
      field.value = "disk";
      field.dispatchEvent(new Event("input"));
      await until(() => count().includes(" of "));
    },
    async unfilter() {
      const field = document.querySelector("#t1 .filter input");
      field.value = "";
      field.dispatchEvent(new Event("input"));
      await until(() => !count().includes(" of "));
    },
    async search() {
      const field = document.querySelector("#search");
      field.value = "disk 1f3";
      field.dispatchEvent(new Event("input"));
      await until(() => / of |No match/.test(document.querySelector(".found output").textContent));
    },
  };
  const sorted = (label) =>
    [...document.querySelectorAll("#t1 thead th")].find((cell) => cell.textContent.startsWith(label)).ariaSort !== "none";
  const labels = { text: "Name", number: "Memory", date: "Creat" };
  return (async () => {
    const begin = performance.now();
    await steps[name]();
    if (labels[name]) await until(() => sorted(labels[name]));
    await frames();
    return performance.now() - begin;
  })();
}

function timeScroll() {
  const frames = () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
  return (async () => {
    const box = document.querySelector("#t1 .scroll");
    let worst = 0;
    for (let i = 0; i < 20; ++i) {
      const begin = performance.now();
      box.scrollTop = (((i * 7919) % 20) / 20) * box.scrollHeight;
      await frames();
      worst = Math.max(worst, performance.now() - begin);
    }
    return worst;
  })();
}

async function measure() {
  const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu"],
  });
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
  const result = {};
  await page.goto(pathToFileURL(join(folder, "pages/processes.html")).href, { waitUntil: "commit" });
  await page.waitForFunction(() => document.querySelector("#t1.long .count output")?.textContent.match(/^[\d,]+ rows$/), null, { polling: "raf", timeout: 120_000 });
  result.shown = await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(() => done(performance.now())))));
  await page.waitForTimeout(kRest);
  result.memory = readRendererMemory();
  result.scroll = await page.evaluate(timeScroll);
  for (const step of ["text", "number", "date", "filter", "unfilter"]) result[step] = await page.evaluate(timeStep, step);
  await page.waitForTimeout(kRest);
  result.used = readRendererMemory();
  await page.focus("#search");
  await page.fill("#search", "warm");
  await page.waitForFunction(() => / of |No match/.test(document.querySelector(".found output")?.textContent ?? ""), null, { timeout: 120_000 });
  await page.evaluate(() => (document.querySelector(".found output").textContent = ""));
  result.search = await page.evaluate(timeStep, "search");
  await browser.close();
  return result;
}

function getMedian(numbers) {
  return [...numbers].sort((a, b) => a - b)[numbers.length >> 1];
}

const kLines = [
  ["shown", "Shown, all rows at hand", "ms", 1500],
  ["text", "Sorted by texts, all different", "ms", 500],
  ["number", "Sorted by numbers", "ms", 500],
  ["date", "Sorted by dates", "ms", 500],
  ["filter", "Filtered over all cells, 50 ms pause in typing included", "ms", 300],
  ["scroll", "Worst of 20 jumps", "ms", 120],
  ["memory", "Renderer, table shown", "MB", 160],
  ["used", "Renderer, after the steps above", "MB", 160],
  ["search", "Search over all reports, 60 ms pause in typing included", "ms", 300],
];

makePages();
const results = [];
for (let run = 0; run < Number(runs); ++run) results.push(await measure());
rmSync(folder, { recursive: true });
console.log(`| ${Number(rows).toLocaleString("en")} rows by 9 columns | Median of ${runs} | Least | Goal |\n|---|---|---|---|`);
for (const [key, label, unit, goal] of kLines) {
  const values = results.map((result) => result[key]);
  console.log(`| ${label} | ${Math.round(getMedian(values))} ${unit} | ${Math.round(Math.min(...values))} ${unit} | ${goal} ${unit} |`);
}
