// Random contents of a practice system, the same ones for the same seed: what its files hold, and beside them what they mean. Texts
// are strings of one character for each byte.

import { makeRandom } from "./random.mjs";
import { fit } from "./storage.mjs";

const [LONG_NAME, LONG_FIELD] = ["A234567890B234567890C234567890", "Z_LONG_NAME_OF_THIRTY_CHARACTR"];
const STRUCTURES = ["MARA", "BAPIRET1", "VBAK", "ZSTRU_A", "/NS/BAPI_HEAD", "BAPISDHD1", LONG_NAME];
const FIELDS = ["MATNR", "TYPE", "MESSAGE", "MTART", LONG_FIELD, "ROW", "F1", "F2", "MEINS", "/NS/X"];
const LETTERS = " abc XYZ,.:;-+*%_#@\"&<>/()=09\x80\x8a\x9a\x9f\xa0\xc4\xdf\xe9\xf7\xff";
const GROUPS = ["LOAD", "Load 2", "ORDERS_12345", "\xc4NDERN", "A", "M&M"];
const TYPES = { CHAR: 0, NUMC: 0, RAW: 0, DEC: 0, CURR: 0, QUAN: 0, CLNT: 3, LANG: 1, CUKY: 5, UNIT: 3, ACCP: 6, DATS: 8, TIMS: 6, INT1: 3, INT2: 5, INT4: 10, FLTP: 16 };

// A file of a catalogue, and its function modules in the order of the file.
function makeCatalogue({ from, pick, chance, some, text, mixed, upTo }) {
  const structures = Object.fromEntries(STRUCTURES.map((name) => [name, mixed([...FIELDS, ".INCLUDE"]).slice(0, from(0, 6))]));
  const name = (start, n) => start + text(chance(0.3) ? n - start.length : from(1, n - start.length), "ABCXYZ019_");
  const type = () => (chance(0.6) ? pick(STRUCTURES) : chance(0.3) ? `${LONG_NAME}-${LONG_FIELD}` : `${pick(STRUCTURES)}-${pick(FIELDS)}`);
  const documentation = () => some(pick([0, 1, 1, 2, 5]), () => text(pick([0, 1, 20, 72, 73, 74, 75, 100, 131, 132])));
  const parameters = () =>
    some(upTo(6), (i) => ({ name: i ? name(`P${i}`, pick([4, 30])) : "RETURN", optional: pick(["", "", "X", "yes"]), kind: pick("IET"), type: type() }));
  const module = () => ({ name: name(pick(["BAPI", "BAPI_", "BAPI_X", "Bapi", chance(0.1) ? "Z_" : "BAPI_"]), pick([8, 30])), docs: documentation(), parameters: parameters() });
  const modules = [...new Map(some(from(1, 8), module).map((m) => [m.name, m])).values()];
  const objects = some(from(1, 5), () => pick(["Material", "SALES order", `X${text(from(0, 38))}x`, "\xc4rger", "a"]));
  const placed = [...modules, ...(chance(0.2) ? [{ ...(chance(0.5) ? module() : modules[0]), name: modules[0].name }] : [])].map((m) => ({ object: pick(objects), ...m }));
  const padded = (part) => (chance(0.1) ? ` ${part} ` : part);
  const lines = ["BAPIDEFS", `0 ${pick(["46C", "46C", "31I"])}`];
  for (const object of mixed(objects)) {
    lines.push(`1 ${padded(object)}`);
    for (const m of placed.filter((one) => one.object === object && !one.put)) {
      m.put = lines.length;
      lines.push(`2 ${padded(m.name)}`, ...m.docs.map((line) => `3 ${line}`), ...(chance(0.1) ? ["", "9 of a later release"] : []));
      for (const p of m.parameters) {
        lines.push(`4 ${[p.name, p.optional, p.kind, p.type].map(padded).join(":")}`);
        if (structures[p.type]) lines.push(...structures[p.type].map((field) => `5 ${padded(field)}`));
      }
    }
  }
  placed.sort((a, b) => a.put - b.put);
  const told = new Map(placed.flatMap((m) => m.parameters.filter((p) => structures[p.type]).map((p) => [p.type, structures[p.type]])));
  return { text: lines.join(pick(["\r\n", "\n"])) + "\r\n", modules: placed.map((m) => ({ ...m, object: m.object })), structures: told };
}

