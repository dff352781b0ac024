#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"
#include "generator/generate.h"
#include "tests/support/failing_calls.h"
#include "tests/support/parser_findings.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using Parte = Lugar::Parte;

// A specification without a fault: a transaction with a step-loop read from a second file, and a BAPI.
struct Limpia {
    VentanaDePrueba prueba;
    Especificacion& e = prueba.ventana.documento.especificacion;
    Opciones& o = prueba.ventana.documento.opciones;
    Preferencias preferencias;

    Limpia() {
        prueba.Archivo({"ORDERNO|10", "KIND|4", "ITEM|6", "MATERIAL|18"});
        e.TablaArchivo[1].conversion = "'A' @ 'OR'\r\n'B' @ 'QT'\r\nIF #KIND = SPACE.\r\n  #KIND = 'A'.\r\nENDIF.";
        prueba.Transaccion({"TRANS|VA01;COND", "SAPMV45A|101", "||VBAK-VBELN|ORDERNO", "||VBAK-AUART|KIND",
                            "||VBAK-VKORG;COND|@VKORG", "||BDC_OKCODE|'/00'", "SAPMV45A|4001"});
        prueba.PonerTransaccion(7, "||VBAP-POSNR(1)|ITEM|items!1 1!2items.txt!30!4!51!65!7ORDERNO");
        prueba.PonerTransaccion(8, "||VBAP-MATNR(1);COND|MATERIAL");
        prueba.PonerTransaccion(9, "||BDC_OKCODE|'/00'");
        prueba.PonerTransaccion(10, "||BDC_OKCODE;COND|'SICH'");
        prueba.PonerTransaccion(11, "BAPI|BAPI_X");
        prueba.PonerTransaccion(12, "||HEAD-DOC|ORDERNO");
        prueba.PonerTransaccion(13, "||HEAD-KIND|'Z'");
        prueba.PonerTransaccion(14, "||HEAD-ORG|@VKORG");
        e.TablaBAPIs[0] = {
            "BAPI_X", "CALL FUNCTION 'BAPI_X'\r\n     EXPORTING\r\n       HEAD = HEAD\r\n     TABLES\r\n       RETURN = RETURN."};
        e.TablaCondiciones[0] = {"COND", "IF #ORDERNO NE SPACE.\r\n  RESULT = YES.\r\nENDIF."};
        e.VariablesGlobales =
            "DATA: RESULT.\r\nDATA: VKORG(4).\r\nDATA: HEAD LIKE BAPIHEAD.\r\nDATA: RETURN LIKE BAPIRET2 OCCURS 0 WITH HEADER "
            "LINE.";
        o.ArchivoFuente = "orders.txt";
        o.Programa = "x.abap";
        o.GeneracionAutomatica = false;
        o.NombreManual = "ORDERS";
        for (int numero = 500; numero <= 514; ++numero) prueba.textos.Poner(numero, "Text");
    }

    Hallazgos Buscar() { return BuscarHallazgos({e, o, preferencias, prueba.textos, "/loads/orders.qor", "orders.qor"}); }

    std::optional<ReporteGenerado> Componer() {
        prueba.vista.TomarAvisos();
        return ComponerReporte({e, o, preferencias, prueba.textos, prueba.vista, "/loads/orders.qor", "orders.qor"});
    }
    void ConFuentePropia() {
        e.OrigenUsuario = true;
        e.OrigenSource = "PERFORM FILL.";
        e.OrigenForms = "FORM FILL.\r\n  APPEND ITAB.\r\nENDFORM.";
    }
    void DeTabla() {
        o.ClienteOp = false;
        o.TablaCh = 1;
        o.ArchivoFuente = "ZORDERS";
        e.TablaTransaccion[7].nota = "items!1 1!2ZITEMS!30!4!51!65!7ORDERNO";
    }
    void ConConvenciones() {
        preferencias.CheckActivateNamingConventions = 1;
        e.TablaCondiciones[0].texto = "GS_RESULT = GC_NO.\r\nIF #ORDERNO NE SPACE.\r\n  LS_RESULT = GC_YES.\r\nENDIF.";
        e.VariablesGlobales += "\r\nDATA: GS_RESULT, LS_RESULT.";
    }
};

