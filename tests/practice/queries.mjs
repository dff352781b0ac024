// Fills practice systems with random contents, sends them the query reports and the commands that use these, and compares all answers
// with a reading of the reports of its own.
//   node queries.mjs QORGEN DATA-DIRECTORY WORK-DIRECTORY [NUMBER [SEED [FIRST]]]
// The files of a system that differs stay in the work directory.

import { execFile } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join, resolve } from "node:path";

import { makeContents } from "./queries_contents.mjs";
import * as reading from "./queries_reading.mjs";
import { fit, linesOf, readCsv, toUnicode } from "./storage.mjs";

const [qorgen, data, work] = process.argv.slice(2, 5).map((path) => resolve(path));
const [number, seed, first] = [40, 1, 0].map((usual, i) => Number(process.argv[5 + i] ?? usual));
const template = (n) => linesOf(readFileSync(join(data, `inf00${n}.dat`), "latin1"));
const shipped = reading.readDictionary(readFileSync(join(data, "dictionary.txt"), "latin1"));
const COLUMNS = 72;
const CODE_PAGE = Array.from({ length: 32 }, (_, i) => toUnicode(String.fromCharCode(128 + i)));
const toBytes = (text) => [...text].map((c) => (c > "\xff" ? String.fromCharCode(128 + CODE_PAGE.indexOf(c)) : c)).join("");
const quoted = (...cells) => cells.map((cell) => `"${cell.replaceAll('"', '""')}"`).join(",");

class Difference extends Error {}

// One system, in a directory of its own.
class Trial {
  constructor(index) {
    this.directory = join(work, `system${index}`);
    rmSync(this.directory, { recursive: true, force: true });
    mkdirSync(this.directory, { recursive: true });
    this.contents = makeContents(seed * 7919 + index);
    this.epoch = 1100000000;
  }

  write = (name, text) => writeFileSync(join(this.directory, name), text, "latin1");
  read = (name) => readFileSync(join(this.directory, name), "latin1");

  async call(...args) {
    const environment = { ...process.env, SOURCE_DATE_EPOCH: String(this.epoch), XDG_DATA_HOME: this.directory };
    const all = ["--data", data, "--settings", this.directory, ...args];
    this.last = `cd ${this.directory}; SOURCE_DATE_EPOCH=${this.epoch} qorgen --settings . ${args.map((a) => `'${a}'`).join(" ")}`;
    const options = { cwd: this.directory, env: environment, maxBuffer: 1 << 28 };
    this.found = await new Promise((done) => execFile(qorgen, all, options, (error, stdout, stderr) => done({ stdout, stderr, status: error ? (error.signal ?? error.code) : 0 })));
    this.found.messages = [...this.found.stderr.matchAll(/^(\d+): /gm)].map((m) => Number(m[1])).join(" ");
    return this.found;
  }

  compare(what, expected, found) {
    const [a, b] = [expected, found].map((lines) => (Array.isArray(lines) ? lines : String(lines).split("\n")));
    const at = Array.from({ length: Math.max(a.length, b.length) }, (_, i) => i).find((i) => a[i] !== b[i]);
    if (at === undefined) return;
    throw new Difference(`${what}, line ${at + 1}\n    expected ${a[at] ?? "(end)"}\n    found    ${b[at] ?? "(end)"}\n  ${this.last}\n  standard error: ${this.found.stderr}`);
  }

  async command(status, messages, ...args) {
    const found = await this.call(...args, ...(args[0] === "system" ? ["--system", "s.sqlite"] : []));
    this.compare("status and messages", `${status} ${messages}`, `${found.status} ${found.messages}`);
    return found.stdout;
  }

  // The list of a report, which has to go through the columns of a source line.
  async list(what, report, expected) {
    const long = report.find((line) => line.length > COLUMNS);
    if (long !== undefined) throw new Difference(`${what}: a line of ${long.length} columns: ${long}`);
    this.write("report.abap", report.map((line) => `${line}\r\n`).join(""));
    const { stdout } = await this.call("run", "--report", "report.abap", "--system", "s.sqlite");
    const lines = stdout.split("\n").slice(0, -2);
    if (expected) this.compare(what, expected.map(toUnicode), lines);
    return lines;
  }

