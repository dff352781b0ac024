// What a document says: its tables, its options, and what follows from them. Texts are strings of one character for each byte.

import { before, behind } from "./storage.mjs";

// The text behind the mark "!n" of a cell of notes, up to the next mark.
function mark(cell, n) {
  const [p, q] = [cell.indexOf(`!${n}`), cell.indexOf(`!${n + 1}`)];
  return p < 0 ? "" : cell.slice(p + 2, q < 0 ? undefined : q);
}
const isHead = (row) => parseInt(mark(row[4], 1), 10) === 1;

// The records of ten values, by their tags.
function readRecords(text) {
  const values = [];
  const value = /[ ]*(?:"((?:[^"]|"")*)"[^,\r\n]*|([^,\r\n]*))(?:,|\r\n|$)/y;
  while (value.lastIndex < text.length) {
    const [, quoted, plain] = value.exec(text);
    values.push(quoted?.replaceAll('""', '"') ?? plain.trim());
  }
  const records = { 1: [], 6: [], 8: [] };
  for (let i = 0; i + 10 <= values.length; i += 10) (records[values[i]] ??= []).push(values.slice(i + 1, i + 10));
  return records;
}

// The name of a session: vowels are dropped from the left until it is short enough.
function compact(text, n) {
  if (text.length <= n) return text.toUpperCase();
  let surplus = text.length - n;
  let i = 0;
  let name = "";
  for (; i < text.length; ++i) {
    const c = text[i].toUpperCase();
    if (!"AEIOU".includes(c)) name += c;
    else if (--surplus < 0) break;
  }
  return (name + text.slice(Math.min(i, text.length - 1))).slice(0, n);
}

export class Specification {
  constructor(text, name, settings = {}) {
    const records = readRecords(text);
    const [r3, r4, r5, r7, r9] = [3, 4, 5, 7, 9].map((tag) => records[tag][0]);
    const end = records[2].findIndex((row) => row[0].trim() === "" && row[2].trim() === "");
    this.rows = records[2].slice(0, end < 0 ? undefined : end);
    this.fields = records[1].map((r) => ({ name: r[0], width: Number(r[1]), code: r[3] }));
    this.conditions = new Map(records[6]);
    this.calls = new Map(records[8]);
    [this.server, this.fixed, this.own] = [r3[1], r3[8], r7[0]].map((value) => value === "#TRUE#");
    [this.fileParameter, this.call, this.safe, this.modeParameter] = [r3[3], r3[4], r7[8], r9[1]].map((value) => value === "1");
    [this.mode, this.source, this.errorTable, this.spaceCode] = [r3[5], r3[7].trim(), r4[8].trim(), r5[8].trim()];
    [this.ownVariables, , this.ownCode, this.variables] = r7.slice(1);
    this.all = r5[7] !== "P";
    this.table = this.server && r3[2] === "1" && !this.own;
    this.ids = r7[6].split(",");
    this.programId = r9[0];

    this.heads = this.rows.filter(isHead).map(([, , , , notes]) => ({
      file: mark(notes, 2), fresh: mark(notes, 3) === "1", first: mark(notes, 5) === "1" ? 1 : 2, perScreen: Number(mark(notes, 6)), keys: mark(notes, 7),
    }));
    this.#numberGroups();
    this.hasTransaction = this.operations.some((o) => !o.bapi);
    this.hasBapi = this.operations.some((o) => o.bapi);
    this.single = r7[5] === "O" && (this.server ? !this.table : this.fixed) && this.group.includes(1) && !this.own;
    this.counted = this.single && this.heads.some((head) => head.keys.trim() === "");
    this.calling = this.call || this.hasBapi;
    this.errors = r7[7] === "1" && this.calling;
    this.session = this.hasTransaction && (!this.calling || this.safe);
    const base = compact(before(name, ".qor").replaceAll(" ", ""), 8);
    this.sessionName = (r5[5] === "M" && r5[6].trim() !== "" ? r5[6] : (this.calling ? "ERR_" : "QOR_") + base).slice(0, 12);

    const conventions = settings["Activate Naming Conventions"] === "Yes";
    // With prefixes, the error table and the groups of one file with keys name variables that are not there.
    this.compiles = !(conventions && (this.errors || (this.single && !this.counted)));
    this.prefix = (kind) => (conventions ? `${kind}_` : "");
    const [ps, file] = [this.prefix("PS"), this.prefix(this.fileParameter ? "PS" : "GS")];
    const own = conventions ? ["NEWB", "OLDB", "BNUM", "MODE"] : ["NEWBATCH", "OLDBATCH", "BATCHNUM", "CALLMODE"];
    const [fresh, old, number, mode] = own.map((one) => ps + one);
    this.names = { fresh, old, number, mode, file: `${file}FILE` };
    const start = this.single && this.fileParameter ? this.source.toLowerCase() : this.source;
    const others = this.single ? [] : this.heads.map((head, n) => ({ name: `${file}${conventions ? "LF" : "SLOOP_"}${n + 1}`, start: head.file.trim() }));
    this.files = this.table || this.own ? [] : [{ name: this.names.file, start }, ...others];
  }