struct Falta {
    const char* que;
    int codigo;
    Lugar lugar;
    std::function<void(Limpia&)> plantar;
};

std::string En(const Hallazgo& h) { return CodigoDeHallazgo(h.codigo) + " " + TextoDeLugar(h.lugar) + ": " + AUtf8(h.texto); }

std::string Errores(const Hallazgos& hallazgos) {
    std::string lineas;
    for (const auto& h : hallazgos.lista) lineas += h.gravedad == Gravedad::Error ? En(h) + "\n" : "";
    return lineas;
}

// What Generate refuses: each with the number of its message, and told beside others.
const Falta rechazos[] = {
    {"control", 101, Lugar::EnPrograma(2, 2), [](Limpia& l) { l.e.TablaTransaccion[2].campo = "VBAK\rX"; }},
    {"gap", 103, Lugar::EnPrograma(15, 0), [](Limpia& l) { l.e.TablaTransaccion[16].campo = "VBAK-X"; }},
    {"head", 102, Lugar::EnPrograma(0, 0), [](Limpia& l) { l.e.TablaTransaccion[0].programa = "SAPMV45A"; }},
    {"width", 104, Lugar::EnArchivo(2, 1), [](Limpia& l) { l.e.TablaArchivo[2].ancho.clear(); }},
    {"width twice", 104, Lugar::EnArchivo(3, 1), [](Limpia& l) { l.e.TablaArchivo[2].ancho = l.e.TablaArchivo[3].ancho = ""; }},
    {"keys", 108, Lugar::EnPrograma(7, 4), [](Limpia& l) { l.e.TablaTransaccion[7].nota = "items!1 1!2items.txt!30!4!51!65!7"; }},
    {"program", 110, Lugar::EnOpcion("Programa"), [](Limpia& l) { l.o.Programa = " "; }},
    {"file", 111, Lugar::EnOpcion("ArchivoFuente"), [](Limpia& l) { l.o.ArchivoFuente.clear(), l.o.FileParameterCh = 0; }},
    {"step file", 112, Lugar::EnPrograma(7, 4),
     [](Limpia& l) { l.DeTabla(), l.e.TablaTransaccion[7].nota = "!1 1!2!30!4!51!65!7ORDERNO"; }},
    {"two records", 115, Lugar::EnPrograma(8, 3), [](Limpia& l) { l.e.TablaTransaccion[8].valor = "ORDERNO"; }},
    {"dynpro", 116, Lugar::EnPrograma(1, 1), [](Limpia& l) { l.e.TablaTransaccion[1].dynpro.clear(); }},
    {"no OK code", 117, Lugar::EnPrograma(7, 4),
     [](Limpia& l) { l.e.TablaTransaccion[9].campo = l.e.TablaTransaccion[10].campo = "VBAP-X"; }},
    {"call text", 118, Lugar::EnPrograma(11, 1), [](Limpia& l) { l.e.TablaBAPIs[0].nombre = "BAPI_Y"; }},
    {"marks", 119, Lugar::EnPrograma(2, 4), [](Limpia& l) { l.e.TablaTransaccion[2].nota = "!2 !1"; }},
    {"no fit", 120, Lugar::EnPrograma(0, 1), [](Limpia& l) { l.e.TablaTransaccion[0].dynpro = std::string(60, 'V'); }},
    {"value", 201, Lugar::EnPrograma(2, 3), [](Limpia& l) { l.e.TablaTransaccion[2].valor = "ORDER"; }},
    {"variable", 202, Lugar::EnPrograma(4, 3), [](Limpia& l) { l.e.TablaTransaccion[4].valor = "@UNKNOWN"; }},
    {"constant", 203, Lugar::EnPrograma(5, 3), [](Limpia& l) { l.e.TablaTransaccion[5].valor = "'it's'"; }},
    {"no value", 204, Lugar::EnPrograma(3, 3), [](Limpia& l) { l.e.TablaTransaccion[3].valor.clear(); }},
    {"BAPI field", 205, Lugar::EnPrograma(12, 2), [](Limpia& l) { l.e.TablaTransaccion[12].campo = "TAIL-DOC"; }},
    {"no condition", 206, Lugar::EnPrograma(0, 1), [](Limpia& l) { l.e.TablaTransaccion[0].dynpro = "VA01;"; }},
    {"condition", 207, Lugar::EnPrograma(4, 2), [](Limpia& l) { l.e.TablaTransaccion[4].campo = "VBAK-VKORG;COND2"; }},
    {"step in condition", 208, Lugar::EnCondicion(0, 1, 2),
     [](Limpia& l) { l.e.TablaCondiciones[0].texto = "RESULT = NO.\r\nIF #ITEM = 1.\r\nENDIF."; }},
    {"step in code", 209, Lugar::EnArchivo(0, 3, 1), [](Limpia& l) { l.e.TablaArchivo[0].conversion = "CLEAR #ITEM."; }},
    {"pair", 210, Lugar::EnArchivo(1, 3, 2), [](Limpia& l) { l.e.TablaArchivo[1].conversion = "'A' @ 'B'\r\n'C' @ 'D' 'E'"; }},
    {"pair of three", 210, Lugar::EnArchivo(1, 3, 1), [](Limpia& l) { l.e.TablaArchivo[1].conversion = "'A' @ 'B"; }},
};