  // ---- Filling ----

  async fill() {
    const { sessions, recordings, programs, catalogue, dictionary, widths, tables, role, byOption } = this.contents;
    this.write("catalogue", catalogue.text);
    this.write("dictionary.txt", dictionary.text);
    this.write("widths.txt", widths.text);
    this.write("Tessaline.ini", `FieldsFile=widths.txt\r\nBAPIFile=${byOption ? "missing" : "catalogue"}\r\n`);
    this.world = { catalogue: byOption ? { modules: [], structures: new Map() } : catalogue, entries: new Map([...shipped, ...dictionary.entries]), widths: widths.widths, tables: new Map() };
    for (const { name, csv, columns } of tables) {
      this.write("table.csv", csv);
      await this.command(0, "0", "system", "load", name, "table.csv");
      this.world.tables.set(name, columns);
    }
    this.queue = { BDC: [], "%BDC": [] };
    for (const s of sessions) {
      this.epoch = s.epoch;
      this.write("session.txt", s.content);
      const qid = (await this.command(0, "", "system", "import-session", "session.txt")).trim();
      this.queue.BDC.push({ qid, group: s.group, ...reading.momentOf(s.epoch), transactions: s.transactions });
    }
    for (const r of recordings) {
      this.epoch = r.epoch;
      this.write(r.file, r.content);
      await this.command(0, "0", "system", "record", r.file);
      const group = r.file.slice(0, r.file.lastIndexOf(".")).toUpperCase().slice(0, 12).trimEnd();
      this.queue["%BDC"] = [...this.queue["%BDC"].filter((one) => one.file !== r.file), { file: r.file, group, ...reading.momentOf(r.epoch), transactions: r.transactions }];
    }
    const listed = readCsv(await this.command(0, "", "system", "recordings"));
    for (const entry of this.queue["%BDC"]) entry.qid = listed.find((row) => row.FILE === entry.file)?.QID;
    this.compare("ids that differ", this.all.length, new Set(this.all.map((e) => e.qid).filter((qid) => /^\d{20}$/.test(qid))).size);
    this.programs = [];
    for (const p of programs) await this.publish(p);
    await this.command(0, "", "system", "role", role);
    this.role = role === "none" ? "" : role.toUpperCase();
  }

  get all() {
    return [...this.queue.BDC, ...this.queue["%BDC"]];
  }

  async publish({ name, epoch, yes, composed, text, list, cut }) {
    this.epoch = epoch;
    this.write("program.abap", text);
    const put = () => (this.programs = [...this.programs.filter((p) => p.name !== name), { name, list, date: reading.momentOf(epoch).date }]);
    if (composed) {
      const report = toBytes(await this.command(0, "", "publish", "program.abap", name, "--dry-run")).split("\n").slice(0, -1);
      this.compare("list of the report that installs", "0", (await this.list("report that installs", report)).map((line) => line.trim()));
      return put();
    }
    const question = this.programs.some((p) => reading.isLike(p.name, name)) ? [414] : [];
    const done = yes || question.length === 0;
    await this.command(done ? 0 : 1, [...question, ...(done ? [...(cut ? [419] : []), 410] : [])].join(" "), ...(yes ? ["--yes"] : []), "publish", "program.abap", name.toLowerCase(), "--practice", "s.sqlite");
    if (done) put();
  }

  // ---- The reports ----

