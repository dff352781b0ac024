// What a run of a report must do, worked out from the document and its input alone: the report itself is never looked at.

import { callBapi, copyOf } from "./bapis.mjs";
import { makeTransaction } from "./screens.mjs";
import { before, behind, clear, constant, cut, declare, Dump, equals, fit, linesOf, move, newCell, readCsv, shown, toJson, toUnicode } from "./storage.mjs";
import { execute } from "./user_code.mjs";

const TEXTS = {
  500: "Failed transactions are in session:", 501: "Batch input session created:",
  502: "No failed transactions, no session created.", 503: "No data, no session created.",
  504: "Processing finished.", 505: "The file could not be opened:", 506: "Records with errors:",
  507: "Number of this run in the table:", 508: "No errors occurred.", 514: "Please enter the number of the run to repeat.",
};
const number = (n, width = 10) => String(n).padStart(width, "0");
const highest = (rows, name) => Math.max(0, ...rows.map((r) => Number(r[name])));

// The parameters of the selection screen with their values, and the paths behind file names.
function fillSelection(spec, run, globals) {
  const parameters = [];
  const constants = [];
  declare(spec.variables, globals, parameters);
  if (spec.own) declare(spec.ownVariables, globals, parameters);
  const add = (name, length, text, lower) => parameters.push({ name, lower, cell: newCell("C", length, text) });
  if (spec.errors) add(spec.names.fresh, 1, "X");
  for (const { name, start } of spec.files)
    if (spec.fileParameter) add(name, 128, start, true);
    else constants.push({ name, cell: newCell("C", 128, start) });
  if (spec.hasTransaction && spec.calling && spec.modeParameter) add(spec.names.mode, 1, spec.mode);
  if (spec.errors) add(spec.names.old, 1), add(spec.names.number, 10);
  const find = (name) => [...parameters, ...constants].find((p) => p.name === name || p.name.replace(/^[A-Z]{1,3}_/, "") === name);
  for (const [name, value] of Object.entries(run.parameters)) {
    const { cell, lower } = find(name);
    move(constant(lower ? value : value.toUpperCase()), cell);
    if (name === spec.names.old) clear(find(spec.names.fresh).cell);
  }
  const paths = run.files.map(([name, path]) => {
    const cell = find(name)?.cell;
    if (cell && cut(cell.text) === "") move(constant(path), cell);
    return [cell ? cut(cell.text) : name, path];
  });
  const pathOf = (name) => paths.find(([value]) => value === name)?.[1] ?? name;
  return { parameters, pathOf, textOf: (name) => cut(find(name)?.cell.text ?? "") };
}

