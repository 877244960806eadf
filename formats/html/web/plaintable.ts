// The rows of a table that the page holds whole.

import { readSecondText, readText, withSecondText } from "./cells";
import { type ColumnTexts, makeColumn } from "./column";
import type { Needle } from "./rows";
import type { TableBody } from "./table";

export class PlainBody implements TableBody {
  private readonly rows: HTMLTableRowElement[];
  private readonly body: HTMLTableSectionElement;

  constructor(table: HTMLTableElement) {
    this.body = table.tBodies[0]!;
    this.rows = [...this.body.rows];
  }

  get rowCount(): number {
    return this.rows.length;
  }

  async load(): Promise<void> {}

  getColumn(column: number): ColumnTexts {
    return makeColumn(
      this.rows.map((row) => {
        const cell = getValueCells(row)[column];
        return cell ? readText(cell) : "";
      }),
    );
  }

  getCsvRow(row: number, hasSecondTexts: boolean): string[] {
    return getValueCells(this.rows[row]!).map((cell) =>
      withSecondText(readText(cell), readSecondText(cell), hasSecondTexts),
    );
  }

  findRows(needle: Needle, seesSecondTexts: boolean): Uint8Array {
    return Uint8Array.from(this.rows, (row) => {
      const cells = getValueCells(row);
      const texts = cells.map((cell) => withSecondText(readText(cell), readSecondText(cell), seesSecondTexts));
      return needle.matches(texts.join("\n")) ? 1 : 0;
    });
  }

  show(order: Uint32Array): void {
    const shown = new Set(order);
    this.rows.forEach((row, i) => (row.hidden = !shown.has(i)));
    const inOrder = document.createDocumentFragment();
    for (const row of order) inOrder.append(this.rows[row]!);
    this.rows.forEach((row) => row.hidden && inOrder.append(row));
    this.body.append(inOrder);
  }

  /** The browser marks it by its address. */
  goTo(row: number): void {
    this.rows[row]!.scrollIntoView({ block: "nearest" });
  }
}

/** Without the row number. */
function getValueCells(row: HTMLTableRowElement): HTMLTableCellElement[] {
  return [...row.cells].filter((cell) => !cell.classList.contains("n"));
}
