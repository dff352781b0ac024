// What the query reports have to answer, read from their texts in the data directory, and what the programs make of the answers. It
// knows of the practice system only which contents it was given. Texts are strings of one character for each byte.

import { cut, fit } from "./storage.mjs";

const END = "END OF LIST";
const PIECE = 62;
const ROWS = 1001; // of the program side
const order = (a, b) => (a < b ? -1 : a > b ? 1 : 0);
const by = (...keys) => (a, b) => keys.reduce((found, key) => found || order(key(a), key(b)), 0);
const two = (n) => String(n).padStart(2, "0");
const digits = (text, n) => text.replace(/\D/g, "").slice(-n).padStart(n, "0");

// Letters of the code page.
export const toUpper = (text) => text.replace(/[a-z\x9a\x9c\x9e\xe0-\xf6\xf8-\xfe]/g, (c) => String.fromCharCode(c.charCodeAt(0) - (c > "\x7f" && c < "\xa0" ? 16 : 32))).replaceAll("\xff", "\x9f");
export const trim = (text) => text.replace(/^ +| +$/g, "");

export function momentOf(epoch) {
  const t = new Date(epoch * 1000);
  return { date: `${t.getUTCFullYear()}${two(t.getUTCMonth() + 1)}${two(t.getUTCDate())}`, time: two(t.getUTCHours()) + two(t.getUTCMinutes()) + two(t.getUTCSeconds()) };
}

// ---- The templates ----

export const systemList = (role) => [role, "PRA", "46C"];

// LIKE: letters are compared as they are.
export function isLike(text, pattern) {
  const expression = pattern.replace(/[.*+?^${}()|[\]\\]/g, "\\$&").replaceAll("%", ".*").replaceAll("_", ".");
  return new RegExp(`^${expression}$`, "s").test(cut(text));
}

const sqlPattern = (pattern) => pattern.replaceAll("*", "%").replaceAll("+", "_");
const literal = (text) => text.replaceAll("'", "''");

export function programConditions(user, byCreator, name) {
  const first = user === "" ? [] : [`${byCreator ? "CNAM" : "UNAM"} LIKE '${literal(sqlPattern(user))}' AND`];
  return [...first, name === "" ? "( NAME LIKE 'Y%' OR NAME LIKE 'Z%' ) AND" : `NAME LIKE '${literal(sqlPattern(name))}' AND`];
}

export function programList(programs, user, name) {
  const fits = (p) => (user === "" || isLike("PRACTICE", sqlPattern(user))) && (name === "" ? /^[YZ]/.test(p.name) : isLike(p.name, sqlPattern(name)));
  const day = ({ date }) => `${date.slice(6)}.${date.slice(4, 6)}.${date.slice(0, 4)}`;
  return [...programs.filter(fits).sort(by((p) => p.name)).map((p) => `${fit(p.name, 40)} ${fit("PRACTICE", 12)} ${day(p)}`), END];
}

export function queueList(entries) {
  const sorted = [...entries].sort(by((e) => e.group, (e) => e.date + e.time, (e) => e.qid));
  return [...sorted.map((e) => fit(e.group, 12) + e.qid + fit("PRACTICE", 12) + e.date + e.time + "000"), END];
}

// The records of an entry: program, dynpro, kind, field, value.
export const recordsOf = (entry) => [
  ["", "0000", "M", entry.group, ""],
  ...entry.transactions.flatMap(({ code, rows }) => [["", "0000", "T", code, ""], ...rows.map((r) => (r.program ? [r.program, digits(r.dynpro, 4), "X", "", ""] : ["", "0000", " ", r.field, r.value]))]),
].map(([program, dynpro, kind, field, value]) => fit(program, 40) + dynpro + kind + fit(field, 132) + fit(value, 132));

export const entryList = (entry) => (entry ? recordsOf(entry).flatMap((record) => [1, 2, 3, 4, 5].map((n) => cut(`${n} ${record.slice((n - 1) * PIECE, n * PIECE)}`))) : []);

// Only names with BAPI in front count, in any case of their letters.
export function bapiList(catalogue) {
  const found = catalogue.modules.filter((m) => /^BAPI/i.test(m.name)).sort(by((m) => m.object, (m) => m.name));
  const lines = found.flatMap((m, i) => (found[i - 1]?.object === m.object ? [] : [`1 ${m.object}`]).concat(found[i - 1]?.object === m.object && found[i - 1].name === m.name ? [] : [`2 ${m.name}`]));
  return ["0 46C", ...lines, END];
}

