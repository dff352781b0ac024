#include "bapi/search.h"

#include <algorithm>

#include "base/text.h"

namespace qor {

std::vector<std::string> SepararBuscar(std::string_view texto) {
    constexpr std::size_t maximo = 100;
    std::vector<std::string> palabras;
    const auto agregar = [&](std::string_view palabra) {
        if (palabras.size() == maximo) {
            palabras.back() = palabra;
        } else {
            palabras.emplace_back(palabra);
        }
    };
    for (auto blanco = texto.find(' '); blanco != std::string_view::npos; blanco = texto.find(' ')) {
        agregar(texto.substr(0, blanco));
        texto.remove_prefix(blanco + 1);
    }
    if (!EstaEnBlanco(texto)) agregar(texto);
    return palabras;
}

void BusquedaBAPI::Empezar(std::string_view texto, ModoDeBusqueda modo) {
    buscado_ = Recortar(texto);
    modo_ = modo;
    palabras_ = SepararBuscar(buscado_);
    nodo_ = 0;
}

std::optional<std::size_t> BusquedaBAPI::Siguiente() {
    if (buscado_.empty()) return std::nullopt;
    while (nodo_ < catalogo_->nodos.size()) {
        const std::size_t mirado = nodo_++;
        if (Coincide(catalogo_->nodos[mirado])) return mirado;
    }
    nodo_ = 0;
    return std::nullopt;
}

bool BusquedaBAPI::Coincide(const NodoBAPI& nodo) const {
    if (modo_ == ModoDeBusqueda::SubCadena) return Contiene(Mayusculas(nodo.texto), buscado_);
    if (!nodo.esBAPI || palabras_.empty()) return false;
    const std::string documentacion = Mayusculas(catalogo_->DescripcionesBAPI[nodo.numero]);
    return std::all_of(palabras_.begin(), palabras_.end(),
                       [&](const std::string& palabra) { return Contiene(documentacion, palabra); });
}

}  // namespace qor
