#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// Cuts the elements of one name out of an XML text that comes in pieces, so that an XML parser can take them one at a time. Only
// one element and a piece are in memory. Prefixes of names are passed over.
class PartidorDeElementos {
public:
    // `traer` gives the next bytes of the text, in UTF-8, 0 at its end. `fallar` is called with what is wrong, and has to throw.
    // An element of more than `maximo` bytes is a failure.
    PartidorDeElementos(std::function<std::size_t(char*, std::size_t)> traer, std::function<void(const std::string&)> fallar,
                        std::string nombre, std::size_t maximo);

    // The next element with its marks; empty behind the last one. It may be changed, and lives until the next call.
    char* Siguiente(std::size_t& largo);

private:
    enum class Marca { Abre, Cierra, Sola, Otra };

    bool Llenar();
    std::size_t Buscar(std::string_view buscado, std::size_t desde);
    bool BuscarMarca(Marca& marca);
    bool EsElNombre(std::size_t desde) const;

    std::function<std::size_t(char*, std::size_t)> traer_;
    std::function<void(const std::string&)> fallar_;
    std::string nombre_;
    std::size_t maximo_;
    std::string texto_;       // from the place that is still needed
    std::size_t lugar_ = 0;   // what is in front of it was looked at
    std::size_t inicio_ = 0;  // of the mark that was found, or of the element that is open
    bool dentro_ = false;
    bool empezado_ = false;
};

}  // namespace qor
