#include "model/operations.h"

#include <gtest/gtest.h>

#include <random>

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"

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

// The groups by another way: the operations are cut into screens and structures first, and each of these is judged as a whole.
std::vector<int> GruposPorTramos(const Especificacion& e, int filas) {
    std::vector<int> grupos(static_cast<std::size_t>(filas), 0);
    int n = 0;
    bool activo = false;
    bool esBAPI = false;
    for (int desde = 0; desde < filas;) {
        const auto& tabla = e.TablaTransaccion;
        const auto estructura = [&](int r) {
            return Contiene(tabla[r].campo, "-") ? tabla[r].campo.substr(0, tabla[r].campo.find('-')) : "";
        };
        if (!EstaEnBlanco(tabla[desde].programa)) {
            if (tabla[desde].EsCabezaBAPI()) esBAPI = true;
            if (tabla[desde].EsCabezaTransaccion()) esBAPI = false;
        }
        // Behind a head's own row come field rows; in a BAPI only those without a structure belong to the head.
        const std::string propia = EstaEnBlanco(tabla[desde].programa) ? estructura(desde) : "";
        int hasta = desde + 1;
        while (hasta < filas && EstaEnBlanco(tabla[hasta].programa) && (!esBAPI || estructura(hasta) == propia)) ++hasta;
        const bool filaDeCabeza = !EstaEnBlanco(tabla[desde].programa);
        const int primerCampo = filaDeCabeza ? desde + 1 : desde;
        bool enLoop = false;
        for (int r = primerCampo; r < hasta; ++r) enLoop = enLoop || EsCabezaStepLoop(tabla[r].nota);
        // A head without a field row decides nothing: what stood before stays switched on.
        if (primerCampo < hasta) activo = enLoop;
        if (enLoop) ++n;
        bool okVisto = false;
        for (int r = primerCampo; r < hasta; ++r) {
            const bool ok = Recortar(tabla[r].campo) == "BDC_OKCODE" && !okVisto;
            okVisto = okVisto || ok;
            const bool miembro = ok || Contiene(tabla[r].campo, "(") || EsCabezaStepLoop(tabla[r].nota);
            if (activo && miembro) grupos[static_cast<std::size_t>(r)] = n;
        }
        // In a BAPI the row that opens a group belongs to it, be it a field of the structure or the operation's own row.
        if (esBAPI && enLoop) grupos[static_cast<std::size_t>(desde)] = n;
        if (!filaDeCabeza && !enLoop) grupos[static_cast<std::size_t>(desde)] = 0;
        desde = hasta;
    }
    return grupos;
}

// The answers of the index against walks over the rows.
struct Caminata {
    const Especificacion& e;
    const Operaciones& operaciones;

    int OperacionDeCampo(const std::string& campo) const {
        int grupo = 0;
        for (int r = 0; r < e.FilasTransaccion(); ++r) {
            if (Recortar(e.TablaTransaccion[r].valor) == campo) grupo = operaciones.OperacionFila(r);
        }
        return grupo;
    }

    int Clase(const std::string& campo, int n) const {
        int clase = 0;
        for (int r = 0; r < e.FilasTransaccion(); ++r) {
            const auto& fila = e.TablaTransaccion[r];
            const int grupo = operaciones.OperacionFila(r);
            if (Recortar(fila.valor) == campo && grupo != 0) clase = grupo == n ? 1 : 2;
            if (grupo == n && Contiene(ExtraerMarca(fila.nota, 7, 8), campo)) clase = 3;
        }
        return clase;
    }
};

TEST(Operations, IndexAnswersAsTheWalksDo) {
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
        EXPECT_EQ(Grupos(e, e.FilasTransaccion()), GruposPorTramos(e, e.FilasTransaccion())) << vuelta;
        const Caminata caminata{e, operaciones};
        for (int n = 0; n <= 4; ++n) {
            int campos = 0;
            int claves = 0;
            for (int f = 0; f < 6; ++f) {
                const std::string& campo = e.TablaArchivo[f].campo;
                EXPECT_EQ(static_cast<int>(operaciones.ClaseCampoEnOperacion(f, n)), caminata.Clase(campo, n)) << vuelta;
                EXPECT_EQ(static_cast<int>(operaciones.ClaseCampoEnOperacion(campo, n)), caminata.Clase(campo, n));
                EXPECT_EQ(operaciones.OperacionDeCampo(campo), caminata.OperacionDeCampo(campo));
                campos += caminata.OperacionDeCampo(campo) == n;
                claves += caminata.Clase(campo, n) == 3;
            }
            EXPECT_EQ(operaciones.ContarCamposOperacion(n), campos);
            EXPECT_EQ(operaciones.ContarCamposClave(n), claves);
        }
    }
}

}  // namespace
}  // namespace qor::pruebas
