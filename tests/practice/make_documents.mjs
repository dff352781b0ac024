// Varied documents with their input and their runs, the same ones for the same seed. Texts are strings of one character for each byte.

import { makeRandom } from "./random.mjs";

const NAMES = "MATNR MTART WERKS LIFNR BUKRS KOSTL WAERS MENGE PREIS DATUM1 SGTXT NAME1 LAND1 STRAS ZTERM MEINS GSBER PRCTR AUFNR XBLNR BLART".split(" ");
const VALUES = ["", "", "A", "B", "X", "1", "0007", "12-", "-5", "1.234,56", "S\xfc\xdf \x80 \xe9", "lower  case", "  IN", "$", "YES", "LONG".repeat(35)];
const DATES = ["", "31.12.1999", "01.02.03", "02/28/2004", "2004-02-29", "20040229"];
const PAIRS = ["'A' @ 'OTHER A'", "@ 'X' '$'", "'1' @ ''", "'' @ 'NONE'"];
const BAPIS = {
  BAPI_MATERIAL_SAVEDATA: {
    exports: { HEADDATA: ["MATERIAL(18)", "IND_SECTOR(1)", "MATL_TYPE(4)"], CLIENTDATA: ["MATL_GROUP(9)", "NET_WEIGHT TYPE I"] },
    returns: "IMPORTING", table: "MATERIALDESCRIPTION", columns: ["LANGU(2)", "MATL_DESC(40)"],
  },
  BAPI_SALESORDER_CREATEFROMDAT2: {
    exports: { ORDER_HEADER_IN: ["DOC_TYPE(4)", "SALES_ORG(4)", "DIVISION(2) TYPE N"] }, imports: ["SALESDOCUMENT"],
    returns: "TABLES", table: "ORDER_PARTNERS", columns: ["PARTN_ROLE(2)", "PARTN_NUMB(10)", "ITM_NUMBER(6) TYPE N"],
  },
  BAPI_SALESORDER_CHANGE: {
    exports: { SALESDOCUMENT: [], ORDER_HEADER_INX: ["UPDATEFLAG(1)"] },
    returns: "TABLES", table: "ORDER_ITEM_IN", columns: ["ITM_NUMBER(6) TYPE N", "MATERIAL(18)"],
  },
};
const crlf = (text) => text.replace(/\r?\n/g, "\r\n");

