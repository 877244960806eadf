// Cells of tables: their texts as readers see them, and their markup where the script makes rows.

import type { Cell, State } from "./rows";

const kWords: Record<Exclude<State, "">, string> = {
  ok: "OK",
  unknown: "Unknown",
  attention: "Attention",
  failed: "Failed",
};

const kSvg = "http://www.w3.org/2000/svg";

/** The text of a cell without what is only read aloud and without its untranslated value. */
export function readText(cell: Element): string {
  if (!cell.firstElementChild) return cell.textContent ?? "";
  let text = "";
  for (const node of cell.childNodes)
    if (node instanceof Element) {
      if (!node.matches(".raw, .vh, .whole, svg, .state")) text += readText(node);
    } else text += node.textContent ?? "";
  return text.trim();
}

export function readSecondText(cell: Element): string {
  return cell.querySelector(".raw")?.textContent ?? "";
}

/** The text as "Copy as CSV" has it. */
export function withSecondText(text: string, second: string, isShown: boolean): string {
  return isShown && second ? `${text} [${second}]` : text;
}

function makeElement(name: string, className: string, text: string): HTMLElement {
  const element = document.createElement(name);
  if (className) element.className = className;
  element.textContent = text;
  return element;
}

function makeGlyph(state: State): SVGElement {
  const glyph = document.createElementNS(kSvg, "svg");
  glyph.setAttribute("class", "glyph");
  glyph.setAttribute("aria-hidden", "true");
  const shape = document.createElementNS(kSvg, "use");
  shape.setAttribute("href", `#g-${state}`);
  glyph.append(shape);
  return glyph;
}

function appendState(parent: Element, state: Exclude<State, "">, text: string): void {
  const mark = makeElement("span", `state is-${state}`, "");
  mark.append(makeGlyph(state));
  const word = kWords[state];
  const saysSo = text.slice(0, word.length).toLowerCase() === word.toLowerCase();
  if (saysSo) mark.append(makeElement("span", "vh", `${word}:`));
  else mark.append(word);
  parent.append(mark);
  if (!saysSo) parent.append(" ");
}

function appendScore(parent: Element, text: string): void {
  const percent = Math.min(100, Math.max(0, Number.parseFloat(text) || 0));
  const bar = document.createElementNS(kSvg, "svg");
  bar.setAttribute("class", "bar");
  bar.setAttribute("aria-hidden", "true");
  for (const [className, width] of [["f-track", "100%"], ["f-base", `${percent}%`]] as const) {
    const area = document.createElementNS(kSvg, "rect");
    area.setAttribute("class", className);
    area.setAttribute("width", width);
    area.setAttribute("height", "12");
    bar.append(area);
  }
  parent.append(bar, text);
}

/** What stands in a cell. */
export function appendContent(parent: Element, cell: Cell): void {
  if (cell.kind === "file") {
    const link = document.createElement("a");
    link.href = encodeURIComponent(cell.second);
    link.textContent = cell.text;
    parent.append(link);
    return;
  }
  if (cell.kind === "row") {
    const link = document.createElement("a");
    link.href = cell.second;
    link.textContent = cell.text;
    parent.append(link);
    return;
  }
  if (cell.tellsState && cell.state) {
    const mark = makeElement("span", `told is-${cell.state}`, "");
    mark.append(makeGlyph(cell.state), cell.text);
    parent.append(mark);
    return;
  }
  if (cell.kind === "score") return appendScore(parent, cell.text);
  if (cell.state) appendState(parent, cell.state, cell.text);
  parent.append(cell.text);
  if (cell.second) parent.append(makeElement("span", "raw", cell.second));
}

function getClasses(cell: Cell, look: string): string {
  if (cell.isSame) return "same";
  const classes: string[] = [];
  if (cell.isChanged) classes.push("changed");
  if (cell.isMono) classes.push("mono");
  else if (cell.kind === "score") classes.push("score");
  else if (!cell.tellsState && (cell.state === "failed" || cell.state === "attention")) classes.push(`has-${cell.state}`);
  else if (look) classes.push(look);
  return classes.join(" ");
}

function isPlain(cell: Cell): boolean {
  return cell.kind === "text" && cell.state === "" && cell.second === "";
}

/** Makes the cell at that place of a row, or turns the one that is there into it. look: the class of its column. */
export function fillCell(row: HTMLTableRowElement, place: number, cell: Cell, look: string): void {
  const wanted = cell.isHeader ? "TH" : "TD";
  let element = row.cells[place];
  if (element?.tagName !== wanted) {
    const made = document.createElement(wanted) as HTMLTableCellElement;
    if (cell.isHeader) made.scope = "row";
    if (element) element.replaceWith(made);
    else row.append(made);
    element = made;
  }
  const classes = getClasses(cell, look);
  if (element.className !== classes) element.className = classes;
  const [only, ...others] = element.childNodes;
  if (!isPlain(cell)) {
    element.replaceChildren();
    appendContent(element, cell);
  } else if (only instanceof Text && others.length === 0) only.data = cell.text;
  else element.textContent = cell.text;
}