// One that stands there twice is what it is at first.
export function bapiRecords(catalogue, name) {
  const m = catalogue.modules.find((one) => one.name === name);
  if (!m) return [END];
  const fieldsOf = (type) => (type.includes("-") ? [] : (catalogue.structures.get(type) ?? []).filter((field) => field[0] !== "."));
  const sorted = [...m.parameters].sort(by((p) => ["I", "E"].indexOf(p.kind) + (["I", "E"].includes(p.kind) ? 0 : 3)));
  const lines = [...m.docs.map((line) => `3 ${line}`), ...sorted.flatMap((p) => [`4 ${p.name}:${p.optional && "X"}:${p.kind}:${p.type}`, ...fieldsOf(p.type).map((field) => `5 ${field}`)])];
  return [...lines.map(cut), END];
}

// ---- The dictionary, and the report of widths ----

// A definition file: of each name whether all of its fields are told, and their lengths.
export function readDictionary(text) {
  const lengths = { CLNT: 3, LANG: 1, CUKY: 5, UNIT: 3, ACCP: 6, DATS: 8, TIMS: 6, INT1: 3, INT2: 5, INT4: 10, FLTP: 16 };
  const entries = new Map();
  let fields;
  for (const line of text.split(/\r?\n/).filter((one) => one.trim() && one[0] !== "*")) {
    const [name, type, length] = line.toUpperCase().trim().split(/\s+/);
    if (["STRUCTURE", "TABLE", "FIELDS"].includes(name) && line[0] !== " ") entries.set(type, { whole: name !== "FIELDS", fields: (fields = new Map()) });
    else if (name !== "ELEMENT") fields.set(name, lengths[type] ?? Number(length));
  }
  return entries;
}

// The length of a field, 0 where none is known. The report of widths asks for fields that are not active too, so it does not matter
// which of them the catalogue has.
export function lengthOf({ tables, entries, widths }, structure, field) {
  const [table, entry] = [tables.get(structure), entries.get(structure)];
  if (table) return table.get(field) ?? 0;
  return entry?.fields.get(field) ?? (entry?.whole ? 0 : widths.get(structure)?.get(field) ?? 0);
}

export const widthList = (world, asked) => asked.map(([structure, field]) => String(lengthOf(world, structure, field)).padStart(6, "0"));

// The rows that the program side asks for: structure, field, and the cell of the value.
export function askedWidths(rows, variables) {
  let bapi = false;
  return rows.flatMap(([head, , field, value]) => {
    if (head === "BAPI" || head === "TRANS") bapi = head === "BAPI";
    const [, front, , behind] = /^([^-]*)(-(.*))?$/.exec(field);
    if (field === "" || (!bapi && behind === undefined)) return [];
    const type = bapi ? (variables.get(front) ?? "") : front;
    const [structure, name] = bapi && behind === undefined ? type.split("-") : [type, behind];
    return [[structure, name.slice(0, 30).split("(")[0], value.slice(0, 30)]];
  });
}

// The widths of the file side behind the look-up. A width that stands there stays.
export function filledWidths(world, fields, rows, variables) {
  const filled = fields.map((f) => ({ ...f }));
  for (const [structure, name, value] of askedWidths(rows, variables)) {
    const length = lengthOf(world, structure, name);
    for (const f of filled) if (length > 0 && f.name === trim(value) && f.width === "") f.width = String(length);
  }
  return filled;
}

// ---- The rows of an import ----

export function importedRows(entry, before = []) {
  const rows = [...before];
  for (const line of recordsOf(entry).map(toUpper)) {
    if (rows.length === ROWS) break;
    const [field, kind] = [trim(line.slice(45, 177)), line[44]];
    const subscreen = trim(line.slice(45, 55)) === "BDC_SUBSCR";
    const value = subscreen ? `${trim(line.slice(177, 217))} ${trim(line.slice(217))}` : trim(line.slice(177));
    if (kind === "T") rows.push(["TRANS", field, "", "", ""]);
    if (kind === "X") rows.push([trim(line.slice(0, 40)), line.slice(40, 44), "", "", ""]);
    if (kind === " ") rows.push(["", "", field, `'${value}'`, ""]);
  }
  return rows;
}
