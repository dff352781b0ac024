#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace qor {

enum class FinDeLinea : std::uint8_t { Ninguno, LF, CRLF, CR };

// A line of a file as it stands there. The views live until the next one is read.
struct LineaLeida {
    std::uint64_t lugar = 0;               // of its first byte
    std::uint64_t largo = 0;               // in bytes, with its end
    std::string_view texto;                // without its end; of a very long line only the beginning
    std::string_view bytes;                // the same with its end; without it in a very long line
    FinDeLinea fin = FinDeLinea::Ninguno;  // none at the end of the file
    bool sobra = false;                    // a very long line has more than blanks behind what is here
    bool limpia = false;                   // known to be ASCII without NUL; else it may still be
};

// Reads the lines of a file one by one, in memory that neither the file nor a line makes grow. CR LF, LF and CR end a line, as the
// reports have it. Whatever fails throws FalloDeArchivo; so does a file that has become shorter than it was.
class LectorDeEntrada {
public:
    // Begins at a place, which is the beginning of a line. Of a line that is longer than `maximo` only so many bytes are kept.
    explicit LectorDeEntrada(const ArchivoAbierto& archivo, std::uint64_t lugar = 0, std::size_t maximo = lineaMaxima);

    static constexpr std::size_t lineaMaxima = std::size_t{1} << 20;

    // False behind the last line. What an end of line stands in front of is a line, also when it is empty.
    bool Linea(LineaLeida& linea);

private:
    bool Llenar();
    const char* BuscarFin(const char* desde);
    FinDeLinea FinEn(const char* hasta) const;
    void TerminarLarga(LineaLeida& linea, const char* hasta);

    const ArchivoAbierto& archivo_;
    std::uint64_t tamano_;
    std::uint64_t leidos_;  // place in the file of what is read next
    std::size_t maximo_;
    std::vector<char> bloque_;
    std::vector<char> larga_;  // the beginning of a very long line
    const char* aqui_;
    const char* fin_;
    const char* saltoLF_ = nullptr;  // the next LF at or behind `aqui_`, or `fin_`; null where it was not looked for
    const char* saltoCR_ = nullptr;
    bool agotado_ = false;  // the file has no more
    bool limpio_ = false;   // all of the block
};

}  // namespace qor
