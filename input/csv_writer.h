#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/new_file.h"

namespace qor {

// Writes a file of values with a separator between them, as RFC 4180 has them: UTF-8 with a byte order mark, lines that end with
// CR LF, quotes around values that need them.
class EscritorCsv {
public:
    EscritorCsv(const std::filesystem::path& ruta, char separador);

    // Values in windows-1252.
    void Fila(const std::vector<std::string>& valores);
    void LlevarAlDisco() { archivo_.LlevarAlDisco(); }
    void PonerEnSuLugar() { archivo_.PonerEnSuLugar(); }

private:
    ArchivoNuevo archivo_;
    char separador_;
    std::string especiales_;
    std::string linea_;
};

}  // namespace qor
