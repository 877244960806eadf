// Rows as comma-separated values, RFC 4180.

const kNeedsQuotes = /[",\r\n]/;
/** Spreadsheets would take these for a formula; a number with a sign is none. */
const kFormula = /^(?:[=@\t]|[+-](?![\d.,]+\s*\S*$))/;

function toField(text: string): string {
  const safe = kFormula.test(text) ? `'${text}` : text;
  return kNeedsQuotes.test(safe) ? `"${safe.replaceAll('"', '""')}"` : safe;
}

/** A text that a spreadsheet would run as a formula gets an apostrophe in front. */
export function toCsv(rows: string[][]): string {
  return rows.map((row) => row.map(toField).join(",") + "\r\n").join("");
}
