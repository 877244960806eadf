// The texts of a column where they stand in the row files: a string of its own for each of 100,000 rows
// would be memory that the browser gives back late.

import type { Segment } from "./rows";
import { kCellEnd, kLastMark, kSecond } from "./rows";

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
  for (const segment of segments) addSegment(column, segment, number);
  return column;
}

/** The texts of cells without the marks in front of them and the untranslated values behind them. */
function addSegment(column: ColumnTexts, segment: Segment, number: number): void {
  const { text, ends } = segment;
  column.addSource(text);
  let second = findFrom(text, kSecond, 0);
  for (let row = 0; row < ends.length; ++row) {
    const end = ends[row]!;
    let at = segment.getBegin(row);
    for (let before = 0; before < number && at <= end; ++before) at = findFrom(text, kCellEnd, at) + 1;
    if (at > end) {
      column.add(end, end);
      continue;
    }
    while (at < end && text.charCodeAt(at) <= kLastMark && text[at] !== "\t" && text[at] !== "\n") ++at;
    // Most tables have no second texts, so that the next one is looked for once.
    if (second < at) second = findFrom(text, kSecond, at);
    column.add(at, Math.min(end, second, findFrom(text, kCellEnd, at)));
  }
}

/** Missing: the end of the text. */
function findFrom(text: string, character: string, begin: number): number {
  const place = text.indexOf(character, begin);
  return place < 0 ? text.length : place;
}
