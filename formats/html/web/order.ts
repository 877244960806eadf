// The order of a column: numbers, sizes and durations by magnitude, dates by time, all else in the
// natural order of texts, in which "eth2" stands before "eth10". What is empty comes last.

const kFactors: Record<string, number> = {
  "": 1, "%": 1,
  b: 1, byte: 1, bytes: 1,
  k: 1024, kb: 1024, kib: 1024, kilobyte: 1024, kilobytes: 1024,
  m: 1024 ** 2, mb: 1024 ** 2, mib: 1024 ** 2, megabyte: 1024 ** 2, megabytes: 1024 ** 2,
  g: 1024 ** 3, gb: 1024 ** 3, gib: 1024 ** 3, gigabyte: 1024 ** 3, gigabytes: 1024 ** 3,
  t: 1024 ** 4, tb: 1024 ** 4, tib: 1024 ** 4, terabyte: 1024 ** 4, terabytes: 1024 ** 4,
  p: 1024 ** 5, pb: 1024 ** 5, pib: 1024 ** 5,
  hz: 1, hertz: 1, khz: 1e3, kilohertz: 1e3, mhz: 1e6, megahertz: 1e6, ghz: 1e9, gigahertz: 1e9,
  "bit/s": 1, "kbit/s": 1e3, "mbit/s": 1e6, "gbit/s": 1e9, kbps: 1e3, mbps: 1e6, gbps: 1e9,
  mv: 1e-3, v: 1, volts: 1, ma: 1e-3, a: 1, amps: 1, mw: 1e-3, w: 1, kw: 1e3, watts: 1,
};

// Units: milliseconds.
const kDurations: Record<string, number> = {
  us: 1e-3, microsecond: 1e-3, ms: 1, millisecond: 1, s: 1000, sec: 1000, second: 1000,
  min: 60_000, minute: 60_000, h: 3_600_000, hour: 3_600_000, d: 86_400_000, day: 86_400_000,
  week: 604_800_000,
};

const kNumber = /^([+-]?(?:\d[\d,]*)(?:\.\d+)?)\s*([^\d\s,.;:()]\D{0,15})?$/;
const kClock = /^(?:(\d+) days? )?(\d+):(\d\d):(\d\d)(?:\.\d+)?$/;
const kDurationPart = /(\d+(?:\.\d+)?)\s*([a-z]+)/gi;
const kDurationWhole = /^(?:\d+(?:\.\d+)?\s*[a-z]+[\s,]*)+$/i;

function getDurationUnit(unit: string): number | undefined {
  const lower = unit.toLowerCase();
  return kDurations[lower] ?? kDurations[lower.replace(/s$/, "")];
}

function getDuration(text: string): number {
  const clock = kClock.exec(text);
  if (clock)
    return (
      (Number(clock[1] ?? 0) * 86_400 + Number(clock[2]) * 3600 + Number(clock[3]) * 60 + Number(clock[4])) * 1000
    );
  if (!kDurationWhole.test(text)) return NaN;
  let sum = 0;
  for (const part of text.matchAll(kDurationPart)) {
    const unit = getDurationUnit(part[2]!);
    if (unit === undefined) return NaN;
    sum += Number(part[1]) * unit;
  }
  return sum;
}

const kZero = 48;

function isDigit(code: number): boolean {
  return code >= 48 && code <= 57;
}

/** The digits of a text from begin on, up to end. Missing: -1 where one of them is none. */
function readDigits(text: string, begin: number, end: number): number {
  if (end > text.length) return -1;
  let value = 0;
  for (let i = begin; i < end; ++i) {
    const code = text.charCodeAt(i);
    if (!isDigit(code)) return -1;
    value = value * 10 + code - 48;
  }
  return value;
}

