#include <gmock/gmock.h>

#include <optional>
#include <tuple>

#include "editor/cell_actions.h"
#include "editor/cell_focus.h"
#include "editor/cell_keys.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/key_filters.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::VentanaDePrueba;
using testing::ElementsAre;
using testing::IsEmpty;
using Col = Columna;

TEST(CellKeys, AreFilteredOrRefused) {
    struct Caso {
        Col columna;
        int linea;
        const char* escrito;
        const char* texto;
        const char* avisos;
        const char* foco;
    };
    const Caso casos[] = {{Col::CampoDeArchivo, 1, "ab 9-\xE9\"z", "AB_9__Z", "", "Text1_1"},
                          {Col::CampoDeArchivo, 3, "a", "", "<339>", "Text1_3"},
                          {Col::CampoDeArchivo, 3, "\"", "", "<339>", "Text1_3"},  // dropped and warned of
                          {Col::Ancho, 0, "1a2.\"3", "123", "", "Text2_0"},
                          {Col::Ancho, 2, "1", "", "<340>", "Text1_2"},
                          {Col::Ancho, 3, "x", "", "<340>", "Text1_3"},
                          {Col::Programa, 3, "bapi\"\xF1", "BAPI\xD1", "", "Text6_3"},
                          {Col::Programa, 3, "a;b", "AB", "<351>", "Text6_3"},
                          {Col::Programa, 2, ";", "", "<341>", "Text6_2"},  // the first reason only
                          {Col::Programa, 4, "a", "", "<339>", "Text6_4"},
                          {Col::Dynpro, 1, "01;c", "01;C", "", "Text3_1"},
                          {Col::Dynpro, 2, "1", "", "<341>", "Text3_2"},
                          {Col::Dynpro, 3, "1", "", "<342>", "Text6_3"},
                          {Col::Campo, 3, "kna1-x(1);c\"", "KNA1-X(1);C", "", "Text4_3"},
                          {Col::Campo, 1, "a", "", "<344>", "Text4_1"},
                          {Col::Valor, 2, "'Ab c'\"", "'Ab c'", "", "Text5_2"},
                          {Col::Valor, 1, "a", "", "<344>", "Text5_1"},
                          {Col::Valor, 3, "a", "", "<349>", "Text4_3"},
                          {Col::Valor, 4, "a", "", "<339>", "Text5_4"}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.Archivo({"A", "B"});
        p.Transaccion({"TRANS|T", "PROG|100", "||F|V"});
        const LugarDeCelda lugar{caso.columna, caso.linea};
        p.Escribir(lugar, caso.escrito);
        EXPECT_EQ(p.Texto(lugar), caso.texto) << caso.escrito;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.escrito;
        EXPECT_EQ(p.Foco(), caso.foco) << caso.escrito;
    }
}

TEST(CellKeys, APasteIsFilteredAsAWhole) {
    VentanaDePrueba p;
    p.Archivo({"A"});
    EXPECT_EQ(FiltrarTextoDeCelda(p.ventana, {Col::CampoDeArchivo, 1}, "my \"field\"\r\n\x01"), "MY_FIELD_");
    EXPECT_EQ(FiltrarTextoDeCelda(p.ventana, {Col::CampoDeArchivo, 2}, "abc"), "");
    EXPECT_EQ(FiltrarTextoDeCelda(p.ventana, {Col::Programa, 0}, "ab;c"), "");
    EXPECT_EQ(p.vista.TomarAvisos(), "<339> <351>");
}

TEST(CellKeys, OtherBoxesHaveTheirOwnFilters) {
    const std::tuple<const char*, const char*, const char*> casos[] = {
        {"TablaZ", "z my\"tab", "Z_MYTAB"}, {"ProgID", "1a\"-2", "12"},
        {"TextoBuscado", "a\"b c", "AB C"}, {"GSprefijo", "gs_\"", "GS_"},
        {"EncodingAdditional", "x\"", "X"}, {"ArchivoFuente", "c:\\a\"b", "c:\\ab"},
        {"Nuevo", "cond\"1", "COND1"},      {"Filas", "1x2", "12"}};
    for (const auto& [control, escrito, texto] : casos) EXPECT_EQ(FiltrarTexto(control, escrito), texto) << control;
    EXPECT_EQ(FiltrarTecla("ProgID", retroceso), retroceso);
}

