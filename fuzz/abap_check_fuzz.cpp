// Any bytes as a report: it is read to its end, and each fault lies where the report has a line and a word.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "abap/check/check.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

// The lines as the checker counts them.
std::vector<std::string_view> Partir(std::string_view texto) {
    std::vector<std::string_view> lineas;
    while (true) {
        const auto fin = texto.find_first_of("\r\n");
        lineas.push_back(texto.substr(0, fin));
        if (fin == std::string_view::npos) return lineas;
        texto.remove_prefix(fin + (texto.substr(fin).starts_with("\r\n") ? 2 : 1));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    const auto faltas = abap::RevisarReporte(texto);
    const auto lineas = Partir(texto);
    const int ultima = static_cast<int>(lineas.size());
    int antes = 0;
    for (const auto& falta : faltas) {
        Exigir(falta.linea >= std::max(antes, 1) && falta.linea <= ultima, "faults come in the order of their lines");
        Exigir(falta.sentencia >= 1 && falta.sentencia <= ultima, "a fault belongs to a statement");
        Exigir(falta.otraLinea >= 0 && falta.otraLinea <= ultima, "the other line is one of the report");
        const auto linea = lineas[static_cast<std::size_t>(falta.linea) - 1];
        Exigir(falta.columna >= 1 && static_cast<std::size_t>(falta.columna) <= linea.size(),
               "a fault points at a word of its line");
        antes = falta.linea;
    }
    return 0;
}
