// Runs made documents through `qorgen run` and compares all that it says with the model.
//   node compare.mjs QORGEN DATA-DIRECTORY WORK-DIRECTORY [NUMBER [SEED [FIRST]]]
// The files of a document that differs stay in the work directory.

import { execFile } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join, resolve } from "node:path";

import { formulaTexts, makeCase } from "./make_documents.mjs";
import { practise } from "./model.mjs";
import { Specification } from "./specification.mjs";
import { ErrorTable } from "./storage.mjs";
import { readFormulas } from "./user_code.mjs";

const [qorgen, data, work] = process.argv.slice(2, 5).map((path) => resolve(path));
const [number, seed, first] = [300, 1, 0].map((usual, i) => Number(process.argv[5 + i] ?? usual));
const read = (name) => readFileSync(join(data, name), "latin1");
const formulas = formulaTexts(read("formulas.txt"));
const world = { formulas: readFormulas(read("formulas.txt")), catalogue: read("BAPI46C"), now: { date: "20041109", time: "113320" } };
const environment = { ...process.env, SOURCE_DATE_EPOCH: "1100000000", XDG_DATA_HOME: work };

function call(directory, ...args) {
  const options = { cwd: directory, env: environment, maxBuffer: 1 << 28 };
  const all = ["--data", data, "--settings", directory, ...args];
  return new Promise((done) => execFile(qorgen, all, options, (error, stdout, stderr) => done({ stdout, stderr, status: error ? (error.signal ?? error.code) : 0 })));
}

const pairs = (option, given) => given.flatMap(([name, value]) => [option, `${name}=${value}`]);
const argumentsOf = (run) => [
  ...pairs("--param", Object.entries(run.parameters)), ...pairs("--file", run.files), ...pairs("--table", run.tables), ...pairs("--fail", Object.entries(run.fails)),
  ...(run.recordings ?? []).flatMap((path) => ["--recording", path]), ...(run.records ? ["--records", run.records.join("-")] : []), ...(run.values ? ["--values", "values"] : []),
];

// What the model can't know of a dump is where it happened.
const comparable = (text) => text.replace(/^(\{"event":"dump","record":\d+,"error":"\w+").*$/gm, "$1}");

function difference(what, expected, found) {
  if (expected === found) return "";
  const [a, b] = [expected, found].map((text) => String(text).split("\n"));
  const at = a.findIndex((line, i) => line !== b[i]);
  return `  ${what}, line ${at + 1}\n    expected ${a[at] ?? "(end)"}\n    found    ${b[at] ?? "(end)"}\n`;
}

// What differs; each run of a document meets the error table of those before it.
async function tryCase(index) {
  const made = makeCase(index, seed, formulas);
  const directory = join(work, `case${index}`);
  rmSync(directory, { recursive: true, force: true });
  const settings = Object.entries(made.settings).map((pair) => `${pair.join("=")}\r\n`).join("");
  for (const [name, text] of Object.entries({ ...made.files, [made.name]: made.document, "Tessaline.ini": settings })) {
    mkdirSync(dirname(join(directory, name)), { recursive: true });
    writeFileSync(join(directory, name), text, "latin1");
  }
  const spec = new Specification(made.document, made.name, made.settings);
  const table = new ErrorTable();
  const system = spec.errors ? ["--system", "system.sqlite"] : [];
  for (const [n, run] of made.runs.entries()) {
    const journal = `journal${n}.txt`;
    const args = ["run", made.name, ...argumentsOf(run), ...system, "--journal", journal];
    const expected = practise(spec, run, made.files, table, world);
    writeFileSync(join(directory, journal), "");
    const found = await call(directory, ...args);
    const orphans = found.stderr.split("\n").filter((line) => line.endsWith("belong to no record")).map((line) => `${line}\n`).join("");
    let told = difference("status", expected.status, found.status);
    told += difference("journal", expected.journal, comparable(readFileSync(join(directory, journal), "utf8")));
    told += difference("standard output", expected.stdout, found.stdout);
    told += difference("lines of no record", expected.orphans, orphans);
    if (spec.errors && spec.compiles && n === made.runs.length - 1) told += difference("error table", table.csv(), (await call(directory, "system", ...system, "show", spec.errorTable)).stdout);
    if (told !== "") return `case ${index}, run ${n + 1}: cd ${directory}; qorgen ${args.map((a) => `'${a}'`).join(" ")}\n${told}  standard error: ${found.stderr}\n`;
  }
  rmSync(directory, { recursive: true });
  return "";
}

const waiting = Array.from({ length: number }, (_, i) => first + i);
let wrong = 0;
async function workOff() {
  while (waiting.length > 0) {
    const told = await tryCase(waiting.shift());
    wrong += told === "" ? 0 : 1;
    process.stdout.write(told);
  }
}
await Promise.all([workOff(), workOff(), workOff()]);
console.log(`${number} documents, ${wrong} of them differ`);
process.exit(wrong === 0 && number > 0 ? 0 : 1);
