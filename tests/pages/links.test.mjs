// Every link leads to a file of the folder, and to a place that is there.

import assert from "node:assert/strict";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";

const folder = process.env.QSX_PAGES;

function readPlaces(html) {
  const places = new Set(Array.from(html.matchAll(/ id="([^"]+)"/g), (match) => match[1]));
  const long = new Map(Array.from(html.matchAll(/ id="(t\d+)" data-page="\d+" data-rows="(\d+)"/g), (match) => [match[1], +match[2]]));
  return { places, long };
}

function isThere({ places, long }, place) {
  if (places.has(place)) return true;
  const row = /^(t\d+)-r(\d+)(?:-c\d+)?$/.exec(place);
  return row !== null && Number(row[2]) <= (long.get(row[1]) ?? 0);
}

for (const name of ["linux", "windows", "long", "hypervisor", "compare", "fleet/fleet-index"])
  test(`every link of ${name} leads somewhere`, () => {
    const pages = new Map();
    for (const file of readdirSync(join(folder, name)).filter((entry) => entry.endsWith(".html"))) {
      const html = readFileSync(join(folder, name, file), "utf8");
      pages.set(file, { html, ...readPlaces(html) });
    }
    const lost = new Set();
    for (const [file, { html }] of pages)
      for (const [, address] of html.matchAll(/ href="([^"]+)"/g)) {
        const [target, place] = address.split("#");
        const page = pages.get(decodeURIComponent(target) || file);
        if (!page ? !existsSync(join(folder, name, decodeURIComponent(target))) : place && !isThere(page, place))
          lost.add(`${file}: ${address}`);
      }
    assert.deepEqual([...lost].slice(0, 20), []);
  });