  // Operations, and the number of the step-loop that each row belongs to: 0 is the main record.
  #numberGroups() {
    this.operations = [];
    const kinds = this.rows.map(() => "");
    let [head, okSeen, looping, prefix] = [0, false, false, ""];
    const open = (i, structure) => ([head, okSeen, looping, prefix] = [i, false, false, structure]);
    this.rows.forEach((row, i) => {
      const operation = { bapi: row[0] === "BAPI", code: before(row[1], ";").trim(), condition: behind(row[1], ";"), rows: [] };
      if (row[0] === "TRANS" || row[0] === "BAPI") this.operations.push(operation);
      else this.operations.at(-1).rows.push(i);
      if (row[0] !== "") return void open(i, "");
      const { bapi } = this.operations.at(-1);
      const structure = row[2].includes("-") ? before(row[2], "-") : "";
      if (bapi && structure !== prefix) open(i, structure);
      const isOk = row[2].trim() === "BDC_OKCODE" && !okSeen;
      okSeen ||= isOk;
      looping ||= isHead(row);
      if (row[2].includes("(") || isHead(row) || isOk) kinds[i] = "member";
      kinds[head] = !looping ? "none" : bapi ? "structure" : "screen";
    });
    let [n, active] = [0, false];
    this.group = kinds.map((kind) => {
      if (kind === "screen" || kind === "structure") [n, active] = [n + 1, true];
      if (kind === "none") active = false;
      return kind === "structure" || (kind === "member" && active) ? n : 0;
    });
  }

  // The group that sends a field; 0 for the main record, also where nothing sends it.
  groupOf(field) {
    return this.group[this.rows.findLastIndex((row) => row[3].trim() === field)] ?? 0;
  }

  // 0 a field of no group, 1 of group n, 2 of another one, 3 a key of group n.
  #classOf(field, n) {
    let result = 0;
    this.rows.forEach((row, i) => {
      if (row[3].trim() === field && this.group[i] !== 0) result = this.group[i] === n ? 1 : 2;
      if (this.group[i] === n && mark(row[4], 7).includes(field)) result = 3;
    });
    return result;
  }

  keysOf(n) {
    return this.counted ? ["AUTOCOUNTER"] : this.fields.map((f) => f.name).filter((name) => this.#classOf(name, n) === 3);
  }

  // The fields of the main record (0) or of the record of a group, in the order of the line.
  recordOf(n) {
    const wanted = n === 0 ? [0, 3] : this.table ? [1] : [1, 3];
    const fields = this.fields.filter((f) => wanted.includes(this.#classOf(f.name, n || 1)));
    if (fields.length === 0 && n === 0) fields.push({ name: "DUMMY", width: 1 });
    return this.counted ? [{ name: "AUTOCOUNTER", width: 10, type: "N" }, ...fields] : fields;
  }

  // The width that a line of any record needs.
  get lineWidth() {
    const fieldsOf = (k) => this.fields.filter((f) => this.groupOf(f.name) === k || this.#classOf(f.name, k) === 3);
    return Math.max(...[0, ...this.heads].map((_, k) => fieldsOf(k).reduce((sum, f) => sum + f.width, 0)));
  }

  // The screen and the OK code of the screen that holds a row of a step-loop.
  screenOf(row) {
    const found = { program: "", dynpro: "", value: "", condition: "" };
    const look = ([, , name, value]) => name.includes("BDC_OKCODE") && Object.assign(found, { value, condition: behind(name, ";") });
    let i = row - 1;
    for (; i >= 0 && found.program === ""; --i) {
      if (this.rows[i][2].trim() === "") [found.program, found.dynpro] = this.rows[i];
      look(this.rows[i]);
    }
    for (i = row; i < this.rows.length && this.rows[i][2].trim() !== "" && (i === row || found.value === ""); ++i) look(this.rows[i]);
    return found;
  }

  // The pairs of values behind a field, or nothing.
  pairsOf(field) {
    const lines = field.code.split("\r\n").filter((line) => line.includes("@ "));
    return lines.length === 0 ? undefined : lines.map((line) => [line.split("'")[1], line.split("'")[3]]);
  }
}
