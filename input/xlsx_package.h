#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

struct zip;
struct zip_file;

namespace qor {

class PaqueteXlsx;

// The text of a part of a workbook, in pieces. Lives no longer than its package.
class ParteXlsx {
public:
    ~ParteXlsx();
    ParteXlsx(const ParteXlsx&) = delete;
    ParteXlsx& operator=(const ParteXlsx&) = delete;

    // The next bytes, 0 at the end.
    std::size_t Leer(char* donde, std::size_t cuanto);
    // Whatever is wrong with the part: the file is damaged.
    [[noreturn]] void Fallar(const std::string& motivo) const;

private:
    friend class PaqueteXlsx;
    ParteXlsx(const PaqueteXlsx& paquete, zip_file* entrada, std::uint64_t tamano)
        : paquete_(paquete), entrada_(entrada), quedan_(tamano) {}

    const PaqueteXlsx& paquete_;
    zip_file* entrada_;
    std::uint64_t quedan_;
};

// The zip archive that a workbook is. Everything that is wrong with a file, damage, a password, another format, and contents that
// are too large for what they are, throws FalloDeArchivo and says so.
class PaqueteXlsx {
public:
    explicit PaqueteXlsx(const std::filesystem::path& ruta);
    ~PaqueteXlsx();
    PaqueteXlsx(const PaqueteXlsx&) = delete;
    PaqueteXlsx& operator=(const PaqueteXlsx&) = delete;

    bool Tiene(const std::string& nombre) const;
    std::unique_ptr<ParteXlsx> Abrir(const std::string& nombre) const;
    // The whole text of a part that is never large.
    std::string LeerTodo(const std::string& nombre) const;

    // What a part is related to: the target as the name of a part, for the last word of the kind of the relation ("worksheet").
    struct Relacion {
        std::string id;
        std::string clase;
        std::string parte;
    };
    // Those of a part; of the package for an empty name.
    std::vector<Relacion> Relaciones(const std::string& nombre) const;

    [[noreturn]] void Fallar(const std::string& motivo) const;
    // The file is something else: "a binary workbook".
    [[noreturn]] void OtroFormato(const std::string& cual) const;

private:
    void Reconocer() const;

    ArchivoAbierto archivo_;
    zip* zip_ = nullptr;
};

}  // namespace qor
