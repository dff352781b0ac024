// Any bytes as a BAPI catalogue: loaded, searched, and its BAPIs inserted into a specification.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "bapi/catalogue.h"
#include "bapi/insertion.h"
#include "bapi/search.h"
#include "base/failure.h"
#include "base/paths.h"
#include "bench/silent_view.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

// Refusals are expected here.
class VistaIndiferente : public VistaSilenciosa {
public:
    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override {}
};

const std::string& Archivo() {
    static const std::string ruta = (std::filesystem::temp_directory_path() / ("qor-fuzz-" + std::to_string(::getpid()))).string();
    return ruta;
}

void Insertar(const CatalogoBAPI& catalogo, const TextosIdioma& textos, Vista& vista) {
    Documento documento;
    int insertadas = 0;
    for (const auto& nodo : catalogo.nodos) {
        if (!nodo.esBAPI || ++insertadas > 3) continue;
        const int fila = documento.especificacion.PrimeraPosicionLibreTransaccion();
        if (fila > ultimaFila) return;
        try {
            ElegirBAPI(
                documento, Archivo(), nodo.texto, false, fila, [] { return std::optional(true); }, textos, vista);
        } catch (const FalloDeEjecucion&) {
            continue;
        }
        Exigir(documento.especificacion.TablaTransaccion[ultimaFila + 1].campo.empty(), "no row behind the last one");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    std::ofstream(Archivo(), std::ios::binary).write(reinterpret_cast<const char*>(datos), static_cast<std::streamsize>(cantidad));
    const TextosIdioma textos;
    VistaIndiferente vista;
    const auto catalogo = RecuperarDatosBAPIs(Archivo(), textos, vista);
    if (!catalogo) return 0;
    for (const auto& nodo : catalogo->nodos) {
        Exigir(!nodo.esBAPI || nodo.numero < catalogo->DescripcionesBAPI.size(), "every BAPI has its documentation");
    }
    for (const auto modo : {ModoDeBusqueda::SubCadena, ModoDeBusqueda::Palabras}) {
        BusquedaBAPI busqueda(*catalogo);
        busqueda.Empezar("A", modo);
        std::size_t hallazgos = 0;
        while (busqueda.Siguiente()) ++hallazgos;
        Exigir(hallazgos <= catalogo->nodos.size(), "a search passes each node once");
    }
    Insertar(*catalogo, textos, vista);
    return 0;
}
