#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "base/failure.h"
#include "base/text.h"
#include "findings/place_words.h"
#include "findings/rules.h"
#include "generator/generate.h"
#include "tests/support/language.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// The place without what the screen calls an option.
std::string SinRotulo(std::string_view lugar) { return std::string(Recortar(AntesDe(lugar, '('))); }

class Sordo : public Oyente {
public:
    Sordo() : Oyente(true) {}
    void Recibir(const Observacion& /*observacion*/) override {}
};

// A specification in which the rules find nothing: one screen, and a step-loop on request.
struct Reglas : testing::Test {
    Especificacion e;
    Opciones o;
    Preferencias preferencias;
    TextosIdioma textos;
    std::string documento = "ORDERS.qor";

    Reglas() {
        PonerPalabras(textos);
        Rehacer();
    }

    void Rehacer() {
        e = Especificacion{};
        o = Opciones{};
        preferencias = Preferencias{};
        documento = "ORDERS.qor";
        o.GeneracionAutomatica = false;
        o.NombreManual = "ORDERS";
        Archivo({{"ORDER", "10"}, {"DATUM", "8"}, {"ITEM", "6"}});
        Programa({{"TRANS", "VA01"},
                  {"SAPMV45A", "101"},
                  {"", "", "VBAK-VBELN", "ORDER"},
                  {"", "", "VBAK-ERDAT", "DATUM"},
                  {"", "", "VBAP-POSNR", "ITEM"},
                  {"", "", "BDC_OKCODE", "'/11'"}});
    }

    // Name, width and conversion.
    struct Campo {
        std::string campo;
        std::string ancho;
        std::string conversion = {};
    };
    void Archivo(std::initializer_list<Campo> filas) {
        e.TablaArchivo.assign(filasTabla, {});
        int f = 0;
        for (const auto& fila : filas) PonerArchivo(f++, fila);
    }
    void PonerArchivo(int fila, const Campo& campo) { e.TablaArchivo[fila] = {campo.campo, campo.ancho, "", campo.conversion}; }
    void Programa(std::initializer_list<FilaDeTransaccion> filas) {
        e.TablaTransaccion.assign(filasTabla, {});
        std::copy(filas.begin(), filas.end(), e.TablaTransaccion.begin());
    }

    // Items in a step-loop: its head is row 4, the OK code of the page row 5, that of the end row 6.
    void PonerStep(const std::string& claves = ",ORDER", const std::string& marcas = "!30!4!51!65") {
        e.TablaTransaccion[4] = {"", "", "VBAP-POSNR(1)", "ITEM", "!1 1!2items" + marcas + "!7" + claves};
        e.TablaTransaccion[5] = {"", "", "BDC_OKCODE", "'=P+'"};
        e.TablaTransaccion[6] = {"", "", "BDC_OKCODE", "'/11'"};
    }
    void PonerUnArchivo() {
        PonerStep("");
        o.MultipleFilesOption = false;
        o.Identificadores = "H,I";
    }
    void PonerTabla() {
        o.ClienteOp = false;
        o.TablaCh = 1;
        o.ArchivoFuente = "ZHEAD";
    }
    void PonerTablaDeErrores() {
        o.CallTransaction = 1;
        o.SafeCallTransactionCheck = 0;
        o.ErrorHandlingCheck = 1;
        o.ProgID = "1";
    }
    void PonerBAPI(const std::string& seccion = "TABLES") {
        Programa({{"BAPI", "BAPI_X"}, {"", "", "HEAD-A", "ORDER"}, {"", "", "HEAD-B", "DATUM"}, {"", "", "HEAD-C", "ITEM"}});
        e.VariablesGlobales = "DATA: HEAD LIKE T.";
        e.TablaBAPIs[0] = {"BAPI_X", "CALL FUNCTION 'BAPI_X'\r\n  " + seccion + "\r\n  RETURN = RETURN."};
    }
    void PonerCodigoDeBlanco() {
        o.ProcesarTodoOpt = false;
        o.SpaceCode = "$";
    }
    void PonerCondicion(const std::string& texto) { e.TablaCondiciones[0] = {"COND", texto}; }

    // Code and place of all findings.
    std::string Hallar() {
        Sordo oyente;
        Generacion g = NuevaGeneracion(e, o, preferencias, textos, oyente, "/d/" + documento, documento);
        try {
            ComponerTodo(g);
        } catch (const FalloDeEjecucion&) {
        }
        hallazgos.clear();
        Libreta libreta(g, hallazgos);
        for (const auto regla : {ReglasDeNombres, ReglasDeTextos, ReglasDeComportamiento, ReglasDeUso}) regla(g, libreta);
        std::string texto;
        for (const auto& h : hallazgos) {
            texto += (texto.empty() ? "" : "; ") + CodigoDeHallazgo(h.codigo) + " " + SinRotulo(TextoDeLugar(h.lugar));
        }
        return texto;
    }

