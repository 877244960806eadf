// Every page: valid, accessible, within its width, and without a word from the policy.

import assert from "node:assert/strict";
import { readdirSync, readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { FileSystemConfigLoader, HtmlValidate } from "html-validate";
import { Browser } from "./browser.mjs";

const folder = process.env.QSX_PAGES;
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const kLargest = 2_000_000;
/** The validator takes a second for each of the larger ones, which have more rows of the same kind. */
const kLargestValidated = 60_000;

/** One page of each kind, as long as the folder has it. */
const kKinds = [
  "linux/index.html", "linux/timeline.html", "linux/corrections.html", "linux/rules.html", "linux/hw_info.html",
  "windows/index.html", "windows/drive_health.html", "windows/cadenzadevices.html", "long/processes.html",
  "compare/index.html", "compare/hw_info.html", "compare/firmware.html", "hypervisor/index.html",
  "fleet/fleet-index/index.html", "fleet/fleet-index/firmware.html",
];

/** These in dark and narrow, too: they have all colours between them. */
const kInDark = ["linux/timeline.html", "windows/index.html", "windows/drive_health.html", "compare/firmware.html", "fleet/fleet-index/index.html"];

function listPages(name) {
  return readdirSync(join(folder, name)).filter((file) => file.endsWith(".html")).map((file) => `${name}/${file}`);
}

const pages = ["linux", "windows", "long", "compare", "hypervisor", "fleet/fleet-index"].flatMap(listPages);
const kinds = kKinds.filter((page) => pages.includes(page));
let browser;

before(async () => (browser = await Browser.start()));
after(() => browser.stop());

test("no page is over 2 MB", () => {
  for (const page of pages) assert.ok(statSync(join(folder, page)).size <= kLargest, page);
});

test("every page is valid HTML", async () => {
  const validator = new HtmlValidate(
    new FileSystemConfigLoader({
      root: true,
      extends: ["html-validate:standard", "html-validate:a11y"],
      rules: {
        // Void elements of SVG, and the long line of widths, are as they should be.
        "long-title": "off",
        "void-style": "off",
        // What the names of reports and their order make of identifiers and headings.
        "valid-id": ["error", { relaxed: true }],
      },
    }),
  );
  const complaints = [];
  for (const page of pages) {
    const path = join(folder, page);
    if (statSync(path).size > kLargestValidated) continue;
    const report = await validator.validateFile(path);
    for (const result of report.results)
      for (const message of result.messages)
        complaints.push(`${page}:${message.line}: ${message.ruleId}: ${message.message}`);
  }
  assert.deepEqual(complaints.slice(0, 20), []);
});

for (const page of kinds)
  for (const colorScheme of kInDark.includes(page) ? ["light", "dark"] : ["light"])
    test(`${page} is accessible, ${colorScheme}`, async () => {
      const width = colorScheme === "light" ? 1280 : 360;
      await browser.with(page, { colorScheme, viewport: { width, height: 900 } }, async (tab) => {
        await tab.waitForFunction(() => !document.querySelector("[data-rows]:not(.long)"));
        const sideways = await tab.evaluate(
          () => document.documentElement.scrollWidth - document.documentElement.clientWidth,
        );
        assert.ok(sideways <= 0, `${page} scrolls sideways by ${sideways} px at ${width} px`);
        await tab.evaluate(axe);
        // Rows are alike, and the checks take a minute for 2,000 of them.
        await tab.evaluate(() => document.querySelectorAll("tbody tr:nth-child(n + 30)").forEach((row) => row.remove()));
        const found = await tab.evaluate(async () => {
          const result = await globalThis.axe.run(document, { resultTypes: ["violations"], preload: false });
          return result.violations
            .filter(({ impact }) => impact === "serious" || impact === "critical")
            .map(({ id, nodes }) => `${id}: ${nodes.slice(0, 3).map((node) => node.html.slice(0, 160)).join(" | ")}`);
        });
        assert.deepEqual(found, []);
      });
    });
