// Runs a generated report on the transpiler's engine and writes down what it sends, as the journal of the practice system does.
//   node run.mjs REPORT [--file NAME=PATH] [--param NAME=VALUE] [--fail N=TEXT] [--table NAME=CSV] [--measure]
// Prints the journal, or with --measure the records, the seconds of the run, those of the processor, and the peak memory in kilobytes.

import { readFileSync } from "node:fs";
import { pathToFileURL } from "node:url";
import { SQLiteDatabaseClient } from "@abaplint/database-sqlite";
import { ABAP, MemoryConsole, types } from "@abaplint/runtime";
import { Transpiler } from "@abaplint/transpiler";
import { errorTableOf, standardTables, tableFile } from "../../abap/dictionary.mjs";
import { rewrite } from "./rewrite.mjs";

// Not every release of Node decodes windows-1252 as it is.
const letters = "\u20ac\x81\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\x8d\u017d\x8f\x90\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\x9d\u017e\u0178";
export const readText = (path) => readFileSync(path, "latin1").replace(/[\x80-\x9f]/g, (letter) => letters[letter.charCodeAt(0) - 0x80]);
const nameOf = (file) => file.getFilename().split(".")[0];
const trimmed = (value) => String(value).replace(/ +$/, "");
const without = (name) => name.toLowerCase().replace(/^[a-z]{1,3}_/, "");

function linesOf(path) {
  const lines = readText(path).split(/\r\n|\n|\r/);
  if (lines.at(-1) === "") lines.pop();
  return lines;
}

// A text that goes into a field of type N leaves its digits there, whatever else it has.
const setDigits = types.Numc.prototype.set;
types.Numc.prototype.set = function (value, raw) {
  const text = value instanceof types.Character || value instanceof types.String ? value.get() : value;
  return setDigits.call(this, typeof text === "string" ? text.replace(/\D/g, "") : text, raw);
};

// A comparison of C with N is one of numbers.
function compareDigits(compare) {
  const ofKinds = (a, b) => a instanceof types.Numc && b instanceof types.Character;
  const number = (field) => {
    if (/[^0-9 ]/.test(field.get())) throw new Error("CONVT_NO_NUMBER");
    return Number(field.get());
  };
  const eq = (a, b) => (ofKinds(a, b) || ofKinds(b, a) ? number(a) === number(b) : compare.eq(a, b));
  return { ...compare, eq, ne: (a, b) => !eq(a, b) };
}

// Makes a JavaScript function of a report; an error says what the transpiler refuses.
export async function transpile(source) {
  const errorTable = errorTableOf(source);
  const known = [...standardTables, ...(errorTable ? [errorTable] : [])];
  const { text, parameters, globals, structures } = rewrite(source, new Set(known.map(nameOf)));
  for (const [name, components] of structures)
    known.push(tableFile(name, [...(components.size ? components : ["component"])].map((component) => `${component.toUpperCase()} CHAR 255`).join(", "), 0));
  // A table without a key is a structure there.
  const definition = (text) => (text.includes("<KEYFLAG>") ? text : text.replace("TRANSP", "INTTAB"));
  const files = [{ filename: "qor.prog.abap", contents: text }, ...known.map((file) => ({ filename: file.getFilename(), contents: definition(file.getRaw()) }))];
  const { objects, databaseSetup } = await new Transpiler({ ignoreSourceMap: true, addCommonJS: false, unknownTypes: "runtimeError" }).runRaw(files);
  const codeOf = (wanted) => objects.filter(({ object }) => object.type === wanted).map(({ chunk }) => chunk.getCode().replace(/^export \{.*\};?$/gm, "")).join("\n");
  const AsyncFunction = (async () => {}).constructor;
  return { define: new Function(codeOf("TABL")), main: new AsyncFunction(codeOf("PROG")), parameters, globals, schema: databaseSetup.schemas.sqlite, errorTable: errorTable && nameOf(errorTable) };
}

// What a value looks like in the journal; undefined where it is initial.
function shown(value, keepInitial) {
  if (value.getRowType) return value.array().map((row) => shown(row) ?? {});
  const content = value.get();
  if (typeof content === "object") {
    const entries = Object.entries(content).map(([name, component]) => [name.toUpperCase(), shown(component)]);
    return Object.fromEntries(entries.filter(([, component]) => component !== undefined));
  }
  if (!keepInitial && (typeof content === "number" ? content === 0 : value.constructor.name === "Numc" ? /^0*$/.test(content) : trimmed(content) === ""))
    return undefined;
  return typeof content === "number" ? content : trimmed(content);
}