    std::vector<Hallazgo> hallazgos;
};

using Cambio = std::function<void(Reglas&)>;

struct CasoDePrueba {
    const char* que;
    Cambio cambio;
    const char* hallazgos;
};

void Probar(Reglas& r, std::initializer_list<CasoDePrueba> casos) {
    for (const auto& caso : casos) {
        r.Rehacer();
        caso.cambio(r);
        EXPECT_EQ(r.Hallar(), caso.hallazgos) << caso.que;
    }
}

// A field with its row, so that something uses it.
void PonerCampo(Reglas& r, const std::string& campo, const std::string& ancho = "6") {
    r.PonerArchivo(3, {campo, ancho});
    r.e.TablaTransaccion[6] = {"", "", "VBAP-X", campo};
}

void PonerCodigo(Reglas& r, const std::string& codigo) { r.e.TablaTransaccion[0].dynpro = codigo; }

void PonerAdicion(Reglas& r, const char* adicion) {
    r.o.ClienteOp = false;
    r.preferencias.AdicionesDataset = adicion;
}

void PonerTablaZ(Reglas& r, const char* tabla) {
    r.PonerTablaDeErrores();
    r.o.TablaZ = tabla;
}

TEST_F(Reglas, NamesAreThoseThatAReportCanHave) {
    Probar(*this,
           {{"nothing wrong", [](auto&) {}, ""},
            {"a digit first", [](auto& r) { PonerCampo(r, "1A"); }, "Q314 file side, row 3, field"},
            {"a hyphen", [](auto& r) { PonerCampo(r, "A-B"); }, "Q314 file side, row 3, field"},
            {"what old releases take", [](auto& r) { PonerCampo(r, "A%$&#?/"); }, ""},
            {"30 characters", [](auto& r) { PonerCampo(r, std::string(30, 'A')); }, ""},
            {"31 characters", [](auto& r) { PonerCampo(r, std::string(31, 'A')); }, "Q314 file side, row 3, field"},
            {"no counter", [](auto& r) { PonerCampo(r, "AUTOCOUNTER"); }, ""},
            {"a second counter",
             [](auto& r) { r.PonerUnArchivo(), r.e.TablaTransaccion[2].valor = r.e.TablaArchivo[0].campo = "Autocounter"; },
             "Q314 file side, row 0, field"},
            {"a width of 0", [](auto& r) { r.e.TablaArchivo[0].ancho = "0"; }, "Q326 file side, row 0, width"},
            {"a width with a blank", [](auto& r) { r.e.TablaArchivo[0].ancho = "10 "; }, "Q326 file side, row 0, width"},
            {"the greatest width",
             [](auto& r) {
                 r.PonerArchivo(3, {"A", "65535"}), r.PonerCondicion("IF #A = 'X'."), r.e.TablaTransaccion[1].dynpro = "101;COND";
             },
             ""},
            {"a greater one", [](auto& r) { r.e.TablaArchivo[1].ancho = "65536"; },
             "Q326 file side, row 1, width; Q422 program side, row 3, value"},
            {"two of one name", [](auto& r) { PonerCampo(r, "order"); }, "Q327 file side, row 3, field"},
            {"each in a record of its own",
             [](auto& r) {
                 r.PonerStep(), r.PonerArchivo(3, {"item", "6"}), r.e.TablaTransaccion[3].valor = "item",
                                                                  r.PonerArchivo(1, {"A", "1"}), r.PonerCondicion("IF #A = 'X'."),
                                                                  r.e.TablaTransaccion[1].dynpro = "101;COND";
             },
             ""},
            {"a word of records", [](auto& r) { PonerCampo(r, "INCLUDE"); }, "Q323 file side, row 3, field"},
            {"a word of conditions", [](auto& r) { PonerCampo(r, "NOT"); }, ""},
            {"as a key",
             [](auto& r) { r.PonerStep(",BETWEEN"), r.e.TablaArchivo[0].campo = r.e.TablaTransaccion[2].valor = "BETWEEN"; },
             "Q323 file side, row 0, field"},
            {"a word of the database in a file", [](auto& r) { PonerCampo(r, "GROUP"); }, ""},
            {"in a table", [](auto& r) { r.PonerTabla(), PonerCampo(r, "GROUP"); },
             "Q323 file side, row 0, field; Q323 file side, row 3, field"},
            {"a name of the language", [](auto& r) { r.e.VariablesGlobales = "DATA: A,\r\n  SPACE(1)."; },
             "Q323 global definitions, line 2"},
            {"a clause as a variable",
             [](auto& r) { r.e.TablaTransaccion[3].valor = "@USING", r.e.VariablesGlobales = "DATA USING. MOVE ITAB-DATUM TO X."; },
             "Q323 program side, row 3, value"},
            {"a code with a hyphen", [](auto& r) { PonerCodigo(r, "F-02"); }, ""},
            {"15 characters", [](auto& r) { PonerCodigo(r, "ZVERY_LONG_CODE"); }, ""},
            {"16 characters", [](auto& r) { PonerCodigo(r, "ZVERY_LONG_CODES"); }, "Q306 program side, row 0, dynpro"},
            {"a name space", [](auto& r) { PonerCodigo(r, "/ABC/X"); }, "Q307 program side, row 0, dynpro"},
            {"an apostrophe in a code", [](auto& r) { PonerCodigo(r, "A'B"); }, "Q328 program side, row 0, dynpro"},
            {"a doubled one is text, but no name", [](auto& r) { PonerCodigo(r, "A''B"); }, "Q307 program side, row 0, dynpro"},
            {"in screens and fields",
             [](auto& r) {
                 r.e.TablaTransaccion[1] = {"P'", "1'"}, r.e.TablaTransaccion[2].campo = "A'B'",
                 r.e.TablaTransaccion[3].campo = "A''B";
             },
             "Q328 program side, row 1, program; Q328 program side, row 1, dynpro; Q328 program side, row 2, field"},
            {"in a condition",
             [](auto& r) {
                 r.e.TablaCondiciones[0] = {"C'", "RESULT = YES."}, r.e.TablaTransaccion[2].campo = "A;C'";
             },
             "Q328 program side, row 2, field; Q328 conditions, row 0, name"},
            {"the condition of a constant of a BAPI",
             [](auto& r) {
                 r.PonerBAPI(), r.e.TablaTransaccion[4] = {"", "", "HEAD-D;COND", "'X'"}, r.PonerCondicion("GS = 'X'.");
             },
             "Q305 program side, row 4, field"}});
}

