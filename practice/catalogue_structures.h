#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

// What a catalogue's text (bapi/catalogue.h) tells of business objects, function modules, parameters and structures. It is read
// when something is asked for first; names lie in the text.
namespace qor {

struct ParametroDeCatalogo {
    std::string_view nombre;
    bool opcional = false;
    char clase = 'I';       // I, E or T
    std::string_view tipo;  // a structure, or TABLE-FIELD
};

struct FuncionDeCatalogo {
    std::string_view objeto;
    std::string_view nombre;
    std::string_view texto;  // the first line of its documentation
    std::vector<ParametroDeCatalogo> parametros;
};

class EstructurasDeCatalogo {
public:
    explicit EstructurasDeCatalogo(std::string texto) : texto_(std::move(texto)) {}
    EstructurasDeCatalogo(const EstructurasDeCatalogo&) = delete;
    EstructurasDeCatalogo& operator=(const EstructurasDeCatalogo&) = delete;

    const std::vector<FuncionDeCatalogo>& Funciones();
    // The fields of each structure that has any.
    using Estructuras = std::map<std::string_view, std::vector<std::string_view>>;
    const Estructuras& LasEstructuras();
    const std::vector<std::string_view>* Campos(std::string_view estructura);  // null: not known

private:
    void Leer();

    std::string texto_;
    bool leido_ = false;
    std::vector<FuncionDeCatalogo> funciones_;
    Estructuras estructuras_;
};

}  // namespace qor
