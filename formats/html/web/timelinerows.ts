// The rows of a timeline that is too long for its page: its files have the order, the row files the texts.

import { kCellEnd, kRowEnd, kSecond, parseCell, type RowFiles, type RowSource, Segment } from "./rows";

// Before the text of a cell, as rows.ts knows them.
const kHeader = "\x0e";
const kRowLink = "\x11";
const kToldState = ["", "", "\x12\x03", "\x12\x04"];
/** Where the records of a log tell their severity, but not in a column. */
const kSeverityWords = ["", "Information", "Warning", "Error"];

const kZoneUnknown = 4;
const kNoDate = 8;
const kSeverityMask = 3;
const kNumbersPerEvent = 4;
const kRowsPerSegment = 5000;
// Units: milliseconds.
const kPauseBeforeBuilding = 500;
const kPause = 20;

/** Which column has what. Missing: -1. */
interface Columns {
  time: number;
  date: number;
  severity: number;
  source: number;
  message: number;
  log: number;
}

interface LogTable {
  page: number;
  table: number;
  file: string;
  name: string;
  from: number;
  to: number;
  columns: Columns;
}

type RawTable = [number, number, string, string, number, number, [number, number, number, number, number, number]];

/** What the filters of the timeline ask of a record, by row. */
export interface EventFacts {
  /** Seconds of the timeline's clock. Missing: NaN. */
  seconds: Float64Array;
  severities: Uint8Array;
  /** Places in logNames. */
  logs: Uint16Array;
  logNames: string[];
}

/** Rows that are put together when they are asked for, and all of them when somebody looks for a text. */
class EventSegment extends Segment {
  private isBuilt = false;

  constructor(
    first: number,
    private readonly rows: number,
    private readonly makeRow: (place: number) => string,
  ) {
    super(first, "");
  }

  override get count(): number {
    return this.rows;
  }

  override get text(): string {
    this.build();
    return super.text;
  }

  override get ends(): Uint32Array {
    this.build();
    return super.ends;
  }

  override getRow(index: number): string {
    return this.isBuilt ? super.getRow(index) : this.makeRow(this.first - 1 + index);
  }

  build(): void {
    if (this.isBuilt) return;
    const parts: string[] = [];
    for (let i = 0; i < this.rows; ++i) parts.push(this.makeRow(this.first - 1 + i), kRowEnd);
    this.isBuilt = true;
    this.setText(parts.join(""));
  }
}

export class TimelineRows implements RowSource {
  facts: EventFacts | null = null;
  private hasSeverities = false;
  private lastSeconds = 0;
  private tables: LogTable[] = [];
  private logRows: LogRows[] = [];
  private readonly runs: number[][] = [];
  private readonly texts = new Map<number, string>();
  private segments: EventSegment[] = [];
  // By place.
  private eventTables = new Uint32Array();
  private eventRows = new Uint32Array();
  private eventFlags = new Uint8Array();
  private seconds: Float64Array = new Float64Array();

  constructor(
    private readonly files: RowFiles,
    private readonly fileCount: number,
  ) {
    const hooks = window as unknown as Record<string, unknown>;
    hooks.qsxEventTables = (hasSeverities: number, lastSeconds: number, tables: RawTable[]) => {
      this.hasSeverities = hasSeverities === 1;
      this.lastSeconds = lastSeconds;
      this.tables = tables.map(([page, table, file, name, from, to, columns]) => {
        const [time, date, severity, source, message, log] = columns;
        return { page, table, file, name, from, to, columns: { time, date, severity, source, message, log } };
      });
    };
    hooks.qsxEvents = (numbers: number[]) => this.runs.push(numbers);
    hooks.qsxEventText = (place: number, text: string) => this.texts.set(place, text);
  }

  async loadFiles(): Promise<void> {
    // The first names the row files; the others come in their order, as they say no places.
    await this.files.loadScript("rows/timeline1.js");
    const rows = this.tables.map((table) => this.files.loadFiles(table.from, table.to));
    for (let file = 2; file <= this.fileCount; ++file) await this.files.loadScript(`rows/timeline${file}.js`);
    await Promise.all(rows);
    this.logRows = this.tables.map((table) => new LogRows(this.files.getSegments(table.page, table.table)));
    this.takeRuns();
    this.facts = this.makeFacts();
    this.makeSegments();
  }

  getSegments(): Segment[] {
    return this.segments;
  }

  private takeRuns(): void {
    const count = this.runs.reduce((sum, run) => sum + run.length / kNumbersPerEvent, 0);
    this.eventTables = new Uint32Array(count);
    this.eventRows = new Uint32Array(count);
    this.eventFlags = new Uint8Array(count);
    const steps = new Float64Array(count);
    let place = 0;
    for (const run of this.runs)
      for (let i = 0; i < run.length; i += kNumbersPerEvent, ++place) {
        this.eventTables[place] = run[i]!;
        this.eventRows[place] = run[i + 1]!;
        steps[place] = run[i + 2]!;
        this.eventFlags[place] = run[i + 3]!;
      }
    this.runs.length = 0;
    this.seconds = this.makeSeconds(steps);
  }

