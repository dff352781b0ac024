// What a compiler refuses and the package lets pass. Written from the rules of the language.

import abaplint from "@abaplint/core";

import { functionModules, isTableName } from "./dictionary.mjs";
import { readNativeSQL } from "./native_sql.mjs";

const { Expressions, Statements, BasicTypes } = abaplint;

const longestLine = 255;
const longestLiteral = 255;
const longestName = 30;
const longestGroup = 4;
const longestFieldOfText = 65535;

// One report with what the package found out about it. `scope` has no names where the parser stopped.
export class Program {
  constructor(source, file, scope) {
    this.lines = source.split(/\r\n|\n|\r/);
    this.statements = file.getStatements().filter((statement) => !(statement.get() instanceof abaplint.Comment));
    this.scope = scope;
    this.filename = file.getFilename();
  }
  of(kind) {
    return this.statements.filter((statement) => statement.get() instanceof kind);
  }

  variable(name, place) {
    return this.scope.lookupPosition(place, this.filename)?.findVariable(name);
  }

  // The type of RECORD-COMPONENT at a place; undefined where the package doesn't know it.
  type(chain, place) {
    const [name, ...components] = chain.split("-");
    let type = this.variable(name, place)?.getType();
    for (const component of components) {
      type = withoutTable(type);
      type = type instanceof BasicTypes.StructureType ? type.getComponentByName(component) : undefined;
    }
    return type;
  }
}

const withoutTable = (type) => (type instanceof BasicTypes.TableType && type.isWithHeader() ? type.getRowType() : type);

// The number of characters of a field or of a flat record; undefined for all else.
function widthOf(type) {
  const flat = withoutTable(type);
  if (flat instanceof BasicTypes.CharacterType || flat instanceof BasicTypes.NumericType) return flat.getLength();
  if (flat instanceof BasicTypes.DateType) return 8;
  if (flat instanceof BasicTypes.TimeType) return 6;
  if (!(flat instanceof BasicTypes.StructureType)) return undefined;
  const widths = flat.getComponents().map((component) => widthOf(component.type));
  return widths.includes(undefined) ? undefined : widths.reduce((sum, width) => sum + width, 0);
}

const rowOf = (node) => node.getFirstToken().getStart().getRow();
const textOf = (node) => node.concatTokens();

// The row of a statement; of one in a chain that of its own part.
function rowOfStatement(statement) {
  const colon = statement.getColon?.();
  if (!colon) return rowOf(statement);
  const own = statement.getTokens().find((token) => token.getStart().isAfter(colon.getStart()));
  return (own ?? statement.getFirstToken()).getStart().getRow();
}

// Nodes below `node` that have a child of one of the kinds.
function* parentsOf(node, kinds) {
  const children = node.getChildren();
  if (children.some((child) => kinds.some((kind) => child.get() instanceof kind))) yield node;
  for (const child of children) yield* parentsOf(child, kinds);
}

// --- Lines and literals

function* checkLines({ lines }, nativeRows) {
  for (const [i, line] of lines.entries()) {
    const row = i + 1;
    if (line.length > longestLine) yield { row, message: `line of ${line.length} characters` };
    if (line.startsWith("*") || nativeRows.has(row)) continue;
    for (let at = 0; at < line.length && line[at] !== '"'; at++) {
      if (line[at] !== "'") continue;
      const literal = /'(?:[^']|'')*('?)/y;
      literal.lastIndex = at;
      const [text, end] = literal.exec(line);
      if (end === "") yield { row, message: "literal not closed" };
      if (text.length - 2 > longestLiteral) yield { row, message: `literal of ${text.length - 2} characters` };
      at += text.length - 1;
    }
  }
}

// --- Names and lengths in declarations

// Words with which a record goes on or ends.
const wordsOfRecords = ["BEGIN", "END", "INCLUDE"];

