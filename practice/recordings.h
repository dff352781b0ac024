#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "practice/value_lists.h"

namespace qor {

// What recordings tell of a transaction: its screens, and the fields that occurred on each. Fields have no row numbers.
class TransaccionGrabada {
public:
    using Campos = ConjuntoDeTextos;

    // The fields of a screen; null where the screen does not occur. A screen that was recorded several times has them all.
    const Campos* Buscar(std::string_view programa, std::string_view dynpro) const;

    Campos& Agregar(std::string_view programa, std::string_view dynpro);

private:
    std::map<std::string, Campos, std::less<>> pantallas_;
};

// The transactions that recordings are at hand of.
class Grabaciones {
public:
    // Takes in the text of a recording or of a session file (sap/import.h has both forms), of any number of transactions. Answers
    // how many there were; 0: the text is none. Throws FalloDeEjecucion for a text that ends inside a field, or a screen without a
    // dynpro.
    int Agregar(std::string_view texto);

    const TransaccionGrabada* Buscar(std::string_view transaccion) const;

private:
    std::unordered_map<std::string, TransaccionGrabada> transacciones_;
};

}  // namespace qor
