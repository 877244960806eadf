// Every page kind: accessible, within its width, and without a word from the policy.

import assert from "node:assert/strict";
import { existsSync, readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { Browser } from "./browser.mjs";

const folder = process.env.QSX_PAGES;
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
/** Rows are alike, and the checks take a minute for 2,000 of them. */
const kRowsChecked = 12;

/** One page of each kind, as long as the folder has it. */
const kKinds = [
  "linux/index.html", "linux/timeline.html", "linux/corrections.html", "linux/rules.html", "linux/hw_info.html",
  "windows/index.html", "windows/drive_health.html", "windows/cadenzadevices.html", "long/processes.html",
  "compare/index.html", "compare/hw_info.html", "compare/firmware.html", "hypervisor/index.html",
  "fleet/fleet-index/index.html", "fleet/fleet-index/firmware.html",
];

/** These in dark and narrow, too: they have all colours between them. */
const kInDark = ["linux/timeline.html", "windows/index.html", "windows/drive_health.html", "compare/firmware.html", "fleet/fleet-index/index.html"];

const kinds = kKinds.filter((page) => existsSync(join(folder, page)));
let browser;

before(async () => (browser = await Browser.start()));
after(() => browser.stop());

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
        await tab.evaluate((rows) => {
          document.querySelectorAll(`tbody tr:nth-child(n + ${rows + 1})`).forEach((row) => row.remove());
        }, kRowsChecked);
        const found = await tab.evaluate(async () => {
          const result = await globalThis.axe.run(document, { resultTypes: ["violations"], preload: false });
          return result.violations
            .filter(({ impact }) => impact === "serious" || impact === "critical")
            .map(({ id, nodes }) => `${id}: ${nodes.slice(0, 3).map((node) => node.html.slice(0, 160)).join(" | ")}`);
        });
        assert.deepEqual(found, []);
      });
    });
