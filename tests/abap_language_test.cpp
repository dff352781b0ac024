// What generated reports rely on: parameters, names, parts of fields, what leaves what; each by a small report whose list is read.
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

TEST(AbapLanguage, ReportsPrintTheirLists) {
    for (const auto& caso : pruebas::LeerCasos("abap_language.txt")) {
        EXPECT_THAT(Correr(caso.codigo), ElementsAreArray(caso.esperado)) << caso.codigo;
    }
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
