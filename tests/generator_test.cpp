#include <gtest/gtest.h>

#include <functional>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/data_source_models.h"
#include "generator/generate.h"
#include "model/control_characters.h"
#include "sap/widths.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// A small specification that passes every check: one screen with a step-loop in page mode, its record in a file of its own.
struct Generador : testing::Test {
    DirectorioTemporal directorio;
    VentanaDePrueba prueba;
    Especificacion& e = prueba.ventana.documento.especificacion;
    Opciones& o = prueba.ventana.documento.opciones;
    Preferencias preferencias;
    std::string RutaDocumento = "/loads/orders.qor";
    bool bien = false;

    Generador() { Rehacer(); }

    void Rehacer() {
        e = Especificacion{};
        o = Opciones{};
        prueba.Archivo({"ORDER|10", "DATE|8", "ITEM|6"});
        prueba.Transaccion({"TRANS|VA01", "SAPMV45A|101", "||VBAK-VBELN|ORDER", "||VBAK-ERDAT|DATE", "SAPMV45A|4001",
                            "||VBAP-POSNR(1)|ITEM|Items!1 1!2items.txt!30!4!51!65!7,ORDER", "||BDC_OKCODE|'/00'"});
        e.TablaCondiciones[0] = {"COND", "RESULT = YES."};
        o.Programa = RutaDelModelo(directorio / "report.abap");
        o.ArchivoFuente = "orders.txt";
    }

    std::string Generar() {
        EstadoDelGenerador estado;
        prueba.vista.TomarAvisos();
        std::error_code ignorado;
        std::filesystem::remove(RutaDelSistema(o.Programa), ignorado);
        bien = qor::Generar({e, o, preferencias, prueba.textos, prueba.vista, RutaDocumento, NombreDeRuta(RutaDocumento)}, estado)
                   .has_value();
        return std::filesystem::exists(RutaDelSistema(o.Programa)) ? LeerArchivo(RutaDelSistema(o.Programa)) : std::string();
    }
};

using Cambio = std::function<void(Generador&)>;

constexpr const char* sinClaves = "Items!1 1!2items.txt!30!4!51!65!7";

void PonerBAPI(Generador& g) {
    g.e.TablaTransaccion = std::vector<FilaDeTransaccion>(filasTabla);
    g.prueba.Transaccion({"BAPI|BAPI_X", "||HEAD-A|ORDER"});
    g.e.VariablesGlobales = "DATA: HEAD LIKE T.";
    g.e.TablaBAPIs[0] = {"BAPI_X", "CALL FUNCTION 'BAPI_X'\r\n     EXPORTING\r\n       HEAD = HEAD."};
}