function screensOf(table) {
  const screens = [];
  for (const row of table.array()) {
    const { program, dynpro, dynbegin, fnam, fval } = row.get();
    if (dynbegin.get() === "X") screens.push({ program: trimmed(program.get()), dynpro: dynpro.get(), fields: [] });
    else screens.at(-1)?.fields.push([trimmed(fnam.get()), trimmed(fval.get())]);
  }
  return screens;
}

// The parameters that a BAPI must have, as the catalogue says.
function mandatoryOf(bapi) {
  const lines = readText(new URL("../../../data/BAPI46C", import.meta.url)).split(/\r?\n/);
  const at = lines.findIndex((line) => line.startsWith("2 ") && line.slice(2).trim() === bapi) + 1;
  const behind = lines.slice(at);
  const parameters = behind.slice(0, behind.findIndex((line) => /^[012] /.test(line))).filter((line) => line.startsWith("4 "));
  return parameters.map((line) => line.slice(2).split(":").map((part) => part.trim())).filter(([name, optional, kind]) => optional === "" && kind !== "E" && name !== "RETURN").map(([name]) => name.toLowerCase());
}

// The database of one report's error table and of tables from files. It outlives a run where it is handed on.
export async function openDatabase() {
  globalThis.abap ??= undefined; // which the client looks at
  const database = new SQLiteDatabaseClient();
  await database.connect();
  return database;
}

function loadTable(database, name, path) {
  const [head, ...rows] = linesOf(path).map((line) => line.match(/"(?:[^"]|"")*"|[^,]+|(?<=,|^)(?=,|$)/g).map((cell) => cell.replace(/^"|"$/g, "").replace(/""/g, '"')));
  database.sqlite.run(`DROP TABLE IF EXISTS ${name}`);
  database.sqlite.run(`CREATE TABLE ${name} (${head.map((column) => `${column} TEXT`).join(", ")})`);
  for (const row of rows) database.sqlite.run(`INSERT INTO ${name} VALUES (${row.map(() => "?").join(", ")})`, row);
}

// The Open SQL of the error table goes to SQLite with the values in the types of the columns, and into the journal.
const lengthsOfDigits = { progid: 10, batch: 10, operation: 10, sequence: 10, id: 3 };
function watch(database, errorTable, write) {
  const typed = (sql) =>
    sql.replace(/("?(\w+)"?) = '?(\d+) *'?/g, (all, quoted, name, digits) =>
      lengthsOfDigits[name] ? `${quoted} = '${digits.padStart(lengthsOfDigits[name], "0")}'` : all);
  const { select, insert, update, delete: remove } = SQLiteDatabaseClient.prototype;
  database.select = (options) => select.call(database, { ...options, select: typed(options.select) });
  database.insert = async (options) => {
    const texts = options.columns.map((column, i) => (column === "mandt" ? "'000'" : options.values[i]));
    const result = await insert.call(database, { ...options, values: texts });
    const row = {};
    options.columns.forEach((column, i) => {
      const text = typeof texts[i] === "number" ? texts[i] : trimmed(texts[i].slice(1, -1).replace(/''/g, "'"));
      if (column === "mandt" || (text !== "" && text !== 0 && !(lengthsOfDigits[column] && /^0*$/.test(text)))) row[column.toUpperCase()] = text;
    });
    if (result.subrc === 0) write("insert", { table: errorTable.toUpperCase(), row });
    return result;
  };
  const changed = (event, result) => {
    write(event, { table: errorTable.toUpperCase(), rows: result.dbcnt });
    return result;
  };
  database.update = async (options) => changed("update", await update.call(database, { ...options, where: typed(options.where) }));
  database.delete = async (options) => changed("delete", await remove.call(database, { ...options, where: typed(options.where) }));
}