// What Generate lets pass and a compiler does not.
const Falta faltas[] = {
    {"error table and conventions", 301, Lugar::EnOpcion("ErrorHandlingCheck"),
     [](Limpia& l) { l.ConConvenciones(), l.o.ErrorHandlingCheck = l.o.CallTransaction = 1, l.o.ProgID = "7"; }},
    {"constant file names", 302, Lugar::EnPrograma(7, 4), [](Limpia& l) { l.o.FileParameterCh = 0; }},
    {"result", 303, Lugar::EnPrograma(0, 1),
     [](Limpia& l) { l.e.VariablesGlobales = l.e.VariablesGlobales.substr(15), l.e.TablaTransaccion[0].dynpro = "VA01;COND"; }},
    {"result of a BAPI field", 303, Lugar::EnPrograma(12, 2),
     [](Limpia& l) {
         l.e.VariablesGlobales = l.e.VariablesGlobales.substr(15), l.e.TablaTransaccion[0].dynpro = "VA01",
         l.e.TablaTransaccion[12].campo = "HEAD-DOC;COND", l.e.TablaTransaccion[13].valor = l.e.TablaTransaccion[14].valor = "KIND";
     }},
    {"constant first", 304, Lugar::EnPrograma(12, 3),
     [](Limpia& l) {
         l.e.TablaTransaccion[12].valor = "'1'", l.e.TablaTransaccion[13].valor = l.e.TablaTransaccion[14].valor = "KIND";
     }},
    {"conditioned constant", 305, Lugar::EnPrograma(13, 2), [](Limpia& l) { l.e.TablaTransaccion[13].campo = "HEAD-KIND;COND"; }},
    {"long code", 306, Lugar::EnPrograma(0, 1), [](Limpia& l) { l.e.TablaTransaccion[0].dynpro = "ZVERY_LONG_CODE_1"; }},
    {"code with a point", 307, Lugar::EnPrograma(0, 1), [](Limpia& l) { l.e.TablaTransaccion[0].dynpro = "VA.01"; }},
    {"code with a blank", 307, Lugar::EnPrograma(11, 1),
     [](Limpia& l) { l.e.TablaTransaccion[11].dynpro = l.e.TablaBAPIs[0].nombre = "BAPI X"; }},
    {"cut literal", 308, Lugar::EnCondicion(0, 1, 1),
     [](Limpia& l) {
         l.e.TablaCondiciones[0].texto = "IF #ORDERNO = 'a literal of some words that goes on'.\r\nRESULT = YES.\r\nENDIF.";
     }},
    {"cut comment",
     308,
     {Parte::VariablesGlobales, -1, -1, 5},
     [](Limpia& l) {
         l.e.VariablesGlobales += "\r\n* " + std::string(40, 'a') + " and quite a few words behind it which is too long";
     }},
    {"comment in the source",
     309,
     {Parte::OrigenSource, -1, -1, 2},
     [](Limpia& l) { l.ConFuentePropia(), l.e.OrigenSource += "\r\n* a note"; }},
    {"no point", 310, Lugar::EnPreferencia("EncodingAdditional"),
     [](Limpia& l) { l.o.ClienteOp = false, l.preferencias.AdicionesDataset = "ENCODING DEFAULT"; }},
    {"no addition", 310, Lugar::EnPreferencia("EncodingAdditional"),
     [](Limpia& l) { l.o.ClienteOp = false, l.preferencias.AdicionesDataset = "WHATEVER."; }},
    {"long parameters", 311, Lugar::EnPreferencia("PSprefijo"),
     [](Limpia& l) { l.ConConvenciones(), l.preferencias.PSprefijo = "PARAM_", l.o.ModeAsParameter = 0; }},
    {"long parameter of the user's",
     311,
     {Parte::VariablesGlobales, -1, -1, 5},
     [](Limpia& l) { l.e.VariablesGlobales += "\r\nPARAMETERS: P_TOO_LONG(4)."; }},
    {"apostrophe in the file", 312, Lugar::EnOpcion("ArchivoFuente"), [](Limpia& l) { l.o.ArchivoFuente = "it's.txt"; }},
    {"apostrophe in the session", 312, Lugar::EnOpcion("NombreManual"), [](Limpia& l) { l.o.NombreManual = "IT'S"; }},
    {"apostrophe in a step file", 312, Lugar::EnPrograma(7, 4),
     [](Limpia& l) { l.e.TablaTransaccion[7].nota = "!1 1!2it's!30!4!51!65!7ORDERNO"; }},
    {"no rows per screen", 313, Lugar::EnPrograma(7, 4),
     [](Limpia& l) { l.e.TablaTransaccion[7].nota = "!1 1!2x!30!4!51!6!7ORDERNO"; }},
    {"field name with a hyphen", 314, Lugar::EnArchivo(1, 0),
     [](Limpia& l) {
         l.e.TablaArchivo[1] = {"MY-KIND", "4", "", ""}, l.e.TablaTransaccion[3].valor = "MY-KIND";
     }},
    {"field name with a digit first", 314, Lugar::EnArchivo(1, 0),
     [](Limpia& l) {
         l.e.TablaArchivo[1] = {"1KIND", "4", "", ""}, l.e.TablaTransaccion[3].valor = "1KIND";
     }},
    {"width of none", 326, Lugar::EnArchivo(1, 1), [](Limpia& l) { l.e.TablaArchivo[1].ancho = "0"; }},
    {"field twice", 327, Lugar::EnArchivo(4, 0),
     [](Limpia& l) {
         l.e.TablaArchivo[4] = {"KIND", "4", "", ""};
     }},
    {"component of none", 315, Lugar::EnArchivo(0, 3, 2),
     [](Limpia& l) { l.e.TablaArchivo[0].conversion = "CLEAR #KIND.\r\nCLEAR #KINDS."; }},
    {"component in a condition", 315, Lugar::EnCondicion(0, 1, 1),
     [](Limpia& l) { l.e.TablaCondiciones[0].texto = "IF #ORDERS = 1.\r\nRESULT = YES.\r\nENDIF."; }},
    {"keys that are no fields", 316, Lugar::EnPrograma(7, 4),
     [](Limpia& l) { l.e.TablaTransaccion[7].nota = "!1 1!2x!30!4!51!65!7ORDERS"; }},
    {"beyond the field", 317, Lugar::EnArchivo(1, 3, 1),
     [](Limpia& l) { l.e.TablaArchivo[1].conversion = "#KIND(2) = #KIND+3(2)."; }},
    {"no such form", 318, Lugar::EnArchivo(1, 3, 1), [](Limpia& l) { l.e.TablaArchivo[1].conversion = "PERFORM CONVERT."; }},
    {"no such variable", 318, Lugar::EnCondicion(0, 1, 2),
     [](Limpia& l) { l.e.TablaCondiciones[0].texto = "RESULT = YES.\r\nCLEAR NOTHING."; }},
    {"declared by the report",
     320,
     {Parte::VariablesGlobales, -1, -1, 5},
     [](Limpia& l) { l.e.VariablesGlobales += "\r\nDATA: TCODE(4)."; }},
    {"parameter of the report",
     320,
     {Parte::VariablesGlobales, -1, -1, 5},
     [](Limpia& l) { l.e.VariablesGlobales += "\r\nDATA: FILE(4)."; }},
    {"table row without a head", 321, Lugar::EnPrograma(13, 2),
     [](Limpia& l) {
         l.e.VariablesGlobales += "\r\nDATA: ROWS LIKE R OCCURS 0 WITH HEADER LINE.",
             l.e.TablaTransaccion[13] = {"", "", "ROWS-KIND(+)", "KIND", ""};
     }},
    {"word of the record", 323, Lugar::EnArchivo(1, 0),
     [](Limpia& l) {
         l.e.TablaArchivo[1] = {"INCLUDE", "4", "", ""}, l.e.TablaTransaccion[3].valor = "INCLUDE";
     }},
    {"one file and conventions", 325, Lugar::EnPreferencia("CheckActivateNamingConventions"),
     [](Limpia& l) { l.ConConvenciones(), l.o.MultipleFilesOption = false, l.o.Identificadores = "H,I"; }},
    {"apostrophe in a field", 328, Lugar::EnPrograma(2, 2), [](Limpia& l) { l.e.TablaTransaccion[2].campo = "VBAK-'X"; }},
    {"apostrophe in a screen", 328, Lugar::EnPrograma(1, 0), [](Limpia& l) { l.e.TablaTransaccion[1].programa = "SAP'X"; }},
    {"path for a table", 330, Lugar::EnOpcion("ArchivoFuente"),
     [](Limpia& l) { l.DeTabla(), l.o.ArchivoFuente = "c:\\orders.txt"; }},
    {"form in code", 399, Lugar::EnArchivo(1, 3, 1), [](Limpia& l) { l.e.TablaArchivo[1].conversion = "FORM X. ENDFORM."; }},
    {"broken code", 399, Lugar::EnArchivo(1, 3, 1), [](Limpia& l) { l.e.TablaArchivo[1].conversion = "#KIND EQUALS 'A'."; }},
};

