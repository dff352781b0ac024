#include <gmock/gmock.h>

#include <optional>
#include <tuple>
#include <utility>

#include "editor/add_operation.h"
#include "editor/cell_focus.h"
#include "editor/cell_keys.h"
#include "editor/cell_rules.h"
#include "editor/close_gaps.h"
#include "editor/document_commands.h"
#include "editor/find.h"
#include "editor/grids.h"
#include "editor/missing_fields.h"
#include "editor/row_block.h"
#include "editor/row_places.h"
#include "editor/row_range.h"
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

TEST(RemoveBlankRows, ClosesGapsOfBothSides) {
    VentanaDePrueba p;
    p.Archivo({"A|1", "", "|2|n", "B|3", "|4"});
    p.Transaccion({"", "TRANS|T", "|x||y", "||F|V|n", "", " ", "||G"});
    p.PonerTransaccion(1001, "||LAST");
    p.Escribir({Col::Valor, 3}, "Z");
    MostrarTransaccion(p.ventana, 4);
    ASSERT_TRUE(QuitarFilasEnBlanco(p.ventana));
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F|Z|n", "||G", "||LAST"));
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A|1", "Z", "B|3", "|4"));
    EXPECT_EQ(p.Texto({Col::Campo, 2}), "G");
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 2}), "B");
    EXPECT_TRUE(p.documento.HayCambios());
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    RemoveBlankOption(p.ventana);
    EXPECT_EQ(p.vista.TomarAvisos(), "<443>");
    // One step brings them back; the next ones take back the field that was added for the value, and the value.
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(6), "||G");
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A|1", "Z", "|2|n", "B|3", "|4"));
    Deshacer(p.ventana);
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(3), "||F|V|n");
}

TEST(RemoveBlankRows, IsOfferedWhereTheyStandInTheWay) {
    VentanaDePrueba p;
    EXPECT_TRUE(OfrecerQuitarHuecos(p.ventana));
    p.Transaccion({"TRANS|T", "", "||F"});
    p.vista.respuestas = {Respuesta::No, Respuesta::Si};
    EXPECT_FALSE(OfrecerQuitarHuecos(p.ventana));
    EXPECT_EQ(p.FilaTransaccion(2), "||F");
    p.Archivo({"A", "", "", "B"});
    EXPECT_TRUE(OfrecerQuitarHuecos(p.ventana));
    EXPECT_EQ(p.vista.TomarAvisos(), "<373>\r\r<444> 2 <446> <447> <373>\r\r<444> 2 <445> <447>");
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F"));
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A", "B"));
    // What stands behind a blank first row would not be saved.
    p.Archivo({"", "A"});
    p.vista.respuestas = {Respuesta::No};
    EXPECT_FALSE(SaveOption(p.ventana));
    EXPECT_EQ(p.vista.TomarAvisos(), "<373>\r\r<444> 1 <445> <447>");
}

TEST(Rows, OfTheProgramSideMoveWithAStepToUndo) {
    VentanaDePrueba p;
    p.LlenarTransaccion(20);
    p.PonerTransaccion(10, "||TEN|V|n");
    MostrarTransaccionSinFocus(p.ventana, 0);
    MoverTransaccion(p.ventana, {Col::Valor, 10}, 1);
    EXPECT_EQ(p.FilaTransaccion(11), "||TEN|V|n");
    EXPECT_EQ(p.FilaTransaccion(10), "||F11");
    EXPECT_EQ(p.Foco(), "Text5_10");
    EXPECT_EQ(p.ventana.transaccion.PrimeraFilaTransaccion, 1);
    MoverTransaccion(p.ventana, {Col::Campo, 0}, -1);
    EXPECT_EQ(p.Foco(), "Text4_0");
    EXPECT_EQ(p.Texto({Col::Campo, 0}), "F1");
    MoverTransaccion(p.ventana, {Col::Campo, 0}, -1);
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(0), "||F0");
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(10), "||TEN|V|n");
}

