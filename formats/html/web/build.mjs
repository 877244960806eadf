// Bundles the script and the style sheet of the pages: node build.mjs FOLDER

import { readFile, mkdir } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import * as esbuild from "esbuild";

const home = dirname(fileURLToPath(import.meta.url));
const folder = process.argv[2];
if (!folder) throw new Error("usage: node build.mjs FOLDER");
await mkdir(folder, { recursive: true });

/// Browsers that know light-dark() and popovers; older ones show the pages without both.
const target = ["chrome123", "firefox125", "safari17.5"];

const common = {
  absWorkingDir: home,
  bundle: true,
  minify: true,
  charset: "utf8",
  logLevel: "warning",
  metafile: true,
};

const script = { ...common, entryPoints: ["pages.ts"], format: "iife", target, write: false };
const bundled = await esbuild.build(script);
await esbuild.build({
  ...script,
  write: true,
  outfile: join(folder, "pages.js"),
  banner: { js: await makeNotices(bundled.metafile) },
});
await esbuild.build({ ...common, entryPoints: ["pages.css"], outfile: join(folder, "pages.css") });

/// The licences of what is bundled, as a comment that stays in the script wherever it is copied to.
async function makeNotices(metafile) {
  const packages = new Set();
  for (const input of Object.keys(metafile.inputs)) {
    const found = input.match(/^node_modules\/((?:@[^/]+\/)?[^/]+)\//);
    if (found) packages.add(found[1]);
  }
  let notices = "/*! The script of the pages.";
  for (const name of [...packages].sort()) {
    const place = join(home, "node_modules", name);
    const { version } = JSON.parse(await readFile(join(place, "package.json"), "utf8"));
    const licence = await readFile(join(place, "LICENSE"), "utf8");
    notices += `\n\nIt holds ${name} ${version}:\n\n${licence.trim().replaceAll("*/", "* /")}`;
  }
  return notices + "\n*/";
}