TEST_F(Reglas, OptionsKeepTheirLiterals) {
    Probar(*this, {{"a session's name", [](auto& r) { r.o.NombreManual = "A'B"; }, "Q312 option NombreManual"},
                   {"which is not used",
                    [](auto& r) { r.o.NombreManual = "A'B", r.o.CallTransaction = 1, r.o.SafeCallTransactionCheck = 0; }, ""},
                   {"that of the document", [](auto& r) { r.o.GeneracionAutomatica = true, r.documento = "IT'S.qor"; },
                    "Q312 option NombreManual"},
                   {"a default", [](auto& r) { r.o.ArchivoFuente = "it's"; }, "Q312 option ArchivoFuente"},
                   {"in a comment only", [](auto& r) { r.o.ArchivoFuente = "it's", r.o.FileParameterCh = 2; }, ""},
                   {"a doubled one", [](auto& r) { r.o.ArchivoFuente = "it''s"; }, ""},
                   {"of a table",
                    [](auto& r) {
                        r.PonerTabla(), r.Archivo({{"ORDERNO", "10"}, {"DATUM", "8"}, {"ITEM", "6"}}),
                            r.e.TablaTransaccion[2].valor = "ORDERNO", r.o.ArchivoFuente = "it''s";
                    },
                    "Q330 option ArchivoFuente"},
                   {"a step-loop's file", [](auto& r) { r.PonerStep(",ORDER", "'!30!4!51!65"); }, "Q312 program side, row 4, note"},
                   {"ids", [](auto& r) { r.PonerUnArchivo(), r.o.Identificadores = "H,'"; }, "Q312 option Identificadores"},
                   {"ids of several files", [](auto& r) { r.PonerStep(), r.o.Identificadores = "H,'"; }, ""},
                   {"the code for a blank", [](auto& r) { r.PonerCodigoDeBlanco(), r.o.SpaceCode = "'"; }, "Q312 option SpaceCode"},
                   {"a literal as number", [](auto& r) { r.PonerTablaDeErrores(), r.o.ProgID = "'1'"; }, ""},
                   {"half of one", [](auto& r) { r.PonerTablaDeErrores(), r.o.ProgID = "'1"; }, "Q312 option ProgID"},
                   {"a table without conventions", [](auto& r) { PonerTablaZ(r, "ZERRORS"); }, ""},
                   {"in a name space", [](auto& r) { PonerTablaZ(r, "/A/B_ERRORS"); }, ""},
                   {"no name", [](auto& r) { PonerTablaZ(r, "Z ERR"); }, "Q324 option TablaZ"},
                   {"17 characters", [](auto& r) { PonerTablaZ(r, "ZERRORS_ERRORS_E1"); }, "Q324 option TablaZ"},
                   {"SAP's own", [](auto& r) { PonerTablaZ(r, "MARA"); }, "Q324 option TablaZ"},
                   {"an underscore", [](auto& r) { PonerTablaZ(r, "ZE_RRORS"); }, "Q324 option TablaZ"},
                   {"not used", [](auto& r) { r.o.TablaZ = "MARA"; }, ""},
                   {"additions", [](auto& r) { PonerAdicion(r, "Encoding utf-8 IGNORING CONVERSION ERRORS MESSAGE A."); }, ""},
                   {"none", [](auto& r) { PonerAdicion(r, "NONE"); }, ""},
                   {"without a point", [](auto& r) { PonerAdicion(r, "ENCODING DEFAULT"); }, "Q310 setting EncodingAdditional"},
                   {"with a point in a text", [](auto& r) { PonerAdicion(r, "FILTER 'a.'"); }, "Q310 setting EncodingAdditional"},
                   {"no addition", [](auto& r) { PonerAdicion(r, "ENCODING LATIN."); }, "Q310 setting EncodingAdditional"},
                   {"not used", [](auto& r) { r.preferencias.AdicionesDataset = "X"; }, ""},
                   {"no character", [](auto& r) { r.e.OrigenForms = "* a\r\n* \x81", r.e.TablaTransaccion[2].nota = "\x9D\xE1"; },
                    "Q329 program side, row 2, note; Q329 forms of the data source, line 2"},
                   {"keys in one file under conventions",
                    [](auto& r) { r.PonerUnArchivo(), r.PonerStep(), r.preferencias.CheckActivateNamingConventions = 1; },
                    "Q325 setting CheckActivateNamingConventions"}});
}