/** "2026-11-21", also with a time behind it. Units: seconds of an even calendar. Missing: NaN. */
function getTime(text: string): number {
  const [year, month, day] = [readDigits(text, 0, 4), readDigits(text, 5, 7), readDigits(text, 8, 10)];
  if (year < 0 || month < 0 || day < 0 || text[4] !== "-" || text[7] !== "-") return NaN;
  const date = ((year * 13 + month) * 32 + day) * 86_400;
  const [hour, minute, second] = [readDigits(text, 11, 13), readDigits(text, 14, 16), readDigits(text, 17, 19)];
  if (hour < 0 || minute < 0) return date;
  const fraction = text[19] === "." ? Number.parseFloat(text.slice(19)) || 0 : 0;
  return date + hour * 3600 + minute * 60 + Math.max(0, second) + fraction;
}

/** How much a text says. Missing: NaN where it is no number, size, duration or date. */
export function getMagnitude(text: string): number {
  const first = text.charCodeAt(0);
  if (!isDigit(first) && first !== 43 && first !== 45) return NaN;
  const whole = text.length < 16 ? readDigits(text, 0, text.length) : -1;
  if (whole >= 0) return whole;
  const time = text[4] === "-" ? getTime(text) : NaN;
  if (!Number.isNaN(time)) return time;
  const number = kNumber.exec(text);
  if (number) {
    const value = Number(number[1]!.replaceAll(",", ""));
    const unit = (number[2] ?? "").trim();
    return value * (getDurationUnit(unit) ?? kFactors[unit.toLowerCase()] ?? 1);
  }
  return getDuration(text);
}

/** Ranks of characters, from the collation of the pages' language; equal where only case or accent differ. */
function makeRanks(seen: Uint8Array): Uint16Array {
  const characters: string[] = [];
  seen.forEach((isSeen, code) => isSeen && characters.push(String.fromCharCode(code)));
  const collator = new Intl.Collator("en", { sensitivity: "base" });
  characters.sort(collator.compare);
  const ranks = new Uint16Array(seen.length);
  let rank = 1;
  characters.forEach((character, i) => {
    if (i > 0 && collator.compare(characters[i - 1]!, character) !== 0) ++rank;
    ranks[character.charCodeAt(0)] = rank;
  });
  return ranks;
}

/** Texts of which the first characters differ need no more of them. Units: characters. */
const kUsualLength = 48;
const kLongestNumber = 40;

/** Texts as runs of numbers that compare one by one as Intl.Collator with numeric compares the texts, which
    itself takes ten times as long: 100,000 texts need 1.7 million comparisons. A run of digits is its first rank,
    its length without leading zeros, and its digits. */
class NaturalKeys {
  private readonly units: Uint16Array;
  private readonly ends: Uint32Array;
  /** The first units of each text as one number, which decides most comparisons. */
  private readonly heads: Float64Array;
  private readonly headLength: number;
  private whole: NaturalKeys | null = null;

  /** limit: texts are read up to there, and whole where that does not tell them apart. */
  constructor(
    private readonly texts: string[],
    private readonly limit: number,
  ) {
    const seen = new Uint8Array(0x10000);
    let length = 0;
    for (const text of texts) {
      const end = Math.min(text.length, limit);
      let wasDigit = false;
      for (let i = 0; i < end; ++i) {
        const code = text.charCodeAt(i);
        seen[code] = 1;
        const digit = isDigit(code);
        length += digit && !wasDigit ? 3 : 1;
        wasDigit = digit;
      }
      if (wasDigit && text.length > limit) length += kLongestNumber;
    }
    seen[kZero] = 1;
    const ranks = makeRanks(seen);
    this.units = new Uint16Array(length);
    this.ends = new Uint32Array(texts.length);
    let at = 0;
    for (let row = 0; row < texts.length; ++row) {
      at = this.append(texts[row]!, at, ranks);
      this.ends[row] = at;
    }
    let base = 0;
    for (let i = 0; i < at; ++i) base = Math.max(base, this.units[i]! + 1);
    this.headLength = Math.floor(Math.log(Number.MAX_SAFE_INTEGER) / Math.log(base));
    this.heads = new Float64Array(texts.length);
    for (let row = 0; row < texts.length; ++row) this.heads[row] = this.makeHead(row, base);
  }

  private getBegin(row: number): number {
    return row === 0 ? 0 : this.ends[row - 1]!;
  }

