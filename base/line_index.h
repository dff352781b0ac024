#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "base/files.h"

namespace qor {

// Finds any line of a file of any size without holding its text: it keeps the place of a line now and then, and reads from the
// nearest one. It can be asked as soon as it exists; it knows more lines with every step. Lines end with CR LF, LF or CR. One
// thread may take the steps while another one asks.
class IndiceDeLineas {
public:
    // Throws FalloDeArchivo when the file can't be opened, or is no regular file.
    explicit IndiceDeLineas(const std::filesystem::path& ruta);

    // Reads on by about a megabyte. False once the whole file is known, or can't be read any further.
    bool Avanzar();

    std::size_t Lineas() const;
    bool Completo() const;

    // The texts of lines, each up to `maximo` characters; fewer lines where the known ones end. Of longer lines not much more is
    // read than that.
    std::vector<std::string> Leer(std::size_t desde, std::size_t cuantas, std::size_t maximo) const;

private:
    struct Marca {
        std::size_t linea;
        std::uint64_t lugar;
    };

    Marca MarcaPara(std::size_t linea) const;

    std::size_t LeerEn(std::vector<char>& bloque, std::uint64_t lugar) const;

    ArchivoAbierto archivo_;

    // Of the thread that takes the steps.
    std::uint64_t leidos_ = 0;
    bool alInicio_ = true;  // the next character begins a line
    bool trasCR_ = false;
    std::vector<char> bloque_;

    mutable std::mutex candado_;
    std::vector<Marca> marcas_;
    std::size_t lineas_ = 0;
    bool completo_ = false;
};

}  // namespace qor