  async askReports() {
    const { random } = this.contents;
    const { pick } = random;
    await this.list("inf001", template(1), reading.systemList(this.role));
    const names = ["", "Y*", "*", "Z+*", "z*", "*'*", "%", "_A*", "Z", ...this.programs.flatMap((p) => [p.name, `${p.name}*`, p.name.replace(/./, "+"), p.name.replace(/_/g, "*")])];
    for (const user of ["", pick(["PRACTICE", "PRA*", "+RACTICE", "practice", "O'NEIL", "PRACTICE+", "*"])])
      for (const name of [pick(names), pick(names)]) {
        const conditions = reading.programConditions(user, random.chance(0.5), name);
        const report = template(3).flatMap((line) => (line.includes("<conditions>") ? conditions : [line]));
        await this.list(`inf003 with ${conditions.join(" ")}`, report, reading.programList(this.programs, user, name));
      }
    for (const [type, entries] of Object.entries(this.queue)) {
      await this.list(`inf005 of ${type}`, template(5).map((line) => line.replace("<datatype>", type)), reading.queueList(entries));
      for (const { qid } of [...this.all, { qid: "20041109113320777777" }]) {
        const report = template(6).map((line) => line.replace("<qid>", qid).replace("<datatype>", type));
        await this.list(`inf006 of ${type} ${qid}`, report, reading.entryList(entries.find((entry) => entry.qid === qid)));
      }
    }
    await this.list("inf008", template(8), reading.bapiList(this.world.catalogue));
    const bapis = this.world.catalogue.modules.map((m) => m.name);
    for (const name of new Set([pick(bapis), bapis.at(-1), "BAPI_OF_THIRTY_CHARACTERS_IN_ALL".slice(0, 30)].filter(Boolean))) {
      const report = template(9).map((line) => line.replaceAll("<function>", name));
      await this.list(`inf009 of ${name}`, report, reading.bapiRecords(this.world.catalogue, name));
    }
    const known = [...shipped].flatMap(([structure, { fields }]) => [...fields.keys()].map((field) => [structure, field]));
    const asked = random.some(12, () => (random.chance(0.2) ? pick(known) : [pick([...this.contents.structures, "ZLOADED", "ZOWN", "mara", "O'X"]), pick(this.contents.fields)]));
    this.write("asked.txt", asked.map((pair) => pair.map((part) => fit(part, 30)).join("") + "\r\n").join(""));
    const report = (await this.command(0, "", "widths", "--query", "asked.txt")).split("\n").slice(0, -1);
    await this.list(`widths of ${JSON.stringify(asked)}`, report, reading.widthList(this.world, asked));
  }

  // ---- The commands ----

  compareRows(name, tag, expected) {
    const found = this.read(name).split("\r\n").filter((line) => line.startsWith(`${tag},`));
    this.compare(`records ${tag} of ${name}`, expected.map((row) => `${tag},${quoted(...row, ...Array(9 - row.length).fill(""))}`).map(toUnicode), found.map(toUnicode));
  }

  async importAll() {
    const { random } = this.contents;
    const named = (name) => this.all.filter((e) => e.qid === name || reading.toUpper(e.group) === reading.toUpper(name));
    let before = [];
    for (const entry of this.all) {
      const name = random.pick([entry.qid, entry.group, entry.group.toLowerCase()]);
      const clear = named(name).length === 1;
      const how = before.length > 0 && before.length < 900 ? random.pick(["--append", "--replace"]) : "--replace";
      const messages = !clear ? "0" : before.length > 0 ? "330 329" : "329";
      await this.command(clear ? 0 : 1, messages, "import", "imported.qor", toUnicode(name), how, "--practice", "s.sqlite");
      if (!clear) continue;
      before = reading.importedRows(entry, how === "--append" ? before : []);
      this.compareRows("imported.qor", 2, before);
    }
    await this.command(1, "0", "import", "imported.qor", "NO SUCH ENTRY", "--practice", "s.sqlite");
  }