// What runs, but not as meant, and notes: those of which tests/findings_rules_test.cpp tells nothing, and one of each kind of rule.
const Falta avisos[] = {
    {"table of step-loops", 401, Lugar::EnPrograma(7, 4), [](Limpia& l) { l.DeTabla(); }},
    {"long line", 322, Lugar::EnPrograma(5, 3),
     [](Limpia& l) { l.e.TablaTransaccion[5].valor = "'" + std::string(80, 'v') + "'"; }},
    {"Z table", 324, Lugar::EnOpcion("TablaZ"),
     [](Limpia& l) { l.o.ErrorHandlingCheck = 1, l.o.ProgID = "7", l.o.TablaZ = "ERRORS"; }},
    {"not of the code page", 329, Lugar::EnArchivo(2, 2), [](Limpia& l) { l.e.TablaArchivo[2].nota = "a\x81"; }},
    {"no code", 427, Lugar::EnPrograma(0, 1), [](Limpia& l) { l.e.TablaTransaccion[0].dynpro = ";COND"; }},
    {"condition twice", 428, Lugar::EnCondicion(1, 0), [](Limpia& l) { l.e.TablaCondiciones[1] = l.e.TablaCondiciones[0]; }},
    {"unused field", 601, Lugar::EnArchivo(4, 0),
     [](Limpia& l) {
         l.e.TablaArchivo[4] = {"EXTRA", "4", "", ""};
     }},
};

