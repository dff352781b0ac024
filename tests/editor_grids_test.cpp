#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/add_operation.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/find.h"
#include "editor/grids.h"
#include "editor/undo_command.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::VentanaDePrueba;
using testing::ElementsAre;
using Col = Columna;

TEST(Grids, WindowsStopAtBothEnds) {
    VentanaDePrueba p;
    p.LlenarArchivo(1001);
    p.LlenarTransaccion(1001);
    for (int n = 0; n < 1100; ++n) {
        VentanaArchivoAbajo(p.ventana);
        VentanaTransaccionAbajo(p.ventana);
    }
    // Row 1001 is never shown.
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 13}), "F1000");
    EXPECT_EQ(p.Texto({Col::Campo, 10}), "F1000");
    DesplazarArchivo(p.ventana, -2000);
    DesplazarTransaccion(p.ventana, -2000);
    VentanaArchivoArriba(p.ventana);
    VentanaTransaccionArriba(p.ventana);
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 0}), "F0");
    EXPECT_EQ(p.Texto({Col::Campo, 0}), "F0");
    EXPECT_FALSE(!p.ventana.documento.deshacer.Vacia());
    EXPECT_FALSE(p.ventana.documento.HayCambios());
}

TEST(Grids, ColoursTellOfNotesCodeAndHeads) {
    VentanaDePrueba p;
    p.Archivo({"A|1|note", "B|1||code", "C|1| | "});
    p.Transaccion({"TRANS|XD01", "SAPMF02D|0100", "||KNA1-KUNNR|A|note", "BAPI|X", "||F|B| "});
    const auto colores = [&](int linea) {
        std::vector<Color> todos;
        for (const Col columna : {Col::Programa, Col::Dynpro, Col::Campo}) todos.push_back(p.ColorDe({columna, linea}));
        return todos;
    };
    const auto esperar = [&] {
        EXPECT_THAT(colores(0), ElementsAre(Color::Azul, Color::Azul, Color::Negro));
        EXPECT_THAT(colores(1), ElementsAre(Color::Negro, Color::Negro, Color::Negro));
        EXPECT_THAT(colores(2), ElementsAre(Color::Negro, Color::Negro, Color::Rojo));
        EXPECT_THAT(colores(3), ElementsAre(Color::Azul, Color::Azul, Color::Negro));
        EXPECT_THAT(colores(4), ElementsAre(Color::Negro, Color::Negro, Color::Negro));
    };
    esperar();
    InsertarTransaccion(p.ventana, 0);
    BorrarTransaccion(p.ventana, 0);
    VentanaTransaccionAbajo(p.ventana);
    VentanaTransaccionArriba(p.ventana);
    esperar();

    // A fill asks for exact emptiness, a step of the window for blanks.
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 2}), Color::Rojo);
    VentanaArchivoAbajo(p.ventana);
    VentanaArchivoArriba(p.ventana);
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 2}), Color::Negro);
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 0}), Color::Rojo);
    EXPECT_EQ(p.ventana.archivo.conversion[1].color, Color::Rojo);
}

TEST(Rows, AreInsertedWithTheTextOfTheRowBelow) {
    VentanaDePrueba p;
    p.Archivo({"A|1|note|code", "B|2"});
    p.Transaccion({"TRANS|T", "||F|V|note"});
    InsertarArchivo(p.ventana, 0);
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A2|1", "A|1|note|code", "B|2"));
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 0}), Color::Negro);
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 1}), Color::Rojo);
    InsertarTransaccion(p.ventana, 1);
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F|V", "||F|V|note"));
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    InsertarTransaccion(p.ventana, 5);
    EXPECT_EQ(p.FilasTransaccion().size(), 3U);

    // In the last line no cell changes, and still the double is numbered.
    p.LlenarArchivo(13);
    SalirDeCelda(p.ventana, {Col::CampoDeArchivo, 13});
    InsertarArchivo(p.ventana, 13);
    EXPECT_EQ(p.FilaArchivo(13), "F14");
}

TEST(Rows, TheLastOneIsLostByAnInsertion) {
    VentanaDePrueba p;
    p.LlenarArchivo(1001);
    p.PonerArchivo(1000, "F1000|7|note|code");
    MostrarArchivo(p.ventana, 1000);
    InsertarArchivo(p.ventana, 13);
    EXPECT_EQ(p.FilaArchivo(1000), "F1000|7");
    InsertarArchivo(p.ventana, 12);
    EXPECT_EQ(p.FilaArchivo(999), "F1000");  // the double of F999; the number is free
    EXPECT_EQ(p.FilaArchivo(1000), "F999");
    EXPECT_EQ(p.FilaArchivo(1001), "F1001");  // never touched
    BorrarArchivo(p.ventana, 12);
    EXPECT_EQ(p.FilaArchivo(999), "F999");
    EXPECT_EQ(p.FilaArchivo(1000), "F999");

    p.LlenarTransaccion(1001);
    MostrarTransaccion(p.ventana, 0);
    BorrarTransaccion(p.ventana, 0);
    EXPECT_EQ(p.FilaTransaccion(999), "||F1000");
    EXPECT_EQ(p.FilaTransaccion(1000), "");
    p.LlenarArchivo(1000);
    BorrarArchivo(p.ventana, 0);
    EXPECT_EQ(p.FilaArchivo(999), "F1000");
    EXPECT_EQ(p.FilaArchivo(1000), "F1000");  // comes twice on this side
}

