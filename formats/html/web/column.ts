// The texts of a column where they stand in the row files: a string of its own for each of 100,000 rows
// would be memory that the browser gives back late.

import type { Segment } from "./rows";
import { kCellEndCode, kLastMark, kSecondCode } from "./rows";

export class ColumnTexts {
  /** Places in the source of a row. */
  readonly begins: Uint32Array;
  readonly ends: Uint32Array;
  private readonly numbers: Uint16Array;
  private readonly sources: string[] = [];
  private count = 0;

  constructor(rowCount: number) {
    this.begins = new Uint32Array(rowCount);
    this.ends = new Uint32Array(rowCount);
    this.numbers = new Uint16Array(rowCount);
  }

  get length(): number {
    return this.begins.length;
  }

  getSource(row: number): string {
    return this.sources[this.numbers[row]!]!;
  }

  getText(row: number): string {
    return this.getSource(row).slice(this.begins[row], this.ends[row]);
  }

  isEmpty(row: number): boolean {
    return this.begins[row] === this.ends[row];
  }

  addSource(source: string): void {
    this.sources.push(source);
  }

  /** The next row, in the source that was added last. */
  add(begin: number, end: number): void {
    this.begins[this.count] = begin;
    this.ends[this.count] = end;
    this.numbers[this.count] = this.sources.length - 1;
    ++this.count;
  }
}

export function makeColumn(texts: string[]): ColumnTexts {
  const column = new ColumnTexts(texts.length);
  column.addSource(texts.join(""));
  let at = 0;
  for (const text of texts) column.add(at, (at += text.length));
  return column;
}

/** A row that is shorter has an empty text. */
export function readColumn(segments: Segment[], number: number): ColumnTexts {
  const column = new ColumnTexts(segments.reduce((sum, segment) => sum + segment.count, 0));
  for (const segment of segments) {
    const { text, ends } = segment;
    column.addSource(text);
    for (let row = 0; row < ends.length; ++row)
      addCell(column, text, segment.getBegin(row), ends[row]!, number);
  }
  return column;
}

/** The text of a cell without the marks in front of it and the untranslated value behind it. */
function addCell(column: ColumnTexts, text: string, begin: number, end: number, number: number): void {
  let at = begin;
  for (let before = 0; before < number && at <= end; ++at)
    if (at === end) return column.add(end, end);
    else if (text.charCodeAt(at) === kCellEndCode) ++before;
  while (at < end && text.charCodeAt(at) <= kLastMark && text[at] !== "\t" && text[at] !== "\n") ++at;
  let stop = at;
  for (; stop < end; ++stop) {
    const code = text.charCodeAt(stop);
    if (code === kCellEndCode || code === kSecondCode) break;
  }
  column.add(at, stop);
}
