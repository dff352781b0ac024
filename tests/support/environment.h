#pragma once

#include <stdlib.h>

#include <string>

namespace qor::pruebas {

// Sets a variable of the environment of this process; an empty value removes it.
inline void PonerVariable(const std::string& nombre, const std::string& valor) {
#ifdef _WIN32
    ::_putenv_s(nombre.c_str(), valor.c_str());
#else
    if (valor.empty())
        ::unsetenv(nombre.c_str());
    else
        ::setenv(nombre.c_str(), valor.c_str(), 1);
#endif
}

}  // namespace qor::pruebas
