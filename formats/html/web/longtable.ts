// The rows of a table that is too long for its page: they come from the row files, and the page has
// those of the window only.

import {
  elementScroll,
  observeElementOffset,
  observeElementRect,
  Virtualizer,
} from "@tanstack/virtual-core";
import { appendContent, fillCell, withSecondText } from "./cells";
import { type ColumnTexts, readColumn } from "./column";
import { type Needle, parseRow, type RowSource, type Segment } from "./rows";
import { RowWindow, type WindowPlace } from "./rowwindow";
import type { TableBody } from "./table";

/** Browsers cut elements that are higher. Units: pixels. */
const kHighest = 12_000_000;
const kRowsBesideWindow = 6;
/** Where scripts are read ahead of the table's being seen. */
const kNear = "800px";
const kRowsOnPaper = 2000;
const kSampleSize = 60;
// Units: pixels.
const kNarrowest = 160;
const kScrollBarWidth = 16;

export class LongBody implements TableBody {
  readonly rowCount: number;
  private readonly number: string;
  private readonly page: number;
  private readonly body: HTMLTableSectionElement;
  private readonly box: HTMLElement;
  private readonly note: HTMLElement | null;
  private readonly looks: string[];
  private readonly hasRowNumbers: boolean;
  private readonly detail: HTMLElement;
  private segments: Segment[] = [];
  private loading: Promise<void> | null = null;
  private order: Uint32Array = new Uint32Array();
  private virtualizer: Virtualizer<HTMLElement, HTMLElement> | null = null;
  private rowHeight = 0;
  private target = -1;
  private readonly rows: RowWindow;

  constructor(
    private readonly section: HTMLElement,
    private readonly table: HTMLTableElement,
    private readonly files: RowSource,
    private readonly onLoaded: () => void,
  ) {
    this.number = section.id.slice(1);
    this.page = Number(section.dataset.page);
    this.rowCount = Number(section.dataset.rows);
    this.body = table.tBodies[0]!;
    this.rows = new RowWindow(this.body, (element, row) => this.fillRow(element, row));
    this.box = table.closest<HTMLElement>(".scroll")!;
    this.note = section.querySelector(".table-note");
    const headers = [...table.querySelectorAll("thead th")];
    this.hasRowNumbers = table.querySelector("col.n") !== null;
    this.looks = headers.filter((header) => !header.classList.contains("n")).map((header) => header.className);
    this.detail = document.createElement("div");
    this.detail.className = "row-detail";
    this.detail.setAttribute("aria-live", "polite");
    this.box.after(this.detail);
    this.loadWhenNear();
  }

  load(): Promise<void> {
    this.loading ??= this.read();
    return this.loading;
  }

  private loadWhenNear(): void {
    const observer = new IntersectionObserver(
      (entries) => {
        if (!entries.some((entry) => entry.isIntersecting)) return;
        observer.disconnect();
        void this.load();
      },
      { rootMargin: kNear },
    );
    observer.observe(this.section);
  }

  private async read(): Promise<void> {
    this.section.ariaBusy = "true";
    try {
      await this.files.loadFiles(Number(this.section.dataset.from), Number(this.section.dataset.to));
      this.segments = this.files.getSegments(this.page, Number(this.number));
      this.begin();
      this.onLoaded();
    } catch (failure) {
      this.section.classList.add("whole");
      this.tell(`Only part of the rows can be shown: ${(failure as Error).message}`);
      throw failure;
    } finally {
      this.section.ariaBusy = null;
    }
  }

  private tell(text: string): void {
    const held = this.note?.querySelector(".held");
    if (held) held.textContent = text;
  }

  /** From the rows of the page to those of the row files. */
  private begin(): void {
    this.section.classList.add("long");
    this.setWidths();
    this.rows.begin();
    this.table.setAttribute("aria-rowcount", String(this.rowCount + 1));
    this.table.tHead?.rows[0]?.setAttribute("aria-rowindex", "1");
    this.tell("Choose a row to read it whole.");
    this.measureRow();
    this.virtualizer = new Virtualizer<HTMLElement, HTMLElement>(this.makeOptions());
    this.virtualizer._didMount();
    this.virtualizer._willUpdate();
    this.body.addEventListener("click", (event) => this.chooseRow(event));
    window.addEventListener("beforeprint", () => this.showOnPaper());
    window.addEventListener("afterprint", () => {
      this.rows.begin();
      this.render();
    });
  }

