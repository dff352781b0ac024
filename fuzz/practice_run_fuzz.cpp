// Any bytes as a document, and as its input: the report that is made of it runs to its end.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/failure.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/indifferent_view.h"
#include "fuzz/memory_file.h"
#include "fuzz/practised_report.h"
#include "generator/generate.h"
#include "model/document_format.h"

namespace {

using namespace qor;

bool Leer(std::string_view texto, Especificacion& especificacion, Opciones& opciones) {
    try {
        LectorValores lector(texto);
        return LeerDocumento(lector, especificacion, opciones) == Formato::Actual;
    } catch (const FalloDeEjecucion&) {
        return false;
    }
}

// The texts that a report takes from the language. None is empty.
const TextosIdioma& Textos() {
    static const TextosIdioma textos = [] {
        TextosIdioma nuevos;
        for (int n = 1; n <= TextosIdioma::ultimo; ++n) nuevos.Poner(n, "Text");
        return nuevos;
    }();
    return textos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    static ArchivoEnMemoria archivo;
    static Especificacion especificacion;
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    Vaciar(especificacion);
    Opciones opciones;
    if (!Leer(texto, especificacion, opciones)) return 0;
    archivo.Poner(datos, cantidad);

    VistaIndiferente vista;
    const Preferencias preferencias;
    try {
        const auto reporte = ComponerReporte({especificacion, opciones, preferencias, Textos(), vista, "/a/b.qor", "b.qor"});
        if (reporte) const CorridaCualquiera corrida(reporte->texto, archivo.Ruta());
    } catch (const FalloDeEjecucion&) {
        // The trap of the action tells it.
    }
    return 0;
}