TEST(CellChange, GoesIntoTheTableCutAndRaised) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T"});
    EscribirEnCelda(p.ventana, {Col::CampoDeArchivo, 0}, std::string(31, 'x'));
    EXPECT_EQ(p.vista.TomarAvisos(), "<333> 30.");
    EXPECT_EQ(p.Texto({Col::CampoDeArchivo, 0}), std::string(30, 'x'));
    EXPECT_EQ(p.FilaArchivo(0), std::string(30, 'X'));
    EscribirEnCelda(p.ventana, {Col::Programa, 0}, " bapi ");
    EXPECT_EQ(p.ColorDe({Col::Dynpro, 0}), Color::Negro);  // the text as it is decides
    EscribirEnCelda(p.ventana, {Col::Programa, 0}, " BAPI ");
    EXPECT_EQ(p.ColorDe({Col::Dynpro, 0}), Color::Azul);
    EscribirEnCelda(p.ventana, {Col::Valor, 0}, " 'a b' ");
    EXPECT_EQ(p.FilaTransaccion(0), "BAPI|T||'a b'");
    EscribirEnCelda(p.ventana, {Col::Valor, 0}, " @p ");
    EscribirEnCelda(p.ventana, {Col::Campo, 0}, " 'a");
    EXPECT_EQ(p.FilaTransaccion(0), "BAPI|T|'A|@P");
}

TEST(LeavingText1, NumbersOrEmptiesADuplicate) {
    const std::string a24(24, 'A');
    const std::string a23y9 = std::string(23, 'A') + "9";
    struct Caso {
        std::vector<std::string> otros;
        std::string escrito;
        std::string queda;
        const char* avisos;
    };
    const Caso casos[] = {{{"MATNR"}, "MATNR", "MATNR2", ""},
                          {{"MATNR", "MATNR2"}, "MATNR2", "MATNR3", ""},
                          {{"MATNR", "MATNR2", "MATNR3"}, "MATNR", "MATNR4", ""},
                          {{"MATNR"}, "MATNR1", "MATNR1", ""},
                          {{"A009"}, "A009", "A10", ""},
                          {{"A"}, "B", "B", ""},
                          {{a24}, a24, a24 + "2", ""},
                          {{a24, a24 + "2"}, a24, "", "<338>"},
                          {{a24 + "A"}, a24 + "A", "", "<338>"},
                          {{a23y9, std::string(23, 'A') + "10"}, a23y9, "", "<338>"},
                          {{std::string(24, '9')}, std::string(24, '9'), "1" + std::string(24, '0'), ""}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        int r = 0;
        for (const auto& otro : caso.otros) p.PonerArchivo(r++, otro);
        p.PonerArchivo(1000, "LAST");
        MostrarArchivoSinFocus(p.ventana, 0);
        const LugarDeCelda lugar{Col::CampoDeArchivo, r};
        p.Escribir(lugar, caso.escrito);
        SalirDeCelda(p.ventana, lugar);
        EXPECT_EQ(p.Texto(lugar), caso.queda) << caso.escrito;
        EXPECT_EQ(p.FilaArchivo(r), caso.queda) << caso.escrito;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.escrito;
    }
}

TEST(LeavingText1, AsksOnceForEachChange) {
    VentanaDePrueba p;
    p.Archivo({"A", "B"});
    SalirDeCelda(p.ventana, {Col::CampoDeArchivo, 0});
    p.PonerArchivo(1, "A");
    SalirDeCelda(p.ventana, {Col::CampoDeArchivo, 0});
    EXPECT_EQ(p.FilaArchivo(0), "A");
    EXPECT_FALSE(p.ventana.documento.HayCambios());
    EscribirEnCelda(p.ventana, {Col::CampoDeArchivo, 1}, "C");
    EscribirEnCelda(p.ventana, {Col::CampoDeArchivo, 1}, "A");
    SalirDeCelda(p.ventana, {Col::CampoDeArchivo, 0});
    EXPECT_EQ(p.FilaArchivo(0), "A2");
}

