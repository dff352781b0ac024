#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "base/files.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "tests/support/environment.h"
#include "tests/support/failing_calls.h"
#include "tests/support/parser_findings.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// One report for each combination of the choices that shape it most, with the other choices spread over them. They are compared
// by their checksums with the last ones that were taken over, so that no change goes unseen, and the ABAP parser reads them. They
// go into the directory that QOR_SPREAD names; without it into a directory of the test's own.
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
void PonerTransacciones(VentanaDePrueba& prueba, bool conClaves, const std::string& modo) {
    const std::string marcas = "note!1 1!2ITEMS!3" + modo + "!65!7" + (conClaves ? ",ORDERNO" : "");
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

// What holds for every report: line ends, comment boxes of one width, forms that open and close, and a form for each PERFORM.
void RevisarForma(const std::string& informe, int que) {
    std::set<std::string> formas;
    std::set<std::string> llamadas;
    bool dentro = false;
    for (const auto linea : PartirEnLineas(informe)) {
        const std::string palabra(AntesDe(Recortar(linea), ' '));
        const std::string nombre(AntesDe(AntesDe(DespuesDe(Recortar(linea), ' '), ' '), '.'));
        if (linea.starts_with("*") && linea.ends_with("*")) EXPECT_EQ(linea.size(), 71u) << que << ": " << linea;
        if (linea.starts_with("FORM ")) {
            EXPECT_FALSE(dentro) << que << ": " << linea;
            EXPECT_TRUE(formas.insert(nombre).second) << que << ": " << linea;
        }
        if (palabra == "FORM" || palabra == "ENDFORM.") dentro = palabra == "FORM";
        if (palabra == "PERFORM") llamadas.insert(nombre);
        if (palabra == "EXEC") llamadas.insert(std::string(AntesDe(DespuesDe(linea.substr(linea.find("PERFORMING")), ' '), '.')));
    }
    EXPECT_FALSE(dentro) << que;
    for (const auto& llamada : llamadas) EXPECT_TRUE(formas.contains(llamada)) << que << ": no form " << llamada;
    EXPECT_EQ(ReemplazarTodo(informe, "\r\n", "").find_first_of("\r\n{}"), std::string::npos) << que;
    EXPECT_TRUE(informe.ends_with("\r\n")) << que;
}

// A choice of `n` that depends on the number of a report and of the choice, and on nothing else.
int Reparto(int reporte, int eleccion, int n) {
    const auto mezcla = static_cast<std::uint32_t>(reporte * 40503 + eleccion * 9973 + 1) * 2654435761U;
    return static_cast<int>((mezcla >> 16) % static_cast<std::uint32_t>(n));
}

std::string Suma(std::string_view texto) {
    std::uint64_t suma = 14695981039346656037U;
    for (const char c : texto) suma = (suma ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return std::to_string(suma);
}

// The choices that the combinations leave open.
void PonerElResto(int reporte, Especificacion& e, Opciones& o, Preferencias& preferencias) {
    auto elegir = [reporte, eleccion = 0](int n) mutable { return Reparto(reporte, ++eleccion, n); };
    o.SafeCallTransactionCheck = elegir(2);
    o.Modo = "ANE"[elegir(3)];
    o.CommitCheck = elegir(2);
    o.GeneracionAutomatica = elegir(2) == 0;
    o.NombreManual = elegir(2) == 0 ? "MINE" : " ";
    o.SpaceCode = elegir(2) == 0 ? " $ " : "";
    o.AddF4 = elegir(2);
    o.DiaCheck = elegir(2), o.QORCheck = elegir(2), o.ArchivosCheck = elegir(2), o.TCodeCheck = elegir(2);
    if (o.FileParameterCh == 1 && !o.EntradaDeTabla()) o.ArchivoFuente = elegir(2) == 0 ? " " : "C:\\Orders.TXT";
    if (o.ClienteOp && o.MultipleFilesOption && !e.OrigenUsuario) o.AnchoFijo = elegir(2) == 0;
    if (elegir(2) == 0) preferencias.AdicionesDataset = "NONE";
    if (elegir(3) == 0) e.TablaArchivo[0].ancho = "300";
    if (elegir(3) == 0) e.TablaArchivo[0].conversion = "* why\r\n#ORDERNO = '2'.";
}

TEST(Spread, ReportsOfAllCombinationsAreWritten) {
    const char* const pedido = std::getenv("QOR_SPREAD");
    const std::filesystem::path directorio =
        pedido != nullptr ? std::filesystem::path(pedido) : std::filesystem::path(QOR_TEST_BINARY_DIR) / "spread";
    std::filesystem::create_directories(directorio);
    PonerVariable("SOURCE_DATE_EPOCH", "1100000000");
    const SinEsperarAlDisco disco;
    std::string sumas;
    constexpr int total = 3 * 4 * 2 * 2 * 2 * 2 * 2;
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
        if (operaciones != 1)
            PonerTransacciones(prueba, entrada != 1, (variante ? "1!4!5" : "0!4!5") + std::to_string(Reparto(n, 0, 2)));
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
        o.ProcesarTodoOpt = !variante;
        preferencias.OptionWS_UPLOAD = variante;
        o.ArchivoFuente = "ZORDERS";
        o.ErrorHandlingCheck = errores;
        o.ProgID = "12";
        o.ModeAsParameter = !variante;
        PonerElResto(n, e, o, preferencias);
        o.Programa = RutaDelModelo(directorio / ("spread" + std::to_string(n) + ".abap"));
        for (const int numero : {500, 501, 502, 503, 504, 505, 506, 507, 508, 514}) prueba.textos.Poner(numero, "Text");
        prueba.textos.Poner(509, "DEFINE NO_RETURN.");
        prueba.textos.Poner(510, "No test.");
        prueba.textos.Poner(511, "Add one.");
        prueba.textos.Poner(512, "END-OF-DEFINITION.");
        std::filesystem::remove(RutaDelSistema(o.Programa));
        EstadoDelGenerador estado;
        const std::string documento = "/a/" + std::string(n % 7 == 0 ? 50 : 1, 'x') + "/orders.qor";
        const auto generado = Generar({e, o, preferencias, prueba.textos, prueba.vista, documento, "orders.qor"}, estado);
        ASSERT_TRUE(generado) << n << prueba.vista.TomarAvisos();
        GuardarParaElParser(directorio, "spread" + std::to_string(n), *generado,
                            BuscarHallazgos({e, o, preferencias, prueba.textos, documento, "orders.qor"}));
        const std::string reporte = LeerArchivo(RutaDelSistema(o.Programa));
        RevisarForma(reporte, n);
        sumas += std::to_string(n) + " " + Suma(reporte) + "\n";
    }
    GuardarArchivo(directorio / "spread.txt", sumas);
    EXPECT_EQ(sumas, LeerArchivo(std::filesystem::path(QOR_TEST_SOURCE_DIR) / "tests/expected/spread.txt"))
        << "where a report is meant to be another one, take over " << directorio / "spread.txt";
}

}  // namespace
}  // namespace qor::pruebas
