#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/unnamed_file.h"

namespace qor {

// A file without a name in the directory for temporary files; what is in it goes with the object. Whatever fails throws
// FalloDeArchivo with the name of that directory.
class ArchivoDeTrabajo {
public:
    ArchivoDeTrabajo();

    // Puts a text behind what is there. Texts are gathered and written in large blocks.
    void Agregar(std::string_view texto);
    std::uint64_t Largo() const { return escritos_ + pendiente_.size(); }

    // Bytes at a place, as many as there are. What was put in last is read too.
    std::size_t LeerEn(char* donde, std::size_t cuanto, std::uint64_t lugar);

    // A path to it for what opens files on its own, and the same while the file is given away, see base/unnamed_file.h.
    std::filesystem::path Ruta() const { return archivo_.Ruta(); }
    std::filesystem::path Prestar() { return archivo_.Prestar(); }
    void Retomar() { archivo_.Retomar(); }

private:
    void Vaciar();

    std::filesystem::path directorio_;
    ArchivoSinNombre archivo_;
    std::string pendiente_;
    std::uint64_t escritos_ = 0;
};

// Reads short texts of a work file, and keeps pages of it: those that were read last.
class PaginasDeTrabajo {
public:
    // `cuantas` pages of 4 kilobytes at most. The file has to be complete, and to live as long as this.
    PaginasDeTrabajo(ArchivoDeTrabajo& archivo, std::size_t cuantas) : archivo_(archivo), paginas_(cuantas) {}

    // Puts the bytes at a place, fewer at the end of the file, behind `texto`.
    void Leer(std::uint64_t lugar, std::size_t largo, std::string& texto);

private:
    struct Pagina {
        std::uint64_t numero = UINT64_MAX;
        std::string bytes;
    };
    const std::string& Tomar(std::uint64_t numero);

    ArchivoDeTrabajo& archivo_;
    std::vector<Pagina> paginas_;
};

}  // namespace qor
