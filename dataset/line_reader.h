#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace qor {

// Reads a file of any size line by line, in memory that only grows with what is held. Lines end with CR LF, LF or CR; a last line
// without an end counts. From the anchor on, what was read stays in memory: lines are told as places behind the anchor, which keep
// their meaning while more is read.
class LectorDeLineas {
public:
    struct Linea {
        std::size_t inicio = 0;  // behind the anchor
        std::size_t largo = 0;
        bool conCrLf = false;  // ends with CR LF in the file
    };

    // The file must outlive the reader. With `maximo` a line is told up to so many bytes, and the rest of a longer one is neither
    // held nor read before the next line is asked for; lines told before it are gone then.
    explicit LectorDeLineas(ArchivoAbierto& archivo, std::size_t maximo = sinMaximo);

    // The next line; false at the end of the file. Throws FalloDeArchivo when the file can't be read.
    bool Siguiente(Linea& linea);

    std::string_view Texto(const Linea& linea) const { return {bloque_.data() + ancla_ + linea.inicio, linea.largo}; }

    // The bytes of the file from the anchor to the place behind the anchor.
    std::string_view DesdeAncla(std::size_t hasta) const { return {bloque_.data() + ancla_, hasta}; }

    // Puts the anchor at a place behind it. Lines told before are then `cuanto` nearer.
    void MoverAncla(std::size_t cuanto) { ancla_ += cuanto; }

    std::uintmax_t Tamano() const { return tamano_; }
    std::uintmax_t Leidos() const { return leidos_; }

private:
    static constexpr std::size_t sinMaximo = static_cast<std::size_t>(-1);

    bool LeerMas();
    void SaltarResto();

    ArchivoAbierto& archivo_;
    std::size_t maximo_;
    std::uintmax_t tamano_ = 0;
    std::vector<char> bloque_;
    std::size_t ancla_ = 0;
    std::size_t lugar_ = 0;   // where the next line begins
    std::size_t llenos_ = 0;  // bytes of the block in use
    std::uintmax_t leidos_ = 0;
    bool alFinal_ = false;
    bool cortada_ = false;  // the rest of a line stands before the next one
};

}  // namespace qor