bool Esta(const Hallazgos& hallazgos, const Falta& falta) {
    return std::any_of(hallazgos.lista.begin(), hallazgos.lista.end(),
                       [&](const Hallazgo& h) { return h.codigo == falta.codigo && h.lugar == falta.lugar; });
}

TEST(Faults, ACleanSpecificationHasNone) {
    Limpia limpia;
    EXPECT_EQ(Errores(limpia.Buscar()), "");
    EXPECT_TRUE(limpia.Buscar().completo);
    limpia.ConConvenciones();
    EXPECT_EQ(Errores(limpia.Buscar()), "");
    limpia.ConFuentePropia();
    limpia.e.OrigenForms = "FORM FILL.\r\n  APPEND GT_ITAB.\r\nENDFORM.";
    EXPECT_EQ(Errores(limpia.Buscar()), "");
}

TEST(Faults, EachRefusalIsFoundAtItsCellAndRefusesTheReport) {
    for (const auto& falta : rechazos) {
        Limpia limpia;
        falta.plantar(limpia);
        const auto hallazgos = limpia.Buscar();
        EXPECT_TRUE(Esta(hallazgos, falta)) << falta.que << ":\n" << Errores(hallazgos);
        if (falta.codigo != 110) EXPECT_FALSE(limpia.Componer()) << falta.que;
    }
}

