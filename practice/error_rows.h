#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "practice/database.h"

// Rows of an error table from texts.
namespace qor {

// The row of a table whose columns have these texts; what is left out is initial, and the client that of the system. Nothing, with
// the reason, where a text does not fit its column.
struct FilaDeTextos {
    std::vector<abap::ValorDeBase> valores;
    std::string motivo;  // empty: it fits
};
FilaDeTextos LeerFila(const DefinicionDeTabla& tabla, std::span<const std::string> columnas, std::span<const std::string> textos,
                      const std::string& cliente);

}  // namespace qor