  private makeOptions() {
    const scrolled = this.scrolledHeight;
    return {
      count: this.order.length,
      getScrollElement: () => this.box,
      estimateSize: () => scrolled,
      // The last rows need as much of the window as they are high.
      paddingEnd: scrolled < this.rowHeight ? this.highestBox * (1 - scrolled / this.rowHeight) + this.rowHeight : 0,
      overscan: kRowsBesideWindow,
      // The header row stands above the rows and stays in the window.
      scrollMargin: this.headerHeight,
      scrollPaddingStart: this.headerHeight,
      scrollToFn: elementScroll,
      observeElementRect,
      observeElementOffset,
      onChange: () => this.render(),
    };
  }

  /** The box is as high as its rows until it scrolls. */
  private get highestBox(): number {
    return Number.parseFloat(getComputedStyle(this.box).maxHeight) || window.innerHeight;
  }

  /** What a row takes of the scroll bar: less than of the window where all rows are too many for an element. */
  private get scrolledHeight(): number {
    return Math.min(this.rowHeight, kHighest / Math.max(1, this.order.length));
  }

  /** As wide as the rows of the page ask for; what is missing is taken from the widest texts. */
  private setWidths(): void {
    const columns = [...this.table.querySelectorAll<HTMLElement>("col")];
    const wished = this.measureColumns();
    const isFixed = columns.map((column, i) => column.classList.contains("n") || this.isFixedColumn(i));
    const fixed = wished.reduce((sum, width, i) => sum + (isFixed[i] ? width : 0), 0);
    const room = this.box.clientWidth - kScrollBarWidth - fixed;
    const texts = shrinkToFit(wished.filter((_, i) => !isFixed[i]), room);
    const widths = wished.map((width, i) => (isFixed[i] ? width : texts.shift()!));
    const widest = widths.indexOf(Math.max(...widths));
    columns.forEach((column, i) => {
      column.style.width = i === widest ? "auto" : `${widths[i]}px`;
    });
    this.table.style.minWidth = `${widths.reduce((a, b) => a + b, 0)}px`;
  }

  /** Numbers and times are shown whole. */
  private isFixedColumn(column: number): boolean {
    const look = this.looks[this.hasRowNumbers ? column - 1 : column];
    return look === "num" || look === "when";
  }

  /** The cells on one line, below a header of which the words stay whole. */
  private measureColumns(): number[] {
    const measure = (row: HTMLTableRowElement | undefined, className: string): number[] => {
      this.table.classList.add(className);
      const widths = [...(row?.cells ?? [])].map((cell) => Math.ceil(cell.getBoundingClientRect().width));
      this.table.classList.remove(className);
      return widths;
    };
    const ofLabels = measure(this.table.tHead?.rows[0], "labels-measured");
    this.body.replaceChildren(...this.makeSample());
    return measure(this.body.rows[0], "rows-measured").map((width, i) => Math.max(width, ofLabels[i] ?? 0));
  }

  /** Rows from all over the table, the last one among them. */
  private makeSample(): HTMLTableRowElement[] {
    const rows: HTMLTableRowElement[] = [];
    const step = Math.max(1, this.rowCount / kSampleSize);
    for (let row = this.rowCount - 1; row >= 0; row -= step) rows.push(this.makeRow(Math.round(row)));
    return rows;
  }

  private get headerHeight(): number {
    return this.table.tHead?.offsetHeight ?? 0;
  }

  private measureRow(): void {
    const row = this.makeRow(0);
    this.body.append(row);
    this.rowHeight = row.getBoundingClientRect().height || 26;
    row.remove();
  }

  private getRawRow(row: number): string {
    let low = 0;
    let high = this.segments.length - 1;
    while (low < high) {
      const middle = (low + high + 1) >> 1;
      if (this.segments[middle]!.first <= row + 1) low = middle;
      else high = middle - 1;
    }
    const segment = this.segments[low]!;
    return segment.getRow(row + 1 - segment.first);
  }

  private makeRow(row: number): HTMLTableRowElement {
    const element = document.createElement("tr");
    this.fillRow(element, row);
    return element;
  }

  /** The element may show another row of the table. */
  private fillRow(element: HTMLTableRowElement, row: number): void {
    element.id = `t${this.number}-r${row + 1}`;
    if (this.hasRowNumbers) fillRowNumber(element, row);
    const place = this.hasRowNumbers ? 1 : 0;
    const cells = parseRow(this.getRawRow(row));
    cells.forEach((cell, column) => fillCell(element, place + column, cell, this.looks[column] ?? ""));
    while (element.cells.length > place + cells.length) element.deleteCell(-1);
  }

  show(order: Uint32Array): void {
    this.order = order;
    if (!this.virtualizer) return;
    this.virtualizer.setOptions(this.makeOptions());
    this.virtualizer.measure();
    this.box.scrollTop = 0;
    this.virtualizer._willUpdate();
    this.render();
  }