// The components of records that DATA declares.
function* checkComponents(program) {
  let seen;
  for (const statement of program.statements) {
    const kind = statement.get();
    if (kind instanceof Statements.DataBegin) seen = new Set();
    else if (kind instanceof Statements.DataEnd) seen = undefined;
    else if (seen && kind instanceof Statements.Data) {
      const name = statement.findFirstExpression(Expressions.DefinitionName);
      if (!name) continue;
      const text = textOf(name).toUpperCase();
      const row = rowOf(name);
      if (/[^\w%$&#?/]/.test(text)) yield { row, message: `no name of a component: ${text}` };
      if (wordsOfRecords.includes(text)) yield { row, message: `a word of the record's own: ${text}` };
      if (seen.has(text)) yield { row, message: `component twice: ${text}` };
      seen.add(text);
    }
  }
}

function* checkDeclarations(program) {
  const parameters = new Set();
  for (const statement of program.statements) {
    const kind = statement.get();
    for (const expression of [Expressions.DefinitionName, Expressions.FormName]) {
      const name = statement.findFirstExpression(expression);
      if (!name || kind instanceof Statements.Perform) continue;
      const text = textOf(name);
      if (text.length > longestName) yield { row: rowOf(name), message: `name of ${text.length} characters: ${text}` };
      if (/^\d/.test(text)) yield { row: rowOf(name), message: `name with a digit first: ${text}` };
    }
    const length = statement.findFirstExpression(Expressions.ConstantFieldLength);
    if (length) {
      const text = textOf(length).slice(1, -1);
      const isNumber = /^\d+$/.test(text);
      if (isNumber && (Number(text) < 1 || Number(text) > longestFieldOfText)) yield { row: rowOf(length), message: `length of ${text}` };
      if (!isNumber && !program.type(text, length.getFirstToken().getStart()))
        yield { row: rowOf(length), message: `length is no number: ${text}` };
    }
    if (kind instanceof Statements.Tables) {
      const table = statement.findFirstExpression(Expressions.Field);
      const text = table ? textOf(table).toUpperCase() : "";
      if (table && !isTableName(text.replace("*", ""))) yield { row: rowOf(table), message: `no name of a table: ${text}` };
    }
    if (kind instanceof Statements.Parameter || kind instanceof Statements.SelectOption)
      parameters.add(textOf(statement.findFirstExpression(Expressions.FieldSub)).toUpperCase());
    const group = kind instanceof Statements.Parameter && statement.findFirstExpression(Expressions.RadioGroupName);
    const width = group ? textOf(group).length : 0;
    if (width > longestGroup) yield { row: rowOf(group), message: `radio button group of ${width} characters` };
  }
  for (const event of program.of(Statements.AtSelectionScreen)) {
    const field = event.findDirectExpression(Expressions.FieldSub);
    if (field && !parameters.has(textOf(field).toUpperCase()))
      yield { row: rowOf(field), message: `no parameter of the selection screen: ${textOf(field)}` };
  }
}

function* checkBlocks(program) {
  const open = [];
  for (const statement of program.of(Statements.SelectionScreen)) {
    const [, edge, name] = /\b(BEGIN|END) OF BLOCK (\S+?)[ .,]/i.exec(`${textOf(statement)} `) ?? [];
    const row = rowOfStatement(statement);
    if (!edge) continue;
    if (edge.toUpperCase() === "BEGIN") open.push({ row, name: name.toUpperCase() });
    else if (open.pop()?.name !== name.toUpperCase()) yield { row, message: `END OF BLOCK without its BEGIN: ${name}` };
  }
  for (const { row, name } of open) yield { row, message: `BEGIN OF BLOCK without its END: ${name}` };
}

// --- Control

const ends = { If: "EndIf", Case: "EndCase", Do: "EndDo", While: "EndWhile", Loop: "EndLoop", SelectLoop: "EndSelect" };
Object.assign(ends, { Form: "EndForm", Define: "EndOfDefinition", ExecSQL: "EndExec" });
const begins = Object.fromEntries(Object.entries(ends).map(([begin, end]) => [end, begin]));
const wordsOf = (name) =>
  ({ SelectLoop: "SELECT", EndOfDefinition: "END-OF-DEFINITION", ExecSQL: "EXEC SQL" })[name] ?? name.toUpperCase();
const events = ["StartOfSelection", "EndOfSelection", "Initialization", "AtSelectionScreen", "TopOfPage"];

// Blocks that have no end, and ends that have no block. The package tells the same, but not where.
export function* checkBalance(program) {
  let open = [];
  const withoutEnd = ({ row, name }) => ({ row, message: `${wordsOf(name)} without its ${wordsOf(ends[name])}` });
  for (const statement of program.statements) {
    const name = statement.get().constructor.name;
    if (name === "Form" || events.includes(name)) {
      yield* open.map(withoutEnd);
      open = [];
    }
    if (ends[name]) open.push({ name, row: rowOfStatement(statement) });
    if (!begins[name]) continue;
    const at = open.findLastIndex((block) => block.name === begins[name]);
    if (at < 0) {
      yield { row: rowOfStatement(statement), message: `${wordsOf(name)} without its ${wordsOf(begins[name])}` };
    } else {
      yield* open.splice(at).slice(1).map(withoutEnd);
    }
  }
  yield* open.map(withoutEnd);
}

// Behind the first form there is no event to which a statement could belong.
function* checkPlaces(program) {
  const declarations = ["Data", "DataBegin", "DataEnd", "Constant", "ConstantBegin", "ConstantEnd", "Tables", "Type", "TypeBegin"];
  declarations.push("TypeEnd", "Ranges", "FieldSymbol", "IncludeType", "Parameter", "SelectOption", "SelectionScreen", "Report");
  let place = "event";
  let previous;
  for (const statement of program.statements) {
    const kind = statement.get();
    const name = kind.constructor.name;
    if (kind instanceof abaplint.Empty) continue;
    if (previous instanceof Statements.Case && !["When", "WhenOthers", "EndCase"].includes(name))
      yield { row: rowOf(statement), message: "statement between CASE and WHEN" };
    previous = kind;
    if (kind instanceof Statements.Form || kind instanceof Statements.Define) place = name;
    else if (kind instanceof Statements.EndForm) place = "nowhere";
    else if (kind instanceof Statements.EndOfDefinition) place = "event";
    else if (place !== "Form" && (name === "Include" || events.includes(name))) place = "event";
    else if (place === "nowhere" && !declarations.includes(name)) {
      yield { row: rowOfStatement(statement), message: "statement behind a form that no event reaches" };
      place = "event";  // told once
    }
  }
}

const formParameters = (statement, expression) =>
  statement.findDirectExpression(expression)?.findDirectExpressions(Expressions.FormParam).length ?? 0;
const actualParameters = (statement, expression) => (statement.findDirectExpression(expression)?.getChildren().length ?? 1) - 1;

function* checkCalls(program) {
  const forms = new Map();
  for (const form of program.of(Statements.Form)) {
    forms.set(textOf(form.findDirectExpression(Expressions.FormName)).toUpperCase(), {
      tables: formParameters(form, Expressions.FormTables),
      others: formParameters(form, Expressions.FormUsing) + formParameters(form, Expressions.FormChanging),
    });
  }
  for (const call of program.of(Statements.Perform)) {
    const name = call.findDirectExpression(Expressions.FormName);
    const form = name && forms.get(textOf(name).toUpperCase());
    if (!form || call.findFirstExpression(Expressions.IncludeName)) continue;  // the form of another program
    const row = rowOfStatement(call);
    const tables = actualParameters(call, Expressions.PerformTables);
    const others = actualParameters(call, Expressions.PerformUsing) + actualParameters(call, Expressions.PerformChanging);
    if (tables !== form.tables) yield { row, message: `${textOf(name)} has ${form.tables} tables, not ${tables}` };
    if (others !== form.others) yield { row, message: `${textOf(name)} has ${form.others} parameters, not ${others}` };
  }
  for (const statement of program.of(Statements.ExecSQL)) {
    const name = statement.findDirectExpression(Expressions.SimpleName);
    const form = name && forms.get(textOf(name).toUpperCase());
    if (name && !form) yield { row: rowOf(name), message: `FORM definition "${textOf(name)}" not found` };
    if (form && form.tables + form.others > 0) yield { row: rowOf(name), message: `${textOf(name)} has parameters` };
  }
}

// The module's side of a call: names of parameters, each behind the addition it belongs to.
function* checkFunctionCalls(program) {
  for (const call of program.of(Statements.CallFunction)) {
    const name = textOf(call.findFirstExpression(Expressions.FunctionName)).replaceAll("'", "").toUpperCase();
    const module = functionModules[name];
    if (!module) continue;
    for (const parameter of call.findAllExpressionsRecursive(Expressions.ParameterName)) {
      const place = parameter.getFirstToken().getStart();
      const before = call.getTokens().filter((token) => token.getStart().isBefore(place));
      const additions = ["EXPORTING", "IMPORTING", "CHANGING", "TABLES", "EXCEPTIONS"];
      const addition = before.map((token) => token.getStr().toUpperCase()).findLast((text) => additions.includes(text));
      const known = module[addition]?.split(" ") ?? [];
      if (addition !== "EXCEPTIONS" && !known.includes(textOf(parameter).toUpperCase()))
        yield { row: place.getRow(), message: `${name} has no parameter ${textOf(parameter)} behind ${addition}` };
    }
  }
}

// --- Data objects

function* checkPieces(program) {
  const pieces = [Expressions.FieldOffset, Expressions.FieldLength];
  for (const statement of program.statements) {
    if (statement.get() instanceof Statements.Data || statement.get() instanceof Statements.Parameter) continue;
    for (const node of parentsOf(statement, pieces)) {
      const children = node.getChildren();
      const first = children.findIndex((child) => pieces.some((kind) => child.get() instanceof kind));
      const chain = children.slice(0, first).map((child) => textOf(child)).join("");
      const number = (kind) => /\d+/.exec(children.find((child) => child.get() instanceof kind)?.concatTokens() ?? "")?.[0];
      const offset = Number(number(Expressions.FieldOffset) ?? 0);
      const length = number(Expressions.FieldLength);
      const width = widthOf(program.type(chain, children[0].getFirstToken().getStart()));
      if (width === undefined || chain.startsWith("<")) continue;  // a field symbol is as wide as what it stands for
      if (offset >= width || offset + Number(length ?? 0) > width || length === "0")
        yield { row: rowOf(children[first]), message: `${textOf(node)} reaches beyond the ${width} characters of ${chain}` };
    }
  }
}

// What a call of a function module has behind TABLES.
function actualTables(call) {
  const parts = call.findFirstExpression(Expressions.FunctionParameters)?.getChildren() ?? [];
  const at = parts.findIndex((part) => textOf(part).toUpperCase() === "TABLES");
  return at < 0 ? [] : parts[at + 1].findAllExpressions(Expressions.Target);
}

// Operands that must be internal tables.
function* checkTables(program) {
  const operands = program.statements.flatMap((statement) => {
    const kind = statement.get();
    if (kind instanceof Statements.Refresh) return statement.findDirectExpressions(Expressions.Target);
    if (kind instanceof Statements.Append && /^APPEND \S+ ?\.$/i.test(textOf(statement)))
      return statement.findAllExpressions(Expressions.FieldChain).concat(statement.findAllExpressions(Expressions.Target));
    if (kind instanceof Statements.CallFunction) return actualTables(statement);
    if (kind instanceof Statements.Perform)
      return statement.findDirectExpression(Expressions.PerformTables)?.findDirectExpressions(Expressions.Source) ?? [];
    return [];
  });
  for (const operand of operands) {
    const text = textOf(operand).replace("[]", "");
    const type = program.type(text, operand.getFirstToken().getStart());
    const { CharacterType, NumericType, IntegerType, StructureType, DateType, TimeType } = BasicTypes;
    if ([CharacterType, NumericType, IntegerType, StructureType, DateType, TimeType].some((kind) => type instanceof kind))
      yield { row: rowOf(operand), message: `no internal table: ${text}` };
  }
}

function* checkConstants(program) {
  const scopes = [program.scope.getTop()];
  for (let i = 0; i < scopes.length; i++) scopes.push(...scopes[i].getChildren());
  for (const scope of scopes) {
    for (const { referenceType, resolved, position } of scope.getData().references) {
      // Fields of SY are read-only to the package, but not to the language.
      const readOnly = resolved?.getMeta?.().includes("read_only") && resolved.getFilename() === program.filename;
      if (referenceType === abaplint.ReferenceType.DataWriteReference && readOnly)
        yield { row: position.getStart().getRow(), message: `a constant can't be changed: ${resolved.getName()}` };
    }
  }
}

// A component with the name of an operator is read as the operator.
function* checkConditions(program) {
  const operators = new Set(["AND", "OR", "NOT", "BETWEEN", "IN", "IS"]);
  for (const statement of program.of(Statements.Loop)) {
    for (const component of statement.findAllExpressionsRecursive(Expressions.ComponentChainSimple)) {
      if (operators.has(textOf(component).toUpperCase()))
        yield { row: rowOf(component), message: `an operator, not a component: ${textOf(component)}` };
    }
  }
}

// --- Native SQL

function nativeParts(program) {
  const parts = [];
  let begin;
  for (const statement of program.statements) {
    if (statement.get() instanceof Statements.ExecSQL) begin = statement;
    if (!(statement.get() instanceof Statements.EndExec) || !begin) continue;
    const firstRow = begin.getLastToken().getStart().getRow() + 1;
    const lastRow = statement.getFirstToken().getStart().getRow() - 1;
    parts.push({ firstRow, lines: program.lines.slice(firstRow - 1, lastRow), place: begin.getFirstToken().getStart() });
    begin = undefined;
  }
  return parts;
}

function* checkNativeSQL(program, parts) {
  const known = program.scope.getTop().getChildren().length > 0;
  for (const { firstRow, lines, place } of parts) {
    const { faults, hosts } = readNativeSQL(lines, firstRow);
    yield* faults;
    for (const { row, name } of known ? hosts : [])
      if (!program.type(name, place)) yield { row, message: `host variable "${name}" not found` };
  }
}

export function* checkOfOurOwn(program) {
  const parts = nativeParts(program);
  const nativeRows = new Set(parts.flatMap(({ firstRow, lines }) => lines.map((_, i) => firstRow + i)));
  yield* checkLines(program, nativeRows);
  yield* checkDeclarations(program);
  yield* checkComponents(program);
  yield* checkBlocks(program);
  yield* checkPlaces(program);
  yield* checkCalls(program);
  yield* checkFunctionCalls(program);
  yield* checkPieces(program);
  yield* checkTables(program);
  yield* checkConstants(program);
  yield* checkConditions(program);
  yield* checkNativeSQL(program, parts);
}
