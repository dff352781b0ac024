// What a system's dictionary and function library know of the names in reports: tables and structures as files of the registry,
// and the parameters of the function modules. Names that are not here and begin with neither Z nor Y stay open: anything goes.

import abaplint from "@abaplint/core";

// Fields as NAME TYPE LENGTH. All fields of a structure are named, but for APQI, which has more than queries ask for.
const structures = {
  BDCDATA: "PROGRAM CHAR 40, DYNPRO NUMC 4, DYNBEGIN CHAR 1, FNAM CHAR 132, FVAL CHAR 132",
  BDCMSGCOLL:
    "TCODE CHAR 20, DYNAME CHAR 40, DYNUMB CHAR 4, MSGTYP CHAR 1, MSGSPRA CHAR 1, MSGID CHAR 20, MSGNR CHAR 3, " +
    "MSGV1 CHAR 100, MSGV2 CHAR 100, MSGV3 CHAR 100, MSGV4 CHAR 100, ENV CHAR 4, FLDNAME CHAR 132",
  CTU_PARAMS: "DISMODE CHAR 1, UPDMODE CHAR 1, CATTMODE CHAR 1, DEFSIZE CHAR 1, RACOMMIT CHAR 1, NOBINPT CHAR 1, NOBIEND CHAR 1",
  APQI:
    "MANDANT CLNT 3, DATATYP CHAR 4, GROUPID CHAR 12, PROGID CHAR 40, QID CHAR 20, QSTATE CHAR 1, CREATOR CHAR 12, " +
    "CREDATE DATS 8, CRETIME TIMS 6, USERID CHAR 12, TRANSCNT INT4 10, MSGCOUNT INT4 10",
  BAPIRETURN:
    "TYPE CHAR 1, CODE CHAR 5, MESSAGE CHAR 220, LOG_NO CHAR 20, LOG_MSG_NO NUMC 6, " +
    "MESSAGE_V1 CHAR 50, MESSAGE_V2 CHAR 50, MESSAGE_V3 CHAR 50, MESSAGE_V4 CHAR 50",
  BAPIRETURN1:
    "TYPE CHAR 1, ID CHAR 20, NUMBER NUMC 3, MESSAGE CHAR 220, LOG_NO CHAR 20, LOG_MSG_NO NUMC 6, " +
    "MESSAGE_V1 CHAR 50, MESSAGE_V2 CHAR 50, MESSAGE_V3 CHAR 50, MESSAGE_V4 CHAR 50",
  BAPIRET2:
    "TYPE CHAR 1, ID CHAR 20, NUMBER NUMC 3, MESSAGE CHAR 220, LOG_NO CHAR 20, LOG_MSG_NO NUMC 6, " +
    "MESSAGE_V1 CHAR 50, MESSAGE_V2 CHAR 50, MESSAGE_V3 CHAR 50, MESSAGE_V4 CHAR 50, " +
    "PARAMETER CHAR 32, ROW INT4 10, FIELD CHAR 30, SYSTEM CHAR 10",
};

const fieldsOfErrorTable =
  "MANDT CLNT 3, PROGID NUMC 10, BATCH NUMC 10, OPERATION NUMC 10, SEQUENCE NUMC 10, PROCESSED CHAR 1, " +
  "USERNAME CHAR 12, ID NUMC 3, LENGTH INT2 5, LINE LCHR 32000";
const keyOfErrorTable = 5;

export function tableFile(name, fields, keys) {
  const rows = fields.split(", ").map((field, i) => {
    const [fieldName, type, length] = field.split(" ");
    const key = i < keys ? "<KEYFLAG>X</KEYFLAG>" : "";
    const technical = `<DATATYPE>${type}</DATATYPE><LENG>${length.padStart(6, "0")}</LENG>`;
    return `<DD03P><FIELDNAME>${fieldName}</FIELDNAME>${key}${technical}</DD03P>`;
  });
  const kind = keys > 0 || name === "APQI" ? "TRANSP" : "INTTAB";
  return new abaplint.MemoryFile(
    `${name.toLowerCase()}.tabl.xml`,
    `<?xml version="1.0" encoding="utf-8"?><abapGit version="v1.0.0" serializer="LCL_OBJECT_TABL" serializer_version="v1.0.0">` +
      `<asx:abap xmlns:asx="http://www.sap.com/abapxml" version="1.0"><asx:values><DD02V><TABNAME>${name}</TABNAME>` +
      `<DDLANGUAGE>E</DDLANGUAGE><TABCLASS>${kind}</TABCLASS></DD02V><DD03P_TABLE>${rows.join("")}</DD03P_TABLE>` +
      `</asx:values></asx:abap></abapGit>`,
  );
}

export const standardTables = Object.entries(structures).map(([name, fields]) => tableFile(name, fields, 0));

// The error table of a report, which is the first that it names, where it handles errors.
export function errorTableOf(source) {
  if (!/^FORM INSERT_DATAERRORS\./m.test(source)) return undefined;
  const name = /^TABLES: (\w+)\.\s*$/m.exec(source)?.[1].toUpperCase();
  return name && isTableName(name) ? tableFile(name, fieldsOfErrorTable, keyOfErrorTable) : undefined;
}

// Whether the dictionary can hold a table of that name.
export function isTableName(name) {
  if (name.startsWith("/")) return name.length <= 30 && /^\/\w+\/\w+$/.test(name);
  return name.length <= 16 && /^[A-Z]([A-Z0-9]{2}[A-Z0-9_]*|[A-Z0-9]?)$/.test(name);
}

// The parameters of a module by the addition under which the caller writes them.
export const functionModules = {
  BDC_OPEN_GROUP: {
    EXPORTING: "CLIENT DEST GROUP HOLDDATE KEEP USER RECORD PROG",
    IMPORTING: "QID",
  },
  BDC_INSERT: { EXPORTING: "TCODE POST_LOCAL PRINTING SIMUBATCH CTUPARAMS", TABLES: "DYNPROTAB" },
  BDC_CLOSE_GROUP: {},
  MESSAGE_PREPARE: {
    EXPORTING: "LANGUAGE MSG_ID MSG_NO MSG_VAR1 MSG_VAR2 MSG_VAR3 MSG_VAR4",
    IMPORTING: "MSG_TEXT",
  },
  WS_UPLOAD: {
    EXPORTING: "CODEPAGE FILENAME FILETYPE HEADLEN LINE_EXIT TRUNCLEN USER_FORM USER_PROG DAT_D_FORMAT",
    IMPORTING: "FILELENGTH",
    TABLES: "DATA_TAB",
  },
  GUI_UPLOAD: {
    EXPORTING:
      "FILENAME FILETYPE HAS_FIELD_SEPARATOR HEADER_LENGTH READ_BY_LINE DAT_MODE CODEPAGE IGNORE_CERR REPLACEMENT CHECK_BOM",
    IMPORTING: "FILELENGTH HEADER",
    TABLES: "DATA_TAB",
  },
  KD_GET_FILENAME_ON_F4: {
    EXPORTING: "PROGRAM_NAME DYNPRO_NUMBER FIELD_NAME STATIC MASK",
    CHANGING: "FILE_NAME",
  },
};