// `run`: parameters, files, records, fails, recordings, tables as on the command line; `files`: what the files hold;
// `table`: the error table, which outlives the run.
export function practise(spec, run, files, table, { formulas, catalogue, now }) {
  if (!spec.compiles) return { journal: "", stdout: "", orphans: "", status: 1 };
  const journal = [];
  const list = [];
  const counts = { records: 0, called: 0, inserted: 0, sessions: 0, bapis: 0 };
  const failed = new Set();
  const globals = new Map();
  const { parameters, pathOf, textOf } = fillSelection(spec, run, globals);
  const fresh = !spec.errors || textOf(spec.names.fresh) === "X";
  let record = 0;
  const tell = (event, rest) => journal.push(toJson({ event, record, ...rest }) + "\n");

  // --- Records: the lines of each, and one line's fields
  const layouts = [0, ...spec.heads.keys()].map((_, n) => spec.recordOf(n));
  const headers = layouts.map((fields) => Object.fromEntries(fields.map((f) => [f.name, newCell(f.type ?? "C", f.width)])));
  const lines = layouts.map(() => []);
  const refreshed = layouts.map(() => []); // lines of before that code has thrown away
  const addLine = (n, raw) => lines[n].push({ raw: fit(raw, layouts[n].reduce((sum, f) => sum + f.width, 0)), met: false });
  const inColumns = (n, valueOf) => layouts[n].map((f, i) => fit(valueOf(f.name, i), f.width)).join("");
  function load(n, raw) {
    let at = 0;
    for (const f of layouts[n]) headers[n][f.name].text = raw.slice(at, (at += f.width));
  }

  // --- Reading
  let missing = false; // a file
  function readFile(name, take) {
    const text = name === "" ? undefined : files[pathOf(name)];
    if (text !== undefined) linesOf(text).forEach(take);
    else list.push(cut(`${TEXTS[505]} ${name}`));
    missing ||= text === undefined;
    return text !== undefined;
  }
  function readInto(n, name, tabs) {
    return readFile(name, (line) => addLine(n, tabs ? inColumns(n, (_, i) => line.split("\t")[i] ?? "") : line));
  }
  function readTable(n, name, keep = () => true) {
    const path = run.tables.find(([t]) => t === name)[1];
    for (const row of readCsv(files[path]).filter(keep)) addLine(n, inColumns(n, (column) => row[column]));
    return true;
  }
  function readOwn() {
    const code = spec.ownCode.replace(/\s+/g, " ");
    const parts = /PERFORM READFILE_(\w+) TABLES (\w+) USING (\w+)|SELECT (?:(?!SELECT).)*?[(:](\w+)-(?:(?!SELECT).)*? FROM (\w+) WHERE (\w+) = '([^']*)'/g;
    for (const [, kind, filled, file, selected, source, column, value] of code.matchAll(parts)) {
      const n = Number(behind(filled ?? selected, "SL_"));
      if (source) readTable(n, source, (row) => row[column] === value);
      else if (!readInto(n, textOf(file), kind === "CLNTTAB")) break;
    }
    return true;
  }
  function readMixedFile() {
    let counter = 0;
    const length = spec.ids[0].length;
    return readFile(textOf(spec.names.file), (line) => {
      const n = spec.ids.findIndex((id) => cut(id) === cut(line.slice(0, length)));
      if (n === 0) ++counter;
      if (n >= 0) addLine(n, (spec.counted ? number(counter) : "") + fit(line.slice(length), spec.lineWidth));
    });
  }
  function readInput() {
    if (spec.own) return readOwn();
    if (spec.table) return readTable(0, spec.source.toUpperCase());
    if (spec.single) return readMixedFile();
    return layouts.every((_, n) => readInto(n, textOf(spec.files[n].name), !spec.server && !spec.fixed));
  }

  // --- The user's code
  const scope = (result) => ({
    cell: (name) => (name[0] === "#" ? headers[0][name.slice(1)] : name === spec.prefix("LS") + "RESULT" ? result : globals.get(name)),
    refresh(name) {
      const n = Number(behind(name, "SL_"));
      refreshed[n].push(...lines[n].splice(0));
    },
  });
  function holds(condition, result = newCell("C", 1)) {
    if (condition === "") return true;
    clear(result);
    execute(spec.conditions.get(condition), scope(result), formulas, now);
    return result.text === "X";
  }
  const resultCell = (kind) => globals.get(spec.prefix(kind) + "RESULT");
  const paired = spec.fields.filter((f) => spec.pairsOf(f));
  const converted = new Map();
  function applyPairs(n) {
    for (const f of paired.filter((one) => spec.groupOf(one.name) === n)) {
      const { text } = headers[n][f.name];
      const pair = spec.pairsOf(f).find(([from]) => cut(from) === cut(text));
      converted.set(f.name, newCell("C", 1024, pair ? pair[1] : text));
    }
  }
  function valueCell(text, n) {
    if (text[0] === "'") return constant(text.slice(1, -1));
    return text[0] === "@" ? globals.get(text.slice(1)) : (converted.get(text) ?? headers[n][text]);
  }

  // --- Screens
  let screens;
  let processing;
  function sendScreen(program, dynpro, condition) {
    processing = holds(condition);
    if (processing) screens.push({ program, dynpro: newCell("N", 4, dynpro).text, fields: [] });
  }
  function sendField(name, cell, condition) {
    if (!processing) return;
    if (!spec.all) {
      if (equals(cell, " ")) return;
      if (spec.spaceCode !== "" && equals(cell, spec.spaceCode)) move(constant(" "), cell); // the field itself becomes blank
    }
    const value = newCell("C", 132);
    move(cell, value);
    if (holds(condition)) screens.at(-1).fields.push([name, cut(value.text)]);
  }

  // --- Step-loops: `send` gets each line that belongs to the record.
  let errorLines;
  function eachLine(n, send) {
    const head = spec.heads[n - 1];
    const keys = spec.keysOf(n);
    if (spec.table) readTable(n, head.file.trim().toUpperCase(), (row) => keys.every((k) => row[k] === cut(headers[0][k].text)));
    for (const line of lines[n]) {
      load(n, line.raw);
      if (!spec.table && keys.some((k) => headers[n][k].text !== headers[0][k].text)) continue;
      line.met = true;
      if (fresh) errorLines.push([n + 1, line.raw]);
      applyPairs(n);
      send(head);
    }
  }
  const rowsOfLine = (n) => spec.rows.filter((row, i) => spec.group[i] === n && row[2].includes("("));
  function sendTableControl(n, headRow) {
    let position = 1;
    const screen = spec.screenOf(headRow);
    eachLine(n, (head) => {
      for (const row of rowsOfLine(n)) sendField(`${before(row[2], "(")}(${position})`, valueCell(row[3], n), behind(row[2], ";"));
      if (!head.fresh && ++position <= head.perScreen) return;
      sendField("BDC_OKCODE", constant(screen.value.slice(1, -1)), screen.condition);
      sendScreen(screen.program, before(screen.dynpro, ";"), behind(screen.dynpro, ";"));
      position = head.first;
    });
  }

  // --- Posting
  const transaction = makeTransaction(run, files);
  let open = false;
  let found; // an error of this record
  function outcome(tcode) {
    const result = transaction(tcode, screens, run.fails[record]);
    if (result.event.subrc !== 0) failed.add(record);
    return result;
  }
  function insertIntoSession(tcode) {
    if (!open) tell("session-open", { group: spec.sessionName, user: "PRACTICE", keep: "X" });
    if (!open) ++counts.sessions;
    open = true;
    ++counts.inserted;
    tell("session-insert", { tcode, screens, ...outcome(tcode).event });
  }
  function post(operation) {
    [screens, processing] = [[], true];
    for (const i of operation.rows) {
      const [program, dynpro, name, value, notes] = spec.rows[i];
      if (spec.group[i] > 0) {
        if (notes.includes("!1")) sendTableControl(spec.group[i], i);
      } else if (program !== "") sendScreen(program, before(dynpro, ";"), behind(dynpro, ";"));
      else sendField(before(name, ";"), valueCell(value, 0), behind(name, ";"));
    }
    if (found) return;
    if (!spec.calling) return insertIntoSession(operation.code);
    const { event, kept } = outcome(operation.code);
    table.commit();
    ++counts.called;
    const mode = textOf(spec.names.mode) || spec.mode;
    tell("transaction", { tcode: operation.code, mode, update: "S", screens, ...event });
    if (event.subrc === 0) return;
    if (spec.session) insertIntoSession(operation.code);
    errorLines.push([0, kept]);
    found = spec.errors;
  }
  function fill(name, cell, condition, result) {
    const target = name.includes("-") ? globals.get(before(name, "-")).fields[behind(name, "-")] : globals.get(name);
    if (holds(condition, result)) move(cell, target);
    else clear(target);
  }
  function runBapi(operation) {
    for (const i of operation.rows) {
      const [, , name, value, notes] = spec.rows[i];
      const n = spec.group[i];
      if (n === 0) fill(before(name, ";"), valueCell(value, 0), behind(name, ";"), resultCell("GS"));
      if (n === 0 || !notes.includes("!1")) continue;
      const parameter = globals.get(before(name, "-"));
      parameter.rows = [];
      eachLine(n, () => {
        for (const row of rowsOfLine(n)) fill(before(row[2], "("), valueCell(row[3], n), behind(row[2], ";"), resultCell("LS"));
        parameter.rows.push(copyOf(parameter.fields));
      });
    }
    if (found) return;
    const call = callBapi(operation.code, spec.calls.get(operation.code), globals, run, files, catalogue, run.fails[record]);
    if (call.failed) failed.add(record);
    ++counts.bapis;
    tell("bapi", call.event);
    if (!spec.errors || call.answer?.TYPE.text !== "E") return;
    if (!spec.hasTransaction) table.rollback(), tell("rollback");
    errorLines.push([0, call.answer.MESSAGE.text]);
    found = true;
  }

  // --- The error table
  const programId = number(spec.programId);
  const oldBatch = number(textOf(spec.names.number));
  const operations = []; // the number of each record in the table
  let errorCount = 0;
  let batch = oldBatch;
  function insertRow(key, id, line, user) {
    const text = cut(line.slice(0, Math.max(256, spec.lineWidth + (spec.counted ? 10 : 0))));
    const row = { MANDT: "000", PROGID: programId, ...key, PROCESSED: "", USERNAME: user, ID: number(id, 3), LENGTH: text.length, LINE: text };
    if (table.rows.some((other) => table.key(other) === table.key(row))) return;
    table.rows.push(row);
    const told = Object.entries(row).filter(([name, v]) => name === "MANDT" || (name === "LINE" ? v !== "" : !/^0*$/.test(v)));
    tell("insert", { table: spec.errorTable, row: Object.fromEntries(told) });
  }
  const keyOf = (run, operation, sequence) => ({ BATCH: run, OPERATION: number(operation), SEQUENCE: number(sequence) });
  function describeRecords() {
    if (table.rows.some((r) => r.PROGID === programId && r.BATCH === number(0))) return;
    layouts.forEach((fields, n) => {
      const described = fields.filter((f) => f.name !== "DUMMY");
      described.forEach((f, i) => insertRow(keyOf(number(0), n + 1, i + 1), 0, `${number(f.width, 5)} ${f.name}`, ""));
    });
  }
  function keepRecord(operation) {
    const stored = () => table.rows.filter((r) => r.PROGID === programId && r.BATCH === oldBatch && r.OPERATION === number(operation));
    const change = (event, rows, act) => (rows.forEach(act), tell(event, { table: spec.errorTable, rows: rows.length }));
    if (!found) return fresh ? undefined : change("update", stored(), (row) => (row.PROCESSED = "X"));
    if (++errorCount === 1 && fresh) batch = number(highest(table.rows, "BATCH") + 1);
    if (!fresh) change("delete", stored().filter((r) => r.ID === "000"), (row) => table.rows.splice(table.rows.indexOf(row), 1));
    const first = fresh ? 1 : highest(stored(), "SEQUENCE") + 1;
    errorLines.forEach(([id, line], i) => insertRow(keyOf(batch, operation, first + i), id, line, "PRACTICE"));
  }
  function readStored() {
    const rows = table.rows.filter((r) => r.PROGID === programId && r.BATCH === oldBatch && r.PROCESSED === "");
    for (const row of table.ordered(rows)) {
      if (row.ID !== "000") addLine(Number(row.ID) - 1, row.LINE);
      if (row.ID === "001") operations.push(Number(row.OPERATION));
    }
    return true;
  }

  // --- The run
  function pass(raw, i) {
    const [from, to] = run.records ?? [1, Infinity];
    if (i + 1 < from || i + 1 > to) return;
    record = i + 1;
    ++counts.records;
    load(0, raw);
    found = false;
    errorLines = fresh ? [[1, raw]] : [];
    for (const f of spec.fields) if (f.code !== "") execute(f.code, scope(), formulas, now);
    applyPairs(0);
    for (const operation of spec.operations) {
      holds(operation.condition, globals.get("RESULT"));
      if (operation.condition !== "" && resultCell("GS").text !== "X") continue;
      if (operation.bapi) runBapi(operation);
      else post(operation);
    }
    if (spec.errors) keepRecord(fresh ? counts.records : operations[i]);
    if (spec.hasBapi) table.commit(), tell("commit");
  }
  // Whether the report ran to its end.
  function work() {
    if (spec.errors) describeRecords();
    if (!fresh && textOf(spec.names.number) === "") return void list.push(TEXTS[514]);
    if (!(fresh ? readInput() : readStored())) return;
    lines[0].forEach(({ raw }, i) => pass(raw, i));
    record = 0;
    if (open) tell("session-close", { group: spec.sessionName, transactions: counts.inserted });
    if (spec.session) list.push(open ? `${TEXTS[spec.calling ? 500 : 501]} ${spec.sessionName}` : TEXTS[spec.calling ? 502 : 503]);
    if (spec.errors && errorCount === 0) list.push(TEXTS[508]);
    if (errorCount > 0) list.push(`${TEXTS[506]} ${number(errorCount, 8)}`);
    if (errorCount > 0 && fresh && spec.errors) list.push(`${TEXTS[507]} ${batch}`);
    list.push(TEXTS[504]);
    return true;
  }
  journal.push(toJson({ event: "start", report: "QOR", parameters: Object.fromEntries(parameters.map((p) => [p.name, shown(p.cell)])) }) + "\n");
  let ended = false;
  let dumped = false;
  try {
    ended = work();
    table.commit();
  } catch (dump) {
    if (!(dump instanceof Dump)) throw dump;
    dumped = true;
    failed.add(record);
    tell("dump", { error: dump.message });
    table.rollback();
  }
  const posted = counts.records - failed.size;
  journal.push(toJson({ event: "end", records: counts.records, posted, failed: failed.size }) + "\n");
  const { records, called, inserted, sessions, bapis } = counts;
  list.push(`${records} records, ${posted} posted, ${failed.size} failed, ${called} transactions called, ${inserted} put into ${sessions} sessions, ${bapis} BAPI calls`);
  // Told where no dump ended the report, and all records were wanted.
  const orphans = lines.map((left, n) => {
    const all = [...left, ...refreshed[n]];
    const unmet = !dumped && n > 0 && !run.records ? all.filter((line) => !line.met).length : 0;
    return unmet === 0 ? "" : `${spec.prefix("GT")}ITABSL_${n}: ${unmet} of ${all.length} lines belong to no record\n`;
  });
  return {
    journal: journal.join(""),
    stdout: list.map((line) => toUnicode(line) + "\n").join(""),
    orphans: orphans.join(""),
    status: ended && !missing && records > 0 && failed.size === 0 ? 0 : 1,
  };
}
