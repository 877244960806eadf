// The row files beside the pages: the rows of all tables of the folder, read when they are needed.
// Each is a classic script, as browsers read nothing else from beside a file.

export const kRowEnd = "\x1e";
export const kCellEnd = "\x1f";
export const kSecond = "\x1d";

export type State = "" | "ok" | "unknown" | "attention" | "failed";
/** A row is a link to a row of another table; the script makes it. */
export type Kind = "text" | "file" | "score" | "frequencies" | "row";

export interface Cell {
  text: string;
  /** The untranslated value, the name of a linked file, the address of a row or the frequencies. Missing: empty. */
  second: string;
  state: State;
  kind: Kind;
  isMono: boolean;
  isHeader: boolean;
  isSame: boolean;
  isChanged: boolean;
  /** The text is the word for the state itself. */
  tellsState: boolean;
}

/** A run of rows of one table as it stands in a row file. */
export class Segment {
  private ownText = "";
  private ownEnds = new Uint32Array();

  constructor(
    /** Number of the first row, from 1. */
    readonly first: number,
    text: string,
  ) {
    if (text) this.setText(text);
  }

  get text(): string {
    return this.ownText;
  }

  /** Where each row ends in the text. */
  get ends(): Uint32Array {
    return this.ownEnds;
  }

  protected setText(text: string): void {
    const ends: number[] = [];
    for (let at = text.indexOf(kRowEnd); at >= 0; at = text.indexOf(kRowEnd, at + 1)) ends.push(at);
    this.ownText = text;
    this.ownEnds = Uint32Array.from(ends);
  }

  get count(): number {
    return this.ends.length;
  }

  getRow(index: number): string {
    return this.text.slice(this.getBegin(index), this.ends[index]);
  }

  getBegin(index: number): number {
    return index === 0 ? 0 : this.ends[index - 1]! + 1;
  }

  /** The row that holds a place of the text; from: a row that is not behind it. */
  findRow(place: number, from: number): number {
    let low = from;
    let high = this.ends.length - 1;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.ends[middle]! < place) low = middle + 1;
      else high = middle;
    }
    return low;
  }
}

export interface TableFacts {
  page: number;
  table: number;
  /** The page's file that has the table, from 0. */
  file: number;
  rows: number;
  name: string;
  labels: string[];
}

export interface PageFacts {
  stem: string;
  title: string;
}

/** Where the rows of a long table come from. */
export interface RowSource {
  loadFiles(from: number, to: number): Promise<void>;
  getSegments(page: number, table: number): Segment[];
}

/** What has been read so far. */
export class RowFiles implements RowSource {
  readonly segments = new Map<string, Segment[]>();
  readonly tables = new Map<string, TableFacts>();
  pages: PageFacts[] = [];
  fileCount = 0;
  private readonly loads = new Map<string, Promise<void>>();

  constructor() {
    const hooks = window as unknown as Record<string, unknown>;
    hooks.qsxRows = (page: number, table: number, first: number, text: string) => {
      const key = getTableKey(page, table);
      const segments = this.segments.get(key) ?? [];
      segments.push(new Segment(first, text));
      segments.sort((a, b) => a.first - b.first);
      this.segments.set(key, segments);
    };
    hooks.qsxTable = (
      page: number,
      table: number,
      file: number,
      rows: number,
      name: string,
      labels: string[],
    ) => {
      this.tables.set(getTableKey(page, table), { page, table, file, rows, name, labels });
    };
    hooks.qsxPages = (fileCount: number, pages: [string, string][]) => {
      this.fileCount = fileCount;
      this.pages = pages.map(([stem, title]) => ({ stem, title }));
    };
  }

  getSegments(page: number, table: number): Segment[] {
    return this.segments.get(getTableKey(page, table)) ?? [];
  }

  /** Files from and to, both included. Throws: an Error that names the file that is missing. */
  async loadFiles(from: number, to: number): Promise<void> {
    const loads: Promise<void>[] = [];
    for (let file = from; file <= to; ++file) loads.push(this.loadScript(`rows/${file}.js`));
    await Promise.all(loads);
  }

