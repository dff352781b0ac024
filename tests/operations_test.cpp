#include "model/operations.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "base/failure.h"
#include "base/text.h"

namespace qor::pruebas {
namespace {

using Filas = std::vector<FilaDeTransaccion>;

Especificacion Con(const Filas& filas) {
    Especificacion e;
    std::copy(filas.begin(), filas.end(), e.TablaTransaccion.begin());
    return e;
}

std::vector<int> Grupos(const Especificacion& e, int filas) {
    const auto operaciones = ActualizarOperaciones(e, 0);
    std::vector<int> grupos;
    for (int r = 0; r < filas; ++r) grupos.push_back(operaciones.OperacionFila(r));
    return grupos;
}

constexpr const char* cabeza = "!1 1!2!30!4!51!61!7,K";

TEST(Operations, RowsBelongToGroups) {
    const struct {
        const char* que;
        Filas filas;
        std::vector<int> esperados;
    } casos[] = {
        {"members stand above the head too; the second OK code doesn't belong",
         {{"TRANS", "T"},
          {"P", "1"},
          {"", "", "A(1)", "a"},
          {"", "", "BDC_OKCODE", "'/00'"},
          {"", "", "B(1)", "b", cabeza},
          {"", "", "C", "c"},
          {"", "", "BDC_OKCODE", "'/11'"}},
         {0, 0, 1, 1, 1, 0, 0}},
        {"a screen without a head has no group",
         {{"TRANS", "T"}, {"P", "1"}, {"", "", "A(1)", "a"}, {"", "", "BDC_OKCODE", "'/00'"}},
         {0, 0, 0, 0}},
        {"each change of structure in a BAPI is a new head",
         {{"BAPI", "X"},
          {"", "", "S-A(+)", "a", cabeza},
          {"", "", "S-B(+)", "b"},
          {"", "", "T-A", "c"},
          {"", "", "S-A(+)", "d", cabeza}},
         {0, 1, 1, 0, 2}},
        {"a row with text in column 1 alone ends the table",
         {{"TRANS", "T"}, {"P", "1"}, {"", "2", "", ""}, {"", "", "A(1)", "a", cabeza}},
         {0, 0, 0, 0}},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(Grupos(Con(caso.filas), static_cast<int>(caso.filas.size())), caso.esperados) << caso.que;
    EXPECT_THROW(ActualizarOperaciones(Con({{"TRANS", "T"}, {"", "", "A", "a", "!2!1"}}), 0), FalloDeEjecucion);
}

TEST(Operations, MarksCountBehindABlankRowToo) {
    const auto e = Con({{"", "", "", "", ""}, {"", "", "A", "a", cabeza}});
    EXPECT_EQ(ContarStepLoops(e), 1);
    EXPECT_EQ(FilaDeStepLoop(e, 1), 0);
}

TEST(Operations, OkCodeOfAScreenIsFound) {
    const auto e = Con({{"TRANS", "T"},
                        {"P", "1;S"},
                        {"", "", "A(1)", "a", cabeza},
                        {"", "", "BDC_OKCODE;C", "'/00'"},
                        {"Q", "2"},
                        {"", "", "B", "b"},
                        {"R", "3"},
                        {"", "", "BDC_OKCODE", "'/11'"}});
    const struct {
        int fila;
        const char *programa, *valor, *condicion;
    } casos[] = {{2, "P", "'/00'", "C"}, {1, "P", "'/00'", "C"}, {3, "P", "'/00'", "C"}, {5, "Q", "", ""}, {7, "R", "'/11'", ""}};
    for (const auto& caso : casos) {
        const auto ok = BuscarOkCode(e, caso.fila);
        EXPECT_EQ(ok.programa, caso.programa) << caso.fila;
        EXPECT_EQ(ok.valor, caso.valor) << caso.fila;
        EXPECT_EQ(ok.CondicionOkCode, caso.condicion) << caso.fila;
    }
}

// The answers for specifications of all shapes, as walks over the rows once gave them too.
TEST(Operations, AnswersStayAsTheyAre) {
    std::uint64_t suma = 0;
    const auto anotar = [&suma](int respuesta) { suma = (suma ^ static_cast<unsigned>(respuesta)) * 1099511628211U + 1; };
    std::mt19937 azar(1);
    const auto uno = [&](std::initializer_list<const char*> opciones) {
        return std::string(*(opciones.begin() + azar() % opciones.size()));
    };
    for (int vuelta = 0; vuelta < 300; ++vuelta) {
        Especificacion e;
        for (int f = 0; f < 6; ++f) e.TablaArchivo[f].campo = uno({"A", "AB", "B", "C", "KEY", "KEY2"});
        e.TablaTransaccion[0] = {uno({"TRANS", "BAPI"}), "X", "", "", ""};
        for (int r = 1; r < 25; ++r) {
            if (azar() % 4 == 0) {
                e.TablaTransaccion[r] = {uno({"TRANS", "BAPI", "PROG"}), "1", "", "", ""};
            } else {
                e.TablaTransaccion[r] = {"", "", uno({"F", "F(1)", "S-F", "T-F(+)", "BDC_OKCODE"}),
                                         uno({"A", " AB ", "B", "KEY", "'x'", ""}),
                                         uno({"", "", "note", cabeza, "x!1 1!2!30!4!51!61!7,KEY2,AB", "!1 0!7,A"})};
            }
        }
        const auto operaciones = ActualizarOperaciones(e, 0);
        for (const int grupo : Grupos(e, e.FilasTransaccion())) anotar(grupo);
        for (int n = 0; n <= 4; ++n) {
            anotar(operaciones.ContarCamposOperacion(n));
            anotar(operaciones.ContarCamposClave(n));
            for (int f = 0; f < 6; ++f) {
                const std::string& campo = e.TablaArchivo[f].campo;
                const auto clase = operaciones.ClaseCampoEnOperacion(campo, n);
                EXPECT_EQ(operaciones.ClaseCampoEnOperacion(f, n), clase) << vuelta;
                anotar(static_cast<int>(clase));
                anotar(operaciones.OperacionDeCampo(campo));
            }
        }
    }
    EXPECT_EQ(suma, 4053548484952172634U);
}

}  // namespace
}  // namespace qor::pruebas
