// The code that documents bring along: conditions, small statements, and the formulas that the program offers, by their names.

import { cut, fit } from "./storage.mjs";

const SMALL = /[a-z\xe0-\xf6\xf8-\xfe\x9a\x9c\x9e]/g;
const GREAT = /[A-Z\xc0-\xd6\xd8-\xde\x8a\x8c\x8e]/g;
const shift = (c, by) => String.fromCharCode(c.charCodeAt(0) + by);
const isMark = (c) => c >= "\x80" && c < "\xa0"; // whose capitals stand 16 places away, not 32
const upper = (s) => s.replace(SMALL, (c) => shift(c, isMark(c) ? -16 : -32)).replaceAll("\xff", "\x9f");
const lower = (s) => s.replace(GREAT, (c) => shift(c, isMark(c) ? 16 : 32)).replaceAll("\x9f", "\xff");

const swap = (s, from, to) => [...s].map((c) => to[from.indexOf(c)] ?? c).join("");
const dense = (s) => s.replace(/ /g, "");
const left = (s) => s.replace(/^ +/, "");
const right = (s) => cut(s).padStart(s.length);
const parts = (s, places, between = "") => places.map(([at, n]) => cut(s.substr(at, n))).join(between);
const unlessBlank = (change) => (s, now) => (cut(s) === "" ? s : change(s, now));
const ACCENTS = ["\xc0\xc1\xc2\xc3\xc4\xc5\xc7\xc8\xc9\xca\xcb\xcc\xcd\xce\xcf\xd1\xd2\xd3\xd4\xd5\xd6\xd9\xda\xdb\xdc\xdd", "AAAAAACEEEEIIIINOOOOOUUUUY"];
const today = (s, now) => parts(now.date, [[6, 2], [4, 2], [0, 4]], ".");
const addZeros = (s) => (/^[\d ]*$/.test(s) ? right(s).slice(0, 30).replace(/ /g, "0") + right(s).slice(30) : s);

// Each takes the whole field and answers its new content, to be cut or padded.
const formulas = {
  "Upper case": upper,
  "Lower case": lower,
  "Accented capitals to plain ones": (s) => swap(s, ...ACCENTS),
  "Trim: no blanks in front": left,
  "Trim: single blanks between words": (s) => left(s).replace(/ +/g, " "),
  "Trim: no blanks at all": dense,
  "Trim: right-justify": right,
  "Leading zeros: add, fields up to 30 characters": unlessBlank(addZeros),
  "Leading zeros: add, by the ALPHA conversion": (s) => (/^\d+$/.test(s.trim()) ? s.trim().padStart(s.length, "0") : left(s)),
  "Leading zeros: remove": unlessBlank((s) => cut(s.replace(/^0+/, "")) || "0"),
  "Date: DD.MM.YYYY to YYYYMMDD": (s) => parts(s, [[6, 4], [3, 2], [0, 2]]),
  "Date: MM/DD/YYYY to YYYYMMDD": (s) => parts(s, [[6, 4], [0, 2], [3, 2]]),
  "Date: YYYY-MM-DD to YYYYMMDD": (s) => parts(s, [[0, 4], [5, 2], [8, 2]]),
  "Date: DD.MM.YY to YYYYMMDD, 50 to 99 are 19..": unlessBlank((s) => (s.substr(6, 2) < "50" ? "20" : "19") + parts(s, [[6, 2], [3, 2], [0, 2]])),
  "Date: YYYYMMDD to DD.MM.YYYY": unlessBlank((s) => parts(s, [[6, 2], [4, 2], [0, 4]], ".")),
  "Date: YYYYMMDD to MM/DD/YYYY": unlessBlank((s) => parts(s, [[4, 2], [6, 2], [0, 4]], "/")),
  "Date of the run: YYYYMMDD": (s, now) => now.date,
  "Date of the run: format of the user": today,
  "Date of the run, where the field is blank": (s, now) => cut(s) || today(s, now),
  "Time of the run: HHMMSS": (s, now) => now.time,
  "User of the run": () => "PRACTICE",
  "Number: decimal comma to point": (s) => swap(s, ",", "."),
  "Number: decimal point to comma": (s) => swap(s, ".", ","),
  "Number: 1.234,56 to 1234.56": (s) => dense(swap(s, ".,", " .")),
  "Number: 1,234.56 to 1234,56": (s) => dense(swap(s, ",.", " ,")),
  "Number: sign from the end to the front": (s) => (s.indexOf("-") > 0 ? "-" + dense(swap(s, "-", " ")) : s),
  "Number: sign from the front to the end": (s) => (left(s)[0] === "-" ? dense(left(s).slice(1)) + "-" : left(s)),
  "Remove points, commas, hyphens and slashes": (s) => dense(swap(s, ".,-/", "    ")),
  "Check box: Y, YES, 1 to X, all others to blank": (s) => (["Y", "YES", "1", "X"].includes(cut(upper(s))) ? "X" : ""),
  "Blank: replace by a value": (s) => cut(s) || "VALUE",
  "Blank: leave the field of the screen as it is": (s) => cut(s) || "/",
};

