#pragma once

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "base/files.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {

// Runs qorgen with a directory of its own, in which its settings lie. "D/" at the beginning of an argument, or of a value behind
// "=", stands for that directory.
struct QorgenDePrueba {
    DirectorioTemporal directorio;
    std::string salida;
    std::string errores;

    int Correr(std::vector<std::string> argumentos) {
        for (auto& argumento : argumentos) {
            const auto lugar = argumento.starts_with("D/") ? 0 : argumento.find("=D/");
            if (lugar == std::string::npos) continue;
            argumento.replace(lugar == 0 ? 0 : lugar + 1, 2, directorio.Ruta().string() + "/");
        }
        argumentos.insert(argumentos.begin(), {"--settings", directorio.Ruta().string()});
        std::ostringstream enSalida;
        std::ostringstream enErrores;
        const int estado = EjecutarQorgen(argumentos, enSalida, enErrores);
        salida = enSalida.str();
        errores = enErrores.str();
        return estado;
    }

    // A command as it is typed.
    int Q(const std::string& orden) {
        std::istringstream texto(orden);
        return Correr({std::istream_iterator<std::string>(texto), {}});
    }

    // The rows of the program side in a document, without the columns that are blank.
    std::vector<std::string> FilasDePrograma(const char* documento) const {
        std::vector<std::string> filas;
        const std::string texto = LeerArchivo(directorio / documento);
        for (const auto linea : PartirEnLineas(texto)) {
            if (linea.starts_with("2,")) filas.emplace_back(linea.substr(2, linea.find(",\"\",\"\",\"\",\"\"") - 2));
        }
        return filas;
    }
};

}  // namespace qor::pruebas
