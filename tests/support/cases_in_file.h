#pragma once

#include <string>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace qor::pruebas {

// ABAP, and what comes of it.
struct CasoDeArchivo {
    std::string codigo;
    std::vector<std::string> esperado;
};

// The cases of tests/expected/`nombre`, parted by blank lines: code, then a line behind "->" for each that is expected. Lines that
// begin with "#" tell what the cases show.
inline std::vector<CasoDeArchivo> LeerCasos(const std::string& nombre) {
    std::vector<CasoDeArchivo> casos;
    bool otro = true;
    const std::string texto = LeerArchivo(QOR_TEST_SOURCE_DIR "/tests/expected/" + nombre);
    for (const auto linea : PartirEnLineas(texto)) {
        if (linea.empty() || linea.starts_with('#')) {
            otro = true;
            continue;
        }
        if (otro) casos.emplace_back();
        otro = false;
        auto& caso = casos.back();
        if (linea.starts_with("->")) {
            caso.esperado.emplace_back(linea.substr(linea.size() > 2 ? 3 : 2));
        } else {
            caso.codigo.append(caso.codigo.empty() ? "" : "\n").append(linea);
        }
    }
    return casos;
}

}  // namespace qor::pruebas