// Runs a transpiled report and answers its journal and its list. Options: files and tables as pairs of name and path, parameters by name,
// fails as record -> text, database (one of openDatabase), quiet (keep no journal).
export async function run({ define, main, parameters, globals, schema, errorTable }, options) {
  const journal = [];
  let record = 0;
  const passed = new Set();
  const failed = new Set();
  const write = (event, content) => {
    if (!options.quiet) journal.push({ event, record, ...content });
  };

  const database = options.database ?? (await openDatabase());
  for (const [name, path] of options.tables ?? []) loadTable(database, name, path);
  if (errorTable) {
    for (const statement of schema) database.sqlite.run(statement.replace(/CREATE TABLE /, "CREATE TABLE IF NOT EXISTS "));
    watch(database, errorTable, write);
  }
  const abap = (globalThis.abap = new ABAP({ console: new MemoryConsole() }));
  abap.compare = compareDigits(abap.compare);
  abap.context.databaseConnections.DEFAULT = database;
  define();
  const sy = abap.builtin.sy.get();
  for (const [name, value] of Object.entries({ uname: "PRACTICE", mandt: "000", sysid: "PRA", langu: "E", tcode: "SE38", saprl: "46C" })) sy[name]?.set(value);

  if (process.env.SOURCE_DATE_EPOCH) {
    const [date, time] = new Date(process.env.SOURCE_DATE_EPOCH * 1000).toISOString().split("T");
    sy.datum.set(date.replaceAll("-", ""));
    sy.uzeit.set(time.slice(0, 8).replaceAll(":", ""));
  }

  const textOf = (value) => trimmed(value.get());
  const refuse = (classic) => {
    throw new abap.ClassicError({ classic });
  };
  const named = (given, name) => (given ?? []).find(([key]) => without(key) === without(name))?.[1];
  const fileBehind = (path) => {
    const pair = (options.files ?? []).find(([name]) => name === path || values.some((value) => without(value.name) === without(name) && value.text === path));
    try {
      return linesOf(pair?.[1] ?? path);
    } catch {
      return undefined;
    }
  };
  const values = [...globals]; // and the parameters
  // The verdict on a transaction or BAPI of the present record.
  const pieces = (text) => [0, 50, 100, 150].map((at) => trimmed(text.slice(at, at + 50)));
  const asked = () => options.fails?.[record];
  const judge = (table, complaint = asked() && pieces(asked()).join("").replace(/ {2,}/g, " ")) => {
    const first = table?.array()[0]?.get();
    if (table && first?.dynbegin.get() !== "X") {
      failed.add(record);
      return { type: "E", id: "00", number: "344", text: "No batch input data for screen" };
    }
    if (complaint === undefined) return { type: "S", id: "00", number: "355", text: "Transaction was processed" };
    failed.add(record);
    return { type: "E", id: "QP", number: "001", text: complaint };
  };
  const variablesOf = ({ id }) => (id === "QP" ? pieces(asked()) : ["", "", "", ""]);
  const cursors = [];
  const datasets = new Map();

  const upload = (path, table, separated) => {
    const lines = path === "" ? undefined : fileBehind(path);
    if (lines === undefined) refuse("FILE_OPEN_ERROR");
    table.clear();
    const row = table.getRowType().clone();
    const components = Object.values(row.get());
    for (const line of lines) {
      row.clear();
      if (separated) line.split("\t").forEach((part, i) => components[i]?.set(part));
      else row.set(line);
      table.append(row);
    }
  };
  const pad = ({ exporting, importing }) => {
    const text = exporting.input.get().trim();
    importing.output.set(/^\d+$/.test(text) ? text.padStart(importing.output.getLength(), "0") : text);
  };

  const functions = {
    QOR_START({ changing }) {
      for (const { name, group, lowerCase } of parameters) {
        const field = changing[name];
        let value = named(Object.entries(options.parameters ?? {}), name);
        if (value === undefined && textOf(field) === "") value = named(options.files, name);
        if (value === undefined) value = textOf(field);
        field.set(lowerCase ? value : value.toUpperCase());
        if (group && named(Object.entries(options.parameters ?? {}), name) === "X") for (const other of parameters) if (other.group === group && other.name !== name) changing[other.name].set("");
      }
      for (const { name } of parameters) values.push({ name, text: textOf(changing[name]) });
      if (!options.quiet) journal.push({ event: "start", report: "QOR", parameters: Object.fromEntries(parameters.map(({ name }) => [name, textOf(changing[name])]).map(([name, text]) => [name.toUpperCase(), text])) });
    },
    QOR_RECORD({ exporting }) {
      const number = Number(exporting.number.get());
      record = number < 0 ? passed.size + 1 : number;
      if (record > 0) passed.add(record);
    },
    QOR_MOVE({ exporting, changing }) {
      const whole = (value) => (value.getRowType ? value.getHeader() : value);
      const source = whole(exporting.source);
      const target = whole(changing.target);
      const offset = Number(exporting.offset.get());
      const text = source.getCharacter ? source.getCharacter() : source.get() + "";
      target.set(offset > 0 ? target.getCharacter().slice(0, offset) + text : target.getCharacter || source.getCharacter ? text : source);
    },
    QOR_WRITE_TIME({ exporting: { time }, changing: { text } }) {
      const digits = time.get();
      const parts = digits.length === 8 ? [digits.slice(6), digits.slice(4, 6), digits.slice(0, 4)] : digits.match(/../g);
      text.set(parts.join(text.getLength() < digits.length + 2 ? "" : digits.length === 8 ? "." : ":"));
    },
    QOR_UPPER: ({ changing: { text } }) => text.set(text.get().replace(/[^\xdf\xff]/g, (letter) => letter.toUpperCase())),
    async QOR_CALL_TRANSACTION({ exporting, tables }) {
      await database.commit();
      const message = judge(tables.dynprotab);
      const subrc = message.type === "S" ? 0 : 1001;
      if (!options.quiet)
        write("transaction", { tcode: textOf(exporting.tcode), mode: textOf(exporting.mode), update: textOf(exporting.update), screens: screensOf(tables.dynprotab), subrc, messages: [message] });
      if (tables.messages) {
        const row = tables.messages.getRowType().clone();
        const { tcode, msgtyp, msgspra, msgid, msgnr, ...others } = row.get();
        tcode.set(exporting.tcode);
        msgtyp.set(message.type);
        msgspra.set("E");
        msgid.set(message.id);
        msgnr.set(message.number);
        variablesOf(message).forEach((text, i) => others[`msgv${i + 1}`].set(text));
        tables.messages.append(row);
      }
      sy.subrc.set(subrc);
      if (subrc !== 0) refuse("FAILED");
    },
    BDC_OPEN_GROUP({ exporting: { group, user, keep } }) {
      functions.inserted = 0;
      functions.group = textOf(group);
      write("session-open", { group: textOf(group), user: textOf(user), keep: textOf(keep) });
    },
    BDC_INSERT({ exporting, tables }) {
      ++functions.inserted;
      const message = judge(tables.dynprotab);
      if (!options.quiet) write("session-insert", { tcode: textOf(exporting.tcode), screens: screensOf(tables.dynprotab), subrc: message.type === "S" ? 0 : 1001, messages: [message] });
    },
    BDC_CLOSE_GROUP: () => write("session-close", { group: functions.group, transactions: functions.inserted }),
    MESSAGE_PREPARE({ exporting, importing }) {
      if (textOf(exporting.msg_id) !== "QP") importing.msg_text.set("No batch input data for screen");
      else importing.msg_text.set([1, 2, 3, 4].map((i) => textOf(exporting[`msg_var${i}`])).join("").replace(/ {2,}/g, " "));
    },
    GUI_UPLOAD: ({ exporting, tables }) => upload(textOf(exporting.filename), tables.data_tab, textOf(exporting.has_field_separator) === "X"),
    WS_UPLOAD: ({ exporting, tables }) => upload(textOf(exporting.filename), tables.data_tab, textOf(exporting.filetype) === "DAT"),
    QOR_OPEN_DATASET({ exporting }) {
      const lines = fileBehind(textOf(exporting.name));
      if (lines === undefined) refuse("FAILED");
      datasets.set(textOf(exporting.name), lines.values());
    },
    QOR_READ_DATASET({ exporting, changing: { line } }) {
      const { done, value } = datasets.get(textOf(exporting.name)).next();
      if (done) refuse("ENDED");
      (line.getRowType ? line.getHeader() : line).set(value);
    },
    QOR_CLOSE_DATASET: ({ exporting }) => datasets.delete(textOf(exporting.name)),
    QOR_SQL_OPEN({ exporting: { query, ...hosts } }) {
      const statement = database.sqlite.prepare(query.get(), Object.values(hosts).map(textOf));
      const rows = [];
      while (statement.step()) rows.push(statement.get());
      statement.free();
      cursors.push(rows.values());
    },
    QOR_SQL_NEXT({ changing }) {
      const { done, value } = cursors.at(-1).next();
      if (done) {
        cursors.pop();
        refuse("NOTHING");
      }
      Object.values(changing).forEach((target, i) => target.set(value[i] ?? ""));
    },
    QOR_COMMIT: () => write("commit", {}),
    QOR_ROLLBACK: () => write("rollback", {}),
    CONVERSION_EXIT_ALPHA_INPUT: pad,
    CONVERSION_EXIT_ALPHA_OUTPUT: ({ exporting, importing }) => importing.output.set(exporting.input.get().trim().replace(/^0+(?=.)/, "")),
  };
  const bapi = (name, mandatory) => ({ exporting = {}, importing = {}, tables = {} }) => {
    const filled = (value) => value !== undefined && (value.getRowType ? value.array().length > 0 : /[^,{}]/.test(JSON.stringify(shown(value) ?? {})));
    const missing = mandatory.find((parameter) => !filled(exporting[parameter] ?? tables[parameter]));
    const [, type, text] = /^(?:([A-Z]):)?(.*)$/s.exec(asked() ?? "");
    const message = judge(undefined, missing ? `Parameter ${missing.toUpperCase()} is missing or initial` : asked() && text);
    if (!missing && type) message.type = type;
    for (const [key, value] of [...Object.entries(importing), ...Object.entries(tables)]) {
      if (key !== "return" && tables[key]) continue;
      value.clear();
      if (key !== "return") continue;
      const row = tables[key] ? value.getRowType().clone() : value;
      const { type, id, number, code, message: text } = row.get();
      type.set(message.type);
      id?.set(message.id);
      number?.set(message.number);
      code?.set(message.id.padEnd(2) + message.number);
      text.set(message.text);
      if (tables[key]) value.append(row);
    }
    if (options.quiet) return;
    const listed = (given) => Object.fromEntries(Object.entries(given).map(([key, value]) => [key.toUpperCase(), shown(value, true)]));
    write("bapi", { function: name, exports: listed(exporting), tables: listed(tables), subrc: 0 });
  };
  abap.FunctionModules = new Proxy(functions, { get: (all, name) => (all[name] ??= name.startsWith("BAPI_") ? bapi(name, mandatoryOf(name)) : undefined) });

  const start = process.hrtime.bigint();
  const before = process.cpuUsage();
  try {
    await main();
    await database.commit();
  } catch (error) {
    // A literal that is handed to a form is a constant there too.
    const name = error.message === "Changing constant" ? "MOVE_TO_LIT_NOTALLOWED" : error.message;
    if (!/^[A-Z]+(_[A-Z]+)+$/.test(name)) throw error;
    await database.rollback();
    write("dump", { error: name });
    failed.add(record);
  }
  const seconds = Number(process.hrtime.bigint() - start) / 1e9;
  const { user, system } = process.cpuUsage(before);
  record = 0;
  if (!options.quiet) journal.push({ event: "end", records: passed.size, posted: passed.size - failed.size, failed: failed.size });
  const list = abap.console.get().split("\n").map(trimmed).filter((line) => line !== "");
  return { journal, list, records: passed.size, seconds, processor: (user + system) / 1e6 };
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
  const [path, ...rest] = process.argv.slice(2);
  const kinds = { "--file": [], "--param": [], "--fail": [], "--table": [] };
  for (let i = 0; i + 1 < rest.length; i += rest[i] === "--measure" ? 1 : 2) kinds[rest[i]]?.push(/^([^=]*)=(.*)$/s.exec(rest[i + 1]).slice(1));
  const given = { files: kinds["--file"], tables: kinds["--table"], parameters: Object.fromEntries(kinds["--param"]), fails: Object.fromEntries(kinds["--fail"]) };
  const options = { ...given, quiet: rest.includes("--measure") };
  const result = await run(await transpile(readText(path)), options);
  if (options.quiet) console.log(result.records, result.seconds.toFixed(2), result.processor.toFixed(2), process.resourceUsage().maxRSS);
  else for (const event of result.journal) console.log(JSON.stringify(event));
}
