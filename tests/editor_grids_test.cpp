#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/add_operation.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/find.h"
#include "editor/grids.h"
#include "editor/undo_command.h"
#include "tests/support/editor_fixture.h"

namespace qor {
namespace {

using pruebas::EditorDePrueba;
using testing::ElementsAre;
using Col = Columna;

TEST(Grids, ShowARowAsFarDownAsTheyGo) {
    struct Caso {
        Tabla tabla;
        int fila;
        int primera;
        const char* foco;
    };
    const Caso casos[] = {{Tabla::Archivo, 0, 0, "Text1_0"},         {Tabla::Archivo, 987, 987, "Text1_0"},
                          {Tabla::Archivo, 988, 987, "Text1_1"},     {Tabla::Archivo, 1000, 987, "Text1_13"},
                          {Tabla::Transaccion, 990, 990, "Text6_0"}, {Tabla::Transaccion, 1000, 990, "Text6_10"}};
    for (const auto& caso : casos) {
        EditorDePrueba p;
        p.LlenarArchivo(1000);
        p.LlenarTransaccion(1000);
        const bool deArchivo = caso.tabla == Tabla::Archivo;
        deArchivo ? MostrarArchivo(p.editor, caso.fila) : MostrarTransaccion(p.editor, caso.fila);
        const auto& a = p.editor.archivo;
        const auto& t = p.editor.transaccion;
        EXPECT_EQ(deArchivo ? a.PrimeraFilaArchivo : t.PrimeraFilaTransaccion, caso.primera);
        EXPECT_EQ(deArchivo ? a.LineaArchivo : t.LineaTransaccion, caso.fila);
        EXPECT_EQ(p.Foco(), caso.foco);
        EXPECT_EQ(p.vista.focos.back(), caso.foco);
        EXPECT_EQ(p.Texto({deArchivo ? Col::Text1 : Col::Text4, 0}), "F" + std::to_string(caso.primera));
    }
}

TEST(Grids, WindowsStopAtBothEnds) {
    EditorDePrueba p;
    p.LlenarArchivo(1001);
    p.LlenarTransaccion(1001);
    for (int n = 0; n < 1100; ++n) {
        VentanaArchivoAbajo(p.editor);
        VentanaTransaccionAbajo(p.editor);
    }
    // Row 1001 is never shown.
    EXPECT_EQ(p.Texto({Col::Text1, 13}), "F1000");
    EXPECT_EQ(p.Texto({Col::Text4, 10}), "F1000");
    DesplazarArchivo(p.editor, -2000);
    DesplazarTransaccion(p.editor, -2000);
    VentanaArchivoArriba(p.editor);
    VentanaTransaccionArriba(p.editor);
    EXPECT_EQ(p.Texto({Col::Text1, 0}), "F0");
    EXPECT_EQ(p.Texto({Col::Text4, 0}), "F0");
    EXPECT_FALSE(p.editor.UndoButton);
    EXPECT_FALSE(p.editor.HayCambios);
    EXPECT_TRUE(p.editor.RegistrarCambios);
}

TEST(Grids, ColoursTellOfNotesCodeAndHeads) {
    EditorDePrueba p;
    p.Archivo({"A|1|note", "B|1||code", "C|1| | "});
    p.Transaccion({"TRANS|XD01", "SAPMF02D|0100", "||KNA1-KUNNR|A|note", "BAPI|X", "||F|B| "});
    const auto colores = [&](int linea) {
        std::vector<Color> todos;
        for (const Col columna : {Col::Text6, Col::Text3, Col::Text4}) todos.push_back(p.ColorDe({columna, linea}));
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
    InsertarTransaccion(p.editor, 0);
    BorrarTransaccion(p.editor, 0);
    VentanaTransaccionAbajo(p.editor);
    VentanaTransaccionArriba(p.editor);
    esperar();

    // A fill asks for exact emptiness, a step of the window for blanks.
    EXPECT_EQ(p.ColorDe({Col::Text1, 2}), Color::Rojo);
    VentanaArchivoAbajo(p.editor);
    VentanaArchivoArriba(p.editor);
    EXPECT_EQ(p.ColorDe({Col::Text1, 2}), Color::Negro);
    EXPECT_EQ(p.ColorDe({Col::Text1, 0}), Color::Rojo);
    EXPECT_EQ(p.editor.archivo.ABAP[1].color, Color::Rojo);
}

TEST(Rows, AreInsertedWithTheTextOfTheRowBelow) {
    EditorDePrueba p;
    p.Archivo({"A|1|note|code", "B|2"});
    p.Transaccion({"TRANS|T", "||F|V|note"});
    InsertarArchivo(p.editor, 0);
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A2|1", "A|1|note|code", "B|2"));
    EXPECT_EQ(p.ColorDe({Col::Text1, 0}), Color::Negro);
    EXPECT_EQ(p.ColorDe({Col::Text1, 1}), Color::Rojo);
    InsertarTransaccion(p.editor, 1);
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F|V", "||F|V|note"));
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    InsertarTransaccion(p.editor, 5);
    EXPECT_EQ(p.FilasTransaccion().size(), 3U);

    // In the last line no cell changes, and still the double is numbered.
    p.LlenarArchivo(13);
    SalirDeCelda(p.editor, {Col::Text1, 13});
    InsertarArchivo(p.editor, 13);
    EXPECT_EQ(p.FilaArchivo(13), "F14");
}

TEST(Rows, TheLastOneIsLostByAnInsertion) {
    EditorDePrueba p;
    p.LlenarArchivo(1001);
    p.PonerArchivo(1000, "F1000|7|note|code");
    MostrarArchivo(p.editor, 1000);
    InsertarArchivo(p.editor, 13);
    EXPECT_EQ(p.FilaArchivo(1000), "F1000|7");
    InsertarArchivo(p.editor, 12);
    EXPECT_EQ(p.FilaArchivo(999), "F1000");  // the double of F999; the number is free
    EXPECT_EQ(p.FilaArchivo(1000), "F999");
    EXPECT_EQ(p.FilaArchivo(1001), "F1001");  // never touched
    BorrarArchivo(p.editor, 12);
    EXPECT_EQ(p.FilaArchivo(999), "F999");
    EXPECT_EQ(p.FilaArchivo(1000), "F999");

    p.LlenarTransaccion(1001);
    MostrarTransaccion(p.editor, 0);
    BorrarTransaccion(p.editor, 0);
    EXPECT_EQ(p.FilaTransaccion(999), "||F1000");
    EXPECT_EQ(p.FilaTransaccion(1000), "");
    p.LlenarArchivo(1000);
    BorrarArchivo(p.editor, 0);
    EXPECT_EQ(p.FilaArchivo(999), "F1000");
    EXPECT_EQ(p.FilaArchivo(1000), "F1000");  // comes twice on this side
}

TEST(Rows, MoveUpAndDownWithTheFocus) {
    EditorDePrueba p;
    p.LlenarArchivo(1000);
    p.PonerArchivo(13, "F13|7|note|code");
    MostrarArchivoSinFocus(p.editor, 0);
    p.editor.archivo.LineaArchivo = 13;
    DownButton(p.editor);
    EXPECT_EQ(p.FilaArchivo(14), "F13|7|note|code");
    EXPECT_EQ(p.FilaArchivo(13), "F14");
    EXPECT_EQ(p.editor.archivo.PrimeraFilaArchivo, 1);
    EXPECT_EQ(p.Foco(), "Text1_13");
    EXPECT_EQ(p.editor.archivo.LineaArchivo, 14);
    UpButton(p.editor);
    EXPECT_EQ(p.FilaArchivo(13), "F13|7|note|code");
    EXPECT_EQ(p.Foco(), "Text1_12");
    MostrarArchivo(p.editor, 5);
    UpButton(p.editor);
    EXPECT_EQ(p.editor.archivo.PrimeraFilaArchivo, 4);
    EXPECT_EQ(p.Foco(), "Text1_0");
    EXPECT_TRUE(p.editor.HayCambios);
    EXPECT_FALSE(p.editor.UndoButton);  // a move leaves no step

    for (const int fila : {0, 1000}) {
        MostrarArchivo(p.editor, fila);
        const auto antes = p.FilasArchivo();
        fila == 0 ? UpButton(p.editor) : DownButton(p.editor);
        EXPECT_EQ(p.FilasArchivo(), antes) << fila;
    }
}

TEST(Undo, GoesBackOneStepAtATime) {
    EditorDePrueba p;
    p.Archivo({"A|1|note|code", "B|2"});
    p.Transaccion({"TRANS|T", "||F|'v'|note"});
    const auto archivo = p.FilasArchivo();
    const auto transaccion = p.FilasTransaccion();
    p.Escribir({Col::Text1, 2}, "AB");
    p.Escribir({Col::Text5, 1}, "'x");
    BorrarArchivo(p.editor, 0);
    InsertarTransaccion(p.editor, 0);
    BorrarTransaccion(p.editor, 2);
    VentanaArchivoAbajo(p.editor);  // an undo comes back to the window of its step

    const char* const focos[] = {"Text6_2", "Text6_0", "Text1_0", "Text6_1", "Text6_1", "Text1_2", "Text1_2"};
    for (const char* const foco : focos) {
        EXPECT_TRUE(p.editor.UndoButton);
        Deshacer(p.editor);
        EXPECT_EQ(p.Foco(), foco);
    }
    EXPECT_FALSE(p.editor.UndoButton);
    EXPECT_EQ(p.FilasArchivo(), archivo);
    EXPECT_EQ(p.FilasTransaccion(), transaccion);
    EXPECT_EQ(p.ColorDe({Col::Text1, 0}), Color::Rojo);
    EXPECT_EQ(p.ColorDe({Col::Text4, 1}), Color::Rojo);
    EXPECT_EQ(p.ColorDe({Col::Text6, 0}), Color::Azul);
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    Deshacer(p.editor);
    EXPECT_EQ(p.FilasArchivo(), archivo);
}

TEST(Undo, LeavesNoCellByItsRule) {
    EditorDePrueba p;
    p.Transaccion({"TRANS|T", "||F"});
    p.Escribir({Col::Text5, 1}, "ab");
    Deshacer(p.editor);
    EXPECT_EQ(p.FilaTransaccion(1), "||F|A");
    EXPECT_TRUE(p.FilasArchivo().empty());
}

TEST(Undo, HoldsTheLastThousandStepsAcrossTheEndOfTheRing) {
    EditorDePrueba p;
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (int n = 1; n <= 1001; ++n) CambiarCelda(p.editor, Col::Text2, 0, std::to_string(n));
        int pasos = 0;
        for (; p.editor.UndoButton; ++pasos) Deshacer(p.editor);
        EXPECT_EQ(pasos, 1000);
        EXPECT_EQ(p.FilaArchivo(0), "|1");
    }
}

TEST(Undo, AMoveTakesTheOldestStepOfAFullRing) {
    EditorDePrueba p;
    p.Archivo({"A", "B"});
    for (int n = 1; n <= 1000; ++n) CambiarCelda(p.editor, Col::Text2, 0, std::to_string(n));
    p.editor.archivo.LineaArchivo = 0;
    DownButton(p.editor);
    int pasos = 0;
    for (; p.editor.UndoButton; ++pasos) Deshacer(p.editor);
    EXPECT_EQ(pasos, 999);
}

TEST(Find, GoesOnBehindTheRowLastEntered) {
    EditorDePrueba p;
    p.LlenarArchivo(1000);
    p.PonerArchivo(3, "KUNNR");
    p.PonerArchivo(5, "B|99|see kunnr");
    p.PonerArchivo(995, "C||| #KUNNR ");
    auto& e = p.editor;
    BuscarArchivo(e);  // nothing to look for
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    CambiarTextoBuscado(e, "Kunnr");
    for (const int fila : {3, 5, 995}) {
        BuscarArchivo(e);
        EXPECT_EQ(e.archivo.LineaArchivo, fila);
        EXPECT_EQ(RotuloDeBuscarArchivo(e), 45);
    }
    EXPECT_EQ(p.Foco(), "Text1_8");
    BuscarArchivo(e);
    EXPECT_EQ(p.vista.TomarAvisos(), "<374>");
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    BuscarArchivo(e);
    EXPECT_EQ(e.archivo.LineaArchivo, 3);

    // Another text: the caption goes back, the search goes on.
    CambiarTextoBuscado(e, "F1");
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    BuscarArchivo(e);
    EXPECT_EQ(e.archivo.LineaArchivo, 10);
    DobleClicLineaArchivo(e);
    EXPECT_EQ(e.archivo.LineaArchivo, 0);
}

TEST(Find, EndsAtTheFirstEmptyRow) {
    EditorDePrueba p;
    p.Transaccion({"TRANS|T", " ", "||F"});
    CambiarTextoBuscado(p.editor, "F");
    BuscarTransaccion(p.editor);
    EXPECT_EQ(p.vista.TomarAvisos(), "<374>");
    p.Transaccion({"TRANS|T", "||| |x", "||F"});
    BuscarTransaccion(p.editor);
    EXPECT_EQ(p.editor.transaccion.LineaTransaccion, 2);
    EXPECT_EQ(p.Foco(), "Text6_0");
    EXPECT_EQ(RotuloDeBuscarTransaccion(p.editor), 47);
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
        EditorDePrueba p;
        p.LlenarTransaccion(caso.ultima);
        AgregarOperacion(p.editor, [&](int fila) {
            EXPECT_EQ(fila, caso.ultima + 1);
            return std::string("XD01");
        });
        EXPECT_EQ(p.FilaTransaccion(caso.ultima + 1), "TRANS|XD01");
        EXPECT_EQ(p.editor.transaccion.PrimeraFilaTransaccion, caso.primera);
        EXPECT_EQ(p.ColorDe({Col::Text6, caso.ultima + 1 - caso.primera}), Color::Azul);
        Deshacer(p.editor);
        EXPECT_EQ(p.FilasTransaccion().size(), static_cast<std::size_t>(caso.ultima + 1));
        EXPECT_EQ(p.Foco(), caso.foco);
    }
}

TEST(AddOperation, ChangesNothingWithoutAnAnswerOrARow) {
    EditorDePrueba p;
    p.LlenarTransaccion(1000);
    AgregarOperacion(p.editor, [](int) -> std::string { throw std::logic_error("asked"); });
    EXPECT_EQ(p.vista.TomarAvisos(), "<515>");

    EditorDePrueba otro;
    AgregarOperacion(otro.editor, [](int) { return std::string(); });
    EXPECT_FALSE(otro.editor.HayCambios);
    // Rows that the answer itself has inserted are shown.
    AgregarOperacion(otro.editor, [&](int fila) {
        otro.PonerTransaccion(fila, "BAPI|BAPI_X");
        return std::string();
    });
    EXPECT_EQ(otro.Texto({Col::Text3, 0}), "BAPI_X");
    EXPECT_FALSE(otro.editor.UndoButton);
}

TEST(RemoveBlankRows, ClosesGapsBehindRowZeroOnly) {
    EditorDePrueba p;
    p.Transaccion({"", "TRANS|T", "|x||y", "||F|V|n", "", " ", "||G"});
    p.PonerTransaccion(1001, "||LAST");
    p.Escribir({Col::Text5, 3}, "Z");
    MostrarTransaccion(p.editor, 4);
    ASSERT_TRUE(QuitarFilasEnBlanco(p.editor));
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("", "TRANS|T", "||F|Z|n", "||G", "||LAST"));
    EXPECT_EQ(p.Texto({Col::Text4, 3}), "G");
    EXPECT_TRUE(p.editor.HayCambios);
    EXPECT_FALSE(p.editor.UndoButton);

    p.Escribir({Col::Text5, 3}, "Q");
    EXPECT_FALSE(QuitarFilasEnBlanco(p.editor));
    EXPECT_TRUE(p.editor.UndoButton);
}

}  // namespace
}  // namespace qor
