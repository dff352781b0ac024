#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "practice/value_lists.h"

namespace qor {

// A parameter of a BAPI, as the catalogue has it.
struct ParametroDeBapi {
    std::string nombre;
    bool opcional = false;
    char clase = 'I';  // I to the BAPI, E from it, T a table
    std::string tipo;  // TABLE-FIELD of a scalar, else a structure
};

// What a catalogue's text (bapi/catalogue.h) tells of calls. The text is looked through when the first BAPI is asked for.
class CatalogoDeLlamadas {
public:
    explicit CatalogoDeLlamadas(std::string texto = {}) : texto_(std::move(texto)) {}
    CatalogoDeLlamadas(const CatalogoDeLlamadas&) = delete;
    CatalogoDeLlamadas& operator=(const CatalogoDeLlamadas&) = delete;

    bool Tiene(std::string_view bapi) { return Buscar(bapi) != nullptr; }
    // In the order of the catalogue; none of a BAPI that it does not have.
    std::span<const ParametroDeBapi> Parametros(std::string_view bapi);
    std::span<const std::string_view> Documentacion(std::string_view bapi);

private:
    struct Entrada {
        std::vector<ParametroDeBapi> parametros;
        std::vector<std::string_view> documentacion;
    };

    const Entrada* Buscar(std::string_view bapi);
    void Leer();

    std::string texto_;
    bool leido_ = false;
    std::unordered_map<std::string, Entrada, HashDeTexto, std::equal_to<>> entradas_;
};

}  // namespace qor
