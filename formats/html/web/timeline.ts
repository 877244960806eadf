// The timeline: its records by log, severity and window, the window brushed over the lanes or typed in.

import type { Table } from "./table";
import { type EventFacts, formatTime, type TimelineRows } from "./timelinerows";

/** Moves shorter than this are clicks. Units: pixels. */
const kShortestBrush = 4;
const kTimePattern = "(\\d{4}-\\d\\d-\\d\\d)(?:[ T](\\d\\d:\\d\\d)(:\\d\\d)?)?";

/** Seconds of the timeline's clock; end is not in it. */
interface Window {
  begin: number;
  end: number;
}

class Timeline {
  private window: Window | null = null;
  private log = -1;
  private facts: EventFacts | null = null;
  private readonly hidden = new Set<number>();
  private readonly whole: Window;
  private readonly from = makeTimeInput("From");
  private readonly to = makeTimeInput("to");
  private readonly reset = makeButton("Whole time");
  private readonly mark = document.createElement("div");
  private readonly logs = document.createElement("select");

  constructor(
    private readonly section: HTMLElement,
    private readonly overview: HTMLElement | null,
    private readonly table: Table,
    private readonly rows: TimelineRows | null,
  ) {
    this.whole = { begin: Number(overview?.dataset.begin), end: Number(overview?.dataset.end) };
    this.addLogs();
    if (overview) {
      this.addWindow(overview);
      this.addLanes(overview);
      this.listenToBrush(overview);
    }
  }

  private addLogs(): void {
    const label = document.createElement("label");
    label.className = "log-choice";
    label.append("Log ", this.logs);
    this.logs.append(new Option("All logs", "-1"));
    this.section.querySelector(".tools")?.prepend(label);
    if (!this.rows) this.nameLogs();
    else this.logs.addEventListener("pointerdown", () => void this.readFacts().then(() => this.nameLogs()));
    this.logs.addEventListener("focus", () => void this.readFacts().then(() => this.nameLogs()));
    this.logs.addEventListener("change", () => {
      this.log = Number(this.logs.value);
      void this.apply();
    });
  }

  private nameLogs(): void {
    this.facts ??= this.rows ? this.rows.facts : readFacts(this.section);
    if (!this.facts || this.logs.options.length > 1) return;
    const used = new Set(this.facts.logs);
    this.facts.logNames.forEach((name, i) => used.has(i) && this.logs.append(new Option(name, String(i))));
  }

  private async readFacts(): Promise<EventFacts | null> {
    if (!this.facts && this.rows) {
      await this.table.load();
      this.facts = this.rows.facts;
    }
    this.facts ??= readFacts(this.section);
    return this.facts;
  }

  private addWindow(overview: HTMLElement): void {
    const tools = document.createElement("div");
    tools.className = "tools";
    tools.append(this.from.label, this.to.label, this.reset);
    overview.querySelector("figcaption")?.append(tools);
    for (const { input } of [this.from, this.to])
      input.addEventListener("change", () => {
        const begin = readTime(this.from.input.value) ?? this.whole.begin;
        const end = readTime(this.to.input.value);
        this.setWindow({ begin, end: end === null ? this.whole.end : end + 1 });
      });
    this.reset.addEventListener("click", () => this.setWindow(null));
    this.showWindow();
  }

  /** The name of a lane becomes a box to tick. */
  private addLanes(overview: HTMLElement): void {
    for (const row of overview.querySelectorAll<HTMLElement>("tr[data-severity]")) {
      const header = row.querySelector("th")!;
      const label = document.createElement("label");
      label.className = "switch";
      const box = document.createElement("input");
      box.type = "checkbox";
      box.checked = true;
      label.append(box, ...header.childNodes);
      header.append(label);
      box.addEventListener("change", () => {
        const severity = Number(row.dataset.severity);
        if (box.checked) this.hidden.delete(severity);
        else this.hidden.add(severity);
        row.classList.toggle("is-off", !box.checked);
        void this.apply();
      });
    }
  }

  private listenToBrush(overview: HTMLElement): void {
    const lanes = [...overview.querySelectorAll<SVGElement>(".lane")];
    if (lanes.length === 0) return;
    overview.append(this.mark);
    this.mark.className = "brush";
    let start: number | null = null;
    for (const lane of lanes) {
      lane.addEventListener("pointerdown", (event) => {
        if (event.button !== 0) return;
        start = event.clientX;
        lane.setPointerCapture(event.pointerId);
        event.preventDefault();
      });
      lane.addEventListener("pointermove", (event) => {
        if (start !== null) this.placeMark(this.makeWindow(lane, start, event.clientX));
      });
      lane.addEventListener("pointerup", (event) => {
        if (start === null) return;
        const isBrush = Math.abs(event.clientX - start) >= kShortestBrush;
        this.setWindow(isBrush ? this.makeWindow(lane, start, event.clientX) : null);
        start = null;
      });
      lane.addEventListener("pointercancel", () => {
        start = null;
        this.placeMark(this.window);
      });
    }
    new ResizeObserver(() => this.placeMark(this.window)).observe(overview);
  }

