// The order of a column: numbers, sizes and durations by magnitude, dates by time, all else in the
// natural order of texts. What is empty comes last.

import type { ColumnTexts } from "./column";
import { type KeySource, sortByKeys } from "./keyorder";
import { isDigit, NaturalKeys } from "./naturalorder";

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

const kSampleSize = 400;

/** Whether most texts are numbers, judged by some of them over the whole column. */
function isOfMagnitudes(column: ColumnTexts): boolean {
  const step = Math.max(1, Math.floor(column.length / kSampleSize));
  let filled = 0;
  let numbers = 0;
  for (let row = 0; row < column.length; row += step) {
    if (column.isEmpty(row)) continue;
    ++filled;
    if (!Number.isNaN(getMagnitude(column.getText(row)))) ++numbers;
  }
  return numbers * 2 > filled;
}

const kKeys = 2 ** 32;

/** How far whole numbers are from the least of them; where that is too far, or they are not whole, the upper half of
    a number's bits, then the lower one. */
class MagnitudeKeys implements KeySource {
  private readonly magnitudes: Float64Array;
  private readonly halves: Uint32Array;
  /** By row: whether its first key was read. */
  private readonly isBegun: Uint8Array;
  private readonly least: number;
  private readonly areClose: boolean;

  constructor(column: ColumnTexts) {
    this.magnitudes = new Float64Array(column.length);
    this.isBegun = new Uint8Array(column.length);
    let least = Infinity;
    let most = -Infinity;
    let areWhole = true;
    for (let row = 0; row < column.length; ++row) {
      // No number is below zero by its sign alone.
      const magnitude = getMagnitude(column.getText(row)) + 0;
      this.magnitudes[row] = magnitude;
      if (Number.isNaN(magnitude)) continue;
      least = Math.min(least, magnitude);
      most = Math.max(most, magnitude);
      areWhole &&= Number.isInteger(magnitude);
    }
    this.halves = new Uint32Array(this.magnitudes.buffer);
    this.least = least;
    this.areClose = areWhole && most - least < kKeys;
  }

  isNumber(row: number): boolean {
    return !Number.isNaN(this.magnitudes[row]!);
  }

  /** Bits of numbers below zero count backwards, and stand before the others. */
  readKey(row: number): number {
    if (this.areClose) return this.magnitudes[row]! - this.least;
    const upper = this.halves[2 * row + 1]!;
    const isNegative = upper >= 0x80000000;
    const half = this.isBegun[row] ? this.halves[2 * row]! : isNegative ? upper : upper ^ 0x80000000;
    this.isBegun[row]! += 1;
    return (isNegative ? ~half : half) >>> 0;
  }

  hasMore(row: number): boolean {
    return !this.areClose && this.isBegun[row] === 1;
  }
}

/** The row indices in the order of the texts; rows with equal texts stay as they are. */
export function sortRows(column: ColumnTexts, isDescending: boolean): Uint32Array {
  const order = new Uint32Array(column.length);
  for (let row = 0; row < order.length; ++row) order[row] = row;
  const filled = order.filter((row) => !column.isEmpty(row));
  const empty = order.filter((row) => column.isEmpty(row));
  if (!isOfMagnitudes(column)) {
    sortByKeys(filled, new NaturalKeys(column), isDescending);
    return join(filled, empty);
  }
  const keys = new MagnitudeKeys(column);
  const numbers = filled.filter((row) => keys.isNumber(row));
  const words = filled.filter((row) => !keys.isNumber(row));
  sortByKeys(numbers, keys, isDescending);
  if (words.length > 1) sortByKeys(words, new NaturalKeys(column), isDescending);
  return join(numbers, words, empty);
}

function join(...parts: Uint32Array[]): Uint32Array {
  const all = new Uint32Array(parts.reduce((sum, part) => sum + part.length, 0));
  let at = 0;
  for (const part of parts) {
    all.set(part, at);
    at += part.length;
  }
  return all;
}
