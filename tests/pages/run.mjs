// Runs the tests of the pages in Chromium: node run.mjs TOOL FOLDER. The folder gets the pages that are looked at.
// Exit code 77: there is no Chromium on this machine, nothing was tested.

import { spawnSync } from "node:child_process";
import { readdirSync } from "node:fs";
import { delimiter, dirname, join } from "node:path";
import { existsSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { makeFolders } from "./folders.mjs";

const kSkipped = 77;

function findBrowser() {
  if (process.env.CHROMIUM) return process.env.CHROMIUM;
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
const home = dirname(fileURLToPath(import.meta.url));
const tests = readdirSync(home).filter((name) => name.endsWith(".test.mjs")).map((name) => join(home, name));
const run = spawnSync(process.execPath, ["--test", ...tests], {
  stdio: "inherit",
  env: { ...process.env, QSX_BROWSER: browser, QSX_PAGES: folder },
});
process.exit(run.status ?? 1);
