// The rows of a long table that are in its window. Rows that leave it are filled anew for those that enter: elements
// made for each would be 50 MB after some twenty jumps, and a layout of the whole table each time.

export type FillRow = (element: HTMLTableRowElement, row: number) => void;

/** Where the window stands in the order of the rows, and what is above and below it. */
export interface WindowPlace {
  first: number;
  end: number;
  // Units: pixels.
  heightAbove: number;
  heightBelow: number;
}

export class RowWindow {
  private readonly above = makeSpacer();
  private readonly below = makeSpacer();
  /** In the order of the page. */
  private readonly elements: HTMLTableRowElement[] = [];
  private readonly rowOf = new WeakMap<HTMLTableRowElement, number>();
  private first = 0;

  constructor(
    private readonly body: HTMLTableSectionElement,
    private readonly fill: FillRow,
  ) {}

  /** Takes the body for itself, also after others have put rows into it. */
  begin(): void {
    this.body.replaceChildren(this.above, ...this.elements, this.below);
  }

  show(order: Uint32Array, place: WindowPlace): void {
    this.moveBy(place.first - this.first);
    this.first = place.first;
    this.setCount(place.end - place.first);
    this.elements.forEach((element, i) => this.showRow(element, i, order[place.first + i]!));
    setHeight(this.above, place.heightAbove);
    setHeight(this.below, place.heightBelow);
  }

  /** The element of a place in the order. Missing: undefined where it is not in the window. */
  get(place: number): HTMLTableRowElement | undefined {
    return this.elements[place - this.first];
  }

  /** What leaves on one side enters on the other; what stays in the window stays in the page. */
  private moveBy(rows: number): void {
    if (Math.abs(rows) >= this.elements.length) return;
    for (let i = rows; i > 0; --i) {
      const element = this.elements.shift()!;
      this.elements.push(element);
      this.below.before(element);
    }
    for (let i = rows; i < 0; ++i) {
      const element = this.elements.pop()!;
      this.elements.unshift(element);
      this.above.after(element);
    }
  }

  private setCount(count: number): void {
    while (this.elements.length > count) this.elements.pop()!.remove();
    while (this.elements.length < count) {
      const element = document.createElement("tr");
      this.elements.push(element);
      this.below.before(element);
    }
  }

  private showRow(element: HTMLTableRowElement, index: number, row: number): void {
    let shown = element;
    if (this.rowOf.get(element) !== row) {
      // The browser marks the element that an address led to, whatever it has become.
      if (element.matches(":target")) {
        shown = document.createElement("tr");
        element.replaceWith(shown);
        this.elements[index] = shown;
      }
      this.fill(shown, row);
      this.rowOf.set(shown, row);
    }
    const number = String(this.first + index + 2);
    if (shown.getAttribute("aria-rowindex") !== number) shown.setAttribute("aria-rowindex", number);
  }
}

function makeSpacer(): HTMLTableRowElement {
  const row = document.createElement("tr");
  row.className = "spacer";
  row.ariaHidden = "true";
  row.append(document.createElement("td"));
  return row;
}

function setHeight(row: HTMLTableRowElement, height: number): void {
  row.hidden = height <= 0;
  row.style.height = `${Math.max(0, height)}px`;
}