TEST(Faults, EachFaultOfTheReportIsFoundAtItsCellAndNothingElse) {
    const char* const pedido = std::getenv("QOR_SPREAD");
    const std::filesystem::path directorio = pedido != nullptr ? pedido : std::filesystem::path(QOR_TEST_BINARY_DIR) / "faults";
    std::filesystem::create_directories(directorio);
    const SinEsperarAlDisco disco;
    int numero = 0;
    for (const auto& falta : faltas) {
        Limpia limpia;
        falta.plantar(limpia);
        const auto hallazgos = limpia.Buscar();
        EXPECT_TRUE(Esta(hallazgos, falta)) << falta.que << ":\n" << Errores(hallazgos);
        for (const auto& h : hallazgos.lista) {
            if (h.gravedad == Gravedad::Error && (h.codigo != falta.codigo || h.lugar != falta.lugar))
                ADD_FAILURE() << falta.que << ": " << En(h);
        }
        const auto reporte = limpia.Componer();
        ASSERT_TRUE(reporte) << falta.que << limpia.prueba.vista.TomarAvisos();
        const std::string nombre = "fault" + std::to_string(numero++) + "_" + CodigoDeHallazgo(falta.codigo);
        GuardarParaElParser(directorio, nombre, *reporte, hallazgos);
    }
}

TEST(Faults, WarningsAndNotesAreFoundWithoutAnError) {
    for (const auto& falta : avisos) {
        Limpia limpia;
        const auto antes = limpia.Buscar();
        EXPECT_FALSE(Esta(antes, falta)) << falta.que;
        falta.plantar(limpia);
        const auto hallazgos = limpia.Buscar();
        EXPECT_TRUE(Esta(hallazgos, falta)) << falta.que;
        EXPECT_EQ(Errores(hallazgos), "") << falta.que;
    }
}

}  // namespace
}  // namespace qor::pruebas
