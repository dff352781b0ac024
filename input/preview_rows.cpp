#include "input/preview_rows.h"

#include <algorithm>
#include <limits>

#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

TramoDeLinea TramoEn(std::string_view linea, std::size_t desde, std::size_t largo) {
    desde = std::min(desde, linea.size());
    return {desde, SinBlancosDetras(linea.substr(desde, largo)).size()};
}

std::vector<TramoDeLinea> PartirPorTabuladores(const ClaseDeRegistro& clase, std::string_view linea) {
    std::vector<TramoDeLinea> tramos;
    std::size_t desde = 0;
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        if (desde > linea.size()) {
            tramos.push_back({linea.size(), 0});
            continue;
        }
        const auto hasta = std::min(linea.find('\t', desde), linea.size());
        tramos.push_back(TramoEn(linea, desde, hasta - desde));
        desde = hasta + 1;
    }
    tramos.push_back(TramoEn(linea, desde, std::string_view::npos));
    return tramos;
}

}  // namespace

std::vector<TramoDeLinea> PartirRegistro(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, std::string_view linea) {
    if (diseno.PorTabuladores()) return PartirPorTabuladores(clase, linea);
    std::vector<TramoDeLinea> tramos;
    for (const auto& campo : clase.campos) tramos.push_back(TramoEn(linea, campo.columna, campo.ancho));
    tramos.push_back(TramoEn(linea, clase.largo, std::string_view::npos));
    return tramos;
}

std::string TextoVisible(std::string_view bytes) {
    std::string texto;
    std::size_t desde = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (!EsInvisible(bytes[i])) continue;
        texto += AUtf8(bytes.substr(desde, i - desde));
        texto += bytes[i] == '\t' ? "\u2192" : "\uFFFD";
        desde = i + 1;
    }
    return texto + AUtf8(bytes.substr(desde));
}

int VentanaDeRegistros::MaximoDeBarra() const {
    return static_cast<int>(std::min<std::uint64_t>(UltimaPrimera(), std::numeric_limits<int>::max()));
}

std::uint64_t VentanaDeRegistros::PrimeraDe(int valor) const {
    const auto ultima = UltimaPrimera();
    const auto maximo = static_cast<std::uint64_t>(MaximoDeBarra());
    const auto buscado = static_cast<std::uint64_t>(std::max(valor, 0));
    if (ultima == maximo) return std::min(buscado, ultima);
    // Whole steps first, so that nothing overflows.
    const auto paso = ultima / maximo;
    return std::min(ultima, buscado * paso + buscado * (ultima % maximo) / maximo);
}

int VentanaDeRegistros::ValorDe(std::uint64_t primera) const {
    const auto ultima = UltimaPrimera();
    const auto maximo = static_cast<std::uint64_t>(MaximoDeBarra());
    primera = std::min(primera, ultima);
    if (ultima == maximo) return static_cast<int>(primera);
    return primera == ultima ? static_cast<int>(maximo)
                             : static_cast<int>(static_cast<long double>(primera) / static_cast<long double>(ultima) *
                                                static_cast<long double>(maximo));
}

std::uint64_t VentanaDeRegistros::PrimeraPara(std::uint64_t linea, std::uint64_t primera) const {
    if (linea + visibles < primera || linea >= primera + 2 * visibles) {
        primera = linea - std::min(linea, visibles / 2);
    } else if (linea < primera) {
        primera = linea;
    } else if (linea >= primera + visibles) {
        primera = linea - visibles + 1;
    }
    return std::min(primera, UltimaPrimera());
}

}  // namespace qor
