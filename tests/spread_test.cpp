#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "base/paths.h"
#include "generator/generate.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// One report for each combination of the choices that shape it, for the ABAP parser to read. They go into the directory that
// QOR_SPREAD names; without it into a directory of the test's own, and then only the generation itself is tested.
struct Combinacion {
    int indice = 0;

    // The next choice among `n`.
    int Elegir(int n) {
        const int elegido = indice % n;
        indice /= n;
        return elegido;
    }
};

// Two operations with a step-loop, conditions on each level, pairs and code, of transactions or of BAPIs or of both.
void PonerTransacciones(VentanaDePrueba& prueba, bool conClaves, const char* modo) {
    const std::string marcas = "note!1 1!2ITEMS!3" + std::string(modo) + "!4!50!65!7" + (conClaves ? ",ORDERNO" : "");
    prueba.Transaccion({"TRANS|VA01;COND", "SAPMV45A|101", "||VBAK-VBELN|ORDERNO", "||VBAK-VKORG;COND|@P_VKORG",
                        "||BDC_OKCODE|'/00'", "SAPMV45A|4001;COND"});
    prueba.PonerTransaccion(6, "||VBAP-POSNR(1)|ITEM|" + marcas);
    prueba.PonerTransaccion(7, "||VBAP-MATNR(1);COND|MATERIAL");
    prueba.PonerTransaccion(8, "||VBAP-WERKS(1)|'0001'");
    prueba.PonerTransaccion(9, "||BDC_OKCODE|'/00'");
}

void PonerBAPI(VentanaDePrueba& prueba, int fila, bool conReturn) {
    prueba.PonerTransaccion(fila, "BAPI|BAPI_SOMETHING_WITH_A_LONG_NAME");
    prueba.PonerTransaccion(fila + 1, "||HEAD-DOC_TYPE|KIND");
    prueba.PonerTransaccion(fila + 2, "||HEAD-VERY_LONG_FIELD_NAME_OF_HEAD|ANOTHER_RATHER_LONG_FIELD_NAME");
    prueba.PonerTransaccion(fila + 3, "||HEAD-SALES_ORG;COND|KIND");
    prueba.ventana.documento.especificacion.TablaBAPIs[0] = {
        "BAPI_SOMETHING_WITH_A_LONG_NAME",
        "CALL FUNCTION 'BAPI_SOMETHING_WITH_A_LONG_NAME'\r\n     EXPORTING\r\n       HEAD = HEAD" +
            std::string(conReturn ? "\r\n     TABLES\r\n       RETURN = RETURN." : ".")};
}

TEST(Spread, ReportsOfAllCombinationsAreWritten) {
    const char* const pedido = std::getenv("QOR_SPREAD");
    const std::filesystem::path directorio =
        pedido != nullptr ? std::filesystem::path(pedido) : std::filesystem::path(QOR_TEST_BINARY_DIR) / "spread";
    std::filesystem::create_directories(directorio);
    constexpr int total = 3 * 4 * 2 * 2 * 2 * 2 * 2;
    int escritos = 0;
    for (int n = 0; n < total; ++n) {
        Combinacion c{n};
        VentanaDePrueba prueba;
        auto& e = prueba.ventana.documento.especificacion;
        auto& o = prueba.ventana.documento.opciones;
        Preferencias preferencias;
        const int operaciones = c.Elegir(3);  // transaction, BAPI, both
        const int entrada = c.Elegir(4);      // files, one file, table, own source
        const bool errores = c.Elegir(2) == 1;
        o.CallTransaction = c.Elegir(2);
        preferencias.CheckActivateNamingConventions = c.Elegir(2);
        const bool variante = c.Elegir(2) == 1;  // server, new screens, no RETURN, chosen fields, WS_UPLOAD
        o.FileParameterCh = c.Elegir(2);

        prueba.Archivo({"ORDERNO|10", "ITEM|6", "MATERIAL|18", "KIND|4", "ANOTHER_RATHER_LONG_FIELD_NAME|30"});
        e.TablaArchivo[3].conversion = "'A' @ 'OR'\r\nTRANSLATE #KIND TO UPPER CASE.";
        e.TablaArchivo[2].conversion = "'1' @ 'ONE'";
        const std::string resultado = preferencias.CheckActivateNamingConventions == 1 ? "LS_RESULT = GC_YES." : "RESULT = YES.";
        e.TablaCondiciones[0] = {"COND", "IF #ORDERNO NE SPACE.\r\n  " + resultado + "\r\nENDIF."};
        e.VariablesGlobales =
            "PARAMETERS: P_VKORG(4).\r\nDATA: HEAD LIKE BAPISDHEAD.\r\nDATA: RETURN LIKE BAPIRET2 OCCURS 0 WITH HEADER LINE.";
        if (operaciones != 1) PonerTransacciones(prueba, entrada != 1, variante ? "1" : "0");
        if (operaciones != 0) PonerBAPI(prueba, operaciones == 1 ? 0 : 10, !variante);
        if (entrada == 1) {
            o.MultipleFilesOption = false;
            o.Identificadores = "H,I";
        } else if (entrada == 2) {
            o.TablaCh = 1;
            o.ClienteOp = false;
        } else if (entrada == 3) {
            e.OrigenUsuario = true;
            e.OrigenSource = "PERFORM FILL.";
            e.OrigenForms = "FORM FILL.\r\nENDFORM.";
        }
        if (variante && entrada < 2) o.ClienteOp = false;
        o.AddF4 = 1;
        o.ProcesarTodoOpt = !variante;
        o.SpaceCode = "$";
        preferencias.OptionWS_UPLOAD = variante;
        o.ArchivoFuente = "ZORDERS";
        o.ErrorHandlingCheck = errores;
        o.ProgID = "12";
        o.ModeAsParameter = !variante;
        o.Programa = RutaDelModelo(directorio / ("spread" + std::to_string(n) + ".abap"));
        for (const int numero : {500, 501, 502, 503, 504, 505, 506, 507, 508, 514}) prueba.textos.Poner(numero, "Text");
        prueba.textos.Poner(509, "DEFINE NO_RETURN.");
        prueba.textos.Poner(510, "No test.");
        prueba.textos.Poner(511, "Add one.");
        prueba.textos.Poner(512, "END-OF-DEFINITION.");
        std::filesystem::remove(RutaDelSistema(o.Programa));
        EstadoDelGenerador estado;
        escritos += Generar({e, o, preferencias, prueba.textos, prueba.vista, "/a/orders.qor", "orders.qor"}, estado) ? 1 : 0;
    }
    EXPECT_EQ(escritos, total);
}

}  // namespace
}  // namespace qor::pruebas