TEST(LeavingText5, CompletesTheValue) {
    const std::string largo(31, 'x');
    struct Caso {
        std::string campo;  // of the row
        std::string escrito;
        std::string queda;
        std::string definiciones;
        std::string avisos;
        std::vector<std::string> archivo;
    };
    const std::string antes = "DATA: OLD.";
    const Caso casos[] = {{"F", "  ", "  ", antes, "", {}},
                          {"F", "'aBc'", "'aBc'", antes, "", {}},
                          {"F", "it's", "it's", antes, "", {}},
                          {"F", "matnr", "matnr", antes, "", {"MATNR"}},
                          {"F", "ABC-DEF", "ABC_DEF", antes, "", {"ABC_DEF"}},
                          {"F", largo, largo.substr(1), antes, "<333> 30.", {std::string(30, 'X')}},
                          {"F", "@old", "@OLD", antes, "", {}},
                          {"F", "@sy-datum", "@sy-datum", antes, "", {}},
                          {"F", "@", "@", antes, "", {}},
                          {"F", "@my parameter", "@MY_PARAM", antes + "\r\nPARAMETERS: MY_PARAM(30).", "<312> MY_PARAM <350>", {}},
                          {"KNA1-KUNNR", "@P", "@P", antes + "\r\nPARAMETERS: P LIKE KNA1-KUNNR.", "<312> P <350>", {}},
                          {"T-F(2)", "@P", "@P", antes + "\r\nPARAMETERS: P LIKE T-F.", "<312> P <350>", {}},
                          {"T-F;COND", "@P", "@P", antes + "\r\nPARAMETERS: P LIKE T-F.", "<312> P <350>", {}}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.Transaccion({"TRANS|T", "||" + caso.campo});
        p.ventana.documento.especificacion.VariablesGlobales = antes;
        const LugarDeCelda lugar{Col::Valor, 1};
        p.Escribir(lugar, caso.escrito);
        SalirDeCelda(p.ventana, lugar);
        EXPECT_EQ(p.Texto(lugar), caso.queda) << caso.escrito;
        EXPECT_EQ(p.ventana.documento.especificacion.VariablesGlobales, caso.definiciones) << caso.escrito;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.escrito;
        EXPECT_EQ(p.FilasArchivo(), caso.archivo) << caso.escrito;
    }
}

TEST(LeavingText5, TellsHowAConstantIsWritten) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T", "||BDC_OKCODE", "||G"});
    p.Escribir({Col::Valor, 1}, "/00");
    TeclaEnCelda(p.ventana, {Col::Valor, 1}, Tecla::Derecha);
    EXPECT_EQ(p.Texto({Col::Valor, 1}), "_00");
    EXPECT_EQ(p.ventana.aviso, "<435> /00 <436> _00. <437> '/00'");
    p.Escribir({Col::Campo, 2}, "G2");
    EXPECT_NE(p.ventana.aviso, "");
    p.Escribir({Col::Valor, 2}, "matnr");
    SalirDeCelda(p.ventana, {Col::Valor, 2});
    EXPECT_EQ(p.ventana.aviso, "");
    EXPECT_EQ(p.vista.TomarAvisos(), "");
}

TEST(LeavingText5, DeclaresAParameterOnce) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T", "||F", "||G"});
    p.ventana.documento.especificacion.VariablesGlobales = "   ";
    for (const int linea : {1, 2}) {
        p.Escribir({Col::Valor, linea}, "@MY PARAMETER");
        SalirDeCelda(p.ventana, {Col::Valor, linea});
    }
    EXPECT_EQ(p.ventana.documento.especificacion.VariablesGlobales, "PARAMETERS: MY_PARAM(30).");
    EXPECT_TRUE(p.ventana.documento.HayDefiniciones());
    // The user's own declaration counts, in whatever case.
    const std::string propia = "parameters: p_plant like t001w-werks.";
    p.ventana.documento.especificacion.VariablesGlobales = propia;
    p.vista.TomarAvisos();
    p.Escribir({Col::Valor, 2}, "@p_Plant");
    SalirDeCelda(p.ventana, {Col::Valor, 2});
    EXPECT_EQ(p.ventana.documento.especificacion.VariablesGlobales, propia);
    EXPECT_EQ(p.vista.TomarAvisos(), "");
}

TEST(LeavingText5, AutofillBringsTheNewRowIntoSight) {
    struct Caso {
        int ultima;  // last used file row
        int primeraAntes;
        int primera;
        int fila;  // of the new field, -1 for none
    };
    const Caso casos[] = {{-1, 0, 0, 0}, {12, 5, 5, 13}, {13, 0, 1, 14}, {5, 300, 300, 6}, {999, 0, 987, 1000}, {1000, 0, 0, -1}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.LlenarArchivo(caso.ultima);
        MostrarArchivoSinFocus(p.ventana, caso.primeraAntes);
        p.Transaccion({"TRANS|T", "||F"});
        p.Escribir({Col::Valor, 1}, "new");
        SalirDeCelda(p.ventana, {Col::Valor, 1});
        EXPECT_EQ(p.ventana.archivo.PrimeraFilaArchivo, caso.primera) << caso.ultima;
        const std::size_t filas = static_cast<std::size_t>(caso.ultima) + (caso.fila < 0 ? 1 : 2);
        EXPECT_EQ(p.FilasArchivo().size(), filas) << caso.ultima;
        if (caso.fila >= 0) {
            EXPECT_EQ(p.FilaArchivo(caso.fila), "NEW") << caso.ultima;
        }
    }
    VentanaDePrueba p;
    p.ventana.documento.opciones.Autofill = 0;
    p.Transaccion({"TRANS|T", "||F"});
    p.Escribir({Col::Valor, 1}, "new");
    SalirDeCelda(p.ventana, {Col::Valor, 1});
    EXPECT_THAT(p.FilasArchivo(), IsEmpty());
}

