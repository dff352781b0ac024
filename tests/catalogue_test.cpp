#include "bapi/catalogue.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "bapi/insertion.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "model/operations.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

const std::filesystem::path fuente = QOR_TEST_SOURCE_DIR;

ResultadoInsercion Insertar(VentanaDePrueba& prueba, const std::string& nombre) {
    return ElegirBAPI(
        prueba.documento, RutaDelModelo(fuente / "data/BAPI46C"), nombre, false, 0, [] { return std::optional(true); },
        prueba.textos, prueba.vista);
}

// A file field of ten characters for each value cell, all records in one file with an id for each.
void CompletarArchivo(VentanaDePrueba& prueba) {
    auto& e = prueba.ventana.documento.especificacion;
    std::set<std::string> campos;
    for (int r = 0; r < e.FilasTransaccion(); ++r) {
        const std::string& valor = e.TablaTransaccion[r].valor;
        if (valor.empty() || !campos.insert(valor).second) continue;
        e.TablaArchivo[campos.size() - 1] = {valor, "10", "", ""};
    }
    prueba.ventana.documento.opciones.MultipleFilesOption = false;
    for (int k = 0; k <= ContarStepLoops(e); ++k)
        prueba.ventana.documento.opciones.Identificadores += (k > 0 ? "," : "") + std::to_string(10 + k);
}

// Each BAPI of the catalogue that comes with the program, from its insertion to a report, which the ABAP parser reads.
TEST(Spread, EveryBAPIOfTheCatalogueGivesAReport) {
    const char* const pedido = std::getenv("QOR_SPREAD");
    const auto directorio =
        (pedido != nullptr ? std::filesystem::path(pedido) : std::filesystem::path(QOR_TEST_BINARY_DIR)) / "bapi";
    std::filesystem::create_directories(directorio);
    VentanaDePrueba lector;
    const auto catalogo = RecuperarDatosBAPIs(RutaDelModelo(fuente / "data/BAPI46C"), lector.textos, lector.vista);
    ASSERT_TRUE(catalogo);
    int bapis = 0;
    for (const auto& nodo : catalogo->nodos) {
        if (!nodo.esBAPI) continue;
        VentanaDePrueba prueba;
        EXPECT_EQ(Insertar(prueba, nodo.texto), ResultadoInsercion::Hecho) << nodo.texto;
        CompletarArchivo(prueba);
        auto& o = prueba.ventana.documento.opciones;
        o.Programa = RutaDelModelo(directorio / (nodo.texto + ".abap"));
        std::filesystem::remove(RutaDelSistema(o.Programa));
        for (const int numero : {504, 505}) prueba.textos.Poner(numero, "Text");
        EstadoDelGenerador estado;
        EXPECT_TRUE(Generar({prueba.ventana.documento.especificacion, o, {}, prueba.textos, prueba.vista, "", ""}, estado))
            << nodo.texto << prueba.vista.TomarAvisos();
        ++bapis;
    }
    EXPECT_GE(bapis, 40);
}

}  // namespace
}  // namespace qor::pruebas