TEST(Rows, BlankOnesAreInsertedToo) {
    VentanaDePrueba p;
    p.Archivo({"A|1|n", "B|2"});
    p.Transaccion({"TRANS|T", "||F|V|n"});
    InsertarArchivoEnBlanco(p.ventana, 0);
    InsertarTransaccionEnBlanco(p.ventana, 1);
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("", "A|1|n", "B|2"));
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "", "||F|V|n"));
    EXPECT_EQ(p.ColorDe({Col::Campo, 1}), Color::Negro);
    Deshacer(p.ventana);
    Deshacer(p.ventana);
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A|1|n", "B|2"));
    EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F|V|n"));
}

TEST(MarkedRows, AreCopiedAndDeletedTogether) {
    VentanaDePrueba p;
    p.LlenarTransaccion(20);
    EntrarEnCelda(p.ventana, {Col::Valor, 9});
    for (int n = 0; n < 2; ++n) TeclaEnCelda(p.ventana, *p.ventana.foco, Tecla::MarcarAbajo);
    EXPECT_EQ(CopiarFilas(p.ventana, *p.ventana.foco), "\t\tF9\t\n\t\tF10\t\n\t\tF11\t\n");
    TeclaEnCelda(p.ventana, *p.ventana.foco, Tecla::F6);
    EXPECT_EQ(p.FilaTransaccion(9), "||F12");
    EXPECT_EQ(p.Foco(), "Text5_8");
    EXPECT_EQ(p.ventana.transaccion.LineaTransaccion, 9);
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaTransaccion(11), "||F11");
    // Upward, and gone with the next move.
    EntrarEnCelda(p.ventana, {Col::Valor, 3});
    TeclaEnCelda(p.ventana, {Col::Valor, 3}, Tecla::MarcarArriba);
    EXPECT_EQ(FilasDelComando(p.ventana, *p.ventana.foco).hasta - FilasDelComando(p.ventana, *p.ventana.foco).desde, 1);
    TeclaEnCelda(p.ventana, *p.ventana.foco, Tecla::Arriba);
    const auto filas = FilasDelComando(p.ventana, *p.ventana.foco);
    EXPECT_EQ(filas.desde, filas.hasta);
    // Rows above the window: it goes to where they were.
    p.LlenarArchivo(40);
    MostrarArchivoSinFocus(p.ventana, 20);
    BorrarFilas(p.ventana, {Col::Ancho, 0}, {Tabla::Archivo, 5, 6});
    EXPECT_EQ(p.ventana.archivo.PrimeraFilaArchivo, 5);
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 0}) + p.Foco(), "F7Text2_0");
}

TEST(RowBlocks, AreReadAsSpreadsheetsWriteThem) {
    const std::pair<const char*, std::vector<std::vector<std::string>>> casos[] = {
        {"MATNR", {}},
        {"MATNR\r\n", {}},
        {"A\t1", {{"A", "1"}}},
        {"A\t1\r\nB \t 2\r\n", {{"A", "1"}, {"B", "2"}}},
        {"A\rB\n\nC", {{"A"}, {"B"}, {""}, {"C"}}},
        {"\t\"say \"\"so\"\"\tand\nso\"\tx", {{"", "say \"so\"\tand\nso", "x"}}},
        {"a \"b\"\t\"open", {{"a \"b\"", "open"}}},
    };
    for (const auto& [texto, filas] : casos) EXPECT_EQ(LeerBloque(texto), filas) << texto;
}

