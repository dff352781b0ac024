#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

// In what an input file is written, by rule: what its byte order mark says; else UTF-8 where all of it is valid UTF-8 with at least
// one character outside ASCII; else windows-1252.
namespace qor {

enum class Codificacion : std::uint8_t { Windows1252, Utf8, Utf16 };  // UTF-16 of either byte order

// The byte order mark that a text begins with: of UTF-8, of UTF-16, or of none, which is windows-1252.
Codificacion MarcaDeOrden(std::string_view principio);
constexpr std::size_t largoDeMarcaUtf8 = 3;

// The rule, for a whole file. It is read from its beginning up to what decides.
Codificacion BuscarCodificacion(const ArchivoAbierto& archivo);

// Whether what a file has from a place on is valid UTF-8, as far as what ends there: the place is the first byte of a character.
bool EsUtf8Desde(const ArchivoAbierto& archivo, std::uint64_t lugar);

// How many bytes the character of UTF-8 at the beginning of a text has, which is not empty: 0 where none stands there, and where
// the text ends before it does.
std::size_t LargoDeCaracter(std::string_view texto);

// The rule, for a text.
Codificacion CodificacionDe(std::string_view texto);

// All of a text is UTF-8, and some of it is not ASCII.
bool TieneUtf8(std::string_view texto);

// All bytes are ASCII other than NUL.
bool EsAsciiSinNulos(std::string_view texto);

// A text of UTF-8 in windows-1252, a character for a character: "?" for one that windows-1252 lacks, and for each byte that is part
// of none. Their places in the answer are appended to `faltas`.
std::string TextoDesdeUtf8(std::string_view texto, std::vector<std::size_t>& faltas);

}  // namespace qor
