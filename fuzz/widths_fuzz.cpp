// Any bytes as a field-width file, for a file side of the names that it holds itself; as the declarations in which a type is
// sought; and as a source that is published.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/require.h"
#include "model/cells.h"
#include "model/declarations.h"
#include "sap/publish.h"
#include "sap/widths.h"

namespace {

using namespace qor;

constexpr std::size_t columnasABAP = 72;

void Llenar(std::string_view texto, const std::vector<std::string_view>& lineas) {
    static Especificacion especificacion;
    Vaciar(especificacion);
    auto& tabla = especificacion.TablaArchivo;
    for (std::size_t i = 0; i < lineas.size() && i < 50; ++i) {
        tabla[i].campo = Recortar(Tramo(lineas[i], 61, 30));
        if (i % 3 == 0) tabla[i].ancho = "7";
    }
    const auto antes = tabla;
    const bool lleno = LlenarAnchos(especificacion, texto);
    Exigir(lleno == (tabla != antes), "the answer tells whether a width was filled");
    for (std::size_t i = 0; i < tabla.size(); ++i) {
        Exigir(antes[i].ancho.empty() || tabla[i].ancho == antes[i].ancho, "a width that is there stays");
        Exigir(tabla[i].ancho.empty() || Numero(tabla[i].ancho) > 0, "a width that is filled is a number");
        Exigir(tabla[i].campo == antes[i].campo, "names stay");
    }
}

void BuscarTipo(std::string_view texto) {
    try {
        const auto tipo = BuscarTipoVariable(PartirLineas(texto, 71), "A");
        Exigir(tipo.empty() || Contiene(Mayusculas(texto), "DATA: A LIKE "), "a type comes from a declaration");
    } catch (const FalloDeEjecucion&) {
        // Too many lines.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    const auto lineas = PartirEnLineas(texto);
    Llenar(texto, lineas);
    BuscarTipo(texto);
    try {
        Exigir(ReporteDeAnchos(lineas).size() == 12 + 3 * lineas.size(), "every line is asked for");
    } catch (const FalloDeEjecucion&) {
        Exigir(std::any_of(lineas.begin(), lineas.end(), TieneControl), "only control characters are refused");
    }

    const auto publicacion = ComponerPublicacion(texto, "ZLOAD");
    const auto larga = [](const auto& linea) { return linea.size() > columnasABAP; };
    Exigir(std::none_of(publicacion.lineas.begin(), publicacion.lineas.end(), larga), "statements fit into a line of source");
    Exigir(publicacion.Recortado == std::any_of(lineas.begin(), lineas.end(), larga), "a cut line is told");
    return 0;
}
