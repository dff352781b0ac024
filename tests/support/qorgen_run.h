#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {

// Runs qorgen with a directory of its own, in which its settings lie. "D/" in an argument stands for that directory.
struct QorgenDePrueba {
    DirectorioTemporal directorio;
    std::string salida;
    std::string errores;

    int Correr(std::vector<std::string> argumentos) {
        for (auto& argumento : argumentos) {
            if (const auto lugar = argumento.find("D/"); lugar != std::string::npos) {
                argumento.replace(lugar, 2, directorio.Ruta().string() + "/");
            }
        }
        argumentos.insert(argumentos.begin(), {"--settings", directorio.Ruta().string()});
        std::ostringstream enSalida;
        std::ostringstream enErrores;
        const int estado = EjecutarQorgen(argumentos, enSalida, enErrores);
        salida = enSalida.str();
        errores = enErrores.str();
        return estado;
    }
};

}  // namespace qor::pruebas