TEST(Rows, MoveUpAndDownWithTheFocus) {
    VentanaDePrueba p;
    p.LlenarArchivo(1000);
    p.PonerArchivo(13, "F13|7|note|code");
    MostrarArchivoSinFocus(p.ventana, 0);
    p.ventana.archivo.LineaArchivo = 13;
    DownButton(p.ventana);
    EXPECT_EQ(p.FilaArchivo(14), "F13|7|note|code");
    EXPECT_EQ(p.FilaArchivo(13), "F14");
    EXPECT_EQ(p.ventana.archivo.PrimeraFilaArchivo, 1);
    EXPECT_EQ(p.Foco(), "Text1_13");
    UpButton(p.ventana);
    EXPECT_EQ(p.FilaArchivo(13), "F13|7|note|code");
    EXPECT_EQ(p.Foco(), "Text1_12");
    MostrarArchivo(p.ventana, 5);
    UpButton(p.ventana);
    EXPECT_EQ(p.ventana.archivo.PrimeraFilaArchivo, 4);
    EXPECT_TRUE(p.ventana.documento.HayCambios() && p.ventana.documento.deshacer.Vacia());  // a move leaves no step

    for (const int fila : {0, 1000}) {
        MostrarArchivo(p.ventana, fila);
        const auto antes = p.FilasArchivo();
        fila == 0 ? UpButton(p.ventana) : DownButton(p.ventana);
        EXPECT_EQ(p.FilasArchivo(), antes) << fila;
    }
}

TEST(Undo, GoesBackOneStepAtATime) {
    VentanaDePrueba p;
    p.Archivo({"A|1|note|code", "B|2"});
    p.Transaccion({"TRANS|T", "||F|'v'|note"});
    const auto archivo = p.FilasArchivo();
    const auto transaccion = p.FilasTransaccion();
    p.Escribir({Col::CampoDeArchivo, 2}, "AB");
    p.Escribir({Col::Valor, 1}, "'x");
    BorrarArchivo(p.ventana, 0);
    InsertarTransaccion(p.ventana, 0);
    BorrarTransaccion(p.ventana, 2);
    VentanaArchivoAbajo(p.ventana);  // an undo comes back to the window of its step

    const char* const focos[] = {"Text6_2", "Text6_0", "Text1_0", "Text6_1", "Text6_1", "Text1_2", "Text1_2"};
    for (const char* const foco : focos) {
        EXPECT_TRUE(!p.ventana.documento.deshacer.Vacia());
        Deshacer(p.ventana);
        EXPECT_EQ(p.Foco(), foco);
    }
    EXPECT_FALSE(!p.ventana.documento.deshacer.Vacia());
    EXPECT_EQ(p.FilasArchivo(), archivo);
    EXPECT_EQ(p.FilasTransaccion(), transaccion);
    EXPECT_EQ(p.ColorDe({Col::CampoDeArchivo, 0}), Color::Rojo);
    EXPECT_EQ(p.ColorDe({Col::Campo, 1}), Color::Rojo);
    EXPECT_EQ(p.ColorDe({Col::Programa, 0}), Color::Azul);
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilasArchivo(), archivo);
}

TEST(Undo, LeavesNoCellByItsRule) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T", "||F"});
    p.Escribir({Col::Valor, 1}, "ab");
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(1), "||F|A");
    EXPECT_TRUE(p.FilasArchivo().empty());
}

TEST(Undo, HoldsTheLastThousandStepsAcrossTheEndOfTheRing) {
    VentanaDePrueba p;
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (int n = 1; n <= 1001; ++n) EscribirEnCelda(p.ventana, {Col::Ancho, 0}, std::to_string(n));
        int pasos = 0;
        for (; !p.ventana.documento.deshacer.Vacia(); ++pasos) Deshacer(p.ventana);
        EXPECT_EQ(pasos, 1000);
        EXPECT_EQ(p.FilaArchivo(0), "|1");
    }
}

TEST(Undo, AMoveTakesTheOldestStepOfAFullRing) {
    VentanaDePrueba p;
    p.Archivo({"A", "B"});
    for (int n = 1; n <= 1000; ++n) EscribirEnCelda(p.ventana, {Col::Ancho, 0}, std::to_string(n));
    p.ventana.archivo.LineaArchivo = 0;
    DownButton(p.ventana);
    int pasos = 0;
    for (; !p.ventana.documento.deshacer.Vacia(); ++pasos) Deshacer(p.ventana);
    EXPECT_EQ(pasos, 999);
}

