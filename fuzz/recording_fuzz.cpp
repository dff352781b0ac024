// Any bytes as a recording or a session file, read into a specification that holds a row already; and as the rows of a queue entry.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/failure.h"
#include "base/files.h"
#include "fuzz/cleared_specification.h"
#include "fuzz/require.h"
#include "sap/import.h"
#include "sap/queue_choice.h"

namespace {

using namespace qor;

void Leer(std::string_view texto, int inicio) {
    static Especificacion especificacion;
    Vaciar(especificacion);
    especificacion.TablaTransaccion[0] = {"TRANS", "OLD", "", "", "note"};
    const auto antes = especificacion.TablaTransaccion[0];
    bool entera = true;
    try {
        LeerSesion(especificacion.TablaTransaccion, texto, inicio, [] {});
    } catch (const FalloDeEjecucion&) {
        entera = false;
    }
    Exigir(inicio == 0 || especificacion.TablaTransaccion[0] == antes, "rows in front of the import stay");
    for (int r = inicio; r < filasTabla; ++r) {
        const auto& [programa, dynpro, campo, valor, nota] = especificacion.TablaTransaccion[r];
        Exigir(nota.empty() || r == 0, "an import writes no notes");
        Exigir(valor.empty() || valor.front() == '\'', "every value is a constant");
        Exigir(!entera || valor.empty() || valor.back() == '\'', "constants are closed");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    Leer(texto, 0);
    Leer(texto, 998);

    const auto filas = PartirEnLineas(texto);
    const std::string registros = RegistrosDeCola({filas.begin(), filas.end()});
    Leer(registros, 1);
    return 0;
}
