// Turns a generated report into one that the transpiler understands. What it lacks, or does otherwise than a 4.6C system, becomes a
// call of a function module named QOR_..., which run.mjs provides. Everything else of the report stays as it is.

// The statements of a source, chains taken apart. Literals are replaced by numbers between "~", so that nothing looks into them.
function statementsOf(source, literals) {
  const lines = source.split(/\r?\n/);
  let text = "";
  let native; // the text of an EXEC SQL block
  let inMacro = false;
  for (const line of lines) {
    if (/^\s*DEFINE\s/i.test(line)) inMacro = true;
    if (inMacro || line.startsWith("*")) {
      if (/^\s*END-OF-DEFINITION/i.test(line)) inMacro = false;
      continue;
    }
    if (native !== undefined) {
      if (/^\s*ENDEXEC\s*\./i.test(line)) {
        text += ` ~${literals.push(native) - 1}~.\n`;
        native = undefined;
      } else {
        native += line + " ";
      }
      continue;
    }
    const exec = /^\s*EXEC\s+SQL(\s+PERFORMING\s+\w+)?\s*\.\s*$/i.test(line);
    for (const part of line.match(/'(?:[^']|'')*'|"|[^'"]+/g) ?? []) {
      if (part === '"') break;
      if (part.startsWith("'")) text += `~${literals.push(part === "''" ? "' '" : part) - 1}~`;
      else text += (exec ? part.replace(/\.\s*$/, "") : part).toLowerCase();
    }
    text += "\n";
    if (exec) native = "";
  }
  return text.split(".").flatMap((statement) => {
    const [, head, rest] = /^([^:]*):(.*)$/s.exec(statement) ?? [, "", statement];
    const parts = head === "" ? [rest] : rest.split(",");
    return parts.map((part) => `${head} ${part}`.replace(/\s+/g, " ").trim()).filter((part) => part !== "");
  });
}

// EXEC SQL becomes a loop over the rows of a query, whose host variables are parameters.
function nativeSelect(performing, sql, literals, record) {
  const [, columns, targets, rest] = /^\s*SELECT\s(.*?)\sINTO\s(.*?)\s(FROM\s.*)$/is.exec(sql);
  const hosts = [];
  const query = `SELECT ${columns} ${rest}`.replace(/\s+/g, " ").replace(/:([\w-]+)/g, (_, name) => {
    hosts.push(name.toLowerCase());
    return "?";
  });
  literals.push(`'${query.replace(/'/g, "''")}'`);
  const parameters = (names) => names.map((name, i) => ` p${i} = ${name}`).join("");
  return [
    `call function 'QOR_SQL_OPEN' exporting query = ~${literals.length - 1}~${parameters(hosts)}`,
    "do",
    `call function 'QOR_SQL_NEXT' changing${parameters([...targets.matchAll(/:([\w-]+)/g)].map((m) => m[1].toLowerCase()))} exceptions nothing = 4`,
    "if sy-subrc <> 0",
    "exit",
    "endif",
    ...(record ? ["call function 'QOR_RECORD' exporting number = -1"] : []),
    performing ? `perform ${performing}` : "exit",
    "enddo",
    ...(record ? ["call function 'QOR_RECORD' exporting number = 0"] : []),
  ];
}

