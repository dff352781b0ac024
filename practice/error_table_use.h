#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

// The error table that a report keeps failed records in, as its declarations tell: the name that TABLES declares and of which
// PROGID is used, and the length of LINE in the work table.
struct UsoDeTablaDeErrores {
    std::string nombre;
    std::uint32_t largoDeLinea = 0;
};

// Nothing where a report keeps none.
std::optional<UsoDeTablaDeErrores> BuscarTablaDeErrores(std::string_view reporte);

}  // namespace qor