std::string Palabras(std::size_t largo) {
    std::string texto;
    while (texto.size() < largo) texto += "WORD ";
    return texto.substr(0, largo);
}

TEST_F(Reglas, LinesKeepTheirMeaningWhenTheyAreWrapped) {
    const auto condicion = [](std::string texto) {
        return [texto = std::move(texto)](Reglas& r) {
            r.PonerCondicion(texto);
            r.e.TablaTransaccion[1].dynpro = "101;COND";
        };
    };
    const auto conversion = [](std::string texto) {
        return [texto = std::move(texto)](Reglas& r) { r.e.TablaArchivo[0].conversion = texto; };
    };
    const auto global = [](std::string texto) { return [texto = std::move(texto)](Reglas& r) { r.e.VariablesGlobales = texto; }; };
    const auto source = [](std::string texto) {
        return [texto = std::move(texto)](Reglas& r) {
            r.e.OrigenUsuario = true;
            r.e.OrigenSource = texto;
        };
    };
    const auto llamada = [](std::string texto) {
        return [texto = std::move(texto)](Reglas& r) {
            r.PonerBAPI();
            r.e.TablaBAPIs[0].llamada = texto;
            r.e.TablaBAPIs[1] = {"BAPI_Y", texto};
        };
    };
    const std::string letras(80, 'A');
    // In the first line of a text one character more fits in than in the others.
    Probar(
        *this,
        {{"51 characters fit in", condicion("X = '" + Palabras(44) + "'."), ""},
         {"in the first line only", condicion("A.\r\nX = '" + Palabras(44) + "'."), "Q308 conditions, row 0, text, line 2"},
         {"broken outside of literals", condicion("X = 'A' AND " + Palabras(45) + " 'B B'."), ""},
         {"a literal", condicion("IF A = '" + Palabras(60) + "'."), "Q308 conditions, row 0, text, line 1"},
         {"an unclosed one is another fault", condicion("IF A = '" + Palabras(60)), ""},
         {"an apostrophe in a literal", condicion("A = 'IT''S" + Palabras(44) + "'."), "Q308 conditions, row 0, text, line 1"},
         {"a comment behind code", condicion("A = B. \"" + Palabras(60)), "Q308 conditions, row 0, text, line 1"},
         {"broken in front of it", condicion(Palabras(43) + ". \"" + letras.substr(0, 20)), ""},
         {"a comment that goes on", condicion("A = B. \"" + letras.substr(0, 40) + " \"" + letras.substr(0, 20)), ""},
         {"a comment with a star", condicion("A = B.\r\n* C"), "Q309 conditions, row 0, text, line 2"},
         {"a long word", condicion("A.\r\nB = " + letras + letras + "."), "Q308 conditions, row 0, text, line 2"},
         {"a line end of one character", condicion("A.\rB."), "Q308 conditions, row 0, text, line 2"},
         {"a comment of a conversion", conversion("* " + Palabras(40) + "\r\n* " + Palabras(60)),
          "Q308 file side, row 0, conversion, line 2"},
         {"a product", conversion("#ORDER = " + letras.substr(0, 41) + " * B."), "Q308 file side, row 0, conversion, line 1"},
         {"a pair", conversion("@ 'AAAAAAAAAAAAAAAAAAAAAAAA' '" + Palabras(30) + "'"), "Q308 file side, row 0, conversion, line 1"},
         {"a pair with blanks behind it", conversion("@ 'A' 'B'" + std::string(60, ' ')), ""},
         {"declarations have 71", global("DATA A. \"" + Palabras(62)), ""},
         {"and no more", global("\r\nDATA A. \"" + Palabras(63)), "Q308 global definitions, line 2"},
         {"a rule of a comment", global("A.\r\n*" + letras), "Q308 global definitions, line 2"},
         {"a source has 69",
          source("\" MOVE ITAB-A TO B. " + Palabras(48) + "\r\nA = '" + Palabras(80) + "'.\r\n* A\r\n*\r\n  * B"),
          "Q309 code of the data source, line 3; Q309 code of the data source, line 4; Q308 code of the data source, line 2"},
         {"another source", [](auto& r) { r.e.OrigenSource = "* A"; }, ""},
         {"a call that is made", llamada("CALL.\r\n  RETURN = '" + Palabras(80) + "'."), "Q308 BAPIs, row 0, call text, line 2"}});
}

