// What a BAPI of the practice system makes of its parameters.

import { before, behind, clear, constant, isInitial, move, shown } from "./storage.mjs";
import { outOfList } from "./screens.mjs";

export const copyOf = (fields) => Object.fromEntries(Object.entries(fields).map(([name, cell]) => [name, { ...cell }]));
const shownFields = (fields) => Object.fromEntries(Object.entries(fields).flatMap(([n, c]) => (isInitial(c) ? [] : [[n, shown(c)]])));

// The parameters of a call text by section, each as its name and the variable.
function parametersOf(call, globals) {
  const sections = { EXPORTING: [], IMPORTING: [], TABLES: [] };
  let section;
  for (const line of call.split("\r\n").map((l) => l.trim().replace(/\.$/, ""))) {
    if (sections[line]) section = sections[line];
    else if (line.includes(" = ")) section.push([before(line, " = "), globals.get(behind(line, " = ").trim())]);
  }
  return sections;
}

function reasonToRefuse(name, { EXPORTING, TABLES }, run, files, catalogue) {
  const description = behind(catalogue, `\n2 ${name}\r\n`).split("\n2 ")[0];
  const mandatory = [...description.matchAll(/^4 (\w+)::[IT]:/gm)].map((m) => m[1]).filter((parameter) => parameter !== "RETURN");
  const blank = [
    ...EXPORTING.filter(([, v]) => (v.fields ? Object.values(v.fields).every(isInitial) : isInitial(v))),
    ...TABLES.filter(([, v]) => v.rows.length === 0),
  ].map(([parameter]) => parameter);
  const missing = mandatory.find((parameter) => blank.includes(parameter));
  if (missing) return `Parameter ${missing} is missing or initial`;
  const cells = [...EXPORTING.map(([n, v]) => v.fields ?? { [n]: v }), ...TABLES.flatMap(([n, v]) => (n === "RETURN" ? [] : v.rows))];
  const wrong = cells.flatMap(Object.entries).find(([n, c]) => outOfList(run, files, n, String(shown(c))));
  return wrong && `Entry ${shown(wrong[1])} does not exist`;
}

// Calls it: answers its event, the row of RETURN where it has one, and whether it failed.
export function callBapi(name, call, globals, run, files, catalogue, refusal) {
  const { EXPORTING, IMPORTING, TABLES } = parametersOf(call, globals);
  const [, type, text] = /^(?:([A-Z]):)?(.*)$/.exec(refusal ?? "");
  const reason = reasonToRefuse(name, { EXPORTING, TABLES }, run, files, catalogue);
  const failed = Boolean(reason || text);
  for (const [parameter, v] of IMPORTING) if (parameter !== "RETURN") Object.values(v.fields ?? [v]).forEach(clear);
  const returned = [...IMPORTING, ...TABLES].find(([parameter]) => parameter === "RETURN")?.[1];
  const answer = returned && copyOf(returned.fields);
  if (returned) {
    const said = failed ? [(!reason && type) || "E", "QP", "001", reason || text] : ["S", "00", "355", "Transaction was processed"];
    Object.values(answer).forEach(clear);
    ["TYPE", "ID", "NUMBER", "MESSAGE"].forEach((component, i) => move(constant(said[i]), answer[component]));
    if (TABLES.some(([, v]) => v === returned)) returned.rows = [answer];
    else Object.assign(returned.fields, answer);
  }
  const exports = Object.fromEntries(EXPORTING.map(([n, v]) => [n, v.fields ? shownFields(v.fields) : shown(v)]));
  const tables = Object.fromEntries(TABLES.map(([n, v]) => [n, v.rows.map(shownFields)]));
  return { event: { function: name, exports, tables, subrc: 0 }, answer, failed };
}
