// A browser for the tests. Whatever a page logs as an error, or asks of a network, fails the test.

import assert from "node:assert/strict";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

export function getAddress(page) {
  const [file, hash] = page.split("#");
  return pathToFileURL(join(process.env.QSX_PAGES, file)).href + (hash ? `#${hash}` : "");
}

export class Browser {
  static async start() {
    const browser = new Browser();
    browser.chromium = await chromium.launch({
      executablePath: process.env.QSX_BROWSER,
      args: ["--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"],
    });
    return browser;
  }

  /** Opens a page in a profile of its own, lets the test work on it, and closes it. */
  async with(page, options, work) {
    const context = await this.chromium.newContext({ viewport: { width: 1280, height: 900 }, ...options });
    const tab = await context.newPage();
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
      await context.close();
    }
  }

  async stop() {
    await this.chromium.close();
  }
}
