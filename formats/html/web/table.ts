// Tables: sort, filter, count, copy, and the row that an address names.

import type { ColumnTexts } from "./column";
import { toCsv } from "./csv";
import { LongBody } from "./longtable";
import { sortRows } from "./order";
import { PlainBody } from "./plaintable";
import type { Needle, RowSource } from "./rows";
import { Needle as MakeNeedle } from "./rows";

/** The rows of a table, wherever they are. Rows and columns are counted from 0. */
export interface TableBody {
  readonly rowCount: number;
  /** Until then only part of the rows is there. */
  load(): Promise<void>;
  getColumn(column: number): ColumnTexts;
  getCsvRow(row: number, hasSecondTexts: boolean): string[];
  findRows(needle: Needle, seesSecondTexts: boolean): Uint8Array;
  /** Shows these rows in this order. */
  show(order: Uint32Array): void;
  /** Brings a shown row into view and marks it. */
  goTo(row: number): void;
}

type Direction = "none" | "ascending" | "descending";
const kNext: Record<Direction, Direction> = {
  none: "ascending",
  ascending: "descending",
  descending: "none",
};

const kCopiedTime = 2000;
const kTypingPause = 50;
const kRowsAtOnce = 5000;

export class Table {
  private readonly body: TableBody;
  private readonly headers: HTMLTableCellElement[];
  private readonly count: HTMLOutputElement | null;
  private readonly filter: HTMLInputElement | null;
  private sortColumn = -1;
  private direction: Direction = "none";
  private sorted: Uint32Array;
  private order: Uint32Array;
  private isWanted: ((row: number) => boolean) | null = null;

  constructor(
    private readonly section: HTMLElement,
    source: RowSource,
  ) {
    const table = section.querySelector("table")!;
    this.headers = [...table.querySelectorAll<HTMLTableCellElement>("thead th:not(.n)")];
    this.count = section.querySelector<HTMLOutputElement>(".count output");
    this.filter = section.querySelector<HTMLInputElement>(".filter input");
    this.body = section.dataset.rows
      ? new LongBody(section, table, source, () => this.update())
      : new PlainBody(table);
    this.sorted = makeIdentity(this.body.rowCount);
    this.order = this.sorted;
    this.listen();
  }

  /** row: from 1, as addresses have it. */
  async goToRow(row: number): Promise<void> {
    if (row < 1 || row > this.body.rowCount) return;
    await this.body.load();
    if (!this.order.includes(row - 1) && this.filter) {
      this.filter.value = "";
      this.update();
    }
    this.body.goTo(row - 1);
  }

  load(): Promise<void> {
    return this.body.load();
  }

  /** Beside the filter box: which rows are shown at all. row: from 0. Missing: null for all. */
  setFilter(isWanted: ((row: number) => boolean) | null): void {
    this.isWanted = isWanted;
    void this.refresh();
  }

  private listen(): void {
    this.headers.forEach((header, column) => {
      header.querySelector(".sort")?.addEventListener("click", () => void this.sortBy(column));
    });
    let pause = 0;
    this.filter?.addEventListener("input", () => {
      clearTimeout(pause);
      pause = window.setTimeout(() => void this.refresh(), kTypingPause);
    });
    const copy = this.section.querySelector<HTMLButtonElement>("button.copy");
    if (copy) this.listenToCopy(copy);
    this.group.addEventListener("change", (event) => {
      if ((event.target as Element).matches(".show-raw") && this.filter?.value) void this.refresh();
    });
  }

  /** The tables that share a switch for their untranslated values. */
  private get group(): Element {
    return this.section.closest(".group") ?? this.section;
  }

  private get showsSecondTexts(): boolean {
    return this.group.querySelector<HTMLInputElement>(".show-raw")?.checked ?? false;
  }

  /** A third time goes back to the order of collection. */
  private async sortBy(column: number): Promise<void> {
    await this.body.load();
    this.direction = this.sortColumn === column ? kNext[this.direction] : "ascending";
    this.sortColumn = column;
    this.sorted =
      this.direction === "none"
        ? makeIdentity(this.body.rowCount)
        : sortRows(this.body.getColumn(column), this.direction === "descending");
    this.headers.forEach((header, i) => {
      if (header.ariaSort) header.ariaSort = i === column ? this.direction : "none";
    });
    this.update();
  }

  private async refresh(): Promise<void> {
    await this.body.load();
    this.update();
  }

  private update(): void {
    const needle = new MakeNeedle(this.filter?.value ?? "");
    if (needle.isEmpty) this.order = this.sorted;
    else {
      const found = this.body.findRows(needle, this.showsSecondTexts);
      this.order = this.sorted.filter((row) => found[row] === 1);
    }
    if (this.isWanted) this.order = this.order.filter(this.isWanted);
    this.body.show(this.order);
    this.tellCount();
  }

  private tellCount(): void {
    if (!this.count) return;
    const all = this.body.rowCount;
    const rows = `${formatCount(all)} ${all === 1 ? "row" : "rows"}`;
    const shown = this.order.length;
    this.count.textContent = shown === all ? rows : `${formatCount(shown)} of ${rows}`;
  }

  private listenToCopy(button: HTMLButtonElement): void {
    const label = button.textContent;
    const told = document.createElement("output");
    told.className = "vh";
    button.after(told);
    button.addEventListener("click", async () => {
      let answer = "Copied";
      try {
        await this.body.load();
        await navigator.clipboard.writeText(await this.makeCsv());
      } catch {
        answer = "Not copied";
      }
      button.textContent = answer;
      told.textContent = answer;
      setTimeout(() => {
        button.textContent = label;
        told.textContent = "";
      }, kCopiedTime);
    });
  }

  /** What is shown, in the order shown. */
  private async makeCsv(): Promise<string> {
    const labels = this.headers.map((header) => header.textContent?.trim() ?? "");
    const parts = [toCsv([labels])];
    const hasSecondTexts = this.showsSecondTexts;
    for (let begin = 0; begin < this.order.length; begin += kRowsAtOnce) {
      const rows = [...this.order.subarray(begin, begin + kRowsAtOnce)];
      parts.push(toCsv(rows.map((row) => this.body.getCsvRow(row, hasSecondTexts))));
      await new Promise((resolve) => setTimeout(resolve));
    }
    return parts.join("");
  }
}

function makeIdentity(count: number): Uint32Array {
  const order = new Uint32Array(count);
  for (let i = 0; i < count; ++i) order[i] = i;
  return order;
}

export function formatCount(count: number): string {
  return count.toLocaleString("en");
}

const kRowAddress = /^#t(\d+)-r(\d+)(?:-c\d+)?$/;

/** Sets up all tables of the page, by the names that addresses have for them. */
export function startTables(getSource: (section: HTMLElement) => RowSource): Map<string, Table> {
  const tables = new Map<string, Table>();
  for (const section of document.querySelectorAll<HTMLElement>("section.block"))
    if (section.querySelector(".filter, .sort") || section.dataset.rows)
      tables.set(section.id, new Table(section, getSource(section)));

  const goToAddress = () => {
    const address = kRowAddress.exec(location.hash);
    const table = address && tables.get(`t${address[1]}`);
    if (table) void table.goToRow(Number(address[2]));
  };
  window.addEventListener("hashchange", goToAddress);
  goToAddress();
  return tables;
}