TEST(CellFocus, WalksThroughTheCells) {
    struct Caso {
        Col columna;
        int linea;
        int primera;
        Tecla tecla;
        const char* foco;
        int primeraDespues;
    };
    const Caso casos[] = {{Col::CampoDeArchivo, 0, 5, Tecla::Arriba, "Text1_0", 4},
                          {Col::Ancho, 0, 0, Tecla::Arriba, "Text2_0", 0},
                          {Col::CampoDeArchivo, 13, 5, Tecla::Abajo, "Text1_13", 6},
                          {Col::CampoDeArchivo, 13, 5, Tecla::RePag, "Text1_0", 5},
                          {Col::CampoDeArchivo, 3, 5, Tecla::RePag, "Text1_0", 0},
                          {Col::Ancho, 4, 985, Tecla::AvPag, "Text2_13", 987},
                          {Col::CampoDeArchivo, 3, 5, Tecla::Izquierda, "Text2_2", 5},
                          {Col::Ancho, 3, 5, Tecla::Derecha, "Text1_4", 5},
                          {Col::Ancho, 13, 5, Tecla::Derecha, "Text1_13", 6},
                          {Col::Campo, 10, 5, Tecla::Abajo, "Text4_10", 6},
                          {Col::Dynpro, 4, 5, Tecla::AvPag, "Text3_10", 9},
                          {Col::Programa, 3, 5, Tecla::Izquierda, "Text5_2", 5},
                          {Col::Dynpro, 3, 5, Tecla::Izquierda, "Text6_3", 5},
                          {Col::Programa, 3, 5, Tecla::Derecha, "Text3_3", 5},
                          {Col::Valor, 3, 5, Tecla::Derecha, "Text6_4", 5},
                          {Col::Valor, 10, 5, Tecla::Derecha, "Text6_10", 6}};
    int n = 0;
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        MostrarArchivo(p.ventana, caso.primera);
        MostrarTransaccion(p.ventana, caso.primera);
        const LugarDeCelda lugar{caso.columna, caso.linea};
        EntrarEnCelda(p.ventana, lugar);
        TeclaEnCelda(p.ventana, lugar, caso.tecla);
        EXPECT_EQ(p.Foco(), caso.foco) << n;
        EXPECT_EQ(p.vista.focos.back(), caso.foco) << n;
        const bool deArchivo = TablaDe(caso.columna) == Tabla::Archivo;
        EXPECT_EQ(deArchivo ? p.ventana.archivo.PrimeraFilaArchivo : p.ventana.transaccion.PrimeraFilaTransaccion,
                  caso.primeraDespues)
            << n;
        EXPECT_EQ(deArchivo ? p.ventana.archivo.LineaArchivo : p.ventana.transaccion.LineaTransaccion,
                  caso.primeraDespues + p.ventana.foco->linea)
            << n++;
    }
}

TEST(CellFocus, RulesOfTheRowRunBeforeItScrollsAway) {
    VentanaDePrueba p;
    p.LlenarArchivo(20);
    p.LlenarTransaccion(20);
    p.Escribir({Col::CampoDeArchivo, 13}, "F3");
    TeclaEnCelda(p.ventana, {Col::CampoDeArchivo, 13}, Tecla::Abajo);
    EXPECT_EQ(p.FilaArchivo(13), "F13");  // F4 to F12 are taken
    EXPECT_EQ(p.FilaArchivo(14), "F14");

    p.Escribir({Col::Valor, 10}, "my val");
    TeclaEnCelda(p.ventana, {Col::Valor, 10}, Tecla::Derecha);
    EXPECT_EQ(p.FilaTransaccion(10), "||F10|MY_VAL");
    EXPECT_EQ(p.FilaArchivo(21), "MY_VAL");
    // The wheel leaves the row as the keys do.
    p.Escribir({Col::Valor, 3}, "w w");
    DesplazarTransaccion(p.ventana, 2);
    EXPECT_EQ(p.FilaTransaccion(4), "||F4|W_W");
    EXPECT_EQ(p.ventana.transaccion.LineaTransaccion, 6);
    // So does a jump of the grid, but not inserting and deleting.
    p.Escribir({Col::Valor, 3}, "j j");
    TeclaEnCelda(p.ventana, {Col::Valor, 3}, Tecla::F5);
    EXPECT_EQ(p.FilaTransaccion(6), "||F6|J J");
    TeclaEnCelda(p.ventana, {Col::Valor, 3}, Tecla::F6);
    EXPECT_EQ(p.FilaTransaccion(6), "||F6|J J");
    MostrarTransaccion(p.ventana, 0);
    EXPECT_EQ(p.FilaTransaccion(6), "||F6|J_J");
}

