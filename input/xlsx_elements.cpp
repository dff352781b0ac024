#include "input/xlsx_elements.h"

#include <algorithm>
#include <utility>

namespace qor {

namespace {

constexpr std::size_t bloque = std::size_t{1} << 17;
constexpr auto nada = std::string::npos;

bool EsDeNombre(char c) { return c != ' ' && c != '\t' && c != '\r' && c != '\n' && c != '/' && c != '>'; }

}  // namespace

PartidorDeElementos::PartidorDeElementos(std::function<std::size_t(char*, std::size_t)> traer,
                                         std::function<void(const std::string&)> fallar, std::string nombre, std::size_t maximo)
    : traer_(std::move(traer)), fallar_(std::move(fallar)), nombre_(std::move(nombre)), maximo_(maximo) {}

// One more piece. What isn't needed any more goes, and places move with it.
bool PartidorDeElementos::Llenar() {
    texto_.erase(0, inicio_);
    lugar_ -= inicio_;
    inicio_ = 0;
    const auto hasta = texto_.size();
    if (hasta > maximo_) fallar_("an element " + nombre_ + " has more than " + std::to_string(maximo_ >> 20) + " megabytes");
    texto_.resize(hasta + bloque);
    const auto leidos = traer_(texto_.data() + hasta, bloque);
    texto_.resize(hasta + leidos);
    if (!empezado_ && leidos > 0) {
        empezado_ = true;
        const std::string_view principio = std::string_view(texto_).substr(0, 2);
        if (principio == "\xFF\xFE" || principio == "\xFE\xFF") fallar_("a part is not in UTF-8");
    }
    return leidos > 0;
}

// Where a text begins at or behind a place, which is counted from `inicio_`; so is the answer.
std::size_t PartidorDeElementos::Buscar(std::string_view buscado, std::size_t desde) {
    for (;;) {
        const auto hallado = texto_.find(buscado, inicio_ + desde);
        if (hallado != nada) return hallado - inicio_;
        const auto mirados = texto_.size() - inicio_;
        desde = std::max(desde, mirados - std::min(mirados, buscado.size() - 1));
        if (!Llenar()) return nada;
    }
}

bool PartidorDeElementos::EsElNombre(std::size_t desde) const {
    auto hasta = desde;
    while (hasta < texto_.size() && EsDeNombre(texto_[hasta])) {
        if (texto_[hasta++] == ':') desde = hasta;
    }
    return std::string_view(texto_).substr(desde, hasta - desde) == nombre_;
}

// Finds the next mark and goes behind it. Outside of an element `inicio_` is where it begins.
bool PartidorDeElementos::BuscarMarca(Marca& marca) {
    for (;;) {
        const auto abre = texto_.find('<', lugar_);
        lugar_ = abre == nada ? texto_.size() : abre;
        if (!dentro_) inicio_ = lugar_;
        if (abre != nada) break;
        if (!Llenar()) return false;
    }
    const auto desde = lugar_ - inicio_;
    // Enough to know its kind.
    while (texto_.size() - inicio_ < desde + 9 && Llenar()) {
    }
    const auto resto = std::string_view(texto_).substr(inicio_ + desde);
    const std::string_view fin = resto.starts_with("<!--")        ? "-->"
                                 : resto.starts_with("<![CDATA[") ? "]]>"
                                 : resto.starts_with("<?")        ? "?>"
                                                                  : "";
    marca = Marca::Otra;
    if (!fin.empty()) {
        const auto hallado = Buscar(fin, desde + 2);
        if (hallado == nada) return false;
        lugar_ = inicio_ + hallado + fin.size();
        return true;
    }
    // A sign ">" in a value doesn't end the mark.
    char comilla = 0;
    std::size_t i = desde + 1;
    for (;; ++i) {
        if (inicio_ + i >= texto_.size() && !Llenar()) return false;
        const char c = texto_[inicio_ + i];
        if (comilla != 0) {
            if (c == comilla) comilla = 0;
        } else if (c == '"' || c == '\'') {
            comilla = c;
        } else if (c == '>') {
            break;
        }
    }
    lugar_ = inicio_ + i + 1;
    const auto nombre = inicio_ + desde + 1;
    if (texto_[nombre] == '/') {
        if (EsElNombre(nombre + 1)) marca = Marca::Cierra;
    } else if (EsElNombre(nombre)) {
        marca = texto_[lugar_ - 2] == '/' ? Marca::Sola : Marca::Abre;
    }
    return true;
}

char* PartidorDeElementos::Siguiente(std::size_t& largo) {
    dentro_ = false;
    inicio_ = lugar_;
    std::size_t hondo = 0;
    Marca marca{};
    while (BuscarMarca(marca)) {
        if (marca == Marca::Abre) {
            dentro_ = true;
            ++hondo;
        } else if (marca == Marca::Cierra && hondo > 0) {
            --hondo;
        } else if (marca != Marca::Sola) {
            continue;
        }
        if (hondo > 0) continue;
        largo = lugar_ - inicio_;
        return texto_.data() + inicio_;
    }
    if (dentro_ || lugar_ < texto_.size()) fallar_("a part ends in the middle");
    largo = 0;
    return nullptr;
}

}  // namespace qor