  private makeWindow(lane: SVGElement, from: number, to: number): Window {
    const { left, width } = lane.getBoundingClientRect();
    const length = this.whole.end - this.whole.begin;
    const place = (x: number) =>
      Math.round(this.whole.begin + Math.min(1, Math.max(0, (x - left) / width)) * length);
    return { begin: place(Math.min(from, to)), end: Math.max(place(Math.max(from, to)), place(Math.min(from, to)) + 1) };
  }

  private setWindow(window: Window | null): void {
    this.window = window;
    this.showWindow();
    void this.apply();
  }

  private showWindow(): void {
    const shown = this.window ?? this.whole;
    this.from.input.value = formatTime(shown.begin);
    this.to.input.value = formatTime(shown.end - 1);
    this.reset.disabled = this.window === null;
    this.placeMark(this.window);
  }

  private placeMark(window: Window | null): void {
    const lanes = [...(this.overview?.querySelectorAll(".lane") ?? [])].map((lane) => lane.getBoundingClientRect());
    this.mark.hidden = window === null || lanes.length === 0;
    if (!window || lanes.length === 0) return;
    const box = this.overview!.getBoundingClientRect();
    const length = this.whole.end - this.whole.begin;
    const scale = (seconds: number) => Math.min(1, Math.max(0, (seconds - this.whole.begin) / length));
    const { left, width, top } = lanes[0]!;
    const bottom = lanes[lanes.length - 1]!.bottom;
    Object.assign(this.mark.style, {
      left: `${left - box.left + scale(window.begin) * width}px`,
      width: `${Math.max(1, (scale(window.end) - scale(window.begin)) * width)}px`,
      top: `${top - box.top}px`,
      height: `${bottom - top}px`,
    });
  }

  private async apply(): Promise<void> {
    const isAll = !this.window && this.log < 0 && this.hidden.size === 0;
    const facts = isAll ? null : await this.readFacts();
    if (!facts) return this.table.setFilter(null);
    const { window, log, hidden } = this;
    this.table.setFilter((row) => {
      if (log >= 0 && facts.logs[row] !== log) return false;
      if (hidden.has(facts.severities[row]!)) return false;
      return !window || (facts.seconds[row]! >= window.begin && facts.seconds[row]! < window.end);
    });
  }
}

/** Of a timeline that its page holds whole. */
function readFacts(section: HTMLElement): EventFacts {
  const rows = [...section.querySelectorAll<HTMLTableRowElement>("tbody tr")];
  rows.sort((a, b) => Number(a.id.slice(4)) - Number(b.id.slice(4)));
  const names = rows.map((row) => row.querySelector(".log")?.textContent ?? "");
  const logNames = [...new Set(names)];
  const places = new Map(logNames.map((name, i) => [name, i]));
  return {
    seconds: Float64Array.from(rows, (row) => Number(row.querySelector<HTMLElement>("th")?.dataset.seconds)),
    severities: Uint8Array.from(rows, (row) =>
      Number(row.querySelector<HTMLElement>(".severity")?.dataset.severity ?? 0),
    ),
    logs: Uint16Array.from(names, (name) => places.get(name)!),
    logNames,
  };
}

function makeTimeInput(name: string): { label: HTMLLabelElement; input: HTMLInputElement } {
  const label = document.createElement("label");
  const input = document.createElement("input");
  input.type = "text";
  input.size = 19;
  input.pattern = kTimePattern;
  input.title = "As 2026-11-21 09:30:00; seconds and time of day may be left out";
  input.autocomplete = "off";
  label.append(`${name} `, input);
  return { label, input };
}

function makeButton(text: string): HTMLButtonElement {
  const button = document.createElement("button");
  button.type = "button";
  button.textContent = text;
  return button;
}

/** In the form in which the records have it. Missing: null for what is no time. */
function readTime(text: string): number | null {
  const found = new RegExp(`^${kTimePattern}$`).exec(text.trim());
  const time = found ? Date.parse(`${found[1]}T${found[2] ?? "00:00"}${found[3] ?? ":00"}Z`) : NaN;
  return Number.isNaN(time) ? null : time / 1000;
}

/** Sets up the timeline, where the page is one. */
export function startTimeline(tables: Map<string, Table>, rows: TimelineRows | null): void {
  const section = document.querySelector<HTMLElement>(".timeline section.block");
  const table = section && tables.get(section.id);
  if (section && table)
    new Timeline(section, document.querySelector<HTMLElement>(".timeline .overview"), table, rows);
}