TEST(Find, GoesOnBehindTheRowLastEntered) {
    VentanaDePrueba p;
    p.LlenarArchivo(1000);
    p.PonerArchivo(3, "KUNNR");
    p.PonerArchivo(5, "B|99|see kunnr");
    p.PonerArchivo(995, "C||| #KUNNR ");
    auto& e = p.ventana;
    BuscarArchivo(e);  // nothing to look for
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    CambiarTextoBuscado(e, "Kunnr");
    for (const int fila : {3, 5, 995}) {
        BuscarArchivo(e);
        EXPECT_EQ(e.archivo.LineaArchivo, fila);
        EXPECT_EQ(RotuloDeBuscarArchivo(e), 45);
    }
    BuscarArchivo(e);
    EXPECT_EQ(p.vista.TomarAvisos(), "<374>");
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    BuscarArchivo(e);
    // Another text: the caption goes back, the search goes on.
    CambiarTextoBuscado(e, "F1");
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    BuscarArchivo(e);
    EXPECT_EQ(e.archivo.LineaArchivo, 10);
}

TEST(Find, EndsAtTheFirstEmptyRow) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T", " ", "||F"});
    CambiarTextoBuscado(p.ventana, "F");
    BuscarTransaccion(p.ventana);
    EXPECT_EQ(p.vista.TomarAvisos(), "<374>");
    p.Transaccion({"TRANS|T", "||| |x", "||F"});
    BuscarTransaccion(p.ventana);
    EXPECT_EQ(p.ventana.transaccion.LineaTransaccion, 2);
    EXPECT_EQ(p.Foco(), "Text6_0");
    EXPECT_EQ(RotuloDeBuscarTransaccion(p.ventana), 47);
}

TEST(AddOperation, TakesTheFirstFreeRow) {
    struct Caso {
        int ultima;  // last used row
        int primera;
        const char* foco;
    };
    const Caso casos[] = {{-1, 0, "Text6_0"}, {3, 0, "Text6_4"},     {4, 0, "Text6_5"},
                          {5, 1, "Text6_5"},  {994, 990, "Text6_5"}, {999, 990, "Text6_10"}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.LlenarTransaccion(caso.ultima);
        AgregarOperacion(p.ventana, [&](int fila) {
            EXPECT_EQ(fila, caso.ultima + 1);
            return std::string("XD01");
        });
        EXPECT_EQ(p.FilaTransaccion(caso.ultima + 1), "TRANS|XD01");
        EXPECT_EQ(p.ventana.transaccion.PrimeraFilaTransaccion, caso.primera);
        EXPECT_EQ(p.ColorDe({Col::Programa, caso.ultima + 1 - caso.primera}), Color::Azul);
        Deshacer(p.ventana);
        EXPECT_EQ(p.FilasTransaccion().size(), static_cast<std::size_t>(caso.ultima + 1));
        EXPECT_EQ(p.Foco(), caso.foco);
    }
}

TEST(AddOperation, ChangesNothingWithoutAnAnswerOrARow) {
    VentanaDePrueba p;
    p.LlenarTransaccion(1000);
    AgregarOperacion(p.ventana, [](int) -> std::string { throw std::logic_error("asked"); });
    EXPECT_EQ(p.vista.TomarAvisos(), "<515>");

    VentanaDePrueba otro;
    AgregarOperacion(otro.ventana, [](int) { return std::string(); });
    EXPECT_FALSE(otro.ventana.documento.HayCambios());
    // Rows that the answer itself has inserted are shown.
    AgregarOperacion(otro.ventana, [&](int fila) {
        otro.PonerTransaccion(fila, "BAPI|BAPI_X");
        return std::string();
    });
    EXPECT_EQ(otro.Texto({Col::Dynpro, 0}), "BAPI_X");
    EXPECT_FALSE(!otro.ventana.documento.deshacer.Vacia());
}

TEST(RemoveBlankRows, ClosesGapsBehindRowZeroOnly) {
    VentanaDePrueba p;
    p.Transaccion({"", "TRANS|T", "|x||y", "||F|V|n", "", " ", "||G"});
    p.PonerTransaccion(1001, "||LAST");
    p.Escribir({Col::Valor, 3}, "Z");
    MostrarTransaccion(p.ventana, 4);
    ASSERT_TRUE(QuitarFilasEnBlanco(p.ventana));
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("", "TRANS|T", "||F|Z|n", "||G", "||LAST"));
    EXPECT_EQ(p.Texto({Col::Campo, 3}), "G");
    EXPECT_TRUE(p.documento.HayCambios());
    EXPECT_FALSE(QuitarFilasEnBlanco(p.ventana));
    // One step brings them back; the next ones take back the field that was added for the value, and the value.
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(6), "||G");
    EXPECT_EQ(p.FilaTransaccion(3), "||F|Z|n");
    Deshacer(p.ventana);
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(3), "||F|V|n");
}

}  // namespace
}  // namespace qor
