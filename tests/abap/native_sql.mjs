// Reads native SQL, which ABAP parsers pass unread: what stands between EXEC SQL and ENDEXEC.
//
// A SELECT is read whole: its columns, as many host variables, tables, and conditions. Of other statements only literals,
// parentheses and host variables are looked at, since each database has its own.

const reserved = new Set(
  ("ALL ALTER AND ANY AS BETWEEN BY CREATE DATE DELETE DISTINCT DROP EXISTS FROM GRANT GROUP HAVING IN INSERT INTO IS LIKE " +
    "NOT NULL ON OR ORDER SELECT SET TABLE UNION UPDATE USER VALUES WHERE").split(" "),
);

// The text between two rows as { row, kind, text }, where kind is "name", "host", "value", "sign" or "fault".
function tokensOf(lines, firstRow) {
  const patterns = [
    ["blank", /\s+/y],
    ["host", /:\s*[\w<][\w\-<>]*/y],
    ["value", /'(?:[^']|'')*'|\d+(?:\.\d+)?/y],
    ["name", /(?:"[^"]*"|[A-Za-z_][\w$#]*)(?:\.(?:"[^"]*"|[A-Za-z_][\w$#]*))*/y],
    ["sign", /<>|<=|>=|!=|\|\||[-+*/=<>(),;]/y],
    ["fault", /[^]/y],
  ];
  const tokens = [];
  lines.forEach((line, i) => {
    if (line.startsWith("*")) return;
    for (let at = 0; at < line.length; ) {
      for (const [kind, pattern] of patterns) {
        pattern.lastIndex = at;
        const text = pattern.exec(line)?.[0];
        if (text === undefined) continue;
        if (kind !== "blank") tokens.push({ row: firstRow + i, kind, text });
        at += text.length;
        break;
      }
    }
  });
  return tokens;
}

class Fault extends Error {
  constructor(row, message) {
    super(message);
    this.row = row;
  }
}

class Reader {
  constructor(tokens, lastRow) {
    this.tokens = tokens;
    this.lastRow = lastRow;
    this.at = 0;
  }
  get next() {
    return this.tokens[this.at];
  }
  get row() {
    return this.next?.row ?? this.lastRow;
  }
  is(...words) {
    return this.next !== undefined && this.next.kind !== "value" && words.includes(this.next.text.toUpperCase());
  }
  take(...words) {
    if (!this.is(...words)) return false;
    this.at++;
    return true;
  }
  expect(word) {
    if (!this.take(word)) throw new Fault(this.row, `native SQL: ${word} expected${this.found()}`);
  }
  found() {
    return this.next ? `, not "${this.next.text}"` : " at the end";
  }

  // Elements behind each other, with a comma between each two.
  list(what, element) {
    let count = 0;
    do {
      element();
      count++;
    } while (this.take(","));
    if (this.next && !this.is(")", "INTO", "FROM", "WHERE", "GROUP", "HAVING", "ORDER", "UNION", "FOR", ";"))
      throw new Fault(this.row, `native SQL: comma or end of the ${what} expected${this.found()}`);
    return count;
  }

  name(what) {
    if (this.next?.kind !== "name") throw new Fault(this.row, `native SQL: ${what} expected${this.found()}`);
    if (reserved.has(this.next.text.toUpperCase()))
      throw new Fault(this.row, `native SQL: ${what} expected, and "${this.next.text}" is a word of the language`);
    this.at++;
  }

  operand(what) {
    do {
      this.take("-");
      if (this.take("(")) {
        if (this.is("SELECT")) this.select(false);
        else this.operand(what);
        this.expect(")");
      } else if (this.next?.kind === "host" || this.next?.kind === "value") {
        this.at++;
      } else if (!this.take("NULL")) {
        this.name(what);
        if (this.take("(")) {
          this.take("DISTINCT");
          if (!this.take("*") && !this.is(")")) this.list("arguments", () => this.operand("argument"));
          this.expect(")");
        }
      }
    } while (this.take("+", "-", "*", "/", "||"));
  }

  column() {
    this.operand("column");
    if (this.take("AS")) this.name("alias");
  }

  // ABAP takes no second host variable behind the first one.
  host() {
    if (this.next?.kind !== "host") throw new Fault(this.row, `native SQL: host variable expected${this.found()}`);
    this.at++;
  }

  table() {
    this.name("table");
    if (this.next?.kind === "name" && !reserved.has(this.next.text.toUpperCase()) && !this.is("FOR")) this.at++;
  }

  condition() {
    do {
      this.take("NOT");
      const start = this.at;
      if (this.take("EXISTS")) this.operand("subquery");
      else if (this.is("(") && this.group(start)) continue;
      else this.comparison();
    } while (this.take("AND", "OR"));
  }

  // A condition in parentheses; false, with nothing taken, where an operand is in them.
  group(start) {
    this.at++;
    try {
      this.condition();
      this.expect(")");
      return !this.is("=", "<", ">", "<>", "<=", ">=", "!=", "+", "-", "*", "/", "IN", "LIKE", "BETWEEN", "IS") || this.back(start);
    } catch (fault) {
      if (!(fault instanceof Fault)) throw fault;
      return this.back(start);
    }
  }
  back(start) {
    this.at = start;
    return false;
  }

  comparison() {
    this.operand("column or value");
    if (this.take("IS")) {
      this.take("NOT");
      this.expect("NULL");
      return;
    }
    this.take("NOT");
    if (this.take("BETWEEN")) {
      this.operand("value");
      this.expect("AND");
      this.operand("value");
    } else if (this.take("IN")) {
      this.expect("(");
      if (this.is("SELECT")) this.select(false);
      else this.list("values", () => this.operand("value"));
      this.expect(")");
    } else if (this.take("=", "<", ">", "<>", "<=", ">=", "!=", "LIKE")) {
      this.take("ALL", "ANY");
      this.operand("value");
    } else {
      throw new Fault(this.row, `native SQL: comparison expected${this.found()}`);
    }
  }

  // `own` is the statement itself, which has host variables for its columns; a subquery has none.
  select(own) {
    const row = this.row;
    this.expect("SELECT");
    this.take("DISTINCT", "ALL");
    const all = this.take("*");
    const columns = all ? 0 : this.list("columns", () => this.column());
    if (own) {
      this.expect("INTO");
      const hosts = this.list("host variables", () => this.host());
      if (!all && hosts !== columns) throw new Fault(row, `native SQL: ${columns} columns into ${hosts} host variables`);
    }
    this.expect("FROM");
    this.list("tables", () => this.table());
    if (this.take("WHERE")) this.condition();
    if (this.take("GROUP")) this.expect("BY"), this.list("columns", () => this.operand("column"));
    if (this.take("HAVING")) this.condition();
    if (this.take("ORDER"))
      this.expect("BY"), this.list("columns", () => (this.operand("column"), this.take("ASC", "DESC")));
  }
}

// What is wrong with the native SQL in `lines`, the first of which is `firstRow` of the report, as { row, message }, and the host
// variables in it, as { row, name }.
export function readNativeSQL(lines, firstRow) {
  const tokens = tokensOf(lines, firstRow);
  const lastRow = firstRow + lines.length;
  const faults = [];
  const strange = tokens.find((token) => token.kind === "fault");
  if (strange) {
    const message = strange.text === "'" ? "literal not closed" : `native SQL: "${strange.text}" is no sign of it`;
    faults.push({ row: strange.row, message });
  } else if (tokens.length === 0) {
    faults.push({ row: lastRow, message: "native SQL: no statement" });
  } else {
    const reader = new Reader(tokens, lastRow);
    try {
      if (reader.is("SELECT")) {
        reader.select(true);
        reader.take(";");
        if (reader.next) throw new Fault(reader.row, `native SQL: end expected${reader.found()}`);
      }
    } catch (fault) {
      if (!(fault instanceof Fault)) throw fault;
      faults.push({ row: fault.row, message: fault.message });
    }
  }
  const hosts = tokens
    .filter((token) => token.kind === "host")
    .map(({ row, text }) => ({ row, name: text.slice(1).trim() }));
  return { faults, hosts };
}
