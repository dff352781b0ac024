#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// A row of a recorded transaction: it opens a screen, or holds a field and its value. All but the value is in upper case.
struct FilaGrabada {
    std::string programa;  // of a screen
    std::string dynpro;
    bool abre = false;
    std::string campo;
    std::string valor;  // of BDC_SUBSCR the program in 40 columns, and behind it the number
};

struct TransaccionLeida {
    std::string codigo;
    std::vector<FilaGrabada> filas;
};

// Reads the text of a recording or of a session file (sap/import.h has both forms), of any number of transactions, and hands out
// each one. Throws FalloDeEjecucion for a text that ends inside a field, or a screen without a dynpro.
void LeerGrabacion(std::string_view texto, const std::function<void(const TransaccionLeida&)>& hacer);

}  // namespace qor