  private append(text: string, begin: number, ranks: Uint16Array): number {
    const { units } = this;
    const end = Math.min(text.length, this.limit);
    let at = begin;
    for (let i = 0; i < end; ) {
      const code = text.charCodeAt(i);
      if (!isDigit(code)) {
        units[at++] = ranks[code]!;
        ++i;
        continue;
      }
      while (text.charCodeAt(i) === kZero && isDigit(text.charCodeAt(i + 1))) ++i;
      units[at] = ranks[kZero]!;
      const lengthAt = at + 1;
      at += 2;
      // A number that the limit cuts counts whole, up to a length that no number of a report has.
      const stop = Math.min(text.length, Math.max(end, i + kLongestNumber));
      for (; i < stop && isDigit(text.charCodeAt(i)); ++i) units[at++] = text.charCodeAt(i) - kZero + 1;
      units[lengthAt] = at - lengthAt;
    }
    return at;
  }

  private makeHead(row: number, base: number): number {
    const begin = this.getBegin(row);
    const end = this.ends[row]!;
    let head = 0;
    for (let i = begin; i < begin + this.headLength; ++i) head = head * base + (i < end ? this.units[i]! : 0);
    return head;
  }

  compare(a: number, b: number): number {
    const byHead = this.heads[a]! - this.heads[b]!;
    if (byHead !== 0) return byHead;
    const { units, ends } = this;
    let i = this.getBegin(a) + this.headLength;
    let j = this.getBegin(b) + this.headLength;
    const endA = ends[a]!;
    const endB = ends[b]!;
    while (i < endA && j < endB) {
      const difference = units[i++]! - units[j++]!;
      if (difference !== 0) return difference;
    }
    const byLength = Math.max(0, endA - i) - Math.max(0, endB - j);
    if (byLength !== 0 || !this.isCut(a) || !this.isCut(b)) return byLength;
    this.whole ??= new NaturalKeys(this.texts, Infinity);
    return this.whole.compare(a, b);
  }

  private isCut(row: number): boolean {
    return this.texts[row]!.length > this.limit;
  }
}

const kSampleSize = 400;

/** Whether most texts are numbers, judged by some of them over the whole column. */
function isOfMagnitudes(texts: string[]): boolean {
  const step = Math.max(1, Math.floor(texts.length / kSampleSize));
  let filled = 0;
  let numbers = 0;
  for (let i = 0; i < texts.length; i += step) {
    if (!texts[i]) continue;
    ++filled;
    if (!Number.isNaN(getMagnitude(texts[i]!))) ++numbers;
  }
  return numbers * 2 > filled;
}

/** The row indices in the order of the texts; rows with equal texts stay as they are. */
export function sortRows(texts: string[], isDescending: boolean): Uint32Array {
  const filled: number[] = [];
  const empty: number[] = [];
  texts.forEach((text, row) => (text === "" ? empty : filled).push(row));
  const sign = isDescending ? -1 : 1;
  const order = Uint32Array.from(filled);
  if (isOfMagnitudes(texts)) {
    const magnitudes = Float64Array.from(texts, getMagnitude);
    const words = order.filter((row) => Number.isNaN(magnitudes[row]!));
    const numbers = order.filter((row) => !Number.isNaN(magnitudes[row]!));
    numbers.sort((a, b) => sign * (magnitudes[a]! - magnitudes[b]!));
    sortNatural(words, texts, sign);
    return join(numbers, words, empty);
  }
  sortNatural(order, texts, sign);
  return join(order, empty);
}

function sortNatural(order: Uint32Array, texts: string[], sign: number): void {
  if (order.length < 2) return;
  const keys = new NaturalKeys(texts, kUsualLength);
  order.sort((a, b) => sign * keys.compare(a, b));
}

function join(...parts: ArrayLike<number>[]): Uint32Array {
  const all = new Uint32Array(parts.reduce((sum, part) => sum + part.length, 0));
  let at = 0;
  for (const part of parts) {
    all.set(part, at);
    at += part.length;
  }
  return all;
}