function makeDictionary({ pick, chance, some, from, mixed }) {
  let text = "* Of one's own\r\n";
  const entries = new Map();
  for (const name of mixed([...STRUCTURES, "ZOWN"]).slice(0, from(0, 4))) {
    const kind = pick(["STRUCTURE", "TABLE", "FIELDS"]);
    const fields = new Map(mixed(FIELDS).slice(0, from(1, 5)).map((field) => {
      const type = pick(Object.keys(TYPES));
      const length = TYPES[type] || from(1, type === "CHAR" ? 300 : 31);
      text += (entries.has(name) ? "" : `${chance(0.2) ? kind.toLowerCase() : kind} ${name}\r\n`) + `  ${field}  ${type} ${TYPES[type] ? "" : length}${chance(0.2) ? " KEY" : ""}\r\n`;
      entries.set(name, true);
      return [field, length];
    }));
    entries.set(name, { whole: kind !== "FIELDS", fields });
  }
  return { text, entries };
}

function makeWidths({ pick, some, chance }) {
  const widths = new Map();
  const lines = some(8, () => {
    const [table, field, length] = [pick(STRUCTURES), pick(FIELDS), pick(["18", "000004", "     7", "0", "", "065000"])];
    if (Number(length) > 0) widths.set(table, (widths.get(table) ?? new Map()).set(field, Number(length)));
    return fit(chance(0.2) ? table.toLowerCase() : table, 30) + fit(field, 30) + fit("OF_THE_FILE", 30) + length;
  });
  return { text: lines.map((line) => `${line}\r\n`).join(""), widths };
}

function makeTable({ pick, some, from, text, mixed }) {
  const columns = mixed(FIELDS).slice(0, from(1, 4));
  const rows = some(from(0, 3), () => columns.map(() => text(from(0, 12), "ab \xe9")));
  const csv = [columns, ...rows].map((row) => row.map((value) => `"${value}"`).join(",") + "\r\n").join("");
  return { name: pick(["MARA", "VBAK", "ZLOADED"]), csv, columns: new Map(columns.map((c, i) => [c, Math.max(1, ...rows.map((row) => row[i].length))])) };
}

// Transactions with their rows: those of a screen have a program and a dynpro, those of a field a name and a value.
function makeTransactions({ from, pick, chance, some, text, upTo }, value) {
  const field = () => {
    if (chance(0.15)) return { field: pick(["BDC_SUBSCR", "BDC_SUBSCR", "BDC_SUBSCR2"]), value: fit(`SAPL${text(from(0, 36), "ABC_1")}`, 40) + pick(["", "2004AREA", "0100"]) };
    return { field: pick(["BDC_OKCODE", "MARA-MATNR", "ROW(01)", `X-${text(130, "AB_1")}`]), value: value() };
  };
  return some(from(1, 3), () => ({
    code: pick(["MM01", "ZT", `Z${text(19, "AB1")}`]),
    rows: [0, ...some(from(0, 2), (i) => i)].flatMap(() => [{ program: pick(["SAPLMGMM", `Z${text(39, "AB_")}`]), dynpro: pick(["0100", "4004", "60"]) }, ...some(upTo(5), field)]),
  }));
}

const recordLine = ([program, dynpro, kind, field, value]) => (fit(program, 40) + fit(dynpro, 4) + kind + fit(field, 132) + fit(value, 132)).replace(/ +$/, "");
const sessionLines = (group, transactions, { chance }) =>
  [["", "0000", "M", group, ""], ...transactions.flatMap(({ code, rows }) => [["", "0000", "T", code, ""],
    ...rows.map((r) => (r.program ? [r.program, r.dynpro, "X", "", ""] : ["", chance(0.9) ? "0000" : "", " ", r.field, r.value]))])].map(recordLine).map((line) => `${line}\r\n`).join("");