// The formulas that the program offers, as their names and their code with "!" for the field.
export const formulaTexts = (text) =>
  [...crlf(text).matchAll(/^\[(.*)\]\r\n([^[]*)/gm)].map(([, name, code]) => [name, code.trim()]).filter(([, code]) => code.includes("!"));

function recordOfDocument(tag, ...values) {
  const shown = (v) => (typeof v === "string" ? `"${v.replaceAll('"', '""')}"` : typeof v === "boolean" ? `#${String(v).toUpperCase()}#` : v);
  return [tag, ...values, ...Array(9 - values.length).fill("")].map(shown).join(",") + "\r\n";
}

function chooseShape({ chance, pick, upTo }) {
  const input = pick(["client", "client", "client", "server", "table", "own"]);
  const conventions = input !== "own" && chance(0.15);
  const errors = chance(conventions ? 0.05 : 0.45);
  const groups = pick([0, 0, 1, 1, 2]);
  const single = groups > 0 && ["client", "server"].includes(input) && chance(0.5);
  const partly = chance(0.4);
  return {
    input, conventions, errors, groups, single, partly,
    kind: pick(["trans", "trans", "trans", "bapi", "bapi", "both"]),
    call: errors || chance(0.6),
    counted: single && chance(conventions ? 0.9 : 0.6),
    fixed: single || input === "server" || chance(0.6),
    fileParameter: (groups > 0 && !single) || chance(0.75),
    spaceCode: partly && chance(0.7) ? pick(["$", "$", "$", "X"]) : "",
    numbers: chance(0.5),
    reading: input === "own" ? pick(["files", "native", "open"]) : input === "table" ? "native" : "files",
    prefix: (kind) => (conventions ? `${kind}_` : ""),
    step: conventions ? "LF" : "SLOOP_",
    total: chance(0.05) ? 0 : 1 + upTo(6),
  };
}

// The fields of the main record (0) and of those of the groups, with code and pairs.
function makeRecords(s, { chance, pick, from, upTo }, formulas) {
  const names = [...NAMES].sort(() => upTo(3) - 1);
  const field = (name, width, values = VALUES) => ({ name, width, values, code: "" });
  const records = [...Array(s.groups + 1).keys()].map((n) =>
    Array.from({ length: from(2, 5) }, () => field(names.pop(), pick([1, 2, 4, 10, 10, 18, n === 0 ? pick([35, 150]) : 35]))));
  const main = records[0];
  const keys = s.groups > 0 && !s.counted ? [field("KEYNO", 4, ["1", "2", "3"])] : [];
  if (keys.length > 0 && chance(0.1)) keys.push(field("KEY", 2, ["", "K"])); // part of the other's name, and so a key as well
  main.unshift(...keys);
  for (const f of main) {
    const [name, code] = pick(formulas);
    const dated = /^Date|^Time|^User/.test(name);
    const other = pick(main).name;
    if (chance(0.1)) f.code = crlf(`IF #${other} EQ 'A'.\n  #${f.name} = #${other}.\nELSE.\n  #${f.name} = 'B'.\nENDIF.`);
    else if (s.input === "table" && s.groups > 0 && chance(0.1)) f.code = `REFRESH ${s.prefix("GT")}ITABSL_1.`;
    else if (!chance(keys.includes(f) ? 0.05 : 0.3) || (dated && f.width < 10)) continue;
    else f.code = (chance(0.3) ? "* Told by the user\r\n" : "") + code.replaceAll("!", `#${f.name}`);
    if (dated) f.values = DATES;
  }
  for (const f of records.flat()) if (!keys.includes(f) && chance(0.2)) f.code += (f.code ? "\r\n" : "") + PAIRS.slice(upTo(3)).join("\r\n");
  return { records, keys };
}

// The program side, with the conditions and variables that it names.
function makeProgram(s, { records }, { chance, pick, from, upTo }) {
  const rows = [];
  const conditions = new Map();
  const calls = new Map();
  const result = `${s.prefix("LS")}RESULT`;
  let variables = crlf(`PARAMETERS: P_VAR(12)${pick(["", " DEFAULT 'from user'"])}${pick(["", " LOWER CASE"])}.
PARAMETERS: P_FLAG AS CHECKBOX, P_DAY LIKE SY-DATUM DEFAULT '20040131'.
DATA: V_TEXT(20) VALUE 'variable', V_NUM TYPE I VALUE ${upTo(3) * 17}, V_DIG(5) TYPE N VALUE '${upTo(2) * 42}'.
DATA: RESULT TYPE C${s.conventions ? ", GS_RESULT TYPE C, LS_RESULT TYPE C" : ""}.
`);
  const add = (...cells) => rows.push([...cells, ...Array(5 - cells.length).fill("")]);
  function condition(p) {
    if (!chance(p)) return "";
    const name = `COND${from(1, 4)}`;
    const [f, g, yes, no] = [pick(records[0]).name, pick(records[0]).name, `${result} = ${s.prefix("GC")}YES.`, `${result} = ${s.prefix("GC")}NO.`];
    const texts = [
      `IF #${f} NE SPACE.\n${yes}\nENDIF.`,
      `IF #${f} EQ 'A' OR #${f} EQ 'X'\n OR #${g} NE SPACE.\n${yes}\nENDIF.`,
      `CASE #${f}.\nWHEN 'A'.\n${yes}\nWHEN 'B'.\nWHEN OTHERS.\n${no}\nENDCASE.`,
      `IF P_FLAG = ${s.prefix("GC")}YES.\n${yes}\nELSE.\nIF #${f} NE SPACE AND #${g} NE SPACE.\n${yes}\nENDIF.\nENDIF.`,
      `${yes}\nIF #${f} CS 'L'.\n${no}\nENDIF.`,
    ];
    if (!conditions.has(name)) conditions.set(name, crlf(pick(texts) + (s.conventions && chance(0.5) ? `\nGS_RESULT = ${result}.` : "")));
    return `;${name}`;
  }
  const used = new Set();
  function mainValue() {
    if (chance(0.25)) return `'${pick(["CONST", "/", "x y", "12", chance(0.1) ? s.spaceCode || "C" : "C"])}'`;
    if (chance(0.15)) return "@" + pick(["P_VAR", "V_TEXT", "P_DAY", ...(s.numbers ? ["V_NUM", "V_DIG"] : [])]);
    const fresh = records[0].filter((f) => !used.has(f.name));
    const { name } = pick(fresh.length > 0 && chance(0.85) ? fresh : records[0]);
    used.add(name);
    return name;
  }
  const tables = [];
  function marks(fresh) {
    tables.push(s.input === "table" ? `zgroup${tables.length + 1}` : pick(["", "c:\\data\\Main.txt", `c:\\data\\group${tables.length + 1}.txt`]));
    const keys = s.counted ? "" : ",KEYNO";
    return `${pick(["", "Note"])}!1 1!2${tables.at(-1)}!3${fresh}!4!5${upTo(2)}!6${pick([1, 2, 3, 12])}!7${keys}`;
  }
  function addTransaction() {
    add("TRANS", `ZT${pick(["01", "AB", "LONGER"])}${condition(0.2)}`);
    for (let n = from(1, 3); n > 0; --n) {
      const screen = `ZS${from(1, 3)}`;
      add(`SAPL${screen}`, pick(["0100", "0101", "200"]) + condition(0.15));
      for (let k = from(1, 4); k > 0; --k) add("", "", `${screen}-${pick(NAMES)}${condition(0.15)}`, mainValue());
      if (tables.length < s.groups && chance(0.7)) {
        const fields = records[tables.length + 1];
        const notes = marks(upTo(2));
        fields.forEach((f, i) => add("", "", `${screen}-${f.name}(1)${condition(0.15)}`, f.name, i === 0 ? notes : ""));
        if (chance(0.4)) add("", "", `${screen}-FIXED(1)`, pick(["'C'", "@V_TEXT"]));
        add("", "", `BDC_OKCODE${condition(0.1)}`, "'=PAGE'");
      }
      if (chance(0.9)) add("", "", `BDC_OKCODE${condition(0.1)}`, "'/00'");
    }
  }
  function addBapi() {
    const [name, bapi] = pick(Object.entries(BAPIS));
    add("BAPI", name + condition(0.2));
    let chained = false; // constants continue a chain that a field has begun
    for (const [parameter, components] of Object.entries(bapi.exports))
      for (const component of components.length > 0 ? components : [""]) {
        const target = component ? `${parameter}-${component.split(/[ (]/)[0]}` : parameter;
        if (chained && (component.endsWith("I") || chance(0.2))) add("", "", target, component.endsWith("I") ? "'12'" : pick(["'K'", "@P_VAR"]));
        if (component.endsWith("I") || rows.at(-1)[2] === target) continue;
        add("", "", target + condition(0.2), pick(records[0]).name);
        chained = !rows.at(-1)[2].includes(";");
      }
    if (tables.length < s.groups && chance(0.8)) {
      const fields = records[tables.length + 1];
      const notes = marks(0);
      bapi.columns.forEach((column, i) => add("", "", `${bapi.table}-${column.split("(")[0]}(+)${condition(0.2)}`, (fields[i] ?? fields[0]).name, i ? "" : notes));
    }
    if (calls.has(name)) return;
    const returned = `RETURN${calls.size || ""}`;
    const declare = (variable, parts, occurs = "") => {
      if (new RegExp(` ${variable}\\b`).test(variables)) return;
      variables += crlf(parts.length ? `DATA: BEGIN OF ${variable}${occurs},\n${parts.join(",\n")},\nEND OF ${variable}.\n` : `DATA: ${variable}(10).\n`);
    };
    for (const [parameter, parts] of Object.entries(bapi.exports)) declare(parameter, parts);
    for (const parameter of bapi.imports ?? []) declare(parameter, []);
    declare(bapi.table, bapi.columns, " OCCURS 0");
    declare(returned, ["TYPE(1)", "ID(20)", "NUMBER(3) TYPE N", "MESSAGE(220)"], bapi.returns === "TABLES" ? " OCCURS 0" : "");
    const bind = (names) => names.map((one) => `${one} = ${one}`);
    const answer = chance(0.9) ? [`RETURN = ${returned}`] : [];
    const imports = [...bind(bapi.imports ?? []), ...(bapi.returns === "TABLES" ? [] : answer)];
    const sections = ["EXPORTING", ...bind(Object.keys(bapi.exports)), ...(imports.length ? ["IMPORTING", ...imports] : []), "TABLES"];
    calls.set(name, [`CALL FUNCTION '${name}'`, ...sections, ...(bapi.returns === "TABLES" ? answer : []), ...bind([bapi.table])].join("\r\n  ") + ".");
  }
  const order = s.kind === "both" ? ["trans", "bapi"] : Array(from(1, 3)).fill(s.kind);
  for (const kind of order) kind === "bapi" ? addBapi() : addTransaction();
  while (tables.length < s.groups) s.kind === "bapi" ? addBapi() : addTransaction();
  return { rows, conditions, calls, variables };
}

// The user's own source: readers of files, or selections from tables.
function makeOwnSource(s, lines, run, { pick }) {
  const own = { variables: [], code: "", forms: "" };
  lines.forEach((fields, n) => {
    const names = fields.map((f) => f.name);
    const itab = n ? `ITABSL_${n}` : "ITAB";
    if (s.reading !== "files") {
      const open = s.reading === "open" && n === 0;
      const from = `FROM ${run.tables[n][0]} WHERE ${pick(fields).name} = '${pick(["A", "X", "1"])}'`;
      if (open) own.variables.push(`TABLES: ${run.tables[n][0]}.`);
      if (open) own.code += `SELECT\n${names.join("\n")}\nINTO\n(${names.map((f) => `${itab}-${f}`).join(",\n")})\n${from}.\nAPPEND ITAB.\nENDSELECT.\n`;
      else own.code += `EXEC SQL PERFORMING APPEND_${itab}.\nSELECT\n${names.join(",\n")}\nINTO\n${names.map((f) => `:${itab}-${f}`).join(",\n")}\n${from}\nENDEXEC.\n`;
      if (!open) own.forms += `FORM APPEND_${itab}.\nAPPEND ${itab}.\nENDFORM.\n`;
      return;
    }
    const kind = s.fixed ? pick(["CLNTFLAT", "SERVER"]) : "CLNTTAB";
    if (n === 0) own.variables.push('DATA: ERROR TYPE C.  "Yes/No');
    own.variables.push(`PARAMETERS: FILE${n + 1}(128) OBLIGATORY.`);
    own.code += `PERFORM READFILE_${kind} TABLES ${itab} USING FILE${n + 1}\nCHANGING ERROR.\nIF ERROR = YES.\nEXIT.\nENDIF.\n`;
    if (own.forms.includes(kind)) return;
    const opening = kind === "SERVER" ? "OPEN DATASET AUXFILE FOR INPUT IN TEXT MODE."
      : `DATA: FILESTRING TYPE STRING.\nFILESTRING = AUXFILE.\nCALL FUNCTION 'GUI_UPLOAD'\nEXPORTING FILENAME = FILESTRING FILETYPE = 'ASC'
HAS_FIELD_SEPARATOR = '${s.fixed ? " " : "X"}'\nTABLES DATA_TAB = AUXITAB\nEXCEPTIONS FILE_OPEN_ERROR = 1 OTHERS = 17.`;
    const failing = "IF SY-SUBRC NE 0.\nWRITE: / 'The file could not be opened:',\nAUXFILE.\nAUXERROR = YES.\nEXIT.\nENDIF.";
    const reading = "DO.\nREAD DATASET AUXFILE INTO AUXITAB.\nIF SY-SUBRC NE 0.\nCLOSE DATASET AUXFILE.\nEXIT.\nENDIF.\nAPPEND AUXITAB.\nENDDO.";
    own.forms += `FORM READFILE_${kind} TABLES AUXITAB USING AUXFILE\nCHANGING AUXERROR.\nAUXERROR = NO.\n${opening}\n${failing}\n`;
    own.forms += (kind === "SERVER" ? `${reading}\n` : "") + "ENDFORM.\n";
  });
  return { variables: own.variables.join("\r\n"), code: crlf(own.code), forms: crlf(own.forms) };
}

// What the files and tables hold, and how a run names them.
function makeInput(s, { records, keys }, rows, source, run, { chance, pick, upTo }) {
  const files = {};
  // A field that no row sends would belong to the main record.
  const own = (n) => records[n].filter((f) => rows.some((row) => row[3] === f.name));
  const lines = records.map((fields, n) => (n === 0 ? fields : [...(s.counted ? [] : keys), ...own(n)]));
  const valueOf = (f, at) => (f.name === "KEYNO" ? String(at) : chance(0.1) ? `V${upTo(1e6)}` : pick(f.values));
  const spoilt = (line) => pick([...Array(16).fill(line), `${line}TOO LONG`, `${line}TOO LONG`, line.trimEnd(), line.replace(" ", "\t")]);
  const flat = (n, at) => spoilt(lines[n].map((f) => valueOf(f, at).slice(0, f.width).padEnd(f.width)).join(""));
  const tabbed = (n, at) => [...lines[n].map((f) => valueOf(f, at)).slice(0, chance(0.1) ? 2 : undefined), ...(chance(0.1) ? ["more"] : [])].join("\t");
  const line = s.fixed ? flat : tabbed;
  const groups = records.map((_, n) => n).slice(1);
  const ats = Array.from({ length: s.total }, (_, i) => i + 1);
  const ids = pick([["H", "I", "J"], ["01", " 2", "30"]]).slice(0, groups.length + 1);
  const members = (n, at) => Array.from({ length: upTo(n === 1 ? 5 : 3) }, () => line(n, at));
  const end = pick(["\r\n", "\r\n", "\n", "\r"]);
  const text = (all) => all.map((one) => (chance(0.02) ? "" : one)).join(end) + (chance(0.8) ? end : "");
  if (s.reading !== "files") {
    const cell = (value) => (/[,"]/.test(value) ? `"${value}"` : value.trim().replace(/[^ -~]/g, "u"));
    const csv = (n, all) => [lines[n].map((f) => f.name), ...all.map((at) => lines[n].map((f) => cell(valueOf(f, at))))].map((r) => `${r.join(",")}\r\n`).join("");
    for (const n of [0, ...groups]) {
      files[`table${n}.csv`] = csv(n, n === 0 ? ats : ats.flatMap((at) => Array(upTo(3)).fill(at)));
      run.tables.push([n ? `ZGROUP${n}` : "ZMAIN", `table${n}.csv`]);
    }
    return { files, lines, ids };
  }
  const lost = (n) => (chance(0.3) ? [line(n, 9)] : []);
  if (s.single) {
    const mixed = ats.flatMap((at) => [ids[0] + flat(0, at), ...groups.flatMap((n) => members(n, at).map((l) => ids[n] + l)), ...(chance(0.1) ? ["Zunknown"] : [])]);
    files["main.txt"] = text([...lost(1).map((l) => ids[1] + l), ...mixed]);
  } else {
    files["main.txt"] = text(ats.map((at) => line(0, at)));
    for (const n of groups) files[`group${n}.txt`] = text([...ats.flatMap((at) => members(n, at)), ...lost(n)]);
  }
  Object.keys(files).forEach((path, n) => {
    const name = s.input === "own" ? `FILE${n + 1}` : n ? `${s.step}${n}` : "FILE";
    if (s.input === "own") run.parameters[name] = `in${n}.txt`;
    if (n === 0 && source === path && s.input !== "own") return; // which is found without being named
    const prefixed = s.conventions && chance(0.5) ? (s.fileParameter ? "PS_" : "GS_") + name : name;
    run.files.push([name === "FILE" && source !== "" && !s.single && chance(0.3) ? source : prefixed, path]);
  });
  if (chance(0.04)) delete files[pick(Object.keys(files))];
  return { files, lines, ids };
}

// Value lists, widths of screens' fields and recordings, for the checks of the practice transaction.
function makeChecks(rows, run, files, { chance, pick, from }) {
  const sent = rows.filter((r) => r[2].startsWith("ZS")).map((r) => r[2].split(/[;(]/)[0]);
  if (sent.length === 0) return;
  const [listed, [screen, name]] = [pick(sent), pick(sent).split("-")];
  run.values = chance(0.2);
  if (run.values) files[`values/${pick([listed, listed.split("-")[1]])}.txt`] = "A\r\nB\r\nCONST\r\n1\r\n";
  if (chance(0.2)) {
    files["screen.csv"] = `${name}\r\n${"w".repeat(from(1, 6))}\r\n`;
    run.tables.push([screen, "screen.csv"]);
  }
  if (!chance(0.2)) return;
  const line = (program, dynpro, kind, field = "") => program.padEnd(40) + dynpro.padStart(4, "0") + kind + field.padEnd(264) + "\r\n";
  const recorded = rows.slice(rows.findIndex((row) => row[0] === "TRANS")).flatMap(([a, b, c]) => {
    if (a === "TRANS") return line("", "0000", "T", b.split(";")[0]);
    if (a === "BAPI" || (a === "" && chance(0.02))) return [];
    return a === "" ? line("", "0000", " ", c.split(";")[0].replace("(1)", "(01)")) : line(a, chance(0.05) ? "9999" : b.split(";")[0], "X");
  });
  files["recorded.txt"] = recorded.join("");
  run.recordings = ["recorded.txt"];
}

export function makeCase(index, seed, formulas) {
  const random = makeRandom(seed * 7919 + index);
  const { chance, pick, from } = random;
  const s = chooseShape(random);
  const fields = makeRecords(s, random, formulas);
  const { rows, conditions, calls, variables } = makeProgram(s, fields, random);
  const run = { parameters: {}, files: [], tables: [], fails: {} };
  const source = s.input === "table" ? "zmain" : s.fileParameter && chance(0.4) ? "" : pick(["c:\\data\\Main.txt", "c:\\data\\Main.txt", "main.txt"]);
  const { files, lines, ids } = makeInput(s, fields, rows, source, run, random);
  const own = s.input === "own" ? makeOwnSource(s, lines, run, random) : { variables: "", code: "", forms: "" };

  if (chance(0.5)) run.parameters.P_VAR = pick(["Given", "a b", "x".repeat(15), "$"]);
  if (chance(0.4)) run.parameters.P_FLAG = "X";
  const refusals = s.kind === "bapi" ? ["refused", "A:Ended", "W  two blanks"] : ["refused", "p".repeat(49) + " and  a second piece that goes on for more than fifty characters"];
  for (let n = 1; n <= s.total; ++n) if (chance(0.25)) run.fails[n] = pick(refusals);
  if (chance(0.15)) run.records = [from(1, 2), from(2, 4)];
  makeChecks(rows, run, files, random);
  const runs = [run];
  const repeat = (fails, batch = "1") => ({ ...run, files: chance(0.5) ? run.files : [], records: undefined, fails, parameters: { ...run.parameters, OLDBATCH: "X", BATCHNUM: batch } });
  if (s.errors && !s.conventions) runs.push(repeat({ 1: "refused" }), repeat(chance(0.3) ? { 2: "refused" } : {}), chance(0.3) ? repeat({}, "") : { ...run, fails: { 2: "refused" } });

  const manual = chance(0.3);
  const document = [
    ...[...new Set(lines.flat())].map((f) => recordOfDocument(1, f.name, String(f.width), "", f.code)),
    ...rows.map((row) => recordOfDocument(2, ...row)),
    recordOfDocument(3, 1, ["server", "table"].includes(s.input), s.input === "table" ? 1 : 0, s.fileParameter ? 1 : 0, s.call ? 1 : 0, pick(["A", "N", "E"]), "report.abap", source, s.input === "server" ? chance(0.5) : s.fixed),
    recordOfDocument(4, "", "", "", "", "", 0, "", "", "ZDATAERRORS"),
    recordOfDocument(5, 1, 1, 1, 1, 1, manual ? "M" : "A", manual ? "MANUAL_NAME_1" : "", s.partly ? "P" : "A", s.spaceCode),
    ...[...conditions].map(([name, code]) => recordOfDocument(6, name, code)),
    recordOfDocument(7, s.input === "own", own.variables, own.forms, own.code, variables, s.single ? "O" : "M", s.single ? ids.join(",") : "", s.errors ? 1 : 0, chance(0.5) ? 1 : 0),
    ...[...calls].map(([name, call]) => recordOfDocument(8, name, call)),
    recordOfDocument(9, String(4500 + index), chance(0.6) ? 1 : 0, chance(0.3) ? 1 : 0),
  ].join("");
  const settings = {};
  if (s.conventions) settings["Activate Naming Conventions"] = "Yes";
  if (chance(0.3)) settings["Upload function"] = "WS_UPLOAD";
  if (chance(0.3)) settings["Dataset Additions"] = "NONE";
  return { name: pick(["load.qor", "Purchase orders.qor", "Carga de clientes.qor", "aeiouaeiou.qor"]), document, settings, files, runs };
}
