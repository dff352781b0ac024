// Statements on internal tables, texts and the list, each by a small report whose list is read.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "abap/execution.h"
#include "abap/short_dump.h"
#include "tests/support/recording_surroundings.h"

namespace qor::abap {
namespace {

using ::testing::ElementsAreArray;

// Declarations that all reports here have.
constexpr const char* cabeza = R"(REPORT ZTEST LINE-SIZE 40 MESSAGE-ID ZM.
DATA: BEGIN OF T OCCURS 2, K(2), N TYPE I, X(3), END OF T, BEGIN OF W, K(2), N TYPE I, X(3), END OF W.
DATA: BEGIN OF ITAB OCCURS 0, K(2), N TYPE I, END OF ITAB, BEGIN OF NUM OCCURS 0, A(1), P TYPE P DECIMALS 2, F TYPE I, END OF NUM.
DATA: ROWS LIKE W OCCURS 0, L(4) OCCURS 0 WITH HEADER LINE, I TYPE I, J TYPE I, C(8), C3(3), S TYPE STRING, D TYPE D, Z(4) TYPE N.
FIELD-SYMBOLS <R> LIKE W.
RANGES R FOR W-K.
DEFINE ROW. T-K = &1. T-N = &2. T-X = &3. APPEND T. END-OF-DEFINITION.
DEFINE SHOW. LOOP AT T. WRITE: / T-K NO-GAP, (2) T-N NO-GAP, T-X. ENDLOOP. END-OF-DEFINITION.
DEFINE TELL. WRITE: / (3) SY-SUBRC NO-GAP, (3) SY-TABIX NO-GAP, T-X. END-OF-DEFINITION.
)";

// START-OF-SELECTION, and the FORMs that it calls.
struct Caso {
    const char* sentencias;
    std::vector<std::string> lista;
};

std::vector<std::string> Correr(const std::string& sentencias, AlrededoresDePrueba& alrededores) {
    const std::string reporte = cabeza + ("START-OF-SELECTION.\n" + sentencias);
    const auto compilacion = Compilar(reporte, alrededores.diccionario);
    auto& lineas = alrededores.lista.lineas;
    for (const auto& falta : compilacion.faltas) lineas.push_back("fault: " + falta.texto);
    if (!compilacion.programa) return lineas;
    Ejecucion ejecucion(compilacion.programa, alrededores.entorno);
    try {
        ejecucion.Iniciar();
        if (ejecucion.Correr() == FinDeReporte::Mensaje) lineas.emplace_back("ended by a message");
    } catch (const Volcado& volcado) {
        lineas.push_back(volcado.Nombre());
    }
    return lineas;
}

void Exigir(const std::vector<Caso>& casos) {
    for (const auto& caso : casos) {
        AlrededoresDePrueba alrededores;
        EXPECT_THAT(Correr(caso.sentencias, alrededores), ElementsAreArray(caso.lista)) << caso.sentencias;
    }
}

TEST(AbapTables, RowsComeAndGo) {
    Exigir({
        {"ROW 'B' 2 'x'. TELL. W-K = 'A'. APPEND W TO T. APPEND INITIAL LINE TO T. SHOW.", {" 0  1 x", "B 2 x", "A 0", "  0"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. APPEND LINES OF T FROM 2 TO 2 TO T. INSERT LINES OF T TO 1 INTO T INDEX 3. SHOW.",
         {"A 1 x", "B 2 y", "A 1 x", "B 2 y"}},
        {"W-N = 5. APPEND W TO T. W-N = 9. APPEND W TO T SORTED BY N. W-N = 7. APPEND W TO T SORTED BY N. TELL. SHOW.",
         {" 0  2", "  9", "  7"}},
        {"ROW 'A' 1 'x'. INSERT W INTO T INDEX 3. TELL. INSERT W INTO T INDEX 2. INSERT T INDEX 1. TELL. SHOW. INSERT T INDEX 0.",
         {" 4  1 x", " 0  1 x", "A 1 x", "A 1 x", "  0", "TABLE_INVALID_INDEX"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. MODIFY T INDEX 1. MODIFY T FROM W INDEX 3. TELL. W-X = 'z'. "
         "MODIFY T FROM W TRANSPORTING X WHERE K = 'B' AND N > 1. TELL. SHOW. MODIFY T INDEX 0.",
         {" 4  2 y", " 0  2 y", "B 2 z", "B 2 z", "TABLE_INVALID_INDEX"}},
        {"DO 6 TIMES. T-N = SY-INDEX. APPEND T. ENDDO. DELETE T INDEX 7. TELL. DELETE T FROM 5. DELETE T WHERE N BETWEEN 2 AND 3. "
         "TELL. DELETE T WHERE N = 2. TELL. SHOW.",
         {" 4  6", " 0  6", " 4  6", "  1", "  4"}},
        {"ROW 'A' 1 'x'. ROW 'A' 2 'x'. ROW 'B' 2 'x'. ROW 'A' 3 'x'. DELETE ADJACENT DUPLICATES FROM T. TELL. "
         "DELETE ADJACENT DUPLICATES FROM T COMPARING X. DELETE ADJACENT DUPLICATES FROM T COMPARING ALL FIELDS. TELL. SHOW.",
         {" 0  4 x", " 4  4 x", "A 1 x"}},
        {"NUM-A = 'a'. NUM-P = '1.5'. NUM-F = 2. COLLECT NUM. NUM-A = 'b'. COLLECT NUM. NUM-A = 'a'. NUM-P = '-4'. COLLECT NUM. "
         "WRITE / SY-TABIX. READ TABLE NUM WITH KEY P = '-2.5'. WRITE: / NUM-A, NUM-P, NUM-F, SY-SUBRC. DESCRIBE TABLE NUM.\n"
         "WRITE / SY-TFILL.",
         {"         1", "a             2,50-          4", "         0", "         2"}},
        {"APPEND: '1' TO L, '3' TO L, '2' TO L. W-X = 'w'. APPEND W TO ROWS. T[] = ROWS[]. READ TABLE T INDEX 1. READ TABLE L WITH "
         "KEY = '2'. TELL. SORT L DESCENDING. "
         "DELETE L WHERE TABLE_LINE = '1'. REFRESH T. FREE W. LOOP AT L. WRITE / L. ENDLOOP. DESCRIBE TABLE L LINES I OCCURS J. "
         "WRITE: / I, J. DESCRIBE FIELD NUM-P LENGTH I DECIMALS J TYPE C OUTPUT-LENGTH Z. WRITE: / I, J, C(1), Z.",
         {" 0  3 w", "3", "2", "         2           0", "         8           2  P 0017"}},
    });
}

TEST(AbapTables, RowsAreFound) {
    Exigir({
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. READ TABLE T INDEX 1. TELL. READ TABLE T INDEX 3. TELL. READ TABLE T INDEX 0 INTO W. TELL.",
         {" 0  1 x", " 4  0 x", " 4  0 x"}},
        {"ROW 'A' 1 'x'. ROW 'C' 2 'y'. ROW 'C' 2 'z'. READ TABLE T WITH KEY K = 'C' N = '2'. TELL. "
         "READ TABLE T WITH KEY X+1(2) = 'q' X = 'x'. TELL. READ TABLE T WITH KEY K = 'C' BINARY SEARCH. TELL. "
         "READ TABLE T WITH KEY K = 'B' BINARY SEARCH TRANSPORTING NO FIELDS. TELL. READ TABLE T WITH KEY K = 'D' BINARY SEARCH. "
         "TELL.",
         {" 0  2 y", " 4  0 y", " 0  2 y", " 4  2 y", " 8  4 y"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. CLEAR T. T-X = 'y'. READ TABLE T. TELL. W = T. W-N = 9. READ TABLE T FROM W. TELL. "
         "READ TABLE T WITH KEY 'A '. TELL. W-N = 0. READ TABLE T INDEX 2 INTO W COMPARING N TRANSPORTING X. WRITE: / SY-SUBRC, "
         "W-N, W-X.",
         {" 0  2 y", " 0  2 y", " 0  1 x", "         2           0  y"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. READ TABLE T WITH KEY K = 'B' ASSIGNING <R>. <R>-N = 7. <R>-K = 'Q'. "
         "READ TABLE T WITH KEY K = 'Q'. TELL. DELETE TABLE T FROM T. DELETE TABLE T WITH TABLE KEY K = 'A'. SHOW. DESCRIBE TABLE "
         "T LINES I.\n"
         "WRITE / I.",
         {" 0  2 y", "         0"}},
        {"ROW 'B' 1 'x'. ROW 'A' 2 'y'. ROW 'A' 3 'y'. SORT T BY K DESCENDING N. SHOW. SORT T. SHOW. SORT T DESCENDING BY X N "
         "ASCENDING. SHOW.",
         {"B 1 x", "A 2 y", "A 3 y", "A 2 y", "A 3 y", "B 1 x", "A 2 y", "A 3 y", "B 1 x"}},
        // An index by hash is there by now, and has to follow each change.
        {"DO 200 TIMES. T-K = SY-INDEX MOD 10. T-N = SY-INDEX. APPEND T. ENDDO. "
         "DO 30 TIMES. CLEAR I. LOOP AT T WHERE K = '3'. I = I + T-N. ENDLOOP. ENDDO. WRITE / I. "
         "LOOP AT T WHERE K = '3' AND N > 100. T-K = 'zz'. MODIFY T. ENDLOOP. INSERT W INTO T INDEX 1. "
         "CLEAR I. LOOP AT T WHERE K = '3'. I = I + T-N. ENDLOOP. WRITE / I. READ TABLE T WITH KEY K = 'zz'. WRITE: / SY-TABIX, "
         "T-N.",
         {"     1.960", "       480", "       104         103"}},
    });
}

TEST(AbapTables, LoopsMeetTheRowsOfTheMoment) {
    Exigir({
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. ROW 'C' 3 'z'. SY-TABIX = 77. LOOP AT T INTO W FROM 2 TO 5 WHERE N < 9. WRITE: / SY-TABIX, "
         "W-K. "
         "ENDLOOP. WRITE: / SY-SUBRC, SY-TABIX. LOOP AT T WHERE K = 'Q'. ENDLOOP. WRITE / SY-SUBRC.",
         {"         2  B", "         3  C", "         0          77", "         4"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. LOOP AT T. IF T-N < 4. T-N = T-N + 2. APPEND T. ENDIF. ENDLOOP. SHOW.",
         {"A 1 x", "B 2 y", "A 3 x", "B 4 y", "A 5 x"}},
        {"DO 5 TIMES. T-N = SY-INDEX. APPEND T. ENDDO. LOOP AT T. IF T-N = 2. DELETE T. ENDIF. IF T-N = 4. INSERT W INTO T. "
         "DELETE T INDEX 1. ENDIF. WRITE: / SY-TABIX, T-N. ENDLOOP. SHOW.",
         {"         1           1", "         2           2", "         2           3", "         3           4",
          "         4           5", "  3", "  0", "  4", "  5"}},
        {"DO 4 TIMES. T-N = SY-INDEX. APPEND T. ENDDO. LOOP AT T. IF T-N = 3. DELETE T WHERE N < 4. ENDIF. WRITE / T-N. ENDLOOP.",
         {"         1", "         2", "         3", "         4"}},
        // The right side is what it was when the loop began; a name on the right is the variable.
        {"ROW 'A' 1 'x'. ROW 'A' 2 'y'. DATA K(2) VALUE 'A'. W-K = 'A'. LOOP AT T WHERE K = W-K. CLEAR W-K. WRITE / T-N. ENDLOOP. "
         "LOOP AT T WHERE NOT ( K <> K OR N = 1 ) AND NOT X IS INITIAL. WRITE / T-X. ENDLOOP. "
         "R-SIGN = 'I'. R-OPTION = 'CP'. R-LOW = 'A*'. APPEND R. LOOP AT T WHERE K IN R AND X CA 'zx'. WRITE / T-X. ENDLOOP.",
         {"         1", "         2", "y", "x"}},
        {"ROW 'A' 1 'x'. ROW 'B' 2 'y'. LOOP AT T ASSIGNING <R> WHERE K = 'A'. <R>-K = 'B'. ENDLOOP. LOOP AT T TRANSPORTING NO "
         "FIELDS "
         "WHERE K = 'B'. WRITE / SY-TABIX. ENDLOOP. LOOP AT T. CHECK T-N = 2. EXIT. ENDLOOP. WRITE: / SY-SUBRC, T-X.",
         {"         1", "         2", "         0  y"}},
        {"ROW 'A' 1 'p'. ROW 'A' 2 'q'. ROW 'B' 4 'q'. LOOP AT T. AT FIRST. WRITE: / 'first', T-K. ENDAT. "
         "AT NEW K. WRITE: / 'new', T-K, T-X. ENDAT. WRITE: / T-X. AT END OF K. SUM. WRITE: / 'end', T-K, T-N. ENDAT. "
         "AT LAST. SUM. WRITE: / 'last', T-K, T-N. ENDAT. ENDLOOP. WRITE / T-X.",
         {"first **", "new A  ***", "p", "q", "end A           3", "new B  ***", "q", "end B           4", "last **          7",
          "q"}},
        {"PERFORM F TABLES T USING 3.\nFORM F TABLES U STRUCTURE W USING P. DATA: V LIKE W OCCURS 0 WITH HEADER LINE. U-N = P. "
         "APPEND U. "
         "IF P > 1. P = 1. ENDIF. ENDFORM.",
         {"MOVE_TO_LIT_NOTALLOWED"}},
        {"J = 3. PERFORM F TABLES T USING J. SHOW.\nFORM F TABLES U STRUCTURE W USING P. LOOP AT U WHERE N = 3. EXIT. ENDLOOP. "
         "CHECK P > 0. U-N = P. INSERT U INDEX 1. I = P - 1. PERFORM F TABLES U USING I. ENDFORM.",
         {"  1", "  2", "  3"}},
    });
    AlrededoresDePrueba alrededores;
    alrededores.seguimiento.saltado = 2;
    EXPECT_THAT(
        Correr("DO 3 TIMES. ITAB-N = SY-INDEX. APPEND ITAB. ENDDO. LOOP AT ITAB. WRITE / ITAB-N. LOOP AT ITAB INTO ITAB. ENDLOOP. "
               "ENDLOOP. PERFORM F.\nFORM F. LOOP AT ITAB. ENDLOOP. ENDFORM.",
               alrededores),
        ElementsAreArray({"         1", "         3"}));
    EXPECT_THAT(alrededores.seguimiento.registros, ElementsAreArray({"1", "2", "3", "end"}));
}

TEST(AbapTables, TextsAreChanged) {
    Exigir({
        {"C = 'ab'. CONCATENATE C '-' C INTO C. WRITE: / C, SY-SUBRC. CONCATENATE C C INTO C3 SEPARATED BY SPACE. WRITE: / C3, "
         "SY-SUBRC. "
         "S = 'x'. CONCATENATE S 'y ' S INTO S. WRITE / S.",
         {"ab-ab             0", "ab-          4", "xyx"}},
        {"SPLIT 'a;bcdef;;d' AT ';' INTO C C3 S. WRITE: / C, C3, S, SY-SUBRC. SPLIT 'a;b' AT ';' INTO TABLE L. LOOP AT L. WRITE / "
         "L. ENDLOOP.",
         {"a        bcd ;d          4", "a", "b"}},
        {"C = ' a  b'. CONDENSE C. WRITE / C. CONDENSE C NO-GAPS. TRANSLATE C TO UPPER CASE. TRANSLATE C USING 'A1'. WRITE / C.",
         {"a b", "1B"}},
        {"C = 'abcab'. REPLACE 'b' WITH 'XY' INTO C. WRITE: / C, SY-SUBRC. REPLACE 'q' WITH '' INTO C. WRITE / SY-SUBRC. "
         "SEARCH C FOR 'CA'. WRITE: / SY-SUBRC, SY-FDPOS. SEARCH C FOR 'A' STARTING AT 3 ENDING AT 4. WRITE / SY-SUBRC. "
         "T-X = 'abc'. APPEND: T, T. SEARCH T FOR 'bc' STARTING AT 2. WRITE: / SY-SUBRC, SY-TABIX.",
         {"aXYcab            0", "         4", "         0           3", "         4", "         0           2"}},
        {"C = 'abcd'. SHIFT C. WRITE / C. SHIFT C BY 6 PLACES RIGHT CIRCULAR. WRITE / C. C = '00120'. SHIFT C LEFT DELETING "
         "LEADING '0'. "
         "WRITE / C. SHIFT C RIGHT DELETING TRAILING SPACE. WRITE / C. SHIFT C UP TO '2'. WRITE: / C, SY-SUBRC. "
         "C = 'a b'. OVERLAY C WITH '------------'. WRITE: / C, SY-SUBRC. OVERLAY C WITH 'zzz' ONLY 'a'. WRITE / C.",
         {"bcd", "d     bc", "120", "     120", "20                0", "a-b-----          0", "z-b-----"}},
    });
}

TEST(AbapTables, TheListKeepsItsColumns) {
    Exigir({
        {"WRITE: 'a', 'b' NO-GAP, 'c'. WRITE 'd'. WRITE /5 'e'. WRITE: AT 9(2) 'xyz', 3 'q', AT /2 'r'. I = 4. WRITE AT I(I) "
         "'abcdef'.",
         {"a bc d", "  q e   xy", " r abcd"}},
        {"WRITE: / '1'. SKIP. WRITE '2'. SKIP 2. WRITE: / ' ', / '3', /. NEW-LINE. SET BLANK LINES ON. WRITE: / ' ', / '4'. "
         "SET BLANK LINES OFF. POSITION 6. WRITE '5'. POSITION 99. WRITE '6'. ULINE /3(4). ULINE. WRITE 'x'. SKIP 3.",
         {"1", "", "2", "", "", "3", "", "4    5 6", "  ----", std::string(40, '-'), "x"}},
        {"DATA LONG(45) VALUE '123456789012345678901234567890123456789012345'. WRITE: / 'a', LONG, 'b'. WRITE: / C, 30 "
         "'abcdefghijklmn'.",
         {"a", "1234567890123456789012345678901234567890", "b", "abcdefghijklmn"}},
        {"I = -1234567. NUM-P = '1234.5'. Z = 7. D = '20240229'. WRITE: / I, NUM-P, Z, D. WRITE: / D DD/MM/YY, Z NO-ZERO, I "
         "NO-SIGN NO-GROUPING, "
         "(4) I, NUM-P DECIMALS 0. WRITE: / 'ab' COLOR 3 ON INTENSIFIED OFF, (6) 'ab' RIGHT-JUSTIFIED NO-GAP, (6) 'ab' CENTERED, "
         "(2) 'x' HOTSPOT. "
         "FORMAT COLOR COL_KEY INTENSIFIED OFF. HIDE I. WRITE: / SY-UZEIT, Z USING EDIT MASK '_-__'.",
         {" 1.234.567-         1.234,50  0007", "29.02.2024", "29.02.24      7    1234567  *67-", "           1.235",
          "ab     ab  ab   x", "12:34:56 0-00"}},
        {"WRITE D TO C. WRITE / C. D = SY-DATUM. WRITE: D TO C, Z TO C3. WRITE: / C, C3, D+4(2). WRITE I TO C LEFT-JUSTIFIED. "
         "WRITE / C.",
         {"00000000", "29022024 000 02", "0"}},
        {"MESSAGE I001 WITH 5 'b  ' D. WRITE: / SY-MSGID, SY-MSGNO, SY-MSGV1(3), SY-MSGV2(3). MESSAGE ID 'ZX' TYPE 'S' NUMBER "
         "'012'. "
         "WRITE: / SY-MSGID(2), SY-MSGNO. MESSAGE E003(ZY). WRITE / 'never'.",
         {"ZM                   001 5   b", "ZX 012", "ended by a message"}},
    });
}

TEST(AbapTables, WhatIsNotKnownIsAFault) {
    const char* const sentencias[] = {
        "SORT T BY K AS TEXT.",
        "SORT T BY Q.",
        "APPEND ROWS.",
        "LOOP AT T WHERE K = W-K + 1. ENDLOOP.",
        "LOOP AT W. ENDLOOP.",
        "READ TABLE T INDEX 1 INDEX 2.",
        "AT NEW K. ENDAT.",
        "READ TABLE T WITH KEY K+2(1) = 'x'.",
        "WRITE W UNDER C.",
        "WRITE: / 'a' FROTZ.",
        "SKIP TO LINE 5.",
        "SEARCH C FOR 'a' ABBREVIATED.",
        "SHIFT C LEFT DELETING TRAILING '0'.",
        "MESSAGE 'text'.",
        "DELETE T INDEX 1 WHERE N = 1.",
        "MODIFY T TRANSPORTING Q.",
    };
    for (const char* sentencia : sentencias) {
        AlrededoresDePrueba alrededores;
        const auto compilacion = Compilar(std::string(cabeza) + "START-OF-SELECTION.\n" + sentencia, alrededores.diccionario);
        EXPECT_FALSE(compilacion.faltas.empty()) << sentencia;
        for (const auto& falta : compilacion.faltas) EXPECT_EQ(falta.linea, 11) << sentencia << falta.texto;
    }
}

}  // namespace
}  // namespace qor::abap
