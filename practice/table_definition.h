#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "abap/values/structure.h"

// Tables of the practice system as their definition tells.
namespace qor {

struct DefinicionDeTabla {
    enum class Clase : std::uint8_t {
        Cargada = 1,       // made from a CSV file: columns of characters, no key, rows in the order of the file
        DeErrores = 2,     // an error table
        DeDiccionario = 3  // as a dictionary file tells
    };

    Clase clase = Clase::Cargada;
    abap::Estructura estructura;
    int cliente = -1;    // the column of the client
    bool vista = false;  // its rows are those of another table
    int larga = -1;      // the column of which the one in front of it tells how many characters are kept

    bool TieneClave() const;
    int Columna(std::string_view nombre) const;  // -1: none
};

// The definition of an error table whose lines have that many characters.
DefinicionDeTabla DefinirTablaDeErrores(std::string_view nombre, std::uint32_t largoDeLinea);

// The client's column is the first one of that name.
void BuscarCliente(DefinicionDeTabla& tabla);

// Whether a name can be one of a table of the practice system: up to 30 letters, digits, "_" and "/", and no digit in front.
bool EsNombreDeTabla(std::string_view nombre);

}  // namespace qor
