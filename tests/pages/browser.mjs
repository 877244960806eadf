// A browser for the tests. Whatever a page logs as an error, or asks of a network, fails the test.

import assert from "node:assert/strict";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { chromium, firefox } from "playwright-core";

const program = process.env.QSX_BROWSER ?? "";
export const isFirefox = program.includes("firefox");
/** For tests that need what a Firefox as it is installed does not offer to programs. */
export const inChromium = { skip: isFirefox ? "Firefox switches neither scripts nor paper for a test" : false };

export function getAddress(page) {
  const [file, hash] = page.split("#");
  return pathToFileURL(join(process.env.QSX_PAGES, file)).href + (hash ? `#${hash}` : "");
}

function launch() {
  if (isFirefox) return firefox.launch({ executablePath: program, channel: "moz-firefox" });
  return chromium.launch({ executablePath: program, args: ["--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"] });
}

export class Browser {
  /** By their options: a profile takes longer to make than most tests. */
  #profiles = new Map();

  static async start() {
    const browser = new Browser();
    browser.process = await launch();
    return browser;
  }

  /** Opens a page in a tab of its own, lets the test work on it, and closes it. */
  async with(page, options, work) {
    const tab = await (await this.#getProfile(options)).newPage();
    const complaints = [];
    tab.on("console", (message) => message.type() === "error" && complaints.push(message.text()));
    tab.on("pageerror", (error) => complaints.push(error.message));
    tab.on("request", (request) => {
      if (!request.url().startsWith("file:")) complaints.push(`asks for ${request.url()}`);
    });
    try {
      await tab.goto(getAddress(page));
      await work(tab);
      assert.deepEqual(complaints, [], page);
    } finally {
      await tab.close();
    }
  }

  async stop() {
    await this.process.close();
  }

  #getProfile(options) {
    const key = JSON.stringify(options);
    if (!this.#profiles.has(key))
      this.#profiles.set(key, this.process.newContext({ viewport: { width: 1280, height: 900 }, ...options }));
    return this.#profiles.get(key);
  }
}
