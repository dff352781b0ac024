// Any bytes as a BAPI catalogue: read, searched, and its BAPIs inserted into a specification.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "bapi/catalogue.h"
#include "bapi/insertion.h"
#include "bapi/search.h"
#include "base/failure.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/indifferent_view.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

std::optional<CatalogoBAPI> Leer(std::string_view texto) {
    try {
        return LeerCatalogo(texto);
    } catch (const FalloDeEjecucion&) {
        return std::nullopt;
    }
}

// The first BAPIs, one behind the other, as the browser inserts them: those that are there already without their call.
void Insertar(std::string_view texto, const CatalogoBAPI& catalogo) {
    static Documento documento;
    const TextosIdioma textos;
    VistaIndiferente vista;
    auto& especificacion = documento.especificacion;
    Vaciar(especificacion);
    documento.deshacer = {};
    int insertadas = 0;
    for (const auto& nodo : catalogo.nodos) {
        if (!nodo.esBAPI || ++insertadas > 3) continue;
        const int fila = especificacion.PrimeraPosicionLibreTransaccion();
        if (fila > ultimaFila) return;
        const int indice = insertadas == 2 ? -1 : especificacion.FilasBAPIs();
        if (indice != -1) especificacion.TablaBAPIs[indice].nombre = nodo.texto;
        try {
            InsertarDeTexto(documento, texto, nodo.texto, indice, fila, insertadas != 3, textos, vista);
        } catch (const FalloDeEjecucion&) {
            continue;
        }
        Exigir(especificacion.TablaTransaccion[ultimaFila + 1].campo.empty(), "no row behind the last one");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    const auto catalogo = Leer(texto);
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
    Insertar(texto, *catalogo);
    return 0;
}
