#include "base/phrase.h"

namespace qor {

namespace {

bool EsLugar(std::string_view plantilla, std::size_t i) {
    return plantilla[i] == '%' && i + 1 < plantilla.size() && plantilla[i + 1] >= '1' && plantilla[i + 1] <= '9';
}

}  // namespace

std::string Llenar(std::string_view plantilla, const std::vector<std::string>& partes) {
    std::string texto;
    for (std::size_t i = 0; i < plantilla.size(); ++i) {
        if (!EsLugar(plantilla, i)) {
            texto += plantilla[i];
            continue;
        }
        const auto parte = static_cast<std::size_t>(plantilla[++i] - '1');
        if (parte < partes.size()) texto += partes[parte];
    }
    return texto;
}

std::string Frase::EnIngles() const {
    return En([](std::string_view ingles) { return std::string(ingles); });
}

std::optional<Frase> ReconocerFrase(std::string_view texto, const char* ingles) {
    std::vector<Frase> partes;
    const std::string_view plantilla = ingles;
    for (std::size_t i = 0; i < plantilla.size();) {
        if (!EsLugar(plantilla, i)) {
            if (texto.empty() || texto.front() != plantilla[i++]) return std::nullopt;
            texto.remove_prefix(1);
            continue;
        }
        i += 2;
        auto detras = i;
        while (detras < plantilla.size() && !EsLugar(plantilla, detras)) ++detras;
        const auto fijo = plantilla.substr(i, detras - i);
        const auto fin = fijo.empty() ? texto.size() : detras == plantilla.size() ? texto.rfind(fijo) : texto.find(fijo);
        if (fin == std::string_view::npos) return std::nullopt;
        partes.emplace_back(std::string(texto.substr(0, fin)));
        texto.remove_prefix(fin);
    }
    if (!texto.empty()) return std::nullopt;
    return Frase(ingles, std::move(partes));
}

}  // namespace qor
