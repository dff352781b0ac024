#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "practice/database.h"

// Tables of the practice system from files of comma-separated values, and back.
namespace qor {

struct TablaCargada {
    std::int64_t filas = 0;
    std::int64_t deOtroCliente = 0;  // rows that reports don't see
};

// Makes a table from a text of comma-separated values, as one unit of work: the head line names the columns, each of which is as
// wide as its widest value. A loaded table of that name goes; an error table takes the rows behind its own, by its key. Throws
// FalloDeEjecucion, with the line, where the text is faulty, and nothing is loaded then.
TablaCargada CargarTabla(BaseDePractica& base, std::string_view nombre, std::string_view texto);

// The same of a file; a fault is a FalloDeArchivo.
TablaCargada CargarTablaDeArchivo(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo);

// A table with its head line, by its key or in the order of loading, of all clients; windows-1252, each line with its end. Throws
// FalloDeEjecucion where there is no such table.
void EscribirTabla(BaseDePractica& base, std::string_view nombre, const std::function<void(std::string_view)>& linea);

}  // namespace qor
