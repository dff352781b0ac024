// Parses ABAP reports and fails on every line that the parser does not take.
//
//   node check.mjs [--qorgen PROGRAM] [DIRECTORY...]
//
// Looks at the expected reports of the examples, at every *.abap file below each DIRECTORY, and, given the program, at the
// reports that it generates from the examples' documents now. Reports are bytes in windows-1252; the syntax is that of release
// 7.02 with everything obsolete allowed. Only syntax is asked for: names of tables, programs and function modules stay unknown.
//
// Exit status: 0 all reports parse, 1 some do not, 2 nothing to check or wrong arguments.

import { spawnSync } from "node:child_process";
import { existsSync, mkdtempSync, readdirSync, readFileSync, rmSync, statSync } from "node:fs";
import { tmpdir } from "node:os";
import { basename, dirname, join, relative, resolve } from "node:path";
import { fileURLToPath } from "node:url";

import abaplint from "@abaplint/core";

// Lines that reports hold on purpose although no parser takes them. `report` is matched against the path, `line` against the text
// of the line at which the parser stops.
const intendedSlips = [
  // { report: /$/, line: /^$/, slip: "what the line does in the system, and why it stays" },
];

const root = resolve(dirname(fileURLToPath(import.meta.url)), "..", "..");
const config = new abaplint.Config(
  JSON.stringify({
    global: { files: "/**/*.*" },
    syntax: { version: "v702", errorNamespace: "." },
    rules: { parser_error: true },
  }),
);

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

// The places at which the parser stops, as { row, text, message }.
function faultsOf(path) {
  const source = new TextDecoder("windows-1252").decode(readFileSync(path));
  const lines = source.split(/\r\n|\n|\r/);
  const registry = new abaplint.Registry(config);
  registry.addFile(new abaplint.MemoryFile("zreport.prog.abap", source));
  return registry
    .parse()
    .findIssues()
    .map((issue) => {
      const row = issue.getStart().getRow();
      return { row, text: lines[row - 1] ?? "", message: issue.getMessage() };
    });
}

function parseArguments(words) {
  const directories = [];
  let qorgen;
  for (let i = 0; i < words.length; i++) {
    if (words[i] === "--qorgen") {
      qorgen = words[++i];
      if (qorgen === undefined || !existsSync(qorgen)) fail(`no program: ${qorgen}`);
    } else if (existsSync(words[i]) && statSync(words[i]).isDirectory()) {
      directories.push(words[i]);
    } else {
      fail(`no directory: ${words[i]}`);
    }
  }
  return { qorgen, directories };
}

function fail(message) {
  console.error(`check.mjs: ${message}`);
  process.exit(2);
}

const { qorgen, directories } = parseArguments(process.argv.slice(2));
const temporary = mkdtempSync(join(tmpdir(), "qor-abap-"));
process.on("exit", () => rmSync(temporary, { recursive: true, force: true }));

const reports = [
  ...expectedReports(),
  ...(qorgen ? generate(resolve(qorgen), temporary) : []),
  ...directories.flatMap((directory) => filesBelow(directory, ".abap")),
];
if (reports.length === 0) fail("no report to check");

let faults = 0;
let allowed = 0;
for (const report of reports) {
  const name = report.startsWith(temporary) ? `generated ${basename(report)}` : relative(root, report);
  for (const { row, text, message } of faultsOf(report)) {
    if (intendedSlips.some((slip) => slip.report.test(report) && slip.line.test(text))) {
      allowed++;
    } else {
      faults++;
      console.log(`${name}:${row}: ${message}\n    ${text}`);
    }
  }
}
console.log(`${reports.length} reports, ${faults} faults, ${allowed} intended slips`);
process.exitCode = faults === 0 ? 0 : 1;