TEST_F(Reglas, StepLoopsSendWhatIsMeant) {
    Probar(
        *this,
        {{"nothing wrong", [](auto& r) { r.PonerStep(); }, ""},
         {"of a table",
          [](auto& r) {
              r.PonerTabla(), r.Archivo({{"ORDERNO", "10"}, {"DATUM", "8"}, {"ITEM", "6"}}),
                  r.e.TablaTransaccion[2].valor = "ORDERNO", r.PonerStep(",ORDERNO");
          },
          "Q401 program side, row 4, note"},
         {"that the user empties",
          [](auto& r) {
              r.PonerTabla(), r.Archivo({{"ORDERNO", "10"}, {"DATUM", "8", "CLEAR: ITABSL_1, ITABSL_1[]."}, {"ITEM", "6"}});
              r.e.TablaTransaccion[2].valor = "ORDERNO", r.PonerStep(",ORDERNO");
          },
          ""},
         {"marks that can't be read", [](auto& r) { r.PonerStep(), r.e.TablaTransaccion[4].nota = "!2items!1 1"; }, ""},
         {"one OK code only",
          [](auto& r) {
              r.PonerStep(), r.e.TablaTransaccion[6] = {"", "", "VBAK-X", "' '"};
          },
          "Q403 program side, row 4, note"},
         {"the second one has a condition",
          [](auto& r) { r.PonerStep(), r.e.TablaTransaccion[6].campo = "BDC_OKCODE;COND", r.PonerCondicion("A."); }, ""},
         {"the second one is of another screen",
          [](auto& r) {
              r.PonerStep(), r.e.TablaTransaccion[7] = r.e.TablaTransaccion[6], r.e.TablaTransaccion[6] = {"SAPMV45A", "102"};
          },
          "Q403 program side, row 4, note"},
         {"the page has a condition",
          [](auto& r) {
              r.PonerStep(), r.e.TablaTransaccion[5].campo = "BDC_OKCODE;COND", r.e.TablaTransaccion[6] = {},
                             r.PonerCondicion("A.");
          },
          "Q410 program side, row 5, field"},
         {"part of a key",
          [](auto& r) { r.PonerStep(",XDATUM"), r.e.TablaArchivo[0].campo = r.e.TablaTransaccion[2].valor = "XDATUM"; },
          "Q404 program side, row 4, note"},
         {"both are keys",
          [](auto& r) { r.PonerStep(",XDATUM,DATUM"), r.e.TablaArchivo[0].campo = r.e.TablaTransaccion[2].valor = "XDATUM"; }, ""},
         {"one row", [](auto& r) { r.PonerStep(",ORDER", "!30!4!50!61"); }, "Q421 program side, row 4, note"},
         {"one row that is the first", [](auto& r) { r.PonerStep(",ORDER", "!30!4!51!61"); }, ""},
         {"one row on a screen of its own", [](auto& r) { r.PonerStep(",ORDER", "!31!4!50!61"); }, ""},
         {"a key that is changed",
          [](auto& r) { r.PonerStep(), r.e.TablaArchivo[1].conversion = "IF #ORDER = 'X'.\r\nSHIFT #ORDER(4) LEFT.\r\nENDIF."; },
          "Q417 file side, row 1, conversion, line 2"},
         {"a key that is read",
          [](auto& r) { r.PonerStep(), r.e.TablaArchivo[1].conversion = "CONCATENATE #ORDER 'A' INTO #DATUM."; }, ""},
         {"its pairs leave it", [](auto& r) { r.PonerStep(), r.e.TablaArchivo[0].conversion = "@ 'A' 'B'"; }, ""},
         {"code of a line", [](auto& r) { r.PonerStep(), r.e.TablaArchivo[2].conversion = "SHIFT ITABSL_1-ITEM."; },
          "Q409 file side, row 2, conversion"},
         {"code that is left out", [](auto& r) { r.PonerStep(), r.e.TablaArchivo[2].conversion = "@ 'A' 'B'\r\nSHIFT #DATUM."; },
          "Q409 file side, row 2, conversion"},
         {"that works on the main record", [](auto& r) { r.PonerStep(), r.e.TablaArchivo[2].conversion = "SHIFT #DATUM."; }, ""},
         {"its pairs", [](auto& r) { r.PonerStep(), r.e.TablaArchivo[2].conversion = "@ 'A' 'B'"; }, ""}});
}

