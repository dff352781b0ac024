#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "abap/check/check.h"
#include "base/files.h"
#include "base/text.h"
#include "editor/user_code.h"

namespace qor::abap {
namespace {

using Clase = Falta::Clase;

// A report around a piece of code, whose lines are counted from 1: declarations above, two FORMs below.
constexpr std::string_view antes =
    "REPORT QOR.\n"
    "CONSTANTS: YES TYPE C VALUE 'X', LEN TYPE I VALUE 5.\n"
    "TABLES: ZTAB.\n"
    "DATA: BEGIN OF ITAB OCCURS 0,\n"
    "        AUTOCOUNTER(10) TYPE N,\n"
    "        KIND(4),\n"
    "        AMOUNT(8),\n"
    "      END OF ITAB,\n"
    "      BEGIN OF BDC_TAB OCCURS 0.\n"
    "        INCLUDE STRUCTURE BDCDATA.\n"
    "DATA: END OF BDC_TAB,\n"
    "      TEXT1(20), N1 TYPE I, D1 TYPE D, S1 TYPE STRING, P1(8) TYPE P DECIMALS 2,\n"
    "      HEAD LIKE BAPISDHD1,\n"
    "      LINE LIKE ITAB,\n"
    "      NAMES(30) OCCURS 0 WITH HEADER LINE.\n";
constexpr int lineasAntes = 15;
constexpr std::string_view detras =
    "\nFORM FILL.\n"
    "ENDFORM.\n"
    "FORM SEND TABLES T STRUCTURE ITAB USING A B CHANGING C.\n"
    "ENDFORM.\n";

std::vector<Falta> Revisar(std::string_view codigo) {
    const std::string reporte = std::string(antes).append(codigo).append(detras);
    auto faltas = RevisarReporte(ReemplazarTodo(reporte, "\n", "\r\n"));
    for (auto& falta : faltas) {
        falta.linea -= lineasAntes;
        falta.sentencia -= lineasAntes;
        if (falta.otraLinea != 0) falta.otraLinea -= lineasAntes;
    }
    return faltas;
}

const char* Nombre(Clase clase) {
    static constexpr const char* nombres[] = {"LiteralAbierto",  "SentenciaSinPunto", "NoEsSentencia",      "PalabrasDeMas",
                                              "OperandoAusente", "NombreSinDeclarar", "NombreRepetido",     "NombreInvalido",
                                              "NombreLargo",     "ComponenteAjeno",   "ComponenteRepetido", "RegistroVacio",
                                              "LargoInvalido",   "FueraDelCampo",     "FormaSinDefinir",    "FormaRepetida",
                                              "BloqueAbierto",   "SQLNativo",         "ConstanteCambiada",  "NoEsTabla"};
    return nombres[static_cast<int>(clase)];
}

// CLASS line [name] for each fault.
std::string Faltas(std::string_view codigo) {
    std::string texto;
    for (const auto& falta : Revisar(codigo)) {
        if (!texto.empty()) texto += ", ";
        texto += std::string(Nombre(falta.clase)) + " " + std::to_string(falta.linea) + " " + falta.nombre;
    }
    return texto;
}

struct Caso {
    std::string_view codigo;
    std::string_view faltas = {};
};

TEST(AbapCheck, TellsWhatDoesNotCompile) {
    const Caso casos[] = {
        // Literals. What one swallows up is lost with it, and the next statement is read again.
        {"TEXT1 = 'it's'.\nTEXT1 = NOWHERE.", "LiteralAbierto 1 ', NombreSinDeclarar 2 NOWHERE"},
        {"TEXT1 = 'cut in\ntwo'.\nENDIF.", "LiteralAbierto 1 'cut in"},
        {"TEXT1 = 'cut.\nat point'.\nTEXT1 = YES NO.", "LiteralAbierto 1 'cut, PalabrasDeMas 3 NO"},
        {"DATA: X(3) VALUE 'a'b',\n      Y(3).\nY = X.", "LiteralAbierto 1 '"},
        {"IF TEXT1 = 'a.\nENDIF.\nIF TEXT1 = 'b'.", "LiteralAbierto 1 'a"},
        {"FORM GENERATE_A'B CHANGING X.\nENDFORM.\nPERFORM GENERATE_A.", "LiteralAbierto 1 'B CHANGING X"},
        // A point is missing.
        {"DATA: A(1)\nDATA: B(1).\nA = B.", "SentenciaSinPunto 1 DATA"},
        {"DATA: A(1),\n      B(1)\nSTART-OF-SELECTION.\nA = B.", "SentenciaSinPunto 2 START-OF-SELECTION"},
        {"PARAMETERS: P_A(4),\nSELECTION-SCREEN SKIP 1.", "SentenciaSinPunto 1 SELECTION-SCREEN"},
        {"OPEN DATASET TEXT1 FOR INPUT IN TEXT MODE LEGACY X\nIF SY-SUBRC NE 0.\nENDIF.", "SentenciaSinPunto 1 IF"},
        {"TEXT1 = 'a'\nTEXT1 = 'b'.", "SentenciaSinPunto 1 TEXT1"},
        {"PERFORM FILL\nCLEAR TEXT1.\nSHIFT TEXT1\nTRANSLATE TEXT1 USING 'ab'.",
         "SentenciaSinPunto 1 CLEAR, SentenciaSinPunto 3 TRANSLATE"},
        // No statements.
        {"  * a comment\n  TEXT1 = 'x'.\n  * one more\n  * and one more\n  PERFORM NOTHERE.",
         "NoEsSentencia 1 *, NoEsSentencia 3 *, NoEsSentencia 4 *, FormaSinDefinir 5 NOTHERE"},
        {"the rest of a comment\nDATA: X(5).\nX = YES.", "NoEsSentencia 1 the"},
        {"'x' TO HEAD-A,\nTEXT1 TO HEAD-B.", "NoEsSentencia 1 'x', NoEsSentencia 2 TEXT1"},
        {"WRITE 'a', 'b'.", "NoEsSentencia 1 'b'"},
        {"CLEAR TEXT1, CLEAR N1.", "NoEsSentencia 1 ,"},
        {"TEXT1= 'a'.\nIF TEXT1 'a'.\nENDIF.", "NoEsSentencia 1 TEXT1=, NoEsSentencia 2 'a'"},
        {"IF (TEXT1 = 'a').\nENDIF.", "NoEsSentencia 1 (TEXT1"},
        // Too many words, too few.
        {"MOVE: TEXT1 TO ITAB-KIND COND,\n      'a' TO ITAB-KIND.", "PalabrasDeMas 1 COND"},
        {"TEXT1 = STRLEN( TEXT1 ) 1.\nWRITE: / 'a' TEXT1.\nENDFORM X.",
         "PalabrasDeMas 1 1, PalabrasDeMas 2 TEXT1, BloqueAbierto 3 ENDFORM, PalabrasDeMas 3 X"},
        {"DATA: X Y(3).\nPERFORM A B CHANGING X.", "PalabrasDeMas 1 Y(3), PalabrasDeMas 2 B"},
        {"OPEN DATASET TEXT1 FOR INPUT IN TEXT MODE QUICKLY.", "PalabrasDeMas 1 QUICKLY"},
        {"N1 = .\nN1 = N1 + .\nMOVE TO TEXT1.\nCLEAR.",
         "OperandoAusente 1 =, OperandoAusente 2 +, OperandoAusente 3 TO, OperandoAusente 4 CLEAR"},
        {"LOOP AT ITAB WHERE\n  PERFORM FILL.\nENDLOOP.\nLOOP AT ITAB WHERE .\nENDLOOP.\nLOOP AT ITAB WHERE\n  N1 = N1 + "
         "1.\nENDLOOP.",
         "OperandoAusente 1 WHERE, OperandoAusente 4 WHERE, OperandoAusente 6 WHERE"},
        {"SELECT\nINTO\n)\nFROM ZTAB.\nENDSELECT.\nCONCATENATE INTO TEXT1.", "OperandoAusente 2 INTO, OperandoAusente 6 INTO"},
        {"CALL FUNCTION 'F' EXPORTING A =\n  B = TEXT1.\nCONSTANTS C(3).", "OperandoAusente 1 =, OperandoAusente 3 C(3)"},
        {"PERFORM SEND TABLES ITAB USING 'a' CHANGING TEXT1.\nPERFORM FILL USING N1.",
         "OperandoAusente 1 TEXT1, PalabrasDeMas 2 N1"},
        // Names.
        {"TEXT1 = TEXT2.\nIF TEXT2 = TEXT3 OR TEXT3 = TEXT2.\nENDIF.",
         "NombreSinDeclarar 1 TEXT2, NombreSinDeclarar 2 TEXT2, NombreSinDeclarar 2 TEXT3"},
        {"FORM A USING P.\n  DATA L.\n  L = P.\nENDFORM.\nFORM B.\n  L = P.\n  G = 1.\nENDFORM.\nDATA G.\nFORM C.\n  G = "
         "1.\nENDFORM.",
         "NombreSinDeclarar 6 L, NombreSinDeclarar 6 P, NombreSinDeclarar 7 G"},
        {"PERFORM DYN USING:\n  TEXT1,\n  GONE.\nFORM DYN USING A.\nENDFORM.", "NombreSinDeclarar 3 GONE"},
        {"SELECT SINGLE * FROM T001 WHERE BUKRS = GONE.\nSELECT-OPTIONS S_A FOR T001-BUKRS.",
         "NombreSinDeclarar 1 T001, NombreSinDeclarar 1 GONE, NombreSinDeclarar 2 T001"},
        {"CALL FUNCTION 'F' EXPORTING A = GONE IMPORTING B = TEXT1 TABLES C = GONE2 EXCEPTIONS OTHERS = 1.",
         "NombreSinDeclarar 1 GONE, NombreSinDeclarar 1 GONE2"},
        {"DATA: TEXT1(3), ZTAB.\nFORM A USING P P.\n  DATA P.\nENDFORM.",
         "NombreRepetido 1 TEXT1, NombreRepetido 1 ZTAB, NombreRepetido 2 P, NombreRepetido 3 P"},
        {"DATA: 1A, A~B, A-B.\nA-B = YES.\nFORM A\\B.\nENDFORM.\nPERFORM A\\B.",
         "NombreInvalido 1 1A, NombreInvalido 1 A~B, NombreInvalido 1 A-B, NombreInvalido 3 A\\B"},
        {"DATA: BEGIN OF R,\n  A.B(3),\n  C(2),\nEND OF R.\nR-C = YES.", "NombreInvalido 2 A.B"},
        {"PARAMETERS: P_TOOLONG(4).\nDATA: ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE.",
         "NombreLargo 1 P_TOOLONG, NombreLargo 2 ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE"},
        {"PERFORM GENERATE_BDC_ABCDEFGHIJKLMNOPQR_1.\nPERFORM GENERATE_BDC_ABCDEFGHIJKLMNOPQR_1.\n"
         "FORM GENERATE_BDC_ABCDEFGHIJKLMNOPQR_1.\nENDFORM.\nPERFORM OTHER_NAME_ABCDEFGHIJKLMNOPQRSTUVW.",
         "NombreLargo 3 GENERATE_BDC_ABCDEFGHIJKLMNOPQR_1, NombreLargo 5 OTHER_NAME_ABCDEFGHIJKLMNOPQRSTUVW"},
        // Records and fields.
        {"ITAB-KIMD = YES.\nLINE-AMOUNT = LINE-PRICE.\nIF SY-SUBCR = 0.\nENDIF.\nTEXT1-A = 1.",
         "ComponenteAjeno 1 ITAB-KIMD, ComponenteAjeno 2 LINE-PRICE, ComponenteAjeno 3 SY-SUBCR, ComponenteAjeno 5 TEXT1-A"},
        {"LOOP AT ITAB WHERE KIND = YES AND PRICE = 1.\nENDLOOP.\nSORT ITAB BY KIND PRICE.\nREAD TABLE ITAB WITH KEY PRICE = 1.",
         "ComponenteAjeno 1 PRICE, ComponenteAjeno 3 PRICE, ComponenteAjeno 4 PRICE"},
        {"DATA: BEGIN OF R,\n  A(1),\n  B(1),\n  A(2),\nEND OF R, BEGIN OF E, END OF E.",
         "ComponenteRepetido 4 A, RegistroVacio 5 E"},
        {"DATA: A(0), B(65536), C(X), D(LEN), E(20) TYPE P.\nMOVE YES TO HEAD-A(+).",
         "LargoInvalido 1 A(0), LargoInvalido 1 B(65536), LargoInvalido 1 C(X), LargoInvalido 1 E(20), LargoInvalido 2 HEAD-A(+)"},
        {"TEXT1 = ITAB-AMOUNT+6(4).\nITAB-KIND+4 = YES.\nTEXT1(21) = YES.\nTEXT1 = ITAB+20(3).\nTEXT1 = D1+6(2).\nTEXT1 = D1+7(2).",
         "FueraDelCampo 1 ITAB-AMOUNT+6(4), FueraDelCampo 2 ITAB-KIND+4, FueraDelCampo 3 TEXT1(21), FueraDelCampo 4 ITAB+20(3), "
         "FueraDelCampo 6 D1+7(2)"},
        // FORMs and blocks.
        {"PERFORM GONE.\nPERFORM FILL.\nFORM FILL.\nENDFORM.", "FormaSinDefinir 1 GONE, FormaRepetida 5 FILL"},
        {"LOOP AT ITAB.\n  IF TEXT1 = YES.\nENDLOOP.\nENDIF.\nELSE.\nWHEN 'a'.",
         "BloqueAbierto 2 IF, BloqueAbierto 4 ENDIF, BloqueAbierto 5 ELSE, BloqueAbierto 6 WHEN"},
        {"FORM A.\n  DO.\nFORM B.\n  SELECT * FROM ZTAB.\nENDFORM.\nDATA: BEGIN OF R, A.\nCASE N1.",
         "BloqueAbierto 1 FORM, BloqueAbierto 2 DO, BloqueAbierto 4 SELECT, BloqueAbierto 6 R, BloqueAbierto 7 CASE"},
        {"FORM A.\n  GET TIME.\n  N1 = GONE.\nENDFORM.", "NombreSinDeclarar 3 GONE"},
        // Statements of which only the components are looked at.
        {"MESSAGE E001(ZZ) WITH ITAB-KIMD GONE-X.\nSET PARAMETER ID 'X' FIELD LINE-PRICE(2).\nAUTHORITY-CHECK OBJECT 'X' ID 'Y' "
         "FIELD ITAB-A.\nEXPORT ITAB-B LINE TO MEMORY ID 'x'.\nSUBMIT ZREP WITH P = ITAB-C+1 AND RETURN.",
         "ComponenteAjeno 1 ITAB-KIMD, ComponenteAjeno 2 LINE-PRICE, ComponenteAjeno 3 ITAB-A, ComponenteAjeno 4 ITAB-B, "
         "ComponenteAjeno 5 ITAB-C"},
        // What can't be changed, and what has no lines.
        {"YES = 'a'.\nMOVE 1 TO LEN.\nCLEAR: TEXT1, YES.\nCONCATENATE TEXT1 YES INTO YES.\nADD LEN TO LEN.\nMULTIPLY LEN BY 2.\n"
         "CONSTANTS: BEGIN OF K, A(3) VALUE 'abc', END OF K.\nK-A+1(1) = YES.\nSELECT A B INTO (TEXT1, YES) FROM "
         "BKPF.\nENDSELECT.\nREPLACE YES WITH YES INTO YES.\nSPLIT YES AT YES INTO TEXT1 YES.",
         "ConstanteCambiada 1 YES, ConstanteCambiada 2 LEN, ConstanteCambiada 3 YES, ConstanteCambiada 4 YES, ConstanteCambiada 5 "
         "LEN, ConstanteCambiada 6 LEN, ConstanteCambiada 8 K, ConstanteCambiada 9 YES, ConstanteCambiada 11 YES, "
         "ConstanteCambiada 12 YES"},
        {"LOOP AT TEXT1.\nENDLOOP.\nAPPEND ITAB-KIND.\nREAD TABLE N1 INDEX 1.\nREFRESH: NAMES, D1.\nSORT SY-SUBRC.\n"
         "DATA: BEGIN OF R, A(1), END OF R, L LIKE LINE OF ITAB.\nAPPEND R.\nSORT L BY KIND.",
         "NoEsTabla 1 TEXT1, NoEsTabla 3 ITAB-KIND, NoEsTabla 4 N1, NoEsTabla 5 D1, NoEsTabla 6 SY-SUBRC, NoEsTabla 8 R, "
         "NoEsTabla 9 L"},
        {"SELECT A B INTO (TEXT1) FROM BKPF.\nENDSELECT.\nSELECT A MAX( B ) FROM BKPF INTO (TEXT1, N1, D1) GROUP BY "
         "A.\nENDSELECT.\nSELECT SINGLE A INTO ( TEXT1 , N1 ) FROM BKPF.",
         "OperandoAusente 1 INTO, PalabrasDeMas 3 D1, PalabrasDeMas 5 N1"},
        // Native SQL.
        {"EXEC SQL PERFORMING GONE.\n  SELECT A,\n    B\n  INTO :ITAB-KIND,\n    :ITAB-AMOUNT,\n  FROM T\nENDEXEC.",
         "FormaSinDefinir 1 GONE, SQLNativo 5 ,"},
        {"EXEC SQL.\n  SELECT A, B INTO :ITAB-KIND,\n    :ITAB-PRICE FROM T WHERE\nENDEXEC.",
         "ComponenteAjeno 3 ITAB-PRICE, SQLNativo 3 WHERE"},
        {"EXEC SQL.\n  SELECT INTO :ITAB-KIND FROM T\nENDEXEC.\nEXEC SQL.\n  UPDATE T SET A = :GONE WHERE B = 'x:y'\nENDEXEC.",
         "SQLNativo 2 SELECT, SQLNativo 5 GONE"},
        {"EXEC SQL.\n  SELECT A, B\n  INTO :ITAB-KIND\n  FROM T\nENDEXEC.\nEXEC SQL.\n  SELECT A INTO :N1 FROM T\n  WHERE A = "
         ":N1\n  B = :N1\nENDEXEC.",
         "SQLNativo 3 INTO, SQLNativo 9 B"},
    };
    for (const auto& caso : casos) EXPECT_EQ(Faltas(caso.codigo), caso.faltas) << caso.codigo;
}

// Code of users that a compiler takes: one piece for each kind of statement and for what looks like a fault but is none.
TEST(AbapCheck, TellsNothingOfGoodCode) {
    const std::string_view casos[] = {
        "IF NOT ITAB-KIND IS INITIAL AND ( TEXT1 = 'a' OR TEXT1 NE SPACE ) AND NOT ( N1 BETWEEN 1 AND 9 ).\nELSEIF TEXT1 CO "
        "'0123456789 ' "
        "OR ITAB-KIND(1) = 'X' OR TEXT1+6(2) LT '50'.\nELSE.\nENDIF.",
        "IF ( N1 + 1 ) * 2 > STRLEN( TEXT1 ) - 1 AND D1 >= SY-DATUM.\nENDIF.",
        "IF TEXT1 CS '-' AND SY-FDPOS GT 0.\nENDIF.\nIF TEXT1 <> 'a' OR TEXT1 >< 'a' OR N1 => 1 OR N1 =< 1.\nENDIF.",
        "N1 = - N1 + ABS( P1 ) ** 2 DIV 3 MOD LEN.\nCOMPUTE P1 = ( N1 * 2 ) / 3.\nD1 = D1 + 30.\nTEXT1 = S1 = 'x'.\nN1 = -1.",
        "ADD 1 TO N1.\nSUBTRACT 1 FROM N1.\nMULTIPLY N1 BY 2.\nDIVIDE N1 BY LEN.\nADD N1 TO N1 GIVING P1.",
        "MOVE: 'a' TO TEXT1, ITAB TO LINE, ITAB+10 TO TEXT1, TEXT1 TO ITAB+10, SPACE TO HEAD-DOC_TYPE(2).",
        "MOVE-CORRESPONDING ITAB TO LINE.\nCLEAR: ITAB, TEXT1 WITH 'x', ITAB[].\nFREE NAMES.\nREFRESH: NAMES, ITAB.",
        "REPLACE 'a' WITH 'b' INTO TEXT1.\nREPLACE ALL OCCURRENCES OF 'a' IN TEXT1 WITH 'b'.\nSEARCH TEXT1 FOR 'abc' STARTING AT "
        "2.\n"
        "SPLIT TEXT1 AT ';' INTO ITAB-KIND ITAB-AMOUNT.\nSPLIT TEXT1 AT ';' INTO TABLE NAMES.",
        "CONCATENATE TEXT1+6(4) TEXT1(2) '.' INTO TEXT1 SEPARATED BY SPACE.\nSHIFT TEXT1 LEFT DELETING LEADING '0'.\nSHIFT TEXT1 "
        "RIGHT.\n"
        "SHIFT TEXT1 BY 3 PLACES LEFT CIRCULAR.\nTRANSLATE TEXT1 TO UPPER\n  CASE.\nTRANSLATE TEXT1 USING ' 0'.\nCONDENSE TEXT1 "
        "NO-GAPS.\n"
        "OVERLAY TEXT1 WITH '000'.",
        "DO 3 TIMES.\n  CHECK TEXT1 NE SPACE.\n  CONTINUE.\nENDDO.\nDO N1 TIMES.\n  EXIT.\nENDDO.\nWHILE N1 < 3.\n  N1 = N1 + "
        "1.\nENDWHILE.",
        "CASE ITAB-KIND.\n  WHEN 'a' OR YES.\n  WHEN ''.\n  WHEN SPACE.\n  WHEN OTHERS.\nENDCASE.",
        "DESCRIBE TABLE ITAB LINES N1.\nDESCRIBE FIELD TEXT1 LENGTH N1 TYPE ITAB-KIND.",
        "APPEND ITAB.\nAPPEND LINE TO ITAB.\nAPPEND INITIAL LINE TO ITAB.\nAPPEND LINES OF ITAB FROM 1 TO 3 TO ITAB.\nCOLLECT "
        "ITAB.\n"
        "INSERT ITAB INDEX 1.\nINSERT LINE INTO ITAB INDEX N1.\nINSERT LINE INTO TABLE ITAB.\nMODIFY ITAB.\nMODIFY ITAB FROM LINE "
        "INDEX 2 "
        "TRANSPORTING KIND.\nMODIFY ITAB TRANSPORTING KIND WHERE AMOUNT = 1.\nDELETE ITAB.\nDELETE ITAB INDEX 1.\n"
        "DELETE ITAB WHERE KIND = 'a' OR AMOUNT+2(2) = 'b'.\nDELETE ADJACENT DUPLICATES FROM ITAB COMPARING KIND AMOUNT.",
        "READ TABLE ITAB INDEX SY-TABIX.\nREAD TABLE ITAB WITH KEY KIND = 'a' AMOUNT = N1 BINARY SEARCH TRANSPORTING NO FIELDS.\n"
        "READ TABLE ITAB INTO LINE WITH KEY KIND = YES.\nREAD TABLE NAMES WITH KEY TEXT1.",
        "SORT ITAB.\nSORT ITAB BY KIND DESCENDING AMOUNT AS TEXT.\nSORT NAMES DESCENDING.\nLOOP AT ITAB INTO LINE FROM 2 TO N1 "
        "WHERE KIND <> "
        "'a'.\n  AT NEW KIND.\n  ENDAT.\n  AT LAST.\n    SUM.\n  ENDAT.\nENDLOOP.\nLOOP AT SCREEN.\n  MODIFY SCREEN.\nENDLOOP.",
        "DATA: T1 LIKE LINE OF ITAB, T2 TYPE STANDARD TABLE OF BKPF WITH HEADER LINE, T3 LIKE ITAB OCCURS 10, T4 TYPE TABLE OF I.\n"
        "T1-KIND = T2-BUKRS.\nLOOP AT T3 INTO T1.\nENDLOOP.",
        "TYPES: BEGIN OF TY, A(3), B TYPE I, SUB LIKE ITAB, END OF TY, TT TYPE TY OCCURS 0.\nDATA: W TYPE TY, V TYPE TT.\nW-A = "
        "W-SUB-KIND.\n"
        "DATA: BEGIN OF OUTER, BEGIN OF INNER, X(2), END OF INNER, Y(1), END OF OUTER.\nOUTER-INNER-X = OUTER-Y.\nTEXT1 = "
        "OUTER+2(1).",
        "DATA: BEGIN OF R OCCURS 0.\nINCLUDE STRUCTURE ITAB.\nDATA: MORE(3), END OF R.\nR-KIND = R-MORE.\nDATA BEGIN OF M OCCURS "
        "0.\n"
        "INCLUDE STRUCTURE MARA.\nDATA END OF M.\nM-MATNR = 'x'.",
        "SELECT * FROM ZTAB WHERE A = N1 AND ( B LIKE 'a%' OR NOT C IN (1, N1) ) AND D BETWEEN 'a' AND YES ORDER BY A B "
        "DESCENDING.\n"
        "  CHECK SY-SUBRC = 0.\nENDSELECT.\nSELECT SINGLE * FROM ZTAB WHERE A = 0.\nSELECT COUNT( * ) FROM MARA WHERE MATNR = "
        "TEXT1.",
        "SELECT A B INTO (ITAB-KIND, ITAB-AMOUNT) FROM BKPF UP TO 10 ROWS.\nENDSELECT.\nSELECT A\n  B\nINTO\n  (ITAB-KIND,\n  "
        "TEXT1)\nFROM "
        "BKPF WHERE X = 1.\n  APPEND ITAB.\nENDSELECT.\nSELECT * FROM BKPF INTO TABLE ITAB FOR ALL ENTRIES IN NAMES WHERE A = "
        "NAMES.\n"
        "SELECT * INTO CORRESPONDING FIELDS OF LINE FROM BKPF.\nENDSELECT.\nSELECT MAX( A ) INTO N1 FROM BKPF.\n"
        "SELECT A COUNT( * ) INTO (TEXT1, N1) FROM BKPF GROUP BY A.\nENDSELECT.\nSELECT A FROM BKPF APPENDING TABLE ITAB PACKAGE "
        "SIZE 5.\n"
        "ENDSELECT.\nSELECT A~X FROM A INNER JOIN B ON A~X = B~X INTO TEXT1 WHERE A~Y = B~Y.\nENDSELECT.",
        "RANGES S_A FOR N1.\nINSERT ZTAB.\nINSERT INTO ZCUST VALUES LINE.\nINSERT ZCUST FROM TABLE ITAB ACCEPTING DUPLICATE KEYS.\n"
        "UPDATE ZTAB SET A = 'X' B = B + 1 WHERE C = N1.\nUPDATE ZTAB.\nUPDATE ZCUST FROM LINE.\nMODIFY ZTAB.\nMODIFY ZCUST FROM "
        "TABLE ITAB.\n"
        "DELETE FROM ZCUST WHERE A = 1 AND B IN S_A.\nDELETE ZTAB.\nDELETE ZCUST FROM LINE.\nCOMMIT WORK AND WAIT.\nROLLBACK WORK.",
        "SELECT-OPTIONS: S_K FOR ITAB-KIND DEFAULT 'a' TO 'b' OBLIGATORY.\nRANGES R_D FOR SY-DATUM.\nR_D-LOW = SY-DATUM.\nIF D1 IN "
        "R_D OR NOT "
        "TEXT1 IN S_K.\nENDIF.\nCHECK S_K.\nAT SELECTION-SCREEN ON VALUE-REQUEST FOR S_K-LOW.\n  PERFORM FILL.",
        "PARAMETERS: P_1(10) TYPE N DEFAULT SY-DATUM, P_2 LIKE BKPF-BUKRS OBLIGATORY MEMORY ID BUK,\n  P_3 AS CHECKBOX DEFAULT "
        "'X', P_4 "
        "RADIOBUTTON GROUP G1, P_5(5) LOWER\n  CASE OBLIGATORY, P_6 TYPE I.\nSELECTION-SCREEN BEGIN OF BLOCK B WITH FRAME TITLE "
        "TEXT-001.\n"
        "SELECTION-SCREEN COMMENT /1(20) COMM1 FOR FIELD P_1.\nSELECTION-SCREEN END OF BLOCK B.\nINITIALIZATION.\n  COMM1 = "
        "TEXT-002.",
        "WRITE: / 'a', TEXT1, /5(10) N1, (3) D1 DD/MM/YYYY, 40 'x' COLOR 3 INTENSIFIED OFF, AT 50 TEXT1 NO-GAP, / .\nWRITE N1 TO "
        "TEXT1.\n"
        "WRITE D1 TO ITAB-AMOUNT+0(8) USING EDIT MASK '__.__'.\nWRITE / TEXT1(5) LEFT-JUSTIFIED.\nSKIP 1.\nULINE.\nWRITE 10.\n"
        "WRITE: SY-ULINE, 'a'(001), 'long' & 'er'.\nWRITE:/ 'a'.\nWRITE (10) TEXT1.",
        "OPEN DATASET TEXT1 FOR OUTPUT IN BINARY MODE MESSAGE S1.\nTRANSFER ITAB TO TEXT1 LENGTH 10.\nREAD DATASET TEXT1 INTO ITAB "
        "LENGTH "
        "N1.\nCLOSE DATASET TEXT1.\nDELETE DATASET TEXT1.\nOPEN DATASET TEXT1 FOR INPUT IN TEXT MODE ENCODING UTF-8 IGNORING "
        "CONVERSION "
        "ERRORS.\nOPEN DATASET TEXT1 IN LEGACY TEXT MODE BIG ENDIAN CODE PAGE '1100' FOR INPUT.",
        "FIELD-SYMBOLS: <F>, <G> TYPE C.\nASSIGN ITAB-KIND TO <F>.\nASSIGN COMPONENT 'KIND' OF STRUCTURE ITAB TO <F>.\nASSIGN "
        "TEXT1+N1(2) TO "
        "<F>.\nIF <F> IS ASSIGNED AND <F>+2(1) = 'a'.\n  <F> = YES.\nENDIF.\nLOOP AT ITAB ASSIGNING <G>.\nENDLOOP.",
        "CALL FUNCTION 'F' DESTINATION 'NONE' IN UPDATE TASK\n  EXPORTING\n    TABLES = ITAB-KIND\n    DATA = ITAB\n    X = -1\n  "
        "IMPORTING\n  "
        "  IF = TEXT1\n  CHANGING\n    Y = LINE-KIND+1(2)\n  TABLES\n    T = ITAB[]\n  EXCEPTIONS\n    NOT_FOUND = 1\n    OTHERS   "
        " = 2.",
        "CALL TRANSACTION 'VA01' USING BDC_TAB MODE 'N' UPDATE 'S' MESSAGES INTO BDC_TAB.\nCALL TRANSACTION TEXT1 AND SKIP FIRST "
        "SCREEN.\n"
        "CALL METHOD O->M EXPORTING A = GONE.\nO->M( ).\nCALL SCREEN 100.\nSUBMIT ZREP WITH P = GONE AND RETURN.\nMESSAGE E001(ZZ) "
        "WITH GONE.",
        "PERFORM SEND TABLES ITAB USING 'a' N1 CHANGING TEXT1.\nPERFORM SEND TABLES ITAB USING: 'a' N1 TEXT1, 'b' N1 "
        "TEXT1.\nPERFORM GONE IN "
        "PROGRAM ZZ USING TEXT1.\nPERFORM GONE(ZZ) USING TEXT1 IF FOUND.\nPERFORM FILL ON COMMIT.\nPERFORM (TEXT1) IN PROGRAM "
        "(TEXT1).",
        "FORM A USING VALUE(P) LIKE ITAB Q TYPE C TYPE CHANGING R STRUCTURE ITAB.\n  DATA: TEXT1(3) TYPE N, N1.\n  STATICS S TYPE "
        "I.\n  LOCAL "
        "ITAB.\n  R-KIND = P-KIND.\n  TYPE-X = Q-Y.\n  TEXT1+2(1) = 'a'.\nENDFORM.\nFORM B TABLES T USING TEXT1.\n  T-ANY = "
        "TEXT1+100(5).\n"
        "  APPEND T.\nENDFORM.",
        "DATA: TYPE(4), DATA(3), IF TYPE C, FORM LIKE ITAB, TABLES(1), WRITE.\nTYPE = DATA.\nIF = WRITE.\nDATA = 'x'.\nIF IF = "
        "FORM-KIND.\n"
        "ENDIF.\nPERFORM SEND TABLES ITAB USING\n  DATA\n  IF\n  CHANGING TABLES.\nCLEAR: DATA, IF.",
        "DEFINE NOT_CALLED.\n it's a text, with no end\n*\n END-OF-DEFINITION.\nDEFINE SETIT.\n  &1 = "
        "&2.\nEND-OF-DEFINITION.\nSETIT GONE 'x'.",
        "EXEC SQL PERFORMING FILL.\n  SELECT A,\n    COUNT(*),\n    'x, :y'\n  INTO :ITAB-KIND, :N1, :TEXT1 FROM T A WHERE A.B = "
        ":N1 AND C IN "
        "(SELECT D FROM E) OR F = :<X>\n  GROUP BY A\nENDEXEC.\nEXEC SQL.\n  UPDATE T SET A = :TEXT1, B = NULL WHERE C BETWEEN :N1 "
        "AND "
        ":N1\nENDEXEC.\nEXEC SQL.\n  SELECT * INTO :LINE FROM T\nENDEXEC.\nEXEC SQL.\n  EXECUTE PROCEDURE P ( IN :N1, OUT :TEXT1 "
        ")\nENDEXEC.",
        "AUTHORITY-CHECK OBJECT 'X' ID 'Y' FIELD GONE.\nEXPORT ITAB TO MEMORY ID 'x'.\nSET PARAMETER ID 'X' FIELD TEXT1.\nGET "
        "PARAMETER ID "
        "'X' FIELD TEXT1.\nGET TIME.\nON CHANGE OF ITAB-KIND.\nENDON.\nPROVIDE A FROM B BETWEEN C AND D.\nENDPROVIDE.\nCATCH "
        "SYSTEM-EXCEPTIONS CONVT_NO_NUMBER = 1.\nENDCATCH.\nSET BLANK LINES ON.\nBREAK-POINT.\nNEW-PAGE.\nHIDE TEXT1.",
        "CLEAR TEXT1.CLEAR N1. . CLEAR:TEXT1,N1.\nTEXT1 = 'a''b'.\nTEXT1 = ''. \"'not open\n* 'nor this\nTEXT1 = '\"'.\nWRITE: / "
        "'a:b,c.d'.",
        "CONTROLS TC TYPE TABLEVIEW USING SCREEN 100.\nTC-LINES = 5.\nTYPE-POOLS SLIS.\nTEXT1 = SLIS_EV_X.\nTABLES "
        "*MARA.\n*MARA-MATNR\n"
        "CLEAR *MARA.\nIF SCREEN-NAME = 'x'.\nENDIF.\nINCLUDE ZMORE.\nPERFORM OF_ZMORE USING DATA_OF_ZMORE.",
        "CLASS C DEFINITION.\n  PUBLIC SECTION.\n    METHODS M IMPORTING P TYPE I.\nENDCLASS.\nCLASS C IMPLEMENTATION.\n  METHOD "
        "M.\n    ATTR = "
        "P + GONE.\n  ENDMETHOD.\nENDCLASS.\nDATA O TYPE REF TO C.\nCREATE OBJECT O.\nCALL METHOD O->M EXPORTING P = 1.",
        // Words of the language and names of elsewhere that begin like a record.
        "DATA: BEGIN OF PF, A, END OF PF, BEGIN OF P, B, END OF P.\nNEW-PAGE LINE-SIZE 80 LINE-COUNT 65.\nSET PF-STATUS 'X'.\n"
        "SUBMIT ITAB-X WITH P-Q = P-B LINE-SIZE 80.\nEXPORT ITAB-X FROM LINE TO MEMORY ID 'x'.\nIMPORT ITAB-X TO LINE FROM MEMORY "
        "ID 'x'.\nMESSAGE E001(ZZ) WITH 'ITAB-X' ITAB-KIND+1(2) HEAD-ANY BDC_TAB-FNAM ZTAB-X SY-MSGV1.",
        // Copies of constants, and names that hide them.
        "CONSTANTS: BEGIN OF K, A VALUE 'x', END OF K.\nDATA: COPY LIKE K, X(LEN), Z LIKE YES.\nCOPY-A = YES.\nZ = K-A.\n"
        "FORM A USING YES CHANGING LEN.\n  DATA K(3).\n  YES = 'a'.\n  CLEAR LEN.\n  K = 'abc'.\nENDFORM.\nMULTIPLY N1 BY "
        "LEN.\nADD "
        "LEN TO LEN GIVING N1.\nSUBTRACT LEN FROM N1.\nSEARCH YES FOR 'X'.",
        // What may be a table.
        "TYPES: TT LIKE ITAB OCCURS 0, NN TYPE TT OCCURS 0, BEGIN OF TY, SUB TYPE TT, END OF TY.\nDATA: A TYPE NN, B LIKE LINE OF "
        "A, "
        "C TYPE LINE OF NN, W TYPE TY, U TYPE ZUNKNOWN, V TYPE STANDARD TABLE OF TT, X LIKE LINE OF V, Y OCCURS 0 TYPE TT, Z LIKE "
        "LINE OF Y.\nLOOP AT A INTO B.\n  SORT B.\n  SORT C.\n  SORT W-SUB BY KIND.\n  SORT X.\n  SORT Z.\nENDLOOP.\nAPPEND "
        "U.\nREFRESH "
        "HEAD.\nLOOP AT ZTAB.\nENDLOOP.\nSORT.\nSORT ITAB[].\nFORM A TABLES T STRUCTURE ITAB USING P TYPE TT Q TYPE C.\n  LOOP AT "
        "T.\n  ENDLOOP.\n  APPEND T.\n  SORT P.\n  READ TABLE Q INDEX 1.\n  REFRESH T.\nENDFORM.",
        "SELECT SINGLE FOR UPDATE A~X B~Y AS Z COUNT( DISTINCT C ) INTO (TEXT1, N1, D1) FROM A INNER JOIN B ON A~X = B~X.\nSELECT "
        "(TEXT1) INTO (TEXT1, N1) FROM BKPF.\nENDSELECT.\nSELECT COUNT(*) INTO (N1) FROM BKPF.\nSELECT A B INTO LINE FROM "
        "BKPF.\nENDSELECT.",
    };
    for (const auto codigo : casos) EXPECT_EQ(Faltas(codigo), "") << codigo;
}

// The formulas of the code window fit a field that is wide enough; its value pairs are lines for the generator.
TEST(AbapCheck, TakesTheFormulas) {
    const auto formulas = LeerFormulas(LeerArchivo(std::filesystem::path(QOR_TEST_SOURCE_DIR) / "data" / nombreDeFormulas));
    ASSERT_GE(formulas.size(), 30u);
    for (const auto& formula : formulas) {
        if (formula.cuerpo.starts_with("@")) continue;
        EXPECT_EQ(Faltas(ReemplazarTodo(ReemplazarTodo(formula.cuerpo, "\r\n", "\n"), "!", "TEXT1")), "") << formula.nombre;
    }
}

// Lines and columns are those of the word, also in a chain; the statement begins at the piece.
TEST(AbapCheck, SaysWhereItIs) {
    const auto faltas = Revisar("MOVE: TEXT1 TO HEAD-A,\n      GONE\n        TO GONE2.\nDATA: Z, Z.");
    ASSERT_EQ(faltas.size(), 3u);
    EXPECT_EQ(faltas[0].linea, 2);
    EXPECT_EQ(faltas[0].columna, 7);
    EXPECT_EQ(faltas[1].linea, 3);
    EXPECT_EQ(faltas[1].columna, 12);
    EXPECT_EQ(faltas[1].sentencia, 2);
    EXPECT_EQ(faltas[2].otraLinea, 4);
}

// A report of the statements that users may bring, in all their forms.
TEST(AbapCheck, TakesAReportOfGoodCode) {
    const std::string reporte = LeerArchivo(std::filesystem::path(QOR_TEST_SOURCE_DIR) / "tests/expected/good_code.abap");
    for (const auto& falta : RevisarReporte(reporte))
        ADD_FAILURE() << Nombre(falta.clase) << " " << falta.linea << " " << falta.nombre;
    // It does look at it.
    EXPECT_EQ(RevisarReporte(ReemplazarTodo(reporte, "N1 > 3", "N2 > 3")).size(), 1u);
}

// The reports of the examples have no fault, whatever ends their lines.
TEST(AbapCheck, TakesTheReportsOfTheExamples) {
    int reportes = 0;
    for (const auto& entrada :
         std::filesystem::recursive_directory_iterator(std::filesystem::path(QOR_TEST_SOURCE_DIR) / "examples")) {
        if (entrada.path().extension() != ".abap") continue;
        const std::string reporte = LeerArchivo(entrada.path());
        EXPECT_TRUE(RevisarReporte(reporte).empty()) << entrada.path();
        EXPECT_TRUE(RevisarReporte(ReemplazarTodo(reporte, "\r\n", "\n")).empty()) << entrada.path();
        EXPECT_TRUE(RevisarReporte(ReemplazarTodo(reporte, "\r\n", "\r")).empty()) << entrada.path();
        ++reportes;
    }
    EXPECT_GE(reportes, 7);
}

}  // namespace
}  // namespace qor::abap