  async loadIndex(): Promise<void> {
    await this.loadScript("rows/index.js");
  }

  /** Each file once. */
  loadScript(source: string): Promise<void> {
    const known = this.loads.get(source);
    if (known) return known;
    const load = new Promise<void>((resolve, reject) => {
      const script = document.createElement("script");
      script.src = source;
      script.async = true;
      script.onload = () => {
        script.remove();
        resolve();
      };
      script.onerror = () => {
        script.remove();
        this.loads.delete(source);
        reject(new Error(`${source} cannot be read. Is the folder whole?`));
      };
      document.head.append(script);
    });
    this.loads.set(source, load);
    return load;
  }
}

export function getTableKey(page: number, table: number): string {
  return `${page}/${table}`;
}

const kStates: State[] = ["", "ok", "unknown", "attention", "failed"];
const kKinds: Kind[] = ["file", "score", "frequencies"];
const kFirstKind = 6;
export const kLastMark = 0x12;

/** Reads a cell as the row files have it. */
export function parseCell(raw: string): Cell {
  const cell: Cell = {
    text: "",
    second: "",
    state: "",
    kind: "text",
    isMono: false,
    isHeader: false,
    isSame: false,
    isChanged: false,
    tellsState: false,
  };
  let at = 0;
  for (; at < raw.length && raw.charCodeAt(at) <= kLastMark && raw[at] !== "\t" && raw[at] !== "\n"; ++at) {
    const mark = raw.charCodeAt(at);
    if (mark >= 1 && mark <= 4) cell.state = kStates[mark]!;
    else if (mark === 5) cell.isMono = true;
    else if (mark <= 8) cell.kind = kKinds[mark - kFirstKind]!;
    else if (mark === 0x0e) cell.isHeader = true;
    else if (mark === 0x0f) cell.isSame = true;
    else if (mark === 0x10) cell.isChanged = true;
    else if (mark === 0x11) cell.kind = "row";
    else cell.tellsState = true;
  }
  const second = raw.indexOf(kSecond, at);
  cell.text = cell.isSame ? "same" : raw.slice(at, second < 0 ? undefined : second);
  if (second >= 0) cell.second = raw.slice(second + 1);
  return cell;
}

export function parseRow(raw: string): Cell[] {
  return raw.split(kCellEnd).map(parseCell);
}

/** Words that a row must all have, in any cell and either case. */
export class Needle {
  readonly words: string[];
  private readonly pattern: RegExp;

  constructor(query: string) {
    this.words = query.toLowerCase().split(/\s+/).filter(Boolean);
    // The longest word is the one that fewest rows have.
    const longest = this.words.reduce((a, b) => (b.length > a.length ? b : a), "");
    this.pattern = new RegExp(escapePattern(longest), "gi");
  }

  get isEmpty(): boolean {
    return this.words.length === 0;
  }

  matches(text: string): boolean {
    const lower = text.toLowerCase();
    return this.words.every((word) => lower.includes(word));
  }

  /** The rows of a segment that have all words; onRow gets their index in the segment. */
  scan(segment: Segment, seesSecondTexts: boolean, onRow: (index: number) => void): void {
    const { text } = segment;
    this.pattern.lastIndex = 0;
    let row = 0;
    for (let hit = this.pattern.exec(text); hit; hit = this.pattern.exec(text)) {
      row = segment.findRow(hit.index, row);
      const isShown = seesSecondTexts || !isSecondText(text, hit.index);
      if (!isShown) continue;
      if (this.words.length === 1 || this.matches(getShownText(segment.getRow(row), seesSecondTexts)))
        onRow(row);
      this.pattern.lastIndex = segment.ends[row]! + 1;
    }
  }
}

export function escapePattern(text: string): string {
  return text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&");
}

function isSecondText(text: string, place: number): boolean {
  for (let at = place - 1; at >= 0; --at) {
    const code = text.charCodeAt(at);
    if (code === 0x1d) return true;
    if (code === 0x1f || code === 0x1e) return false;
  }
  return false;
}

function getShownText(row: string, hasSecondTexts: boolean): string {
  return hasSecondTexts ? row : row.replace(/\x1d[^\x1f]*/g, "");
}
