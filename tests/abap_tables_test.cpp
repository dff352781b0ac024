// Statements on internal tables, texts and the list, each by a small report whose list is read.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "abap/execution.h"
#include "abap/short_dump.h"
#include "tests/support/cases_in_file.h"
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

// Runs START-OF-SELECTION and the FORMs that it calls.
std::vector<std::string> Correr(const std::string& sentencias, AlrededoresDePrueba& alrededores) {
    const std::string reporte = cabeza + ("START-OF-SELECTION.\n" + sentencias);
    const auto compilacion = Compilar(reporte, alrededores.diccionario);
    auto& lineas = alrededores.lista.lineas;
    for (const auto& falta : compilacion.faltas) lineas.push_back(std::to_string(falta.linea) + ": " + falta.texto);
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

TEST(AbapTables, ReportsPrintTheirLists) {
    for (const auto& caso : pruebas::LeerCasos("abap_tables.txt")) {
        AlrededoresDePrueba alrededores;
        EXPECT_THAT(Correr(caso.codigo, alrededores), ElementsAreArray(caso.esperado)) << caso.codigo;
    }
}

TEST(AbapTables, ARecordIsLeftOutOfTheOuterLoopAlone) {
    AlrededoresDePrueba alrededores;
    alrededores.seguimiento.saltado = 2;
    EXPECT_THAT(
        Correr("DO 3 TIMES. ITAB-N = SY-INDEX. APPEND ITAB. ENDDO. LOOP AT ITAB. WRITE / ITAB-N. LOOP AT ITAB INTO ITAB. ENDLOOP. "
               "ENDLOOP. PERFORM F.\nFORM F. LOOP AT ITAB. ENDLOOP. ENDFORM.",
               alrededores),
        ElementsAreArray({"         1", "         3"}));
    EXPECT_THAT(alrededores.seguimiento.registros, ElementsAreArray({"1", "2", "3", "end"}));
}

}  // namespace
}  // namespace qor::abap