// A source for the transpiler, the report's parameters in the order of their declaration, and the structures that it names
// of which no dictionary knows: name -> components that the source uses.
export function rewrite(source, knownStructures) {
  const literals = [];
  const statements = statementsOf(source, literals);
  const tables = new Set(); // with a header line
  const typeOf = new Map();
  const parameters = [];
  const globals = []; // with a value, which may be the name of a file
  const structures = new Map();
  const use = (structure, component) => {
    if (knownStructures.has(structure) || structure === "sy") return;
    if (!structures.has(structure)) structures.set(structure, new Set());
    if (component) structures.get(structure).add(component);
  };
  let depth = 0;
  for (const statement of statements) {
    let match;
    if ((match = /^data begin of (\w+) occurs/.exec(statement) ?? /^data (\w+) (?:like|type) .*occurs/.exec(statement))) tables.add(match[1]);
    if ((match = /^form \w+ tables (.*?)(?: using | changing |$)/.exec(statement)))
      match[1].replace(/\bstructure \w+/g, "").match(/\w+/g).forEach((name) => tables.add(name));
    if ((match = /^(?:data|parameters) (\w+).* like (\w+)(?:-(\w+))?/.exec(statement))) {
      use(match[2], match[3]);
      if (!match[3]) typeOf.set(match[1], match[2]);
    }
    if ((match = /^data (\w+)\(\d+\) value ~(\d+)~$/.exec(statement))) globals.push({ name: match[1], text: literals[match[2]].slice(1, -1).trimEnd() });
    if ((match = /^include structure (\w+)/.exec(statement))) use(match[1]);
    if ((match = /^tables (\w+)/.exec(statement))) {
      use(match[1]);
      typeOf.set(match[1], match[1]);
    }
    if ((match = /^parameters (\w+)(.*)$/.exec(statement)))
      parameters.push({ name: match[1], group: /radiobutton group (\w+)/.exec(match[2])?.[1], lowerCase: / lower case/.test(match[2]) });
    for (const [, name, component] of statement.matchAll(/\b(\w+)-(\w+)/g)) if (typeOf.has(name)) use(typeOf.get(name), component);
  }

  const startsAt = statements.indexOf("start-of-selection");
  const endsAt = statements.findIndex((statement, i) => i > startsAt && statement.startsWith("form "));
  const isMain = (i) => i > startsAt && (endsAt < 0 || i < endsAt);
  const mainLoop = statements.findIndex((statement, i) => isMain(i) && /^loop at (\w+_)?itab$/.test(statement));
  let skipped = false; // the value requests of the selection screen
  const result = statements.flatMap((statement, i) => {
    let match;
    if (/^(at selection-screen|start-of-selection|form )/.test(statement)) skipped = statement.startsWith("at ");
    if (skipped || statement.startsWith("selection-screen")) return [];
    if (statement === "start-of-selection")
      return [statement, `call function 'QOR_START' changing${parameters.map(({ name }) => ` ${name} = ${name}`).join("") || " x = sy-subrc"}`];
    if (/^loop at /.test(statement)) {
      if (i === mainLoop) depth = 1;
      else if (depth > 0) ++depth;
      return i === mainLoop ? [statement, "call function 'QOR_RECORD' exporting number = sy-tabix"] : [statement];
    }
    if (statement === "endloop" && depth > 0 && --depth === 0) return [statement, "call function 'QOR_RECORD' exporting number = 0"];
    if ((match = /^exec sql(?: performing (\w+))? ~(\d+)~$/.exec(statement)))
      return nativeSelect(match[1], literals[match[2]], literals, isMain(i) && mainLoop < 0);
    // REFRESH clears the header line there.
    if ((match = /^refresh (\w+)$/.exec(statement))) return [`clear ${match[1]}[]`];
    if ((match = /^call transaction (\S+) using (\w+) mode (\S+) update (\S+)(?: messages into (\w+))?$/.exec(statement)))
      return [
        `call function 'QOR_CALL_TRANSACTION' exporting tcode = ${match[1]} mode = ${match[3]} update = ${match[4]} ` +
          `tables dynprotab = ${match[2]}${match[5] ? ` messages = ${match[5]}` : ""} exceptions failed = 1001`,
      ];
    // The short forms of Open SQL, which take the work area of TABLES.
    if ((match = /^select (single )?\* from (\w+)\b(.*)$/.exec(statement)) && !/ into /.test(statement))
      return [`select ${match[1] ?? ""}* from ${match[2]} into ${match[2]}${match[3]}`];
    if ((match = /^insert (\w+)$/.exec(statement))) return [`insert into ${match[1]} values ${match[1]}`];
    if (statement === "commit work" || statement === "rollback work") return [statement, `call function 'QOR_${statement.split(" ")[0].toUpperCase()}'`];
    // A header line as a whole has no name there.
    if ((match = /^move (\S+) to (\S+)$/.exec(statement) ?? /^()(\S+) = (\S+)$/.exec(statement))) {
      const [from, to] = match[1] ? [match[1], match[2]] : [match[3], match[2]];
      const [, name, offset] = /^(\w+)(?:\+(\d+))?$/.exec(to) ?? [];
      if (tables.has(from) || (tables.has(name) && !to.includes("-")))
        return [`call function 'QOR_MOVE' exporting source = ${from} offset = ${offset ?? 0} changing target = ${name ?? to}`];
    }
    // READ TABLE leaves the header line alone there.
    if ((match = /^read table (\w+) (.*)$/.exec(statement)) && !/ (into|transporting) /.test(statement)) return [`read table ${match[1]} into ${match[1]} ${match[2]}`];
    // Dates have no points there.
    if ((match = /^write (sy-datum|sy-uzeit) to (\S+)$/.exec(statement))) return [`call function 'QOR_WRITE_TIME' exporting time = ${match[1]} changing text = ${match[2]}`];
    // JavaScript writes a sharp s in upper case as two letters.
    if ((match = /^translate (\S+) to upper case$/.exec(statement))) return [`call function 'QOR_UPPER' changing text = ${match[1]}`];
    // Lines of a file go into header lines.
    if ((match = /^open dataset (\w+) for input/.exec(statement))) return [`call function 'QOR_OPEN_DATASET' exporting name = ${match[1]} exceptions failed = 8`];
    if ((match = /^read dataset (\w+) into (\S+)$/.exec(statement)))
      return [`call function 'QOR_READ_DATASET' exporting name = ${match[1]} changing line = ${match[2]} exceptions ended = 4`];
    if ((match = /^close dataset (\w+)$/.exec(statement))) return [`call function 'QOR_CLOSE_DATASET' exporting name = ${match[1]}`];
    // The items of a list stand one column apart.
    if ((match = /^write (?!\/)(.*)$/.exec(statement)) && !/ to /.test(statement)) return ["write ' '", statement];
    return [statement];
  });
  const text = result.map((statement) => statement.replace(/~(\d+)~/g, (_, n) => literals[n]) + ".\n").join("");
  return { text, parameters, globals, structures };
}