TEST_F(Reglas, ValuesArriveAsTheyAre) {
    const auto variable = [](const char* declaracion, bool conCodigo = false) {
        return [=](Reglas& r) {
            r.e.VariablesGlobales = declaracion;
            r.e.TablaTransaccion[6] = {"", "", "VBAK-X", "@PLANT"};
            if (conCodigo) r.PonerCodigoDeBlanco();
        };
    };
    Probar(
        *this,
        {{"a constant", [](auto& r) { r.PonerCodigoDeBlanco(), r.e.TablaTransaccion[5].valor = "'$ '"; },
          "Q402 program side, row 5, value"},
         {"without the code", [](auto& r) { r.o.SpaceCode = "$", r.e.TablaTransaccion[5].valor = "'$'"; }, ""},
         {"a field sent twice",
          [](auto& r) {
              r.PonerCodigoDeBlanco(), r.e.TablaTransaccion[6] = {"", "", "X-Y", "ORDER"};
          },
          "Q402 program side, row 6, value"},
         {"too short for the code",
          [](auto& r) {
              r.PonerCodigoDeBlanco(), r.o.SpaceCode = "**********$", r.e.TablaTransaccion[6] = {"", "", "X-Y", "ORDER"};
          },
          ""},
         {"to a BAPI",
          [](auto& r) {
              r.PonerBAPI(), r.PonerCodigoDeBlanco(), r.e.TablaTransaccion[4] = {"", "", "HEAD-D", "ORDER"};
          },
          ""},
         {"a variable", variable("DATA: PLANT(4).", true), "Q402 program side, row 6, value"},
         {"set for each record",
          [&](auto& r) { variable("DATA: PLANT(4).", true)(r), r.e.TablaArchivo[0].conversion = "MOVE #ORDER(4) TO PLANT."; }, ""},
         {"read for each record",
          [&](auto& r) {
              variable("DATA: PLANT(4).", true)(r), r.e.TablaArchivo[0].conversion = "IF PLANT = 'X'.\r\nSHIFT #ORDER.\r\nENDIF.";
          },
          "Q402 program side, row 6, value"},
         {"an integer", variable("DATA: A TYPE C,\r\n  plant type i."), "Q420 program side, row 6, value"},
         {"digits", variable("PARAMETERS PLANT(4) TYPE N."), ""},
         {"digits and a code", variable("PARAMETERS PLANT(4) TYPE N.", true),
          "Q402 program side, row 6, value; Q420 program side, row 6, value"},
         {"132 characters", [](auto& r) { r.e.TablaArchivo[0].ancho = "132"; }, ""},
         {"133 characters", [](auto& r) { r.e.TablaArchivo[0].ancho = "133"; }, "Q422 program side, row 2, value"},
         {"in a BAPI", [](auto& r) { r.PonerBAPI(), r.e.TablaArchivo[0].ancho = "133"; }, ""}});
}