TEST(CellFocus, WhatTheFormReportsOfTheCoresOwnMoveChangesNothing) {
    VentanaDePrueba p;
    p.Archivo({"A", "A"});
    p.Escribir({Col::CampoDeArchivo, 2}, "X");
    EnfocarCelda(p.ventana, {Col::Ancho, 0});
    p.ventana.DuplicadoRevisado = false;
    SalirDeCelda(p.ventana, {Col::CampoDeArchivo, 0});
    EntrarEnCelda(p.ventana, {Col::Ancho, 0});
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A", "A", "X"));
    EXPECT_EQ(p.Foco(), "Text2_0");
}

TEST(CellClicks, OpenNotesAndCode) {
    struct Caso {
        LugarDeCelda lugar;
        std::optional<FilaDeTabla> fila;
        const char* avisos;
    };
    const Caso casos[] = {{{Col::Ancho, 0}, FilaDeTabla{Tabla::Archivo, 0}, ""},
                          {{Col::Ancho, 1}, std::nullopt, ""},
                          {{Col::CampoDeArchivo, 0}, std::nullopt, ""},
                          {{Col::Campo, 0}, std::nullopt, "<343>"},
                          {{Col::Campo, 1}, FilaDeTabla{Tabla::Transaccion, 1}, ""},
                          {{Col::Campo, 2}, std::nullopt, ""}};
    VentanaDePrueba p;
    p.Archivo({"A"});
    p.Transaccion({"||F", "||G"});
    for (const auto& caso : casos) {
        EXPECT_EQ(DobleClicEnCelda(p.ventana, caso.lugar), caso.fila);
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos);
    }
    EXPECT_EQ(ClicEnABAP(p.ventana, 0), 0);
    EXPECT_EQ(ClicEnABAP(p.ventana, 1), std::nullopt);
}

TEST(Drop, AnOkCodeReplacesTheRow) {
    VentanaDePrueba p;
    p.Transaccion({"TRANS|T", "||F|V|note"});
    SoltarOkCode(p.ventana, 1, RotuloDeOkCode::SaveCode);
    EXPECT_EQ(p.FilaTransaccion(1), "||BDC_OKCODE|'/11'");
    EXPECT_EQ(p.ColorDe({Col::Campo, 1}), Color::Negro);
    SoltarOkCode(p.ventana, 3, RotuloDeOkCode::SaveCode);
    EXPECT_EQ(p.vista.TomarAvisos(), "<345>");
}

TEST(Drop, AFieldOfAStepLoopGoesIntoItsOwnRows) {
    struct Caso {
        int linea;
        int campo;  // line of Text1
        const char* avisos;
        const char* fila;
    };
    const Caso casos[] = {{2, 0, "", "||K|MAIN"},     {2, 1, "<348>", "||K|MAIN"}, {5, 1, "", "||B(1)|ONE"},
                          {5, 2, "<347>", "||B(1)|"}, {5, 0, "", "||B(1)|MAIN"},   {8, 1, "<347>", "||C(1)|TWO|!1 1!2!7"},
                          {9, 0, "<346>", ""},        {11, 0, "<345>", ""}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.Archivo({"MAIN", "ONE", "TWO"});
        p.Transaccion({"TRANS|T", "P|100", "||K|MAIN", "P|200", "||A(1)|ONE|!1 1!2!7", "||B(1)", "||BDC_OKCODE|'/00'", "P|300",
                       "||C(1)|TWO|!1 1!2!7"});
        MostrarTransaccionSinFocus(p.ventana, caso.linea == 11 ? 1 : 0);
        const int linea = caso.linea == 11 ? 10 : caso.linea;
        SoltarCampo(p.ventana, linea, caso.campo);
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.linea;
        std::string fila = caso.fila;
        fila.erase(fila.find_last_not_of('|') + 1);
        EXPECT_EQ(p.FilaTransaccion(caso.linea), fila) << caso.linea;
    }
}

}  // namespace
}  // namespace qor