TEST(RowBlocks, FillTheGridsByTheRulesOfTyping) {
    VentanaDePrueba p;
    p.Archivo({"KEEP|9", "OLD|8|note", "MATNR|7"});
    ASSERT_TRUE(PegarBloque(p.ventana, {Col::CampoDeArchivo, 1}, "matnr\t18\nmak tx\t40\nmatnr\t\nkeep\t1\n"));
    // Names that the block itself covers are free; the note of the row stays.
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("KEEP|9", "MATNR|18|note", "MAK_TX|40", "MATNR2", "KEEP2|1"));
    EXPECT_EQ(p.Foco(), "Text1_4");
    ASSERT_TRUE(PegarBloque(p.ventana, {Col::Ancho, 0}, "5\n6"));
    EXPECT_EQ(p.FilaArchivo(1), "MATNR|6|note");
    p.vista.TomarAvisos();

    std::string bloque = "trans\tva01\nsapmv45a\t0101\n\t\tvbak-auart\tau/art\n\t\tbdc_okcode\t'/00'\n\t\tvbak-vkorg\t@vkorg x\n";
    for (int n = 0; n < 8; ++n) bloque += "\t\tF" + std::to_string(n) + "\tkeep\n";
    ASSERT_TRUE(PegarBloque(p.ventana, {Col::Programa, 0}, bloque));
    EXPECT_EQ(p.vista.TomarAvisos(), "<312> VKORG_X <350>");
    EXPECT_EQ(p.ventana.aviso, "<435> au/art <436> AU_ART. <437> 'au/art'");
    EXPECT_EQ(p.FilaTransaccion(2), "||VBAK-AUART|AU_ART");
    EXPECT_EQ(p.FilaTransaccion(3), "||BDC_OKCODE|'/00'");
    EXPECT_EQ(p.FilaTransaccion(4), "||VBAK-VKORG|@VKORG_X");
    EXPECT_EQ(p.FilaArchivo(5), "AU_ART");
    EXPECT_EQ(p.documento.especificacion.VariablesGlobales, "PARAMETERS: VKORG_X LIKE VBAK-VKORG.");
    // The last row is in sight.
    EXPECT_EQ(p.Texto({Col::Campo, 10}), "F7");
    EXPECT_EQ(p.Foco(), "Text6_10");
    // What was copied can be pasted as it is.
    const std::string copiado = CopiarFilas(p.ventana, Tabla::Transaccion, 0, 12);
    const auto antes = p.FilasTransaccion();
    ASSERT_TRUE(PegarBloque(p.ventana, {Col::Programa, 10}, copiado));
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilasTransaccion(), antes);
    // One step takes back rows, fields and declarations.
    Deshacer(p.ventana);
    EXPECT_TRUE(p.FilasTransaccion().empty());
    EXPECT_EQ(p.FilasArchivo().size(), 5U);
    EXPECT_EQ(p.documento.especificacion.VariablesGlobales, "");
    Deshacer(p.ventana);
    Deshacer(p.ventana);
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("KEEP|9", "OLD|8|note", "MATNR|7"));
    EXPECT_TRUE(p.documento.deshacer.Vacia());
}

TEST(RowBlocks, FillTheTableToItsLastRow) {
    VentanaDePrueba p;
    p.LlenarArchivo(998);
    MostrarArchivoSinFocus(p.ventana, 987);
    EXPECT_TRUE(PegarBloque(p.ventana, {Col::CampoDeArchivo, 12}, "A\t1\nB\t2"));
    EXPECT_EQ(p.FilaArchivo(1000), "B|2");
}

