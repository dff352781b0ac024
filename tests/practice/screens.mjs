// What the practice transaction says to the screens that it is sent.

import { before, cut, fit, linesOf, readCsv } from "./storage.mjs";

const TEXTS = {
  "00 344": "No batch input data for screen & &",
  "00 349": "Field & does not exist in the screen & &",
  "00 352": "Formatting error in the field &",
  "00 058": "Entry & does not exist",
  "00 355": "Transaction was processed",
  "QP 001": "&&&&",
};

function textOf(key, values) {
  const text = values.reduce((t, value) => t.replace("&", () => cut(value)), TEXTS[key]);
  return cut(text.replace(/ {2,}/g, " "));
}

// Recordings as transaction -> screen -> names of its fields.
function readRecordings(texts) {
  const recorded = new Map();
  let transaction;
  let fields;
  const entered = (map, key, value) => map.get(key) ?? (map.set(key, value), value);
  for (const line of texts.flatMap(linesOf)) {
    const name = cut(line.slice(45, 177));
    if (line[44] === "T") transaction = entered(recorded, name, new Map());
    else if (line[44] === "X") fields = entered(transaction, line.slice(0, 44), new Set());
    else if (line[44] === " ") fields.add(before(name, "("));
  }
  return recorded;
}

// Whether a value is in none of the lines of the list for its field, where there is one.
export function outOfList(run, files, field, value) {
  const list = run.values ? (files[`values/${field}.txt`] ?? files[`values/${field.split("-").at(-1)}.txt`]) : undefined;
  return list !== undefined && value !== "" && value !== "/" && !linesOf(list).map(cut).includes(value);
}

// Answers what the journal says of a transaction, and the text that the report keeps of its failure.
export function makeTransaction(run, files) {
  const recorded = readRecordings((run.recordings ?? []).map((name) => files[name]));
  const widths = new Map();
  for (const [table, path] of run.tables)
    for (const row of readCsv(files[path]))
      for (const [name, value] of Object.entries(row)) widths.set(`${table}-${name}`, Math.max(widths.get(`${table}-${name}`) ?? 1, value.length));

  function failure(tcode, screens, refusal) {
    if (screens.length === 0) return ["00 344", "", ""];
    const known = recorded.get(tcode);
    for (const { program, dynpro, fields } of screens) {
      const names = known?.get(fit(program, 40) + dynpro);
      if (known && !names) return ["00 344", program, dynpro];
      if (fields === screens.at(-1).fields && refusal !== undefined) return ["QP 001", ...[0, 50, 100, 150].map((at) => refusal.slice(at, at + 50))];
      for (const [name, value] of fields) {
        const field = before(name, "(");
        if (names && !/^BDC_(OKCODE|CURSOR|SUBSCR)$/.test(field) && !names.has(field)) return ["00 349", name, program, dynpro];
        if (value !== "/" && value.length > (widths.get(field) ?? 132)) return ["00 352", name];
        if (outOfList(run, files, field, value)) return ["00 058", value];
      }
    }
  }
  return (tcode, screens, refusal) => {
    const [key, ...values] = failure(tcode, screens, refusal) ?? ["00 355"];
    const subrc = key === "00 355" ? 0 : 1001;
    const messages = [{ type: subrc ? "E" : "S", id: before(key, " "), number: key.slice(3), text: textOf(key, values) }];
    // The report keeps the message with the first 50 bytes of each variable.
    return { event: { subrc, messages }, kept: textOf(key, values.map((value) => value.slice(0, 50))) };
  };
}