// The program that a system makes of a recording. A subscreen stands there in two parts, any other value in one.
function recordingLines(transactions, { pick, chance }) {
  const line = (verb, ...texts) => `${pick(["perform", "PERFORM"])} ${verb}      using ${texts.map((t) => `'${t}'`).join(" ")}.\r\n`;
  const cut = (row) => (row.field.startsWith("BDC_SUBSCR") ? [row.value.slice(0, 41), row.value.slice(41)] : [row.value]);
  const field = (row) => line("bdc_field", row.field).replace(".\r", "\r") + cut(row).map((part, i) => `${i ? "          & " : "            "}'${part}'${pick(["", "."])}\r\n`).join("");
  const of = ({ code, rows }) => rows.map((r) => (r.program ? line("bdc_dynpro", r.program, r.dynpro) : field(r))).join("") + line("bdc_transaction", code);
  return "report ZREC.\r\ninclude bdcrecx1.\r\n" + transactions.map((t) => (chance(0.3) ? "* Recorded\r\n\r\n" : "") + of(t)).join("");
}

// A program that writes texts, in lines of given lengths; what stands behind column 72 is lost on its way into the system.
function makeProgram({ from, pick, chance, some, text }) {
  const list = [];
  const lines = some(from(1, 8), () => {
    const length = pick([20, 36, 37, 60, 61, 62, 71, 72, 73, 90]);
    if (chance(0.2)) return pick(["", "   ", `*${text(length, LETTERS + "'")}`, `  " ${text(length, LETTERS + "'")}`]);
    let content = "";
    while (content.replaceAll("'", "''").length < Math.min(length, 72) - 15) content += chance(0.2) ? "'" : pick(LETTERS);
    list.push(`${content}.`);
    const statement = `${" ".repeat(from(0, 1))}WRITE: / '${content.replaceAll("'", "''")}.'.`;
    return length > 72 ? statement.padEnd(72) + text(length - 72, "'XY. ") : statement.padEnd(length);
  });
  return { text: ["REPORT ZANY.", ...lines].map((line) => `${line}\r\n`).join(""), list, cut: lines.some((line) => line.length > 72) };
}

export function makeContents(seed) {
  const random = makeRandom(seed, LETTERS);
  const { from, pick, chance, some, text } = random;
  const value = () => pick(["", "/00", "'", "it's", `  ${text(9)}`, text(from(1, 40)), text(132), `${text(60)}  x `, text(5)]);
  // A value of a recording's text ends at the apostrophe in it.
  const plain = () => value().replaceAll("'", "");
  const moment = () => 1100000000 + pick([0, 0, 1, 3600, 86400 * 40]);
  const sessions = some(from(1, 3), () => ({ group: pick(GROUPS), epoch: moment(), transactions: makeTransactions(random, value) }));
  if (chance(0.03)) sessions[0].transactions[0].rows.push(...some(1100, () => ({ field: "MANY", value: "v" })));
  const recordings = some(from(1, 4), () => ({ file: pick(["rec.txt", "load.txt", "load.log", "a much longer name.v1.txt"]), epoch: moment(), text: chance(0.5), transactions: makeTransactions(random, plain) }));
  for (const s of sessions) s.content = sessionLines(s.group, s.transactions, random);
  for (const r of recordings) r.content = r.text ? recordingLines(r.transactions, random) : sessionLines("OTHER", r.transactions, random);
  const name = () => pick("YZ") + text(pick([1, 1, 10, 39]), "AB_9");
  const programs = some(from(1, 4), () => ({ name: name(), epoch: moment(), yes: chance(0.6), composed: chance(0.3), ...makeProgram(random) }));
  if (programs.length > 1 && chance(0.5)) programs[1].name = programs[0].name.replace(/.$/, () => pick("AB_"));
  return {
    random, sessions, recordings, programs, catalogue: makeCatalogue(random), dictionary: makeDictionary(random), beside: makeDictionary(random), widths: makeWidths(random), tables: some(from(0, 1), () => makeTable(random)),
    role: pick(["T", "C", "s", "P", "none"]), byOption: chance(0.15), structures: STRUCTURES, fields: FIELDS,
  };
}
