#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "abap/check/check.h"
#include "base/files.h"
#include "base/text.h"
#include "editor/user_code.h"
#include "tests/support/cases_in_file.h"

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

TEST(AbapCheck, TellsWhatDoesNotCompileAndNothingElse) {
    for (const auto& caso : pruebas::LeerCasos("abap_check.txt")) {
        EXPECT_EQ(Faltas(caso.codigo), caso.esperado.empty() ? "" : caso.esperado.front()) << caso.codigo;
    }
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