  /** Each record says how far the one below it is. */
  private makeSeconds(steps: Float64Array): Float64Array {
    const seconds = new Float64Array(steps.length).fill(NaN);
    let at = this.lastSeconds;
    for (let i = steps.length - 1; i >= 0; --i) {
      if (this.eventFlags[i]! & kNoDate) continue;
      at += steps[i]!;
      seconds[i] = at;
    }
    return seconds;
  }

  private makeFacts(): EventFacts {
    const names = new LogNames();
    const tableNames = this.tables.map((table) => names.find(table.name));
    const logs = new Uint16Array(this.seconds.length);
    for (let place = 0; place < logs.length; ++place) {
      const number = this.eventTables[place]!;
      const told = this.tables[number]!.columns.log < 0 ? "" : this.readCells(place).log;
      logs[place] = told ? names.find(told) : tableNames[number]!;
    }
    const severities = this.eventFlags.map((flags) => flags & kSeverityMask);
    return { seconds: this.seconds, severities, logs, logNames: names.names };
  }

  private makeSegments(): void {
    const count = this.seconds.length;
    const makeRow = (place: number) => this.makeRow(place);
    for (let first = 0; first < count; first += kRowsPerSegment)
      this.segments.push(new EventSegment(first + 1, Math.min(kRowsPerSegment, count - first), makeRow));
    // While nobody asks for them, so that the first search finds them ready.
    const buildNext = (index: number) => {
      if (index === this.segments.length) return;
      this.segments[index]!.build();
      setTimeout(buildNext, kPause, index + 1);
    };
    setTimeout(buildNext, kPauseBeforeBuilding, 0);
  }

  private makeRow(place: number): string {
    const table = this.tables[this.eventTables[place]!]!;
    const flags = this.eventFlags[place]!;
    const cells = this.readCells(place);
    const told = flags & kNoDate ? joinNote(cells.time, "no date") : formatTime(this.seconds[place]!);
    const time = flags & kZoneUnknown ? joinNote(told, "zone unknown") : told;
    const severity = this.hasSeverities
      ? `${kCellEnd}${kToldState[flags & kSeverityMask]!}${cells.severity || kSeverityWords[flags & kSeverityMask]!}`
      : "";
    const address = `${encodeURIComponent(table.file)}#t${table.table}-r${this.eventRows[place]!}`;
    const log = `${kRowLink}${cells.log || table.name}${kSecond}${address}`;
    return `${kHeader}${time}${severity}${kCellEnd}${log}${kCellEnd}${cells.source}${kCellEnd}${cells.message}`;
  }

  private readCells(place: number) {
    const number = this.eventTables[place]!;
    const told = this.texts.get(place);
    if (told !== undefined) {
      const [time = "", severity = "", source = "", message = "", log = ""] = told.split(kCellEnd);
      return { time, severity, source, message, log };
    }
    const cells = this.logRows[number]!.get(this.eventRows[place]!).split(kCellEnd);
    const read = (column: number) => (column < 0 ? "" : readPlain(cells[column] ?? ""));
    const { columns } = this.tables[number]!;
    const date = read(columns.date);
    const time = read(columns.time);
    return {
      time: date ? `${date} ${time}` : time,
      severity: read(columns.severity),
      source: read(columns.source),
      message: read(columns.message),
      log: read(columns.log),
    };
  }
}

/** The rows of one log, which the timeline reads nearly in order. */
class LogRows {
  private at = 0;

  constructor(private readonly segments: Segment[]) {}

  /** row: from 1. Missing: empty. */
  get(row: number): string {
    if (!this.has(row)) this.at = this.segments.findIndex((_, index) => this.has(row, index));
    const segment = this.segments[this.at];
    return segment ? segment.getRow(row - segment.first) : "";
  }

  private has(row: number, index = this.at): boolean {
    const segment = this.segments[index];
    return segment !== undefined && row >= segment.first && row < segment.first + segment.count;
  }
}

/** The names of logs, each once. */
class LogNames {
  readonly names: string[] = [];
  private readonly places = new Map<string, number>();

  find(name: string): number {
    let place = this.places.get(name);
    if (place === undefined) {
      place = this.names.push(name) - 1;
      this.places.set(name, place);
    }
    return place;
  }
}

/** The text of a cell alone; most cells have nothing else. */
function readPlain(raw: string): string {
  return raw.charCodeAt(0) > 0x12 && !raw.includes(kSecond) ? raw : parseCell(raw).text;
}

function joinNote(text: string, note: string): string {
  return text ? `${text}, ${note}` : note;
}

const kDay = 86_400;
let lastDay = NaN;
let lastDate = "";

function padTwo(number: number): string {
  return number < 10 ? `0${number}` : String(number);
}

/** Records of a day come one after another. */
export function formatTime(seconds: number): string {
  const day = Math.floor(seconds / kDay);
  if (day !== lastDay) {
    lastDay = day;
    lastDate = new Date(day * kDay * 1000).toISOString().slice(0, 10);
  }
  const time = seconds - day * kDay;
  const minutes = Math.floor(time / 60);
  return `${lastDate} ${padTwo(Math.floor(minutes / 60))}:${padTwo(minutes % 60)}:${padTwo(time % 60)}`;
}