  async lookUpWidths() {
    const { random, structures, fields, beside } = this.contents;
    const { pick, some, chance, upTo } = random;
    const own = some(6, (i) => ({ name: `FILE_${pick(["A", "B"])}${upTo(3)}${i === 5 ? "_A_NAME_OF_30_CHARACTER" : ""}`, width: chance(0.3) ? "7" : "" }));
    const cell = () => (chance(0.2) ? pick(["'CONST'", "@V", ""]) : pick(own).name);
    const short = [...structures, "ZLOADED", "ZOWN"].filter((name) => name.length < 20);
    const variables = new Map(some(4, (i) => [`V${i}`, i < 2 ? pick(short) : `${pick(short)}-${pick(fields.filter((f) => f.length < 20))}`]));
    const fieldOf = (bapi) => {
      if (!bapi) return pick([`${pick(structures)}-${pick(fields)}`, `${pick(short)}-${pick(fields)}`, "BDC_OKCODE"]) + pick(["", "(01)", "(+)"]);
      return chance(0.3) ? pick(["V2", "V3"]) : `${pick(["V0", "V1", "VX"])}-${pick(fields)}${pick(["", "(+)"])}`;
    };
    const rows = ["TRANS", "BAPI", "TRANS"].flatMap((kind) => [[kind, kind === "BAPI" ? "BAPI_X" : "ZT"], ...(kind === "BAPI" ? [] : [["SAPLX", "0100"]]), ...some(5, () => ["", "", fieldOf(kind === "BAPI"), cell()])].map((r) => [...r, "", "", ""].slice(0, 4)));
    const text = [...variables].map(([name, type]) => `DATA: ${name} LIKE ${type}.\r\n`).join("");
    const fileSide = (all) => all.map(({ name, width }) => [name, width]);
    const lines = [...fileSide(own).map((f) => `1,${quoted(...f, ...Array(7).fill(""))}`), ...rows.map((row) => `2,${quoted(...row, ...Array(5).fill(""))}`), `7,#FALSE#,${quoted("", "", "", text, "", "")},0,1`];
    mkdirSync(join(this.directory, "documents"));
    this.write("documents/dictionary.txt", beside.text);
    this.write("documents/widths.qor", lines.map((line) => `${line}\r\n`).join(""));
    const world = { ...this.world, entries: new Map([...this.world.entries, ...beside.entries]) };
    const filled = reading.filledWidths(world, own, rows, variables);
    const blank = [...new Set(filled.filter((f) => f.width === "").map((f) => f.name))];
    await this.command(0, blank.length > 0 ? "0" : "", "widths", "documents/widths.qor", "--practice", "s.sqlite");
    this.compare("fields without a width", blank.join(", "), /no width for (.*)\.\n/.exec(this.found.stderr)?.[1] ?? "");
    this.compareRows("documents/widths.qor", 1, fileSide(filled));
  }

  async updateCatalogue() {
    const { catalogue, byOption } = this.contents;
    const option = byOption ? ["--catalogue", "catalogue"] : [];
    const [head, ...lines] = reading.bapiList(catalogue).slice(0, -1);
    const records = (name) => reading.bapiRecords(catalogue, name).slice(0, -1);
    const expected = ["BAPIDEFS", head, ...lines.flatMap((line) => [line, ...(line[0] === "2" ? records(line.slice(2)) : [])])];
    if (lines.length === 0) return void (await this.command(1, "255 441", "--yes", "bapi", ...option, "update", "--practice", "s.sqlite"));
    for (const given of [option, ["--catalogue", join("practice", "BAPI46C")]]) {
      await this.command(0, "255 242", "--yes", "bapi", ...given, "update", "--practice", "s.sqlite");
      this.compare("updated catalogue", expected.map(toUnicode), this.read(join("practice", "BAPI46C")).split("\r\n").slice(0, -1).map(toUnicode));
    }
  }

  async runPrograms() {
    for (const { name, list } of this.programs) {
      const { stdout } = await this.call("run", "--program", name, "--system", "s.sqlite");
      this.compare(`list of ${name}`, list.map(toUnicode), stdout.split("\n").slice(0, -2));
    }
    const refused = { P: "416", "": "418" }[this.role];
    if (refused) await this.command(1, refused, "--yes", "publish", "program.abap", "ZREFUSED", "--practice", "s.sqlite");
  }

  async run() {
    try {
      for (const step of ["fill", "askReports", "importAll", "lookUpWidths", "updateCatalogue", "runPrograms"]) await this[step]();
    } catch (difference) {
      return difference instanceof Difference ? difference.message : difference.stack;
    }
    rmSync(this.directory, { recursive: true });
    return "";
  }
}

const waiting = Array.from({ length: number }, (_, i) => first + i);
let wrong = 0;
async function workOff() {
  while (waiting.length > 0) {
    const index = waiting.shift();
    const told = await new Trial(index).run();
    if (told === "") continue;
    ++wrong;
    console.log(`system ${index}: ${told}`);
  }
}
await Promise.all([workOff(), workOff(), workOff()]);
console.log(`${number} systems, ${wrong} of them differ`);
process.exit(wrong === 0 && number > 0 ? 0 : 1);