const flat = (code) => code.split(/\r?\n/).filter((line) => line[0] !== "*" && !line.includes("@ ")).join(" ").replace(/\s+/g, " ").trim();

// The formulas of a file of them, by their code on one line with "!" for the field.
export const readFormulas = (text) => new Map([...text.matchAll(/^\[(.*)\]\r?\n([^[]*)/gm)].map(([, name, code]) => [flat(code), formulas[name]]));

// Runs code. `scope` gives the cell of a name ("#F" for a field of the main record) and empties tables of step-loops.
export function execute(code, scope, known, now) {
  let text = flat(code);
  const field = /#\w+/.exec(text)?.[0];
  const formula = field && known.get(text.replaceAll(field, "!"));
  if (formula) {
    const cell = scope.cell(field);
    cell.text = fit(formula(cell.text, now), cell.text.length);
    return;
  }
  function value(token) {
    if (token[0] === "'") return token.slice(1, -1) || " ";
    return /^(SPACE|(GC_)?NO)$/.test(token) ? " " : /^(GC_)?YES$/.test(token) ? "X" : scope.cell(token).text;
  }
  function compare(a, operator, b) {
    const [x, y] = [cut(value(a)), cut(value(b))];
    return operator === "CS" ? upper(x).includes(upper(y)) : (x === y) === (operator !== "NE");
  }
  function holds(words) {
    const or = words.indexOf("OR");
    if (or >= 0) return holds(words.slice(0, or)) || holds(words.slice(or + 1));
    return compare(...words) && (words.length < 4 || holds(words.slice(4)));
  }
  const blocks = []; // of IF and CASE: whether the present branch is on, and whether one was
  while (text !== "") {
    const statement = /^(?:'[^']*'|[^'.])*/.exec(text)[0];
    text = text.slice(statement.length + 1).trim();
    const [verb, ...words] = statement.match(/'[^']*'|[^ ]+/g);
    const block = blocks.at(-1);
    const enter = (on) => Object.assign(block, { on: block.outer && !block.done && on, done: block.done || on });
    if (verb === "IF" || verb === "CASE") {
      const outer = blocks.every((b) => b.on);
      const on = verb === "IF" && outer && holds(words);
      blocks.push({ outer, on, done: on, subject: words[0] });
    } else if (verb === "ELSE") enter(true);
    else if (verb === "WHEN") enter(words[0] === "OTHERS" || compare(block.subject, "EQ", words[0]));
    else if (verb === "ENDIF" || verb === "ENDCASE") blocks.pop();
    else if (!blocks.every((b) => b.on)) continue;
    else if (verb === "REFRESH") scope.refresh(words[0]);
    else if (words[0] === "=") scope.cell(verb).text = fit(value(words[1]), scope.cell(verb).text.length);
    else throw new Error(`code that the model does not know: ${statement}`);
  }
}
