// Every page: valid HTML, and none too large for a browser to open at once.

import assert from "node:assert/strict";
import { readdirSync, statSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { HtmlValidate, StaticConfigLoader } from "html-validate";

const folder = process.env.QSX_PAGES;
const kLargest = 2_000_000;
/** The validator takes a second for each of the larger ones, which have more rows of the same kind. */
const kLargestValidated = 60_000;

const pages = ["linux", "windows", "long", "compare", "hypervisor", "fleet/fleet-index"].flatMap((name) =>
  readdirSync(join(folder, name)).filter((file) => file.endsWith(".html")).map((file) => `${name}/${file}`),
);

test("no page is over 2 MB", () => {
  for (const page of pages) assert.ok(statSync(join(folder, page)).size <= kLargest, page);
});

test("every page is valid HTML", async () => {
  const validator = new HtmlValidate(
    new StaticConfigLoader({
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
