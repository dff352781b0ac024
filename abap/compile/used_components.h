#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "abap/key.h"

namespace qor::abap {

// Which components of the dictionary's structures a report names: V-C for each V that is declared as one. They are what is known of
// a structure that no dictionary has. In the order of the text, each once.
class ComponentesUsados {
public:
    explicit ComponentesUsados(std::string_view reporte);

    std::vector<std::string> De(std::string_view estructura) const;

private:
    struct Uso {
        Clave nombre = 0;
        std::string componente;  // upper case
    };
    std::vector<Uso> usos_;                                        // in the order of the text
    std::unordered_map<Clave, std::vector<Clave>> declarados_;     // names that are declared as a structure, by that
    std::unordered_map<Clave, std::vector<std::string>> propios_;  // components that a record declares beside INCLUDE, by its name
};

}  // namespace qor::abap
