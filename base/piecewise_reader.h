#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace qor {

// Reads a file from its beginning, a piece at a time. CR LF, LF and CR end a line. Whatever fails throws FalloDeArchivo; so does a
// file that has become shorter than it was when it was opened.
class LectorPorTrozos {
public:
    explicit LectorPorTrozos(ArchivoAbierto archivo);

    static constexpr std::size_t todo = std::numeric_limits<std::size_t>::max();

    // The next line without its end; false behind the last one. It lives until the next call. What stands behind the first
    // `maximo` characters of a line may be left out.
    bool Linea(std::string_view& linea, std::size_t maximo = todo);

    // The next `largo` bytes, fewer at the end; false where there is none.
    bool Bytes(std::string& bytes, std::size_t largo);

    std::uint64_t Leidos() const { return leidos_; }

private:
    bool Llenar();
    const char* BuscarFin();

    ArchivoAbierto archivo_;
    std::uint64_t tamano_;
    std::uint64_t leidos_ = 0;
    std::vector<char> bloque_;
    const char* aqui_ = nullptr;
    const char* fin_ = nullptr;
    const char* saltoLF_ = nullptr;  // the next LF at or behind `aqui_`, or `fin_`; of this block, null where it was not looked for
    const char* saltoCR_ = nullptr;
    bool trasCR_ = false;  // a LF that comes next belongs to the line end before it
    std::string resto_;    // of a line that began in an earlier block
};

}  // namespace qor
