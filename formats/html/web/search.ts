// The search over all reports of the folder: what is typed is looked for in every cell of every table.

import {
  escapePattern,
  getTableKey,
  Needle,
  parseRow,
  type PageFacts,
  type RowFiles,
  type Segment,
  type TableFacts,
} from "./rows";
import { formatCount } from "./table";

const kTypingPause = 60;
const kShortestQuery = 2;
/** At least; few reports share all hits. */
const kHitsOfReport = 4;
const kMostHits = 40;
const kLongestLine = 160;
/** The page answers keys in between. Units: milliseconds. */
const kLongestStep = 40;

interface Hit {
  table: TableFacts;
  row: number;
  text: string;
}

interface ReportHits {
  page: PageFacts;
  isNamed: boolean;
  hits: Hit[];
  count: number;
}

export function startSearch(files: RowFiles): void {
  const input = document.querySelector<HTMLInputElement>("#search");
  if (input) new Search(input, files);
}

class Search {
  private readonly panel: HTMLElement;
  private readonly list: HTMLElement;
  private readonly status: HTMLOutputElement;
  private loading: Promise<void> | null = null;
  private options: HTMLElement[] = [];
  private current = -1;
  private run = 0;

  constructor(
    private readonly input: HTMLInputElement,
    private readonly files: RowFiles,
  ) {
    this.panel = document.createElement("div");
    this.panel.className = "found";
    this.panel.popover = "manual";
    this.status = document.createElement("output");
    this.list = document.createElement("div");
    this.list.id = "search-found";
    this.list.setAttribute("role", "listbox");
    this.list.setAttribute("aria-label", "Rows found");
    this.panel.append(this.status, this.list);
    (input.closest("search, .search") ?? input.parentElement!).append(this.panel);
    input.setAttribute("role", "combobox");
    input.setAttribute("aria-autocomplete", "list");
    input.setAttribute("aria-controls", this.list.id);
    input.setAttribute("aria-expanded", "false");
    this.listen();
  }

  private listen(): void {
    let pause = 0;
    this.input.addEventListener("focus", () => void this.load().catch(() => {}));
    this.input.addEventListener("input", () => {
      clearTimeout(pause);
      pause = window.setTimeout(() => void this.find(), kTypingPause);
    });
    this.input.addEventListener("keydown", (event) => this.onKey(event));
    document.addEventListener("click", (event) => {
      if (!this.panel.contains(event.target as Node) && event.target !== this.input) this.close();
    });
    this.panel.addEventListener("click", (event) => {
      if ((event.target as Element).closest("a")) this.close();
    });
    window.addEventListener("resize", () => this.place());
  }

  private load(): Promise<void> {
    this.loading ??= this.files.loadIndex().then(() => this.files.loadFiles(1, this.files.fileCount));
    this.loading.catch(() => (this.loading = null));
    return this.loading;
  }

  private onKey(event: KeyboardEvent): void {
    const steps: Record<string, number> = { ArrowDown: 1, ArrowUp: -1 };
    const step = steps[event.key];
    if (step !== undefined && this.options.length > 0) {
      event.preventDefault();
      this.choose((this.current + step + this.options.length) % this.options.length);
    } else if (event.key === "Enter" && this.options.length > 0) {
      event.preventDefault();
      this.options[Math.max(0, this.current)]!.click();
    } else if (event.key === "Escape" && this.panel.matches(":popover-open")) {
      // The side bar of a narrow screen stays open.
      event.preventDefault();
      event.stopPropagation();
      this.close();
    }
  }

  private choose(option: number): void {
    this.options[this.current]?.setAttribute("aria-selected", "false");
    this.current = option;
    const chosen = this.options[option]!;
    chosen.setAttribute("aria-selected", "true");
    chosen.scrollIntoView({ block: "nearest" });
    this.input.setAttribute("aria-activedescendant", chosen.id);
  }

  private close(): void {
    ++this.run;
    if (this.panel.matches(":popover-open")) this.panel.hidePopover();
    this.input.setAttribute("aria-expanded", "false");
    this.input.removeAttribute("aria-activedescendant");
  }

  private open(): void {
    if (!this.panel.matches(":popover-open")) this.panel.showPopover();
    this.input.setAttribute("aria-expanded", "true");
    this.place();
  }

  /** Below the field, wider than the side bar. */
  private place(): void {
    const field = this.input.getBoundingClientRect();
    this.panel.style.left = `${field.left}px`;
    this.panel.style.top = `${field.bottom + 4}px`;
  }

  private async find(): Promise<void> {
    const query = this.input.value.trim();
    const run = ++this.run;
    if (query.length < kShortestQuery) return this.close();
    this.open();
    try {
      if (!this.loading) this.tell("Reading the rows");
      await this.load();
      const isStale = () => run !== this.run;
      const found = await findAll(this.files, new Needle(query), isStale);
      if (!isStale()) this.show(found, new Needle(query));
    } catch (failure) {
      this.list.replaceChildren();
      this.tell((failure as Error).message);
    }
  }

  private tell(text: string): void {
    this.status.textContent = text;
  }

