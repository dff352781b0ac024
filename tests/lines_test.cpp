#include "generator/lines.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "generator/conversions.h"
#include "generator/report.h"
#include "model/cells.h"

namespace qor::pruebas {
namespace {

std::string Plegar(const std::string& linea) {
    std::string salida;
    ImprimirLineasCortas(linea, salida);
    return salida;
}

TEST(Lines, LongLinesAreFoldedOutsideQuotes) {
    const std::string a71(71, 'a');
    const std::string a60 = "  " + std::string(58, 'a');
    const struct {
        std::string linea, esperada;
    } casos[] = {
        {a71, a71 + "\r\n"},
        {"a " + std::string(69, 'b'), "a " + std::string(69, 'b') + "\r\n"},  // as long as a line
        {a71 + "a", a71 + "a\r\n"},                                           // no blank to fold at
        {a60 + " " + std::string(20, 'b'), a60 + "\r\n" + std::string(51, ' ') + std::string(20, 'b') + "\r\n"},
        {"* " + std::string(60, 'c') + " " + std::string(20, 'c'),
         "* " + std::string(60, 'c') + " " + std::string(20, 'c') + "\r\n"},
        {"x '" + std::string(60, 'l') + " " + std::string(20, 'l') + "'",
         "x\r\n'" + std::string(60, 'l') + " " + std::string(20, 'l') + "'\r\n"},
        {a60 + " " + std::string(71, 'd'), a60 + "\r\n" + std::string(71, 'd') + "\r\n"},
        {"      " + std::string(80, 'e'), "     \r\n" + std::string(80, 'e') + "\r\n"},
    };
    for (const auto& caso : casos) EXPECT_EQ(Plegar(caso.linea), caso.esperada) << caso.linea;
}

TEST(Lines, ChainsGetTheirEndings) {
    const struct {
        std::vector<const char*> lineas;
        const char* esperado;
    } casos[] = {
        {{"  PERFORM X USING:", "    'a'", "    'b'", "", "ENDFORM."},
         "  PERFORM X USING:\r\n    'a',\r\n    'b'.\r\n\r\nENDFORM.\r\n"},
        {{"  MOVE:", "   A TO|", "   B", "  PERFORM Y."}, "  MOVE:\r\n   A TO\r\n   B.\r\n  PERFORM Y.\r\n"},
        {{"   A", "   B|"}, "   A,\r\n   B\r\n"},
        {{"   A", "*   comment  *"}, "   A.\r\n*   comment  *\r\n"},
        {{"   A"}, "   A.\r\n"},
    };
    for (const auto& caso : casos) {
        Reporte reporte;
        for (const char* linea : caso.lineas) reporte.MPrintDelUsuario(linea);
        reporte.ImprimirMemoria();
        EXPECT_EQ(reporte.Texto(), caso.esperado);
    }
    Reporte lleno;
    for (int i = 0; i < 5000; ++i) lleno.MPrint("x");
    EXPECT_THROW(lleno.MPrint("x"), FalloDeEjecucion);
}

TEST(Lines, TemplatesFillNamesOnce) {
    Reporte reporte;
    reporte.Definir("GT", "GT_");
    EXPECT_EQ(reporte.Rellenar("{GT}ITAB-{campo}{_}", {{"campo", "{GT}"}}), "GT_ITAB-{GT} ");
    EXPECT_THROW(reporte.Rellenar("{unknown}"), std::logic_error);
}

TEST(Lines, NamesAreCompacted) {
    const struct {
        const char* texto;
        const char* esperado;
    } casos[] = {
        {"Cargadeclientes", "CRGDCLNT"},  // walked to the end
        {"short", "SHORT"},
        {"BAEIDFGHJK", "BIDFGHJK"},  // two vowels go, the third stops the walk
        {"aeiouaeiou", "iouaeiou"},  // the third vowel restores itself, and the rest keeps its case
        {"bcdfghjklm", "BCDFGHJK"},
    };
    for (const auto& caso : casos) EXPECT_EQ(CompactarTexto(caso.texto, 8), caso.esperado) << caso.texto;
}

TEST(Cells, MarksAreCutOutOfTheCell) {
    const std::string celda = "note!1 1!2file!30!4DESC!51!610!7,A,B";
    const struct {
        int a, b;
        const char* esperado;
    } casos[] = {{0, 1, "note"}, {1, 2, " 1"}, {2, 3, "file"}, {3, 4, "0"}, {6, 7, "10"}, {7, 8, ",A,B"}, {8, 9, ""}};
    for (const auto& caso : casos) EXPECT_EQ(ExtraerMarca(celda, caso.a, caso.b), caso.esperado) << caso.a;
    EXPECT_THROW(ExtraerMarca("!2x!1 1", 1, 2), FalloDeEjecucion);
    EXPECT_TRUE(EsCabezaStepLoop(celda));
    EXPECT_FALSE(EsCabezaStepLoop("note!1 0!2"));
    EXPECT_FALSE(EsCabezaStepLoop("1 is a note"));
}

TEST(Cells, TextsAreWrappedInTheirOwnWay) {
    const struct {
        std::string texto;
        int ancho;
        std::vector<std::string> esperadas;
    } casos[] = {
        {"", 5, {""}},
        {"one\r\ntwo\r\n", 9, {"one", "two", ""}},
        {"aa bb cc dd", 5, {"aa bb", "cc dd"}},
        {"abcdefghij", 3, {"", "", "cdefghij"}},  // each break in a stretch without a blank loses a character
        {"aaaa bbbb c", 5, {"aaaa", "bbbb c"}},   // what is carried over is not counted
        {"a\nb", 9, {"a\nb"}},
    };
    for (const auto& caso : casos) EXPECT_EQ(PartirLineas(caso.texto, caso.ancho), caso.esperadas) << caso.texto;
    std::string larga;
    for (int i = 0; i < 500; ++i) larga += "x\r\n";
    EXPECT_EQ(PartirLineas(larga, 9).size(), 501u);
    EXPECT_THROW(PartirLineas(larga + "x\r\n", 9), FalloDeEjecucion);
}

TEST(Conversions, ReferencesAndPairsAreRead) {
    Especificacion e;
    e.TablaTransaccion[0] = {"TRANS", "VA01", "", "", ""};
    e.TablaTransaccion[1] = {"PROG", "100", "", "", ""};
    e.TablaTransaccion[2] = {"", "", "F(1)", "STEP", "!1 1!2!30!4!51!61!7,KEY"};
    const auto operaciones = ActualizarOperaciones(e, 0);
    const struct {
        const char* linea;
        const char* esperada;
        bool deStep;
    } casos[] = {
        {"#MATNR.", "GT_ITAB-MATNR.", false},      {"IF #STEP = 'X'.", "IF GT_ITAB-STEP = 'X'.", true},
        {"#step+1(2)", "GT_ITAB-step+1(2)", true}, {"#STEP)", "GT_ITAB-STEP)", false},  // ")" ends no name
        {"#STEP[1]", "GT_ITAB-STEP[1]", true},     {"a#b #STEP", "aGT_ITAB-b GT_ITAB-STEP", true},
    };
    for (const auto& caso : casos) {
        const auto convertida = ConvertirTexto(caso.linea, operaciones, "GT_");
        EXPECT_EQ(convertida.texto, caso.esperada);
        EXPECT_EQ(convertida.CampoDeStep, caso.deStep) << caso.linea;
    }
    const std::string lineas[] = {"no", "'a", "'a'", "'a'b'", "'a' @ 'b'", "'a' @ 'b' 'c'"};
    const char* primeros[] = {"", "", "a", "a", "a", ""};
    for (std::size_t n = 0; n < 6; ++n) {
        const auto primero = ExtraerPrimero(lineas[n]);
        EXPECT_EQ(primero.texto, primeros[n]) << lineas[n];
        EXPECT_EQ(primero.malEscrita, n < 2 || n == 5) << lineas[n];
        if (n < 4) {
            EXPECT_THROW(ExtraerSegundo(lineas[n]), FalloDeEjecucion);
        } else {
            EXPECT_EQ(ExtraerSegundo(lineas[n]), "b");
        }
    }
}

}  // namespace
}  // namespace qor::pruebas
