#include "input/convert.h"

#include <algorithm>

namespace qor {

std::string NombreDeHoja(const ClaseDeRegistro& clase) {
    return clase.grupo == 0 ? "FILE" : "SLOOP_" + std::to_string(clase.grupo);
}

bool ConNumero(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase) {
    return std::any_of(diseno.Archivos().begin(), diseno.Archivos().end(), [&](const ArchivoDeEntrada& archivo) {
        return archivo.clases.size() > 1 && std::any_of(archivo.clases.begin(), archivo.clases.end(), [&](int lugar) {
                   return &diseno.Clases()[static_cast<std::size_t>(lugar)] == &clase;
               });
    });
}

std::vector<std::string> Titulos(const ClaseDeRegistro& clase, bool conNumero) {
    std::vector<std::string> titulos;
    if (conNumero) titulos.emplace_back(tituloDeNumero);
    for (const auto& campo : clase.campos) titulos.push_back(campo.nombre);
    return titulos;
}

}  // namespace qor
