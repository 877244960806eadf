// What the pages can do beyond being read. Each part works on what it finds, on every page kind.

import { RowFiles } from "./rows";
import { startSearch } from "./search";
import { startStickyHeads } from "./stickyheads";
import { startTables } from "./table";
import { startTheme } from "./theme";
import { startTimeline } from "./timeline";
import { TimelineRows } from "./timelinerows";

startTheme();
const files = new RowFiles();
readAhead(files);
document.addEventListener("DOMContentLoaded", () => {
  const longTimeline = document.querySelector<HTMLElement>(".timeline section.block[data-files]");
  const rows = longTimeline && new TimelineRows(files, Number(longTimeline.dataset.files));
  const tables = startTables((section) => (rows && section === longTimeline ? rows : files));
  startTimeline(tables, rows);
  startSearch(files);
  startStickyHeads();
});

/** The rows of a page's first table come while the page itself does. */
function readAhead(files: RowFiles): void {
  const watcher = new MutationObserver(() => {
    const first = document.querySelector<HTMLElement>("section.block");
    if (!first) return;
    watcher.disconnect();
    const { from, to } = first.dataset;
    if (from && to) files.loadFiles(Number(from), Number(to)).catch(() => {});
  });
  watcher.observe(document, { childList: true, subtree: true });
  document.addEventListener("DOMContentLoaded", () => watcher.disconnect());
}
