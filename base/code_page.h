#pragma once

#include <optional>
#include <string>
#include <string_view>

// The border between the model, whose texts are bytes in windows-1252, and the terminal, file names and forms, which speak UTF-8.
namespace qor {

// Every byte has a character; the five that the code page leaves open (81, 8D, 8F, 90, 9D) become the control characters of
// the same number and so survive the way back.
std::string AUtf8(std::string_view texto);

// Whether the byte has no character to be seen: the control characters, and the bytes that the code page leaves open.
bool EsInvisible(char caracter);

// The text in windows-1252, or nothing when it isn't UTF-8 or holds a character that the code page lacks.
std::optional<std::string> DesdeUtf8(std::string_view texto);

// The same with "?" in the place of each character that the code page lacks, and of each byte that belongs to none.
std::string DesdeUtf8ConFaltas(std::string_view texto);

}  // namespace qor