TEST_F(Reglas, OptionsAndSourcesGoTogether) {
    const auto condicion = [](const char* texto, bool deCampo = false) {
        return [=](Reglas& r) {
            r.preferencias.CheckActivateNamingConventions = 1;
            r.PonerCondicion(texto);
            (deCampo ? r.e.TablaTransaccion[2].campo : r.e.TablaTransaccion[0].dynpro) += ";COND";
        };
    };
    const auto fuente = [](const char* texto) {
        return [=](Reglas& r) {
            r.e.OrigenUsuario = true;
            r.e.OrigenSource = texto;
        };
    };
    Probar(
        *this,
        {{"a result that stays", condicion("IF A = B.\r\nGS_RESULT = GC_YES.\r\nENDIF."), "Q405 conditions, row 0, text"},
         {"another one that is set", condicion("LS_RESULT = GC_NO."), "Q405 conditions, row 0, text"},
         {"a result that is set", condicion("clear GS_RESULT.\r\nIF A = B.\r\nGS_RESULT = GC_YES.\r\nENDIF."), ""},
         {"that of a field", condicion("LS_RESULT = GC_YES.", true), ""},
         {"without conventions", [&](auto& r) { condicion("RESULT = YES.")(r), r.preferencias = Preferencias{}; }, ""},
         {"a structure RETURN", [](auto& r) { r.PonerBAPI("IMPORTING"), r.PonerTablaDeErrores(), r.o.CommitCheck = 0; },
          "Q406 program side, row 0, dynpro"},
         {"that nothing tests", [](auto& r) { r.PonerBAPI(); }, ""},
         {"a table RETURN, rolled back", [](auto& r) { r.PonerBAPI(), r.PonerTablaDeErrores(); },
          "Q406 program side, row 0, dynpro; Q419 option CommitCheck"},
         {"no RETURN", [](auto& r) { r.PonerBAPI("EXPORTING"), r.PonerTablaDeErrores(); }, ""},
         {"tabs on the server", [](auto& r) { r.o.ClienteOp = r.o.AnchoFijo = false; }, "Q408 option DelimTab"},
         {"of a table",
          [](auto& r) {
              r.PonerTabla(), r.o.AnchoFijo = false, r.Archivo({{"A", "1"}}),
                              r.Programa({{"TRANS", "X"}, {"P", "1"}, {"", "", "F", "A"}});
          },
          ""},
         {"a session and an error table", [](auto& r) { r.PonerTablaDeErrores(), r.o.SafeCallTransactionCheck = 1; },
          "Q411 option SafeCallTransactionCheck"},
         {"two operations",
          [](auto& r) {
              r.PonerTablaDeErrores(), r.e.TablaTransaccion[6] = {"TRANS", "VA02"};
          },
          "Q418 option ErrorHandlingCheck"},
         {"without an error table",
          [](auto& r) {
              r.e.TablaTransaccion[6] = {"TRANS", "VA02"};
          },
          ""},
         {"BAPIs that are rolled back",
          [](auto& r) {
              r.PonerBAPI("EXPORTING"), r.PonerTablaDeErrores(), r.e.TablaTransaccion[4] = {"BAPI", "BAPI_X"};
          },
          ""},
         {"a session in small letters", [](auto& r) { r.o.GeneracionAutomatica = true, r.documento = "materials.qor"; },
          "Q414 option NombreManual"},
         {"behind what is cut", [](auto& r) { r.o.NombreManual = "ORDERSORDERSx"; }, ""},
         {"no session", [](auto& r) { r.o.NombreManual = "x", r.o.CallTransaction = 1, r.o.SafeCallTransactionCheck = 0; }, ""},
         {"two files",
          fuente(
              "PERFORM R TABLES ITAB USING F CHANGING ERROR.\r\nIF ERROR = YES.\r\n  EXIT.\r\nENDIF.\r\nPERFORM R TABLES ITABSL_1 "
              "USING G CHANGING ERROR.\r\nIF ERROR = YES. EXIT. ENDIF."),
          "Q415 code of the data source, line 3; Q423 code of the data source, line 6"},
         {"a file of one's own", fuente("OPEN DATASET F.\r\nIF SY-SUBRC NE 0.\r\nEXIT.\r\nENDIF."),
          "Q415 code of the data source, line 3"},
         {"the end of its loop",
          fuente("OPEN DATASET F.\r\nDO.\r\nREAD DATASET F INTO ITAB.\r\nIF SY-SUBRC NE 0.\r\nEXIT.\r\nENDIF.\r\nENDDO."), ""},
         {"another end",
          fuente("PERFORM R TABLES ITAB CHANGING ERROR.\r\nIF ERROR = YES.\r\nSTOP.\r\nENDIF.\r\nIF A = B.\r\nEXIT.\r\nENDIF."),
          ""},
         {"not in use", [&](auto& r) { fuente("OPEN DATASET F. IF SY-SUBRC NE 0. EXIT. ENDIF.")(r), r.e.OrigenUsuario = false; },
          ""}});
}

