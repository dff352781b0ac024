// Runs generated reports in the practice system and on the transpiler's engine, and compares what they send event by event.
//   node compare.mjs --qorgen QORGEN [NUMBER OF MADE DOCUMENTS [FIRST]]
// What they do otherwise stands in `known` with its reason; anything else is a failure.

import { spawnSync } from "node:child_process";
import { copyFileSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { formulaTexts, makeCase } from "../make_documents.mjs";
import { openDatabase, readText, run, transpile } from "./run.mjs";

const examples = fileURLToPath(new URL("../../../examples", import.meta.url));
const bytes = (path) => readFileSync(path, "latin1");

// The examples, and their files by parameter.
const inputs = {
  mm01: { document: "materials", files: [["FILE", "materials.txt"]] },
  va01: { document: "orders", files: [["FILE", "orders.txt"], ["SLOOP_1", "items.txt"]] },
  "va01-one-file": { document: "orders", files: [["FILE", "orders.txt"]] },
  "bapi-sales-order": { document: "orders", files: [["FILE", "orders.txt"], ["SLOOP_1", "items.txt"], ["SLOOP_2", "partners.txt"]] },
  "native-sql": { document: "purchases", files: [], tables: [["ZPO_HEAD", "zpo_head.csv"], ["ZPO_ITEM", "zpo_item.csv"]] },
  fb01: { document: "postings", files: [["/data/in/postings.txt", "postings.txt"]] },
  xd01: { document: "customers", files: [["FILE", "customers.txt"]], settings: true },
};

// What the engines do otherwise, by event: what is brought into one form before the events are compared, and why.
const known = [
  {
    why: "the other engine knows neither the line nor the cell of a dump, and has other words for it",
    event: "dump",
    apply: (dump) => ["line", "table", "row", "column", "text"].forEach((key) => delete dump[key]),
  },
  {
    why: "the structures of BAPIs, which no dictionary there knows, have their components in the order of the source; here in that of the catalogue",
    event: "bapi",
    apply(bapi) {
      const inOrder = (value) => (typeof value === "object" ? Object.fromEntries(Object.entries(value).sort()) : value);
      for (const [name, value] of Object.entries(bapi.exports)) bapi.exports[name] = inOrder(value);
      for (const [name, rows] of Object.entries(bapi.tables)) bapi.tables[name] = rows.map(inOrder);
    },
  },
];

// What is beyond the other engine.
const beyond = /\bSELECT\b[^.]*\bINTO\s*\(/; // its loop fills the first field only, and it needs the table's definition

function shown(line) {
  const event = JSON.parse(line);
  for (const difference of known) if (difference.event === event.event) difference.apply(event);
  return JSON.stringify(event);
}

const pairs = (option, given) => given.flatMap(([name, value]) => [option, `${name}=${value}`]);

// Both engines on one document and its runs, each of which meets the error table of those before it. Answers what differs, or nothing where
// the report is beyond the other engine or both refuse it.
async function compare(qorgen, folder, { document, settings, runs }) {
  const given = ["--settings", settings];
  const report = join(folder, "report.abap");
  const generated = spawnSync(qorgen, [...given, "--yes", "generate", document, "-o", report], { encoding: "utf8" });
  if (generated.status !== 0) return [`not generated: ${generated.stderr}`];
  const source = readText(report);
  if (beyond.test(source)) return undefined;
  const database = await openDatabase();
  const system = join(mkdtempSync(join(folder, "system-")), "system.sqlite"); // where no value lists are
  const program = await transpile(source).catch((error) => error);
  const differences = [];
  for (const { files, tables = [], parameters = {}, fails = {} } of runs) {
    const journal = join(folder, "journal");
    writeFileSync(journal, "");
    const options = [...pairs("--file", files), ...pairs("--table", tables), ...pairs("--param", Object.entries(parameters)), ...pairs("--fail", Object.entries(fails))];
    const { status, stdout, stderr } = spawnSync(qorgen, [...given, "run", document, "--system", system, "--journal", journal, ...options], { encoding: "utf8" });
    const practised = readFileSync(journal, "utf8");
    if (program instanceof Error) return practised !== "" || status !== 1 ? [`only the transpiler refuses: ${program.message}`] : undefined;
    if (practised === "") return [...differences, `only the practice system refuses: ${stderr}`];
    const other = await run(program, { files, tables, parameters, fails, database });
    const events = other.journal.map((event) => shown(JSON.stringify(event)));
    for (const [what, ours, theirs] of [["event", practised.trimEnd().split("\n").map(shown), events], ["list", stdout.trimEnd().split("\n").slice(0, -1), other.list]])
      for (let i = 0; i < Math.max(ours.length, theirs.length); ++i) {
        if (ours[i] === theirs[i]) continue;
        differences.push(`${what} ${i + 1}\n  practice   ${ours[i]}\n  transpiled ${theirs[i]}`);
        break;
      }
  }
  return differences;
}

// An example as it is; its second record fails where it comes that far.
function prepareExample(folder, example) {
  const { document, files, tables = [], settings } = inputs[example];
  const from = join(examples, example);
  const copy = join(folder, `${document}.qor`); // which nobody else has open
  copyFileSync(join(from, `${document}.qor`), copy);
  const placed = (given) => given.map(([name, file]) => [name, join(from, file)]);
  return { document: copy, settings: settings ? from : folder, runs: [{ files: placed(files), tables: placed(tables), fails: { 2: "Not today" } }] };
}

// A made document, without the checks of screens that the other engine has not.
function prepareMade(folder, { name, document, settings, files, runs }) {
  const ini = Object.entries(settings).map((pair) => `${pair.join("=")}\r\n`).join("");
  for (const [file, text] of Object.entries({ ...files, [name]: document, "Tessaline.ini": ini })) {
    mkdirSync(dirname(join(folder, file)), { recursive: true });
    writeFileSync(join(folder, file), text, "latin1");
  }
  const placed = (given) => given.map(([of, path]) => [of, join(folder, path)]);
  const withoutChecks = ({ files: input, tables, parameters, fails }) => ({ files: placed(input), tables: placed(tables.filter(([, path]) => path !== "screen.csv")), parameters, fails });
  return { document: join(folder, name), settings: folder, runs: runs.map(withoutChecks) };
}

const [option, program, number = 15, first = 0] = process.argv.slice(2);
if (option !== "--qorgen" || !program) {
  console.error("usage: node compare.mjs --qorgen QORGEN [NUMBER OF MADE DOCUMENTS [FIRST]]");
  process.exit(2);
}
const qorgen = resolve(program);
const formulas = formulaTexts(bytes(join(examples, "../data/formulas.txt")));
const cases = [...Object.keys(inputs).map((example) => ({ example })), ...Array.from({ length: Number(number) }, (_, i) => ({ made: Number(first) + i }))];
const work = mkdtempSync(join(tmpdir(), "transpiled-"));
process.env.SOURCE_DATE_EPOCH = "1100000000";
let failures = 0;
let leftOut = 0;
try {
  for (const [i, one] of cases.entries()) {
    const folder = join(work, String(i));
    mkdirSync(folder);
    process.chdir(folder); // where both look for a file without a directory
    const prepared = one.example ? prepareExample(folder, one.example) : prepareMade(folder, makeCase(one.made, 1, formulas));
    const differences = await compare(qorgen, folder, prepared);
    for (const difference of differences ?? []) console.log(`${JSON.stringify(one)}\n${difference}\n`);
    failures += differences?.length > 0;
    leftOut += differences === undefined;
  }
} finally {
  process.chdir(tmpdir());
  rmSync(work, { recursive: true });
}
console.log(`${cases.length} documents, ${leftOut} left out, ${failures} with differences`);
process.exit(failures === 0 && leftOut * 3 < cases.length ? 0 : 1);