// The faults that tests/report_test.cpp doesn't show one by one, in the order of the checks.
TEST_F(Generador, ChecksHaveTheirMessages) {
    const struct {
        const char* que;
        Cambio cambio;
        const char* avisos;
        bool hayArchivo;
    } casos[] = {
        {"nothing wrong", [](auto&) {}, "<323>", true},
        {"a gap behind row 0 is not seen",
         [](auto& g) {
             g.e = Especificacion{}, g.prueba.Archivo({"", "A|1"}), g.prueba.Transaccion({"TRANS|X"});
         },
         "<323>", true},
        {"too many ids", [](auto& g) { g.o.MultipleFilesOption = false, g.o.Identificadores = "1,2,3"; }, "<381> 2", false},
        {"a shorter id", [](auto& g) { g.o.MultipleFilesOption = false, g.o.Identificadores = "01,2"; }, "<380>", false},
        {"a field of a group behind it",
         [](auto& g) { g.prueba.PonerTransaccion(7, "P|2"), g.prueba.PonerTransaccion(8, "||F|ITEM"); }, "<367> ITEM.", false},
        {"no ids", [](auto& g) { g.o.MultipleFilesOption = false; }, "", false},
        {"no keys in files of their own", [](auto& g) { g.e.TablaTransaccion[5].nota = sinClaves; },
         "<378>\r\r<375>\r\r<376>\r\r<377>", false},
        {"an undeclared BAPI field", [](auto& g) { PonerBAPI(g), g.e.VariablesGlobales = "DATA:HEAD LIKE T."; }, "<386>: HEAD-A",
         false},
        {"both kinds of operation",
         [](auto& g) { PonerBAPI(g), g.prueba.PonerTransaccion(2, "TRANS|X"), g.prueba.PonerTransaccion(3, "P|1"); },
         "<390> <400> <323>", true},
        {"error handling of a session", [](auto& g) { g.o.ErrorHandlingCheck = 1, g.o.TablaZ = ""; }, "<391> <323>", true},
        {"no table", [](auto& g) { g.o.TablaCh = 1, g.o.ClienteOp = false, g.o.ArchivoFuente = " "; }, "<303>", false},
        {"no name of a condition", [](auto& g) { g.e.TablaTransaccion[1].dynpro = "101;"; }, "<368> 101.", false},
        {"the same on a field", [](auto& g) { g.e.TablaTransaccion[3].campo = "F;"; }, "<371> F.", false},
        {"a good one behind a bad one",
         [](auto& g) {
             g.e.TablaTransaccion[1] = {"SAPMV45A", "101;NONE", "X;COND", "ORDER", ""};
         },
         "<369> NONE <370> <323>", true},
        {"a group without a table",
         [](auto& g) { g.o.TablaCh = 1, g.o.ClienteOp = false, g.e.TablaTransaccion[5].nota = "!1 1!2 !30!4!51!65!7,ORDER"; },
         "<305> VBAP-POSNR(1)].", false},
        {"a group without a file",
         [](auto& g) { g.o.FileParameterCh = 0, g.e.TablaTransaccion[5].nota = "!1 1!2!30!4!51!65!7,ORDER"; },
         "<306> VBAP-POSNR(1)<307>", false},
        {"the file of a group comes before the values",
         [](auto& g) {
             g.o.FileParameterCh = 0, g.e.TablaTransaccion[5].nota = "!1 1!2!30!4!51!65!7,ORDER",
             g.e.TablaTransaccion[3].valor = "'";
         },
         "<306> VBAP-POSNR(1)<307>", false},
        {"a quote in a constant", [](auto& g) { g.e.TablaTransaccion[3].valor = "'a'b'"; }, "<310> 'a'b' <311>", false},
        {"half a constant", [](auto& g) { g.e.TablaTransaccion[3].valor = "'"; }, "<326>", false},
        {"an undeclared variable", [](auto& g) { g.e.TablaTransaccion[3].valor = "@LONGVARIABLE-X"; }, "<312> LONGVARI <313>",
         false},
        {"no width", [](auto& g) { g.e.TablaArchivo[1].ancho = ""; }, "<315> DATE", true},
        {"an empty group", [](auto& g) { g.e.TablaTransaccion[5].valor = "'1'"; }, "<316> VBAP-POSNR(1) <317> <323>", true},
        {"no dynpro", [](auto& g) { g.e.TablaTransaccion[1].dynpro = ""; }, "<318>", true},
        {"no value", [](auto& g) { g.e.TablaTransaccion[3].valor = ""; }, "<319>", true},
        {"a step-loop field in a condition", [](auto& g) { g.e.TablaCondiciones[0].texto = "#ITEM = 1."; }, "<320> COND.", true},
        {"a step-loop field in code", [](auto& g) { g.e.TablaArchivo[1].conversion = "#ITEM = 1."; }, "<321> DATE.", true},
        {"no OK code", [](auto& g) { g.prueba.PonerTransaccion(6, "||OTHER|'x'"); }, "<322> VBAP-POSNR(1)", true},
        {"a bad pair of values", [](auto& g) { g.e.TablaArchivo[1].conversion = "'a' @ "; }, "<326>", true},
        {"a worse pair of values", [](auto& g) { g.e.TablaArchivo[1].conversion = "'a' @ 'b' '"; }, "<372> <326>", true},
        {"no call of the BAPI", [](auto& g) { PonerBAPI(g), g.e.TablaBAPIs[0].nombre = "OTHER"; }, "<384> BAPI_X <385>", true},
        {"no RETURN", [](auto& g) { PonerBAPI(g), g.o.ErrorHandlingCheck = 1, g.o.ProgID = "1"; }, "BAPI_X <395>", true},
        {"a banner value too long", [](auto& g) { g.e.TablaTransaccion[0].dynpro = std::string(47, 'X'); }, "<326>", true},
        {"501 lines of a condition",
         [](auto& g) {
             for (int i = 0; i < 501; ++i) g.e.TablaCondiciones[0].texto += "\r\nx";
         },
         "<326>", true},
    };
    for (const auto& caso : casos) {
        Rehacer();
        caso.cambio(*this);
        const auto informe = Generar();
        EXPECT_EQ(prueba.vista.TomarAvisos(), caso.avisos) << caso.que;
        EXPECT_EQ(!informe.empty(), caso.hayArchivo) << caso.que;
        const std::string avisos = caso.avisos;
        EXPECT_EQ(bien, avisos.ends_with("<323>") || avisos.ends_with("<395>")) << caso.que;
    }
}

