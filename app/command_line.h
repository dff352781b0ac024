#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace qor {

// Exit statuses of qorgen.
constexpr int estadoBien = 0;
constexpr int estadoRechazado = 1;  // refused or failed; a message says why
constexpr int estadoMalUso = 2;     // the arguments are wrong; the usage is on the error stream

// Runs one command of qorgen. `argumentos` are those behind the program's name, in UTF-8.
int EjecutarQorgen(const std::vector<std::string>& argumentos, std::ostream& salida, std::ostream& errores);

}  // namespace qor