  private show(reports: ReportHits[], needle: Needle): void {
    this.options = [];
    this.current = -1;
    this.input.removeAttribute("aria-activedescendant");
    const groups: HTMLElement[] = [];
    let shown = 0;
    for (const report of reports) {
      if (shown >= kMostHits) break;
      groups.push(this.makeGroup(report, needle));
      shown += report.hits.length + 1;
    }
    this.list.replaceChildren(...groups);
    const count = reports.reduce((sum, report) => sum + report.count, 0);
    this.tell(this.describe(count, reports));
    this.place();
  }

  private describe(count: number, reports: ReportHits[]): string {
    let all = 0;
    for (const table of this.files.tables.values()) all += table.rows;
    if (reports.length === 0) return `No match in ${formatCount(all)} rows.`;
    const rows = count === 1 ? "1 row" : `${formatCount(count)} rows`;
    return `${rows} of ${formatCount(all)}, in ${reports.length === 1 ? "1 report" : `${reports.length} reports`}.`;
  }

  private makeGroup(report: ReportHits, needle: Needle): HTMLElement {
    const group = document.createElement("div");
    group.setAttribute("role", "group");
    group.setAttribute("aria-label", report.page.title);
    const title = this.makeOption(`${report.page.stem}.html`);
    title.className = "report-found";
    appendMarked(title, report.page.title, needle);
    if (report.count > 0) {
      const count = document.createElement("span");
      count.className = "num";
      count.textContent = formatCount(report.count);
      title.append(" ", count);
    }
    group.append(title, ...report.hits.map((hit) => this.makeHit(report.page, hit, needle)));
    return group;
  }

  private makeHit(page: PageFacts, hit: Hit, needle: Needle): HTMLElement {
    const part = hit.table.file === 0 ? "" : `~${hit.table.file + 1}`;
    const file = `${encodeURIComponent(page.stem + part)}.html`;
    const option = this.makeOption(`${file}#t${hit.table.table}-r${hit.row}`);
    const place = document.createElement("small");
    const saysMore = hit.table.name !== "" && hit.table.name !== page.title;
    place.textContent = `${saysMore ? `${hit.table.name}, ` : ""}row ${formatCount(hit.row)}`;
    const line = document.createElement("span");
    line.className = "line";
    appendMarked(line, cutAround(makeLine(hit.text), needle), needle);
    option.append(place, line);
    return option;
  }

  private makeOption(address: string): HTMLAnchorElement {
    const option = document.createElement("a");
    option.href = address;
    option.id = `found-${this.options.length}`;
    option.setAttribute("role", "option");
    option.setAttribute("aria-selected", "false");
    option.tabIndex = -1;
    this.options.push(option);
    return option;
  }
}

/** Reports in the order of the pages, those that are named first. */
async function findAll(files: RowFiles, needle: Needle, isStale: () => boolean): Promise<ReportHits[]> {
  const reports: ReportHits[] = files.pages.map((page) => ({
    page,
    isNamed: needle.matches(page.title),
    hits: [],
    count: 0,
  }));
  let stepBegin = performance.now();
  const hitsOfReport = Math.max(kHitsOfReport, Math.floor(kMostHits / reports.length));
  for (const table of files.tables.values()) {
    const report = reports[table.page];
    if (!report) continue;
    for (const segment of files.segments.get(getTableKey(table.page, table.table)) ?? []) {
      scanSegment(segment, table, needle, report, hitsOfReport);
      if (performance.now() - stepBegin < kLongestStep) continue;
      await new Promise((resolve) => setTimeout(resolve));
      if (isStale()) return [];
      stepBegin = performance.now();
    }
  }
  const found = reports.filter((report) => report.isNamed || report.count > 0);
  return found.sort((a, b) => Number(b.isNamed) - Number(a.isNamed));
}

function scanSegment(
  segment: Segment,
  table: TableFacts,
  needle: Needle,
  report: ReportHits,
  mostHits: number,
): void {
  needle.scan(segment, true, (index) => {
    ++report.count;
    if (report.hits.length < mostHits)
      report.hits.push({ table, row: segment.first + index, text: segment.getRow(index) });
  });
}

/** The cells of a row side by side. */
function makeLine(row: string): string {
  return parseRow(row)
    .flatMap((cell) => [cell.text, cell.second])
    .map((text) => text.replace(/\s+/g, " ").trim())
    .filter(Boolean)
    .join(" · ");
}

function makePattern(needle: Needle): RegExp {
  return new RegExp(needle.words.map(escapePattern).join("|"), "gi");
}

/** The part of a line that shows its first match. */
function cutAround(line: string, needle: Needle): string {
  if (line.length <= kLongestLine) return line;
  const place = line.search(makePattern(needle));
  const begin = Math.max(0, Math.min(place - kLongestLine / 3, line.length - kLongestLine));
  const end = Math.min(line.length, begin + kLongestLine);
  return (begin > 0 ? "…" : "") + line.slice(begin, end) + (end < line.length ? "…" : "");
}

function appendMarked(parent: Element, text: string, needle: Needle): void {
  let at = 0;
  for (const match of text.matchAll(makePattern(needle))) {
    parent.append(text.slice(at, match.index));
    const mark = document.createElement("mark");
    mark.textContent = match[0];
    parent.append(mark);
    at = match.index + match[0].length;
  }
  parent.append(text.slice(at));
}
