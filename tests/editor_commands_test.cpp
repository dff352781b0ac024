#include <gmock/gmock.h>

#include <stdexcept>

#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/commands.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::VentanaDePrueba;
using testing::HasSubstr;
using Col = Columna;

// The keyboard stays in a cell all the while, as with a button that takes no focus.
CeldaConTeclado EnCelda(LugarDeCelda lugar) {
    return [lugar] { return lugar; };
}

TEST(Command, LeavesTheCellFirstAndIsNotBegunOnARefusedOne) {
    struct Caso {
        LugarDeCelda lugar;
        std::string escrito;
        bool empezado;
        std::string queda;
        std::string avisos;
    };
    const std::string largo(25, 'X');
    const Caso casos[] = {
        {{Col::CampoDeArchivo, 2}, "A", true, "A2", ""},
        {{Col::CampoDeArchivo, 2}, largo, false, "", "<338>"},
        {{Col::Ancho, 2}, "12", true, "12", ""},
        {{Col::Valor, 1}, "new", true, "new", ""},
        {{Col::Valor, 1}, "@P", true, "@P", "<312> P <350>"},
        {{Col::Valor, 1}, std::string(31, 'y'), false, std::string(30, 'y'), "<333> 30."},
    };
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.Archivo({"A", largo});
        p.Transaccion({"TRANS|T", "||F"});
        p.Escribir(caso.lugar, "");
        EscribirEnCelda(p.ventana, caso.lugar, caso.escrito);
        std::string alEmpezar = "not begun";
        const auto accion = [&] { alEmpezar = p.ventana.foco ? "in a cell" : p.Texto(caso.lugar); };
        EXPECT_EQ(EjecutarComando(p.ventana, accion, EnCelda(caso.lugar)), caso.empezado) << caso.escrito;
        EXPECT_EQ(alEmpezar, caso.empezado ? caso.queda : "not begun") << caso.escrito;
        EXPECT_EQ(p.Texto(caso.lugar), caso.queda) << caso.escrito;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.escrito;
        EXPECT_EQ(p.ventana.foco, caso.lugar) << caso.escrito;
        // What was refused has been corrected, so that the next command is begun.
        EXPECT_TRUE(EjecutarComando(
            p.ventana, [] {}, EnCelda(caso.lugar)))
            << caso.escrito;
    }
}

TEST(Command, TheFocusIsWhereTheKeyboardIsBehindIt) {
    VentanaDePrueba p;
    p.Archivo({"A", "B"});
    const LugarDeCelda celda{Col::CampoDeArchivo, 1};
    EntrarEnCelda(p.ventana, celda);
    // The command gives another control the keyboard, or another cell.
    EjecutarComando(
        p.ventana, [] {}, [] { return std::nullopt; });
    EXPECT_FALSE(p.ventana.foco);
    LugarDeCelda otra = celda;
    const auto mover = [&] { EnfocarCelda(p.ventana, otra = {Col::Ancho, 0}); };
    EjecutarComando(p.ventana, mover, [&] { return otra; });
    EXPECT_EQ(p.ventana.foco, otra);
    EXPECT_EQ(p.ventana.archivo.LineaArchivo, 0);
    // A new document forgets the focus, and the keyboard is still in the cell; so does a failure on the way.
    EjecutarComando(
        p.ventana, [&] { p.ventana.Reiniciar(); }, EnCelda(celda));
    EXPECT_EQ(p.ventana.foco, celda);
    EXPECT_TRUE(EjecutarComando(
        p.ventana, [] { throw std::runtime_error("no luck"); }, EnCelda(celda)));
    EXPECT_THAT(p.vista.TomarAvisos(), HasSubstr("no luck"));
    EXPECT_EQ(p.ventana.foco, celda);
}

}  // namespace
}  // namespace qor
