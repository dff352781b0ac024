// What generated reports rely on: parameters, names, parts of fields, what leaves what; each by a small report whose list is read.
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

struct Caso {
    const char* sentencias;
    std::vector<std::string> lista;
};

std::vector<std::string> Correr(const std::string& sentencias) {
    AlrededoresDePrueba alrededores;
    auto& lineas = alrededores.lista.lineas;
    const auto compilacion = Compilar("REPORT Z.\n" + sentencias, alrededores.diccionario);
    for (const auto& falta : compilacion.faltas) {
        lineas.push_back(std::to_string(falta.linea) + "," + std::to_string(falta.columna) + ": " + falta.texto);
    }
    if (!compilacion.programa) return lineas;
    Ejecucion ejecucion(compilacion.programa, alrededores.entorno, 10'000);
    try {
        ejecucion.Iniciar();
        ejecucion.Correr();
    } catch (const Volcado& volcado) {
        lineas.push_back(volcado.Nombre() + " in line " + std::to_string(ejecucion.Linea()));
    }
    return lineas;
}

void Exigir(const std::vector<Caso>& casos) {
    for (const auto& caso : casos) EXPECT_THAT(Correr(caso.sentencias), ElementsAreArray(caso.lista)) << caso.sentencias;
}

TEST(AbapLanguage, ParametersAreReferencesAndShadowGlobalNames) {
    Exigir({
        {"DATA A(3) VALUE 'abc'.\nPERFORM F USING A. WRITE / A.\nFORM F USING P. P = SPACE. WRITE: / 'in', A. ENDFORM.", {"in"}},
        {"DATA A(3) VALUE 'abc'.\nPERFORM F USING A. WRITE / A.\nFORM F USING VALUE(P). P = 'x'. WRITE / A. ENDFORM.",
         {"abc", "abc"}},
        {"DATA A(3) VALUE 'abc'.\nPERFORM F CHANGING A. WRITE / A.\nFORM F CHANGING VALUE(P). P = 'x'. WRITE / A. ENDFORM.",
         {"abc", "x"}},
        {"PERFORM F USING 'abc'.\nFORM F USING P.\nP = SPACE.\nENDFORM.", {"MOVE_TO_LIT_NOTALLOWED in line 4"}},
        {"CONSTANTS K VALUE 'X'.\nPERFORM F USING K.\nFORM F USING P.\nCLEAR P.\nENDFORM.", {"MOVE_TO_LIT_NOTALLOWED in line 5"}},
        {"DATA: TCODE(4) VALUE 'VA01', R VALUE 'G'.\nPERFORM F USING 'MM01'. WRITE: / TCODE, R.\n"
         "FORM F USING TCODE. DATA R. R = 'L'. WRITE: / TCODE, R. ENDFORM.",
         {"MM01 L", "VA01 G"}},
        {"DATA: BEGIN OF T OCCURS 0, A(2), B(2), END OF T.\nT = 'aabb'. APPEND T. PERFORM F TABLES T.\n"
         "FORM F TABLES T STRUCTURE T. LOOP AT T. WRITE / T-B. ENDLOOP. ENDFORM.",
         {"bb"}},
        {"DATA A(3) VALUE 'one'.\nPERFORM F. WRITE / A.\nFORM F. LOCAL A. A = 'two'. PERFORM G. ENDFORM.\nFORM G. WRITE / A. "
         "ENDFORM.",
         {"two", "one"}},
        {"PERFORM F. PERFORM F.\nFORM F. STATICS N TYPE I. DATA L TYPE I. ADD 1 TO: N, L. WRITE: / N, L. ENDFORM.",
         {"         1           1", "         2           1"}},
        {"DATA: BEGIN OF S, A(10), B(10), END OF S. DATA T LIKE S OCCURS 0.\nPERFORM F USING T.\nFORM F USING P STRUCTURE S. WRITE "
         "P-B. ENDFORM.",
         {"PERFORM_PARAMETER_TOO_SHORT in line 3"}},
        {"FIELD-SYMBOLS <G>.\nPERFORM F USING 'HELLO'.\nWRITE <G>.\nFORM F USING VALUE(P). ASSIGN P TO <G>. ENDFORM.",
         {"GETWA_NOT_ASSIGNED in line 4"}},
        {"DATA S TYPE STRING.\nS = 'abcdef'. PERFORM F USING S+2(3).\nFORM F USING P. CLEAR S. S = 'a much longer text than it was "
         "before'. WRITE / P. ENDFORM.",
         {"cde"}},
        {"WRITE / 'before'.\nPERFORM NOWHERE.", {"before", "PERFORM_NOT_FOUND in line 3"}},
    });
}

TEST(AbapLanguage, FieldsAreTheirBytes) {
    Exigir({
        {"DATA: BEGIN OF ITAB OCCURS 0, N(10) TYPE N, A(4), B(3), END OF ITAB.\nMOVE 'wxyzABCD' TO ITAB+10. WRITE: / ITAB-N, "
         "ITAB-A, ITAB-B.",
         {"0000000000 wxyz ABC"}},
        {"DATA: BEGIN OF R, A(2), B(4) TYPE N, END OF R, C(9).\nMOVE 'ab12' TO R. WRITE: / R-A, R-B. C = R. WRITE / C.",
         {"ab 12", "ab12"}},
        {"DATA: N(3) TYPE N, C(5).\nN = '7'. WRITE N TO C. WRITE / C. SHIFT C LEFT DELETING LEADING '0'. WRITE / C.", {"007", "7"}},
        {"DATA: N(4) TYPE N VALUE 3, C(2) VALUE '03', B(1).\nIF N = C. WRITE / 'equal'. ENDIF. IF B = ''. WRITE / 'blank'. ENDIF.",
         {"equal", "blank"}},
        {"DATA C(8) VALUE 'abcdefgh'. DATA O TYPE I VALUE 6.\nWRITE: / C+2(3), C+O. C+1(2) = 'X'. WRITE / C. O = 9.\nWRITE / C+O.",
         {"cde gh", "aX defgh", "STRING_OFFSET_TOO_LARGE in line 4"}},
        {"DATA I TYPE I.\nI = 7 / 2 * 2. WRITE / I. I = 'seven'.", {"         8", "CONVT_NO_NUMBER in line 3"}},
        {"CONSTANTS K TYPE STRING VALUE 'abc'. DATA D TYPE STRING VALUE K.\nWRITE / D.", {"abc"}},
        {"DATA S(2).\nIF 'ab' CS 'b'. ENDIF. SY-FDPOS = 7. REPLACE 'zz' WITH 'y' INTO S. WRITE / SY-FDPOS.", {"         7"}},
        {"DATA: BEGIN OF R4, SIGN, OPTION(2), LOW(3), HIGH(3), END OF R4, T(20) OCCURS 0 WITH HEADER LINE.\nT = 'IEQabc'. APPEND "
         "T. PERFORM F TABLES T.\n"
         "FORM F TABLES R STRUCTURE R4.\nIF 'abc' IN R. ENDIF.\nENDFORM.",
         {"SAPSQL_IN_ITAB_ILLEGAL_SIGN in line 5"}},
        {"WRITE: / 'text'(001), 'it''s'.", {"text it's"}},
    });
}

TEST(AbapLanguage, WhatLeavesALoopAFormAndTheReport) {
    Exigir({
        {"DO 3 TIMES. IF SY-INDEX = 2. EXIT. ENDIF. WRITE / SY-INDEX. ENDDO. WRITE / 'behind'.", {"         1", "behind"}},
        {"PERFORM F. WRITE / 'behind'. EXIT. WRITE / 'never'.\nFORM F. WRITE / 'in'. EXIT. WRITE / 'never'. "
         "ENDFORM.\nEND-OF-SELECTION.\nWRITE / 'never'.",
         {"in", "behind"}},
        {"PERFORM F.\nFORM F. STOP. ENDFORM.\nEND-OF-SELECTION.\nWRITE / 'last'.", {"last"}},
        {"DO 2 TIMES. DO. CHECK SY-INDEX > 3. EXIT. ENDDO. WRITE / SY-INDEX. ENDDO.", {"         1", "         2"}},
        {"DO. ENDDO.", {"TIME_OUT in line 2"}},
        {"DEFINE TWICE. WRITE: / &1, &1. END-OF-DEFINITION.\nTWICE 'a'.", {"a a"}},
    });
}

TEST(AbapLanguage, FaultsStandInTheirLines) {
    Exigir({
        {"WRITE / X.\nFROB.\nDATA A(0).",
         {"2,9: X is not declared", "3,1: FROB begins no statement", "4,6: no field can have this length"}},
        {"CASE SY-INDEX.\nWRITE / 'between'.\nWHEN 1.\nENDCASE.", {"3,1: nothing can stand between CASE and its first WHEN"}},
        {"IF 1 = NIX.\nWRITE / 'a'.\nENDIF.", {"2,8: NIX is not declared"}},
        {"PERFORM F USING NIX.\nFORM F USING A B. ENDFORM.", {"2,17: NIX is not declared"}},
        {"PERFORM F USING 'a'.\nFORM F USING A B. ENDFORM.", {"2,9: the FORM F has 0 tables and 2 parameters"}},
        {"DATA S TYPE STRING.\nRANGES R FOR S.", {"3,1: ranges of STRING are not known here"}},
        {"FORM F USING A TABLES T. ENDFORM.", {"2,16: TABLES comes in front of all other parameters"}},
        {"DATA I TYPE I VALUE 'abc'.", {"2,1: \"abc\" is not a number"}},
    });
}

// What has no end in a text has one in the reading of it.
TEST(AbapLanguage, DepthsHaveABound) {
    const auto veces = [](const char* texto) {
        std::string todo;
        for (int i = 0; i < 100'000; ++i) todo += texto;
        return todo;
    };
    for (const auto& sentencia : {"IF " + veces("NOT ") + "I = 1. ENDIF.", "LOOP AT T WHERE " + veces("NOT ") + "A = 1. ENDLOOP.",
                                  "I = 1" + veces(" + 1") + ".", "I = 1" + veces(" ** 1") + ".", "I = " + veces("( ") + "1."}) {
        EXPECT_EQ(Correr("DATA: I TYPE I, BEGIN OF T OCCURS 0, A, END OF T.\n" + sentencia).size(), 1U) << sentencia.substr(0, 40);
    }
    std::string terminos = "IF ( I + 1 ) > 0";
    for (int i = 0; i < 300; ++i) terminos += " AND ( I + 1 ) > 0";
    EXPECT_THAT(Correr("DATA I TYPE I.\n" + terminos + ". WRITE / 'true'. ENDIF."), ElementsAreArray({"true"}));
}

}  // namespace
}  // namespace qor::abap