TEST_F(Reglas, WhatNothingUsesIsTold) {
    const auto sinEnviar = [](const char* conversion) {
        return [=](Reglas& r) {
            r.e.TablaArchivo[1].conversion = conversion;
            r.e.TablaTransaccion[3].valor = "'1'";
        };
    };
    Probar(
        *this,
        {{"a field", sinEnviar(""), "Q601 file side, row 1, field"},
         {"a key", [&](auto& r) { sinEnviar("")(r), r.PonerStep(",DATUM"); }, ""},
         {"read by other code", [&](auto& r) { sinEnviar("")(r), r.e.TablaArchivo[0].conversion = "#ORDER = #datum."; }, ""},
         {"in a comment as a longer name", [&](auto& r) { sinEnviar("")(r), r.e.VariablesGlobales = "DATA XDATUM."; },
          "Q601 file side, row 1, field"},
         {"by the record as a whole", [&](auto& r) { sinEnviar("")(r), r.e.TablaArchivo[0].conversion = "PERFORM F USING ITAB."; },
          ""},
         {"by a source that is not in use", [&](auto& r) { sinEnviar("")(r), r.e.OrigenSource = "ITAB-DATUM = 1."; },
          "Q601 file side, row 1, field"},
         {"code for itself", sinEnviar("IF #DATUM = A.\r\n  SHIFT #DATUM(3).\r\nELSE.\r\n  CLEAR #DATUM.\r\nENDIF."),
          "Q603 file side, row 1, conversion"},
         {"a module for itself", sinEnviar("CALL FUNCTION 'X'\r\nEXPORTING INPUT = #DATUM\r\nIMPORTING OUTPUT = #DATUM."),
          "Q603 file side, row 1, conversion"},
         {"a module for something else", sinEnviar("CALL FUNCTION 'X'\r\nEXPORTING INPUT = #DATUM\r\nIMPORTING OUTPUT = A."), ""},
         {"pairs", sinEnviar("@ 'A' 'B'"), "Q601 file side, row 1, field; Q603 file side, row 1, conversion"},
         {"code for another field", sinEnviar("#ORDER = #DATUM."), ""},
         {"code for a variable", sinEnviar("A = #DATUM."), ""},
         {"any other code", sinEnviar("PERFORM F."), "Q601 file side, row 1, field"},
         {"a condition", [](auto& r) { r.PonerCondicion("A."); }, "Q602 conditions, row 0, name"},
         {"of a row", [](auto& r) { r.PonerCondicion("A."), r.e.TablaTransaccion[2].campo += ";COND"; }, ""},
         {"of the user's code",
          [](auto& r) {
              r.PonerCondicion("A."), r.e.TablaArchivo[0].conversion = "PERFORM COND_CHECK\r\nUSING 'COND' CHANGING A.";
          },
          ""},
         {"of code that asks for another",
          [](auto& r) { r.PonerCondicion("A."), r.e.TablaArchivo[0].conversion = "PERFORM COND_CHECK\r\nUSING 'CON' CHANGING A."; },
          "Q602 conditions, row 0, name"},
         {"of code that asks for any",
          [](auto& r) { r.PonerCondicion("A."), r.e.TablaArchivo[0].conversion = "PERFORM COND_CHECK USING B CHANGING A."; }, ""}});
}

TEST(Catalogue, SentencesTakeTheSameValuesInBothLanguages) {
    const auto ingles = TextosDe("English");
    const auto espanol = TextosDe("Espanol");
    int anterior = 0;
    for (const auto& tipo : TiposDeHallazgo()) {
        EXPECT_LT(anterior, tipo.codigo);
        anterior = tipo.codigo;
        for (int v = 0; v < tipo.variantes; ++v) {
            std::string puestos[2];
            for (const auto* textos : {&ingles, &espanol}) {
                const auto h = NuevoHallazgo(*textos, tipo.codigo, {}, "", {"<1>", "<{2}>", "<3>"}, v);
                EXPECT_TRUE(h.texto.ends_with('.') && !Contiene(h.texto, "\n") && !Contiene(h.texto, "?")) << h.texto;
                EXPECT_EQ(h.gravedad, tipo.gravedad);
                for (const char* valor : {"<1>", "<{2}>", "<3>"})
                    puestos[textos == &espanol] += Contiene(h.texto, valor) ? valor : "";
            }
            EXPECT_EQ(puestos[0], puestos[1]) << tipo.codigo << ", " << v;
        }
        EXPECT_THROW(NuevoHallazgo(ingles, tipo.codigo, {}, "", {}, std::max(1, tipo.variantes)), std::logic_error);
    }
    EXPECT_THROW(NuevoHallazgo(ingles, 319, {}, ""), std::logic_error);
}

// The text of a place is the cell's own.
TEST_F(Reglas, FindingsHoldTheTextOfTheirPlace) {
    PonerCondicion("A.\r\nX = '" + Palabras(60) + "'.\r\nB.");
    e.TablaTransaccion[1].dynpro = "101;COND";
    o.NombreManual = "A'";
    Hallar();
    ASSERT_EQ(hallazgos.size(), 2U);
    EXPECT_EQ(hallazgos[0].celda, "A'");
    EXPECT_EQ(hallazgos[0].texto, "The apostrophe in 'A'' ends a text of the report too early. Remove it from the option.");
    EXPECT_EQ(hallazgos[1].celda, "X = '" + Palabras(60) + "'.");
    EXPECT_EQ(TextoEnLugar(e, o, preferencias, Lugar::EnPreferencia("GSprefijo")), "GS_");
    EXPECT_EQ(TextoEnLugar(e, o, preferencias, Lugar::EnPrograma(2, 3)), "ORDER");
    EXPECT_EQ(TextoEnLugar(e, o, preferencias, Lugar::EnCondicion(0, 1, 9)), "");
}

}  // namespace
}  // namespace qor::pruebas
