#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// What a catalogue's text (bapi/catalogue.h) tells of business objects, function modules, parameters and structures. It is read
// when something is asked for first; names lie in the text.
namespace qor {

struct ParametroDeCatalogo {
    std::string_view nombre;
    bool opcional = false;
    char clase = 'I';       // I to the function, E from it, T a table
    std::string_view tipo;  // a structure, or TABLE-FIELD of a scalar
};

struct FuncionDeCatalogo {
    std::string_view objeto;
    std::string_view nombre;
    std::vector<std::string_view> documentacion;  // lines
    std::vector<ParametroDeCatalogo> parametros;

    // The first line of the documentation, where it is no longer than a short text of a system; the other lines stand behind it.
    std::string_view Texto() const;
    std::span<const std::string_view> LineasTrasElTexto() const;
};

class CatalogoDePractica {
public:
    explicit CatalogoDePractica(std::string texto = {}) : texto_(std::move(texto)) {}
    CatalogoDePractica(const CatalogoDePractica&) = delete;
    CatalogoDePractica& operator=(const CatalogoDePractica&) = delete;

    const std::vector<FuncionDeCatalogo>& Funciones();
    // It stands at another object before: it is the same function module, and the first one counts.
    bool EsDoble(const FuncionDeCatalogo& funcion) { return Buscar(funcion.nombre) != &funcion; }
    // Null where it is not known.
    const FuncionDeCatalogo* Buscar(std::string_view funcion);
    // None of a function that is not known.
    std::span<const ParametroDeCatalogo> Parametros(std::string_view funcion);

    // The fields of each structure that a parameter has; none where the catalogue does not tell them.
    using Estructuras = std::map<std::string_view, std::vector<std::string_view>>;
    const Estructuras& LasEstructuras();
    const std::vector<std::string_view>* Campos(std::string_view estructura);  // null: not told

private:
    void Leer();

    std::string texto_;
    bool leido_ = false;
    std::vector<FuncionDeCatalogo> funciones_;
    std::unordered_map<std::string_view, std::size_t> porNombre_;
    Estructuras estructuras_;
};

}  // namespace qor
