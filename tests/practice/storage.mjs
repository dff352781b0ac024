// Fields of storage, texts of the journal, and the error table. Texts are strings of one character for each byte.

export const cut = (s) => s.replace(/ +$/, "");
export const fit = (s, n) => s.slice(0, n).padEnd(n);
export const before = (s, mark) => s.split(mark)[0];
export const behind = (s, mark) => (s.includes(mark) ? s.slice(s.indexOf(mark) + mark.length) : "");

export class Dump extends Error {}

// C, N and D keep their text, I a number.
export function newCell(type, length, text = "") {
  const cell = { type, text: type === "I" ? 0 : (type === "C" ? " " : "0").repeat(length) };
  if (text !== "") move(constant(text), cell);
  return cell;
}
export const constant = (text) => ({ type: "C", text: text || " ", fixed: true });
export const isInitial = (cell) => (cell.type === "C" ? cut(cell.text) === "" : Number(cell.text) === 0);
export const shown = (cell) => (cell.type === "I" ? cell.text : cut(cell.text));

export function move(from, to) {
  const text = from.type === "I" && to.type !== "I" ? `${from.text} `.padStart(to.text.length) : from.text;
  if (to.fixed) throw new Dump("MOVE_TO_LIT_NOTALLOWED");
  if (to.type === "I") to.text = Number(text);
  else if (to.type === "N") to.text = text.replace(/\D/g, "").slice(-to.text.length).padStart(to.text.length, "0");
  else to.text = fit(text, to.text.length);
}

export function clear(cell) {
  cell.text = newCell(cell.type, cell.text.length).text;
}

// Whether a field equals a literal: with digits or a number, a literal that is no number ends the report.
export function equals(cell, literal) {
  if (cell.type === "C" || cell.type === "D") return cut(cell.text) === cut(literal);
  if (!/^[\d ]*$/.test(literal)) throw new Dump("CONVT_NO_NUMBER");
  return Number(cell.text) === Number(literal);
}

const BEYOND = "\u20ac\x81\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\x8d\u017d\x8f\x90\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\x9d\u017e\u0178";
export const toUnicode = (bytes) => bytes.replace(/[\x80-\x9f]/g, (c) => BEYOND[c.charCodeAt(0) - 128]);

export function toJson(value) {
  if (typeof value === "number") return String(value);
  const escape = (c) => (c < " " ? `\\u00${c.charCodeAt(0).toString(16).padStart(2, "0")}` : "\\" + c);
  if (typeof value === "string") return `"${toUnicode(value).replace(/["\\\x00-\x1f]/g, escape)}"`;
  if (Array.isArray(value)) return `[${value.map(toJson).join(",")}]`;
  return `{${Object.entries(value).map(([key, v]) => `"${key}":${toJson(v)}`).join(",")}}`;
}

export const linesOf = (text) => (text === "" ? [] : text.replace(/\r\n?/g, "\n").replace(/\n$/, "").split("\n"));

export function readCsv(text) {
  const cells = (line) => [...`,${line}`.matchAll(/,(?:"((?:[^"]|"")*)"|([^,]*))/g)].map((m) => (m[1] ?? m[2]).replaceAll('""', '"'));
  const [head, ...rows] = linesOf(text).map(cells);
  return rows.map((row) => Object.fromEntries(head.map((name, i) => [name, row[i]])));
}

// The declarations of a document: its variables by name, and its parameters in their order.
export function declare(text, globals, parameters) {
  const code = text.replace(/^\*.*$|"[^"\r\n]*$/gm, "").replace(/\s+/g, " ");
  let record;
  for (const [, verb, body] of code.matchAll(/(PARAMETERS|DATA):? ([^.]*)\./g))
    for (const part of body.split(",").map((s) => s.trim())) {
      const [, edge, name, length, rest] = /^(?:(BEGIN|END) OF )?(\w+)(?:\((\d+)\))?(.*)/.exec(part);
      if (edge) {
        record = edge === "END" ? undefined : { fields: {}, rows: [] };
        if (record) globals.set(name, record);
        continue;
      }
      const type = /TYPE (\w)/.exec(rest)?.[1] ?? (rest.includes("SY-DATUM") ? "D" : "C");
      const lower = verb === "DATA" || rest.includes("LOWER CASE");
      const [, quoted, plain] = /(?:VALUE|DEFAULT) (?:'([^']*)'|(\S+))/.exec(rest) ?? [];
      const start = quoted ?? plain ?? "";
      const cell = newCell(type, type === "D" ? 8 : Number(length ?? 1), lower ? start : start.toUpperCase());
      if (record) record.fields[name] = cell;
      else globals.set(name, cell);
      if (verb === "PARAMETERS") parameters.push({ name, cell, lower });
    }
}

// The rows of the error table, and those that a ROLLBACK WORK brings back.
export class ErrorTable {
  rows = [];
  #kept = [];
  commit = () => (this.#kept = this.rows.map((row) => ({ ...row })));
  rollback = () => (this.rows = this.#kept.map((row) => ({ ...row })));
  key = (row) => row.PROGID + row.BATCH + row.OPERATION + row.SEQUENCE;
  ordered = (rows) => rows.sort((a, b) => (this.key(a) < this.key(b) ? -1 : 1));
  csv() {
    const quoted = (s) => (/[",\r\n]/.test(s) ? `"${s.replaceAll('"', '""')}"` : s);
    const names = ["MANDT", "PROGID", "BATCH", "OPERATION", "SEQUENCE", "PROCESSED", "USERNAME", "ID", "LENGTH", "LINE"];
    const rows = this.ordered([...this.rows]).map((row) => names.map((n) => quoted(toUnicode(String(row[n])))));
    return [names, ...rows].map((r) => r.join(",") + "\n").join("");
  }
}