  private getWindow(): WindowPlace {
    const { scrolledHeight, rowHeight } = this;
    const offset = this.virtualizer?.scrollOffset ?? 0;
    const top = Math.min(Math.floor(offset / scrolledHeight), Math.max(0, this.order.length - 1));
    const before = Math.min(kRowsBesideWindow, Math.floor((top * scrolledHeight) / rowHeight));
    const inWindow = Math.ceil(this.highestBox / rowHeight) + 1;
    const first = top - before;
    const end = Math.min(this.order.length, top + inWindow + kRowsBesideWindow);
    const heightAbove = top * scrolledHeight - before * rowHeight;
    const all = this.virtualizer?.getTotalSize() ?? 0;
    return { first, end, heightAbove, heightBelow: all - heightAbove - (end - first) * rowHeight };
  }

  private render(): void {
    if (!this.virtualizer) return;
    this.rows.show(this.order, this.getWindow());
    this.markTarget();
  }

  private markTarget(): void {
    for (const element of this.body.rows)
      element.classList.toggle("is-target", element.id === `t${this.number}-r${this.target + 1}`);
  }

  /** Paper has no window: as many rows as a page without scripts has. */
  private showOnPaper(): void {
    const rows = [...this.order.subarray(0, kRowsOnPaper)].map((row) => this.makeRow(row));
    this.body.replaceChildren(...rows);
  }

  private chooseRow(event: Event): void {
    if (!getSelection()?.isCollapsed) return;
    const target = event.target as Element;
    if (target.closest("a")) return;
    const row = target.closest("tr");
    if (row?.id) location.hash = row.id;
  }

  goTo(row: number): void {
    if (!this.virtualizer) return;
    const place = this.order.indexOf(row);
    this.target = row;
    if (!this.isInWindow(place)) this.virtualizer.scrollToIndex(place, { align: "center" });
    this.box.scrollIntoView({ block: "nearest" });
    this.render();
    this.showDetail(row);
  }

  private isInWindow(place: number): boolean {
    const element = this.rows.get(place);
    if (!element) return false;
    const row = element.getBoundingClientRect();
    const box = this.box.getBoundingClientRect();
    return row.top >= box.top + this.headerHeight && row.bottom <= box.bottom;
  }

  /** Rows stand on one line; the chosen one can be read whole below them. */
  private showDetail(row: number): void {
    const title = document.createElement("p");
    title.textContent = `Row ${(row + 1).toLocaleString("en")}`;
    const list = document.createElement("dl");
    const labels = [...(this.table.tHead?.rows[0]?.cells ?? [])].filter((cell) => !cell.classList.contains("n"));
    parseRow(this.getRawRow(row)).forEach((cell, column) => {
      if (!cell.text) return;
      const term = document.createElement("dt");
      term.textContent = labels[column]?.textContent ?? "";
      const value = document.createElement("dd");
      appendContent(value, cell);
      if (cell.isMono) value.className = "mono";
      list.append(term, value);
    });
    this.detail.replaceChildren(title, list);
  }

  getColumn(column: number): ColumnTexts {
    return readColumn(this.segments, column);
  }

  getCsvRow(row: number, hasSecondTexts: boolean): string[] {
    return parseRow(this.getRawRow(row)).map((cell) => withSecondText(cell.text, cell.second, hasSecondTexts));
  }

  findRows(needle: Needle, seesSecondTexts: boolean): Uint8Array {
    const found = new Uint8Array(this.rowCount);
    for (const segment of this.segments)
      needle.scan(segment, seesSecondTexts, (index) => {
        found[segment.first - 1 + index] = 1;
      });
    return found;
  }
}

/** Cuts the widest columns to one width, so that all of them fit. Missing: they don't where that gets too narrow. */
function shrinkToFit(wished: number[], room: number): number[] {
  const sorted = [...wished].sort((a, b) => a - b);
  let left = room;
  for (let i = 0; i < sorted.length; ++i) {
    const share = left / (sorted.length - i);
    if (sorted[i]! > share) return wished.map((width) => Math.min(width, Math.max(share, kNarrowest)));
    left -= sorted[i]!;
  }
  return wished;
}

function fillRowNumber(element: HTMLTableRowElement, row: number): void {
  const number = element.cells[0] ?? element.insertCell();
  number.className = "n";
  const link = number.querySelector("a") ?? document.createElement("a");
  link.href = `#${element.id}`;
  link.textContent = (row + 1).toLocaleString("en");
  if (!link.parentNode) number.append(link);
}
