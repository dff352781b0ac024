#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/specification.h"

namespace qor {

// Says nothing about an input, so the fuzzer need not follow it.
template <typename Fila, std::size_t columnas>
__attribute__((no_sanitize("coverage"))) void Vaciar(std::vector<Fila>& tabla,
                                                     const std::array<std::string Fila::*, columnas>& textos) {
    for (auto& fila : tabla) {
        for (const auto texto : textos) {
            if (!(fila.*texto).empty()) (fila.*texto).clear();
        }
    }
}

// Empties a specification where it stands: a new one takes longer than most of what an input does with it.
inline void Vaciar(Especificacion& e) {
    Vaciar(e.TablaArchivo, columnasDeArchivo);
    Vaciar(e.TablaTransaccion, columnasDeTransaccion);
    Vaciar(e.TablaCondiciones, columnasDeCondicion);
    Vaciar(e.TablaBAPIs, columnasDeBAPI);
    e.OrigenUsuario = false;
    for (auto* texto : {&e.OrigenVariables, &e.OrigenForms, &e.OrigenSource, &e.VariablesGlobales}) texto->clear();
}

}  // namespace qor
