#include "app/report_origins.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "findings/place_words.h"

namespace qor {

namespace {

// The journal's word for a table of the specification, or for what else a line comes from.
std::string TablaDeLugar(const Lugar& lugar) {
    constexpr std::string_view lado = " side";
    auto palabras = LadoDeLugar(lugar);
    if (palabras.ends_with(lado)) palabras.remove_suffix(lado.size());
    return std::string(palabras);
}

}  // namespace

Lugar OrigenesDelReporte::LugarDe(int linea) const {
    const auto detras = std::upper_bound(tramos_.begin(), tramos_.end(), linea - 1,
                                         [](int primera, const TramoDeOrigen& tramo) { return primera < tramo.primeraLinea; });
    if (linea < 1 || detras == tramos_.begin()) return {};
    return std::prev(detras)->lugar;
}

OrigenDeLinea OrigenesDelReporte::De(int linea) const {
    const Lugar lugar = LugarDe(linea);
    if (lugar.parte == Lugar::Parte::Ninguna) return {};
    return {{TablaDeLugar(lugar), lugar.fila, lugar.columna}, TextoDeLugar(lugar)};
}

}  // namespace qor
