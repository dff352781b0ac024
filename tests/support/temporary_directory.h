#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "base/private_place.h"

namespace qor::pruebas {

// A fresh directory that goes with the object.
class DirectorioTemporal {
public:
    DirectorioTemporal() {
        ruta_ = CrearDirectorioPrivado(std::filesystem::temp_directory_path(), "qor-test-");
        if (ruta_.empty()) throw std::runtime_error("no temporary directory");
    }
    DirectorioTemporal(const DirectorioTemporal&) = delete;
    DirectorioTemporal& operator=(const DirectorioTemporal&) = delete;
    ~DirectorioTemporal() {
        std::error_code ignorado;
        std::filesystem::remove_all(ruta_, ignorado);
    }

    const std::filesystem::path& Ruta() const { return ruta_; }
    std::filesystem::path operator/(std::string_view nombre) const { return ruta_ / nombre; }

    // Writes a file below the directory, byte by byte, and gives its path.
    std::filesystem::path Escribir(std::string_view nombre, std::string_view contenido) const {
        const auto archivo = ruta_ / nombre;
        std::filesystem::create_directories(archivo.parent_path());
        std::ofstream salida(archivo, std::ios::binary);
        salida << contenido;
        if (!salida.flush()) throw std::runtime_error("no temporary file");
        return archivo;
    }

private:
    std::filesystem::path ruta_;
};

}  // namespace qor::pruebas
