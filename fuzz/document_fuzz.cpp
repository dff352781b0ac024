// Any bytes as a document: it is read, in either format, or it ends in the failure that belongs to it. What was read comes back
// whole from a document written of it.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/require.h"
#include "model/document_format.h"

namespace {

using namespace qor;

struct Contenido {
    Especificacion especificacion;
    Opciones opciones;

    void Empezar() {
        Vaciar(especificacion);
        opciones = {};
    }
};

Formato LeerAlgunFormato(std::string_view texto, Contenido& documento) {
    LectorValores lector(texto);
    if (LeerDocumento(lector, documento.especificacion, documento.opciones) == Formato::Actual) return Formato::Actual;
    documento.Empezar();
    lector.VolverAlPrincipio();
    ImportarFormatoAntiguo(lector, documento.especificacion, documento.opciones);
    return Formato::Antiguo;
}

// The rows of two tables agree up to the first one without a name.
template <typename Fila, typename SinNombre>
void ExigirMismasFilas(const std::vector<Fila>& una, const std::vector<Fila>& otra, std::size_t limite, SinNombre sinNombre) {
    for (std::size_t fila = 0; fila < limite && !sinNombre(una[fila]); ++fila) {
        Exigir(una[fila] == otra[fila], "a row of a table survives writing and reading");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    static Contenido leido;
    static Contenido otro;
    leido.Empezar();
    otro.Empezar();
    try {
        LeerAlgunFormato(texto, leido);
    } catch (const FalloDeEjecucion&) {
        return 0;
    }

    const std::string escrito = EscribirDocumento(leido.especificacion, leido.opciones);
    Exigir(LeerAlgunFormato(escrito, otro) == Formato::Actual, "a written document is one of the present format");
    const auto& una = leido.especificacion;
    const auto& otra = otro.especificacion;
    ExigirMismasFilas(una.TablaArchivo, otra.TablaArchivo, filasTabla, [](const auto& f) { return f.campo.empty(); });
    ExigirMismasFilas(una.TablaTransaccion, otra.TablaTransaccion, filasTabla, [](const auto& f) { return f.SinNombres(); });
    ExigirMismasFilas(una.TablaCondiciones, otra.TablaCondiciones, ultimaFila + 1, [](const auto& f) { return f.nombre.empty(); });
    ExigirMismasFilas(una.TablaBAPIs, otra.TablaBAPIs, filasTablaBAPIs - 1, [](const auto& f) { return f.nombre.empty(); });
    Exigir(EscribirDocumento(otra, otro.opciones) == escrito, "a document that is read and written stays the same");
    return 0;
}
