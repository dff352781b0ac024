// Checks ABAP reports and fails on every line that a compiler would refuse.
//
//   node check.mjs [--qorgen PROGRAM] [--json] [DIRECTORY...]
//
// Looks at the expected reports of the examples, at every *.abap file below each DIRECTORY, and, given the program, at the
// reports that it generates from the examples' documents now. Reports are bytes in windows-1252. Besides the syntax it asks for
// names: data objects, components, forms, and what dictionary.mjs knows of a system. With --json it prints
//
//   [{"report": path, "faults": [{"row": 1, "message": "...", "text": the line}]}]
//
// and nothing else.
//
// Beside a report there may be what the program itself finds: X.findings has a line for each finding of X.abap that says that the
// report does not compile, "Q306 112 113", with its lines. Then both are held against each other: the report has a fault at a line of
// each finding, and no fault at any other line. Behind an open literal, or a declaration that is refused, other lines are not looked at:
// what they say is not meant.
//
// Exit status: 0 no report has a fault, 1 some have, 2 nothing to check or wrong arguments.

import { spawnSync } from "node:child_process";
import { existsSync, mkdtempSync, readdirSync, readFileSync, rmSync, statSync } from "node:fs";
import { tmpdir } from "node:os";
import { basename, dirname, join, relative, resolve } from "node:path";
import { fileURLToPath } from "node:url";

import { faultsOf } from "./faults.mjs";

const root = resolve(dirname(fileURLToPath(import.meta.url)), "..", "..");

function filesBelow(directory, extension) {
  return readdirSync(directory)
    .sort()
    .flatMap((name) => {
      const path = join(directory, name);
      if (statSync(path).isDirectory()) return filesBelow(path, extension);
      return name.endsWith(extension) ? [path] : [];
    });
}

function exampleDirectories() {
  const examples = join(root, "examples");
  if (!existsSync(examples)) return [];
  return readdirSync(examples)
    .sort()
    .map((name) => join(examples, name))
    .filter((path) => statSync(path).isDirectory());
}

function expectedReports() {
  return exampleDirectories()
    .map((example) => join(example, "expected"))
    .filter((path) => existsSync(path))
    .flatMap((path) => filesBelow(path, ".abap"));
}

// One report for each example document, in `directory`. An example may bring its settings.
function generate(qorgen, directory) {
  for (const example of exampleDirectories()) {
    for (const document of readdirSync(example).filter((name) => name.endsWith(".qor"))) {
      const report = join(directory, `${basename(example)}-${basename(document, ".qor")}.abap`);
      const words = ["--yes", "--settings", example, "generate", join(example, document), "-o", report];
      const run = spawnSync(qorgen, words, { encoding: "utf8" });
      if (run.status !== 0) fail(`${qorgen} ${words.join(" ")}: status ${run.status}\n${run.stderr}`);
    }
  }
  return filesBelow(directory, ".abap");
}

function parseArguments(words) {
  const directories = [];
  let qorgen;
  let json = false;
  for (let i = 0; i < words.length; i++) {
    if (words[i] === "--qorgen") {
      qorgen = words[++i];
      if (qorgen === undefined || !existsSync(qorgen)) fail(`no program: ${qorgen}`);
    } else if (words[i] === "--json") {
      json = true;
    } else if (existsSync(words[i]) && statSync(words[i]).isDirectory()) {
      directories.push(words[i]);
    } else {
      fail(`no directory: ${words[i]}`);
    }
  }
  return { qorgen, json, directories };
}

function fail(message) {
  console.error(`check.mjs: ${message}`);
  process.exit(2);
}

const { qorgen, json, directories } = parseArguments(process.argv.slice(2));
const temporary = mkdtempSync(join(tmpdir(), "qor-abap-"));
process.on("exit", () => rmSync(temporary, { recursive: true, force: true }));

const reports = [
  ...expectedReports(),
  ...(qorgen ? generate(resolve(qorgen), temporary) : []),
  ...directories.flatMap((directory) => filesBelow(directory, ".abap")),
];
if (reports.length === 0) fail("no report to check");

// The findings of the program beside a report, as { code, rows }; undefined where there is no such file.
function findingsOf(report) {
  const path = report.replace(/\.abap$/, ".findings");
  if (!existsSync(path)) return undefined;
  return readFileSync(path, "utf8")
    .split("\n")
    .filter((line) => line !== "")
    .map((line) => line.split(" "))
    .map(([code, ...rows]) => ({ code, rows: new Set(rows.map(Number)) }));
}

// What a report and the program's findings don't agree on.
function* differences(faults, findings, lines) {
  // The package puts a fault of a part of a chain to the row of the chain.
  const meets = (row, fault) =>
    fault.row === row ||
    (fault.row < row && lines.slice(fault.row - 1, row - 1).every((line) => !line.trimEnd().endsWith(".")));
  const fits = (finding, fault) => [...finding.rows].some((row) => meets(row, fault));
  const told = (fault) => findings.some((finding) => fits(finding, fault));
  for (const finding of findings) {
    const { code, rows } = finding;
    if (!faults.some((fault) => fits(finding, fault))) yield { row: Math.min(...rows), message: `${code}: nothing wrong there`, text: "" };
  }
  const code = lines.findIndex((line) => /^(START-OF-SELECTION|FORM )/.test(line)) + 1;
  const unread = faults.some((fault) => told(fault) && (fault.row < code || fault.message === "literal not closed"));
  if (!unread) yield* faults.filter((fault) => !told(fault));
}

const results = reports.map((report) => {
  const source = new TextDecoder("windows-1252").decode(readFileSync(report));
  const findings = findingsOf(report);
  const faults = faultsOf(source);
  return { report, faults: findings ? [...differences(faults, findings, source.split(/\r\n|\n|\r/))] : faults };
});
const faults = results.reduce((sum, result) => sum + result.faults.length, 0);

if (json) {
  console.log(JSON.stringify(results, null, 1));
} else {
  for (const { report, faults } of results) {
    const name = report.startsWith(temporary) ? `generated ${basename(report)}` : relative(root, report);
    for (const { row, message, text } of faults) console.log(`${name}:${row}: ${message}\n    ${text}`);
  }
  console.log(`${reports.length} reports, ${faults} faults`);
}
process.exitCode = faults === 0 ? 0 : 1;