TEST(RowBlocks, ThatCannotBeTakenWholeChangeNothing) {
    std::string muchas;
    for (int n = 0; n < 1001; ++n) muchas += "F" + std::to_string(n) + "\n";
    const std::string largo(31, 'X');
    const std::tuple<LugarDeCelda, std::string, const char*> casos[] = {
        {{Col::CampoDeArchivo, 1}, "A\tB\tC", "<431> 2."},
        {{Col::Valor, 1}, "A\tB", "<431> 1."},
        {{Col::CampoDeArchivo, 1}, muchas, "<432> 1000."},
        {{Col::CampoDeArchivo, 1}, "A\n\nB", "<433> 3.\r\r<339>"},
        {{Col::CampoDeArchivo, 3}, "A\nB", "<433> 1.\r\r<339>"},
        {{Col::CampoDeArchivo, 1}, "A\t1\nB\t1.5", "<433> 2.\r\r<434>"},
        {{Col::CampoDeArchivo, 1}, "A\n" + largo, "<433> 2.\r\r<333> 30."},
        {{Col::Ancho, 0}, "1\n2", "<433> 2.\r\r<340>"},
        {{Col::Programa, 2}, "SAPM\t0100\tF\tV", "<433> 1.\r\r<344>"},
        {{Col::Dynpro, 1}, "1\n2", "<433> 1.\r\r<341>"},
        {{Col::Valor, 1}, "V\nW", "<433> 2.\r\r<349>"},
        {{Col::Programa, 2}, "A;C\t1", "<433> 1.\r\r<351>"},
    };
    for (const auto& [lugar, texto, aviso] : casos) {
        VentanaDePrueba p;
        p.Archivo({"KEEP|9"});
        p.Transaccion({"TRANS|T", "||F|V"});
        EXPECT_FALSE(PegarBloque(p.ventana, lugar, texto));
        EXPECT_EQ(p.vista.TomarAvisos(), aviso);
        EXPECT_THAT(p.FilasArchivo(), ElementsAre("KEEP|9"));
        EXPECT_THAT(p.FilasTransaccion(), ElementsAre("TRANS|T", "||F|V"));
        EXPECT_FALSE(p.documento.HayCambios());
    }
}

TEST(MissingFields, AreThoseThatTheProgramSideNames) {
    VentanaDePrueba p;
    p.LlenarArchivo(15);
    p.Transaccion({"BAPI|B", "||A|F3", "||B|NEW", "||C|'x'", "||D|@v", "||E|new", "||F|NOT A NAME", "", "||G|OTHER", "||H|BEHIND"});
    p.documento.especificacion.TablaArchivo[17] = {"BEHIND", "4", "", ""};
    const auto faltan = CamposQueFaltan(p.documento.especificacion);
    EXPECT_THAT(faltan, ElementsAre("NEW", "OTHER"));
    AgregarCampos(p.ventana, faltan);
    EXPECT_EQ(p.FilaArchivo(17), "BEHIND|4");
    EXPECT_EQ(p.FilaArchivo(18), "NEW");
    EXPECT_EQ(p.FilaArchivo(19), "OTHER");
    EXPECT_EQ(p.Foco(), "Text2_12");
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 13}), "OTHER");
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaArchivo(18), "");
    // All of them or none.
    p.LlenarArchivo(999);
    AgregarCampos(p.ventana, faltan);
    EXPECT_EQ(p.vista.TomarAvisos(), "<432> 1.");
    EXPECT_EQ(p.FilaArchivo(1000), "");
}

TEST(RowPlaces, LeadToFieldAndCondition) {
    VentanaDePrueba p;
    p.Archivo({"A", "MATNR"});
    p.Transaccion({"TRANS|T;COND", "||F;OTHER|matnr", "||G;NONE|'MATNR'", "||H"});
    p.documento.especificacion.TablaCondiciones[0].nombre = "OTHER";
    p.documento.especificacion.TablaCondiciones[1].nombre = "COND";
    const std::tuple<std::optional<int>, std::optional<int>> esperados[] = {
        {std::nullopt, 1}, {1, 0}, {std::nullopt, std::nullopt}, {std::nullopt, std::nullopt}};
    for (int linea = 0; linea < 4; ++linea) {
        const LugarDeCelda lugar{Col::Programa, linea};
        EXPECT_EQ(std::tuple(CampoDelValor(p.ventana, lugar), CondicionDeFila(p.ventana, lugar)), esperados[linea]) << linea;
    }
}

}  // namespace
}  // namespace qor
