// Checks the checks: each fault of the reports in broken/ is found at its place, and no other, and none in those of legal/.
//
// A comment line "*<< text" announces a fault of the next line that is none of these, and a part of its message.

import { readdirSync, readFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

import { faultsOf } from "./faults.mjs";

const here = dirname(fileURLToPath(import.meta.url));
const mark = "*<< ";

function announcedIn(lines) {
  return lines.flatMap((line, i) => {
    if (!line.startsWith(mark)) return [];
    const row = lines.findIndex((other, j) => j > i && !other.startsWith(mark)) + 1;
    return [{ row, text: line.slice(mark.length).trimEnd() }];
  });
}

let reports = 0;
let announcements = 0;
let differences = 0;
for (const directory of ["broken", "legal"]) {
  for (const name of readdirSync(join(here, directory)).sort()) {
    const source = new TextDecoder("windows-1252").decode(readFileSync(join(here, directory, name)));
    const announced = announcedIn(source.split("\n"));
    const found = faultsOf(source);
    const fits = (mark, fault) => mark.row === fault.row && fault.message.includes(mark.text);
    const missing = announced.filter((mark) => !found.some((fault) => fits(mark, fault)));
    const unknown = found.filter((fault) => !announced.some((mark) => fits(mark, fault)));
    for (const { row, text } of missing) console.log(`${directory}/${name}:${row}: not found: ${text}`);
    for (const { row, message } of unknown) console.log(`${directory}/${name}:${row}: not announced: ${message}`);
    reports++;
    announcements += announced.length;
    differences += missing.length + unknown.length;
  }
}
console.log(`${reports} reports, ${announcements} faults, ${differences} differences`);
process.exitCode = differences === 0 && announcements > 0 ? 0 : 1;
