// Any bytes as a document: it is read, in either format, or it ends in the failure that belongs to it. What was read comes back
// whole from a document written of it.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/failure.h"
#include "fuzz/require.h"
#include "model/document_format.h"

namespace {

using namespace qor;

struct Documento {
    Especificacion especificacion;
    Opciones opciones;
};

Formato LeerAlgunFormato(std::string_view texto, Documento& documento) {
    LectorValores lector(texto);
    if (LeerDocumento(lector, documento.especificacion, documento.opciones) == Formato::Actual) return Formato::Actual;
    documento = {};
    lector.VolverAlPrincipio();
    ImportarFormatoAntiguo(lector, documento.especificacion, documento.opciones);
    return Formato::Antiguo;
}

// The rows of two tables agree up to the first one whose columns `a` and `b` are both empty.
template <typename Tabla>
void ExigirMismasFilas(const Tabla& una, const Tabla& otra, std::size_t a, std::size_t b, std::size_t limite) {
    for (std::size_t fila = 0; fila < limite && !(una[fila][a].empty() && una[fila][b].empty()); ++fila) {
        Exigir(una[fila] == otra[fila], "a row of a table survives writing and reading");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    Documento leido;
    try {
        LeerAlgunFormato(texto, leido);
    } catch (const FalloDeEjecucion&) {
        return 0;
    }

    const std::string escrito = EscribirDocumento(leido.especificacion, leido.opciones);
    Documento otro;
    Exigir(LeerAlgunFormato(escrito, otro) == Formato::Actual, "a written document is one of the present format");
    const auto& una = leido.especificacion;
    const auto& otra = otro.especificacion;
    ExigirMismasFilas(una.TablaArchivo, otra.TablaArchivo, 0, 0, filasTabla);
    ExigirMismasFilas(una.TablaTransaccion, otra.TablaTransaccion, 0, 2, filasTabla);
    ExigirMismasFilas(una.TablaCondiciones, otra.TablaCondiciones, 0, 0, ultimaFila + 1);
    ExigirMismasFilas(una.TablaBAPIs, otra.TablaBAPIs, 0, 0, filasTablaBAPIs - 1);
    Exigir(EscribirDocumento(otra, otro.opciones) == escrito, "a document that is read and written stays the same");
    return 0;
}
