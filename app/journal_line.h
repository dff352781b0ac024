#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// A value in a line of a journal. Texts are windows-1252; a number is kept as it was written.
struct ValorDeDiario {
    enum class Clase : std::uint8_t { Texto, Numero, Lista, Objeto };

    Clase clase = Clase::Texto;
    std::string nombre;  // of a member of an object
    std::string texto;
    std::vector<ValorDeDiario> partes;  // of a list or an object, in their order

    // A member; null where there is none.
    const ValorDeDiario* Buscar(std::string_view miembro) const;
    // The text of a member; empty where there is none.
    std::string_view TextoDe(std::string_view miembro) const;
    // The parts of a member; none where there is none.
    const std::vector<ValorDeDiario>& PartesDe(std::string_view miembro) const;
};

// An event; nothing for what is none.
std::optional<ValorDeDiario> LeerLineaDeDiario(std::string_view linea);

// A message of a transaction: "E 00 058 Entry ROHX does not exist".
std::string TextoDeMensajeDeDiario(const ValorDeDiario& mensaje);

}  // namespace qor
