#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bapi/catalogue.h"

namespace qor {

enum class ModoDeBusqueda {
    SubCadena,  // in the names of all nodes, business objects too
    Palabras    // all words in the documentation of a BAPI
};

// The words of a text: it is split at each single blank, into at most 100; further words take the place of the hundredth.
std::vector<std::string> SepararBuscar(std::string_view texto);

// A search that stops at each hit, in file order.
class BusquedaBAPI {
public:
    explicit BusquedaBAPI(const CatalogoBAPI& catalogo) : catalogo_(&catalogo) {}

    // A new text or mode: the next step starts from the first node.
    void Empezar(std::string_view texto, ModoDeBusqueda modo);

    // The next node that matches; nothing behind the last one, and the step after that starts anew.
    std::optional<std::size_t> Siguiente();

private:
    bool Coincide(const NodoBAPI& nodo) const;

    const CatalogoBAPI* catalogo_;
    std::string buscado_;
    ModoDeBusqueda modo_ = ModoDeBusqueda::SubCadena;
    std::vector<std::string> palabras_;
    std::size_t nodo_ = 0;
};

}  // namespace qor
