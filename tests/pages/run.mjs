// Runs the tests of the pages in a browser: node run.mjs TOOL FOLDER. The folder gets the pages that are looked at.
// CHROMIUM names another Chromium; with FIREFOX, a Firefox as it is installed, what it offers to programs is tested.
// Exit code 77: there is no Chromium on this machine, nothing was tested.

import { existsSync, readdirSync } from "node:fs";
import { delimiter, dirname, join } from "node:path";
import { run } from "node:test";
import { spec } from "node:test/reporters";
import { fileURLToPath } from "node:url";
import { makeFolders } from "./folders.mjs";

const kSkipped = 77;
/** One of them waits while its browser works. */
const kFilesAtOnce = 2;

function findBrowser() {
  const named = process.env.FIREFOX ?? process.env.CHROMIUM;
  if (named) return named;
  const places = (process.env.PATH ?? "").split(delimiter);
  for (const name of ["chromium", "chromium-browser", "google-chrome"])
    for (const place of places) if (existsSync(join(place, name))) return join(place, name);
  return "";
}

const [tool, folder] = process.argv.slice(2);
const browser = findBrowser();
if (!browser) {
  console.log("SKIPPED: the tests of the pages need Chromium: apt-get install chromium, or set CHROMIUM.");
  process.exit(kSkipped);
}
makeFolders(tool, folder);
Object.assign(process.env, { QSX_BROWSER: browser, QSX_PAGES: folder });
const home = dirname(fileURLToPath(import.meta.url));
const files = readdirSync(home).filter((name) => name.endsWith(".test.mjs")).map((name) => join(home, name));
const tests = run({ files, concurrency: kFilesAtOnce });
tests.on("test:fail", () => (process.exitCode = 1));
tests.compose(new spec()).pipe(process.stdout);
