#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/data_source_models.h"
#include "generator/generate.h"
#include "model/naming.h"
#include "model/operations.h"
#include "model/record_layout.h"
#include "print/specification_print.h"
#include "print/text_device.h"
#include "tests/support/covering.h"
#include "tests/support/digest.h"
#include "tests/support/environment.h"
#include "tests/support/failing_calls.h"
#include "tests/support/made_specifications.h"
#include "tests/support/parser_findings.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

// What holds for every report: line ends, forms that open and close, and a form for each PERFORM.
void RevisarForma(const std::string& informe, const std::string& que) {
    std::set<std::string> formas;
    std::set<std::string> llamadas;
    bool dentro = false;
    for (const auto linea : PartirEnLineas(informe)) {
        const std::string palabra(AntesDe(Recortar(linea), ' '));
        const std::string nombre(AntesDe(AntesDe(DespuesDe(Recortar(linea), ' '), ' '), '.'));
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

// The fields of a record as the report declares them, with their widths.
std::string CamposDelInforme(const std::string& informe, const std::string& tabla) {
    std::string campos;
    bool dentro = false;
    for (const auto linea : PartirEnLineas(informe)) {
        const auto cortada = Recortar(linea);
        if (cortada.ends_with("BEGIN OF " + tabla + " OCCURS 0,")) dentro = true;
        if (cortada.starts_with("END OF")) dentro = false;
        if (dentro && cortada.ends_with("),") && !cortada.starts_with("DUMMY")) campos.append(cortada);
    }
    return campos;
}

// The checks of the input and the report have to read the same records.
void RevisarDiseno(const std::string& informe, Hecha& hecha, const std::string& que) {
    const DisenoDeRegistros diseno(hecha.Espec(), hecha.Opc());
    if (!diseno.HayArchivo()) return;
    const auto prefijo = SetearConvencionesDeNombres(hecha.preferencias).GTprefijo;
    for (int grupo = 0; grupo <= ContarStepLoops(hecha.Espec()); ++grupo) {
        std::string campos;
        std::size_t columna = diseno.Identificador(grupo).size();
        for (int f = 0; f < hecha.Espec().FilasArchivo(); ++f) {
            if (!diseno.Pertenece(f, grupo)) continue;
            const auto& fila = hecha.Espec().TablaArchivo[f];
            campos += fila.campo + "(" + fila.ancho + "),";
            EXPECT_EQ(diseno.SitioDe(f, grupo).columna, columna) << que << ": " << fila.campo;
            columna += diseno.SitioDe(f, grupo).ancho;
        }
        const std::string tabla = prefijo + "ITAB" + (grupo == 0 ? "" : "SL_" + std::to_string(grupo));
        EXPECT_EQ(campos, CamposDelInforme(informe, tabla)) << que << ": " << tabla;
    }
}

// Keeps the text for the table of errors as well.
struct VistaConTexto : VistaDePrueba {
    std::string texto;
    void MostrarTexto(const std::string& mostrado) override { texto = mostrado; }
};

// What the models of a data source write, one behind the other.
std::string ModelosDeOrigen(const PedidoDeGeneracion& pedido, Especificacion& especificacion) {
    const auto tablas = ImprimirEstructuras(pedido);
    const auto textos = TextosDe(especificacion);
    using enum FuenteDeModelo;
    for (const auto fuente : {Server, Server, ClientFlat, ClientTab}) {
        ModeloArchivo(pedido, textos, tablas.tablas.front(), fuente);
    }
    for (const auto& tabla : tablas.tablas) {
        ModeloOpenSQL(pedido, textos, tabla, tablas.texto);
        ModeloSQLNativo(pedido, textos, tabla, tablas.texto);
    }
    return textos.Variables + textos.Forms + textos.Source;
}

// The report part by part, what was said at its end, and what else is made of a document.
std::vector<Seccion> TodoDe(const PedidoDeGeneracion& pedido, const ReporteGenerado& reporte, VistaConTexto& vista,
                            Especificacion& especificacion) {
    auto secciones = PartirInforme(reporte.texto);
    secciones.push_back({"messages", vista.TomarAvisos() + vista.texto});
    secciones.push_back({"structures", ImprimirEstructuras(pedido).texto});
    DispositivoDeTexto papel;
    PrintOption(pedido, [&papel] { return &papel; });
    secciones.push_back({"print", papel.Texto()});
    secciones.push_back({"models", ModelosDeOrigen(pedido, especificacion)});
    return secciones;
}

// Every report of the made documents, with what is said at its end, the declarations that the user's own source sees, and the
// printed specification. They are compared with the last ones that were taken over, so that no change goes unseen. In the directory
// that QOR_SPREAD names, the ABAP parser reads them, and what the compiler finds in them.
TEST(Spread, ReportsOfAllCombinationsAreAsExpected) {
    const char* const paraElParser = std::getenv("QOR_SPREAD");
    PonerVariable("SOURCE_DATE_EPOCH", "1100000000");
    const SinEsperarAlDisco disco;
    const DirectorioTemporal directorio;
    Compendio compendio(std::filesystem::path(QOR_TEST_SOURCE_DIR) / "tests/expected/spread.txt",
                        std::filesystem::path(QOR_TEST_BINARY_DIR) / "spread_last.txt");
    std::vector<int> niveles;
    for (const auto& eleccion : EleccionesHechas()) niveles.push_back(static_cast<int>(eleccion.size()));
    niveles.push_back(4);  // the variants
    std::map<int, std::vector<std::vector<int>>> filas;
    for (const int fuerza : {2, 3}) filas[fuerza] = FilasQueCubren(niveles, fuerza);
    if (paraElParser != nullptr) std::filesystem::create_directories(paraElParser);
    int numero = 0;
    for (const auto& documento : DocumentosHechos()) {
        for (const auto& fila : filas.at(documento.fuerza)) {
            Hecha hecha;
            Llenar(hecha, documento, fila);
            const auto nombre = NombreDe(documento, fila);
            VistaConTexto vista;
            hecha.Opc().Programa = RutaDelModelo(directorio / std::to_string(++numero));
            const PedidoDeGeneracion pedido{hecha.Espec(), hecha.Opc(), hecha.preferencias,      hecha.prueba.textos,
                                            vista,         hecha.ruta,  NombreDeRuta(hecha.ruta)};
            EstadoDelGenerador estado;
            const auto reporte = Generar(pedido, estado);
            ASSERT_TRUE(reporte) << nombre << ": " << vista.TomarAvisos();
            EXPECT_EQ(LeerArchivo(estado.UltimoPrograma), reporte->texto) << nombre;
            RevisarForma(reporte->texto, nombre);
            RevisarDiseno(reporte->texto, hecha, nombre);
            if (paraElParser != nullptr) {
                GuardarParaElParser(paraElParser, "spread" + std::to_string(numero), *reporte,
                                    BuscarHallazgos({hecha.Espec(), hecha.Opc(), hecha.preferencias, hecha.prueba.textos,
                                                     hecha.ruta, NombreDeRuta(hecha.ruta)}));
            }
            compendio.Agregar(nombre, TodoDe(pedido, *reporte, vista, hecha.Espec()));
        }
    }
    const auto diferencias = compendio.Diferencias();
    EXPECT_TRUE(diferencias.empty()) << diferencias << "where it is meant to be so: QOR_UPDATE_EXPECTED=1 takes the reports over";
}

}  // namespace
}  // namespace qor::pruebas