// A line break where no text box lets one in could begin a statement: nothing is made of the document, and nothing else is said.
TEST_F(Generador, ControlCharactersAreRefusedWithTheirPlace) {
    const struct {
        Cambio cambio;
        const char* aviso;
    } casos[] = {
        {[](auto& g) { g.e.TablaArchivo[1].campo = "A\nB"; }, "(0A) stands in the cell \"field\" in row 1 of the file side."},
        {[](auto& g) { g.e.TablaArchivo[1000].ancho = "1\x7F"; },
         "(7F) stands in the cell \"width\" in row 1000 of the file side."},
        {[](auto& g) { g.e.TablaTransaccion[0].dynpro = "X\r\n"; },
         "(0D) stands in the cell \"dynpro\" in row 0 of the program side."},
        {[](auto& g) { g.e.TablaTransaccion[2].valor = "'\t'"; },
         "(09) stands in the cell \"value\" in row 2 of the program side."},
        {[](auto& g) { g.e.TablaTransaccion[5].nota = "a\r\nb!1 1!2f\n!30!4!51!65!7,ORDER"; },
         "(0A) stands in the step-loop's file in row 5 of the program side."},
        {[](auto& g) { g.e.TablaTransaccion[5].nota = "!1 1!2f!30!4!51!65\n!7,ORDER"; },
         "(0A) stands in the step-loop's rows per screen in row 5 of the program side."},
        {[](auto& g) { g.e.TablaCondiciones[0].nombre += '\n'; }, "(0A) stands in the name in row 0 of the conditions."},
        {[](auto& g) { g.e.TablaBAPIs[2].nombre = std::string(1, '\0'); }, "(00) stands in the name in row 2 of the BAPIs."},
        {[](auto& g) { g.o.SpaceCode = "\x1F"; }, "(1F) stands in the option SpaceCode."},
        {[](auto& g) { g.o.NombreManual = "A\n"; }, "(0A) stands in the option NombreManual."},
    };
    for (const auto& caso : casos) {
        Rehacer();
        o.TablaZ = "";
        o.ErrorHandlingCheck = o.CallTransaction = 1;
        caso.cambio(*this);
        const std::string aviso = std::string("A control character ") + caso.aviso;
        EXPECT_EQ(Generar(), "");
        EXPECT_EQ(prueba.vista.TomarAvisos(), aviso);
        const auto pedido = PedidoDeGeneracion::De(prueba.documento, preferencias, prueba.textos, prueba.vista);
        EXPECT_FALSE(ChequearEspecificacion(pedido));
        EXPECT_EQ(ImprimirEstructuras(pedido).texto, "");
        EXPECT_FALSE(GenerarInfoCampos(prueba.documento, directorio / "widths", false, prueba.textos, prueba.vista));
        EXPECT_EQ(prueba.vista.TomarAvisos(), aviso + " " + aviso + " " + aviso);
        EXPECT_FALSE(std::filesystem::exists(directorio / "widths"));
    }
    // All of them are found, not only the first one.
    e.TablaArchivo[3].campo = "A\n";
    const auto hallados = BuscarCaracteresDeControl(e, o);
    ASSERT_EQ(hallados.size(), 2U);
    EXPECT_EQ(MensajeDe(hallados[0]).texto, "A control character (0A) stands in the cell \"field\" in row 3 of the file side.");

    Rehacer();
    e.TablaArchivo[1].conversion = "\t#DATE = 1.\r\n";
    e.TablaArchivo[1].nota = "one\r\ntwo";
    e.TablaTransaccion[2].nota = "one\r\n\ttwo";
    e.TablaCondiciones[0].texto = e.VariablesGlobales = "*\tone\r\n*\ttwo";
    o.Description = o.Notes = "one\r\ntwo";
    EXPECT_TRUE(Contiene(Generar(), "*\tone\r\n*\ttwo\r\n"));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<323>");
}

TEST_F(Generador, StopInTheOperationsLeavesWhatStandsInFront) {
    e.TablaTransaccion[3].valor = "";
    const auto informe = Generar();
    EXPECT_TRUE(informe.ends_with("         DYNPROTAB = BDC_TAB.\r\nENDFORM.\r\n"));
    EXPECT_EQ(prueba.vista.focos.back(), "Text5_0");
}

}  // namespace
}  // namespace qor::pruebas
