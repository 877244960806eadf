// Header rows that stay in sight. A box that scrolls sideways takes its header along, so a table that fits goes without
// such a box, and one that doesn't scrolls up and down in it, too.

/** Boxes of tables that are lower need no scrolling of their own. Units: rows. */
const kRowsWorthIt = 20;

export function startStickyHeads(): void {
  const tableOf = new Map<Element, HTMLTableElement>();
  const observer = new ResizeObserver((entries) => {
    const boxes = entries.map(({ target }) => (target.matches("table") ? target.parentElement! : target));
    for (const box of new Set(boxes)) place(box, tableOf.get(box)!);
  });
  for (const box of document.querySelectorAll(".scroll")) {
    const table = box.querySelector<HTMLTableElement>(":scope > .grid.cols");
    if (!table || table.rows.length < kRowsWorthIt) continue;
    tableOf.set(box, table);
    observer.observe(box);
    observer.observe(table);
  }
}

function place(box: Element, table: HTMLTableElement): void {
  const fits = table.offsetWidth <= box.clientWidth;
  box.classList.toggle("fits", fits);
  box.classList.toggle("boxed", !fits);
}
