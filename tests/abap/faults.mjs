// The faults of a report: those that the package sees, and those of checks of our own.

import abaplint from "@abaplint/core";

import { errorTableOf, standardTables } from "./dictionary.mjs";
import { checkBalance, checkOfOurOwn, Program } from "./own_checks.mjs";

// The rules of the package that tell what a compiler refuses. The syntax is that of release 7.02 with everything obsolete allowed.
const config = new abaplint.Config(
  JSON.stringify({
    global: { files: "/**/*.*" },
    syntax: { version: "v702", errorNamespace: "^(Z|Y)" },
    rules: {
      parser_error: true,
      check_syntax: true,
      unknown_types: true,
      begin_end_names: true,
      identical_form_names: true,
      when_others_last: true,
      parser_missing_space: true,
    },
  }),
);

const reportFile = "zreport.prog.abap";
const registry = new abaplint.Registry(config).addFiles(standardTables);

// As { row, message, text }, by rows. `source` is the report's text.
export function faultsOf(source) {
  const errorTable = errorTableOf(source);
  const files = [...(errorTable ? [errorTable] : []), new abaplint.MemoryFile(reportFile, source)];
  for (const file of files) registry.addFile(file);
  const object = registry.parse().getObject("PROG", "ZREPORT");
  const issues = [...registry.findIssuesObject(object)];
  const { spaghetti } = new abaplint.SyntaxLogic(registry, object).run();
  const program = new Program(source, object.getMainABAPFile(), spaghetti);
  const unbalanced = [...checkBalance(program)];
  const seen = issues
    .filter((issue) => unbalanced.length === 0 || issue.getKey() !== "structure")
    .map((issue) => ({ row: issue.getStart().getRow(), message: issue.getMessage() }));
  for (const file of files) registry.removeFile(file);

  const faults = new Map();
  for (const { row, message } of [...seen, ...unbalanced, ...checkOfOurOwn(program)])
    faults.set(`${row} ${message}`, { row, message, text: program.lines[row - 1] ?? "" });
  return [...faults.values()].sort((a, b) => a.row - b.row);
}
