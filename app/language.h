#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/messages.h"

// The language file: every visible word of the program, in any number of languages one after the other. It holds pairs of a
// number and a quoted text in the encoding of base/values.h. Number 0 opens a language and gives its name; the pairs behind it are
// its texts: messages, numbered 1 to 999, and words from 1000 on (base/words.h). The texts 500 to 699 go into quoted literals of
// the reports.
namespace qor {

enum class ResultadoIdioma {
    Bien,
    SinArchivo,  // there is no language file to read, and the texts are as they were
    Fallo,       // the file breaks off inside a pair or has a negative number; the texts read until then are kept
};

// Loads the texts of a language, whose name is compared without regard to case. A language that the file doesn't have makes
// `IdiomaActual` "English" and loads that; without it too the table stays empty. `detalle` gets what the system said about a file
// that can't be read.
//
// Words that the language lacks are those of English in the same file. A file that has none of them, such as one of the user's own,
// gets them from the file of the program's own data, in the language or else in English; so does a table without a file.
ResultadoIdioma RecuperarIdioma(TextosIdioma& textos, const std::filesystem::path& ruta, std::string& IdiomaActual,
                                std::string* detalle = nullptr);

// The same from the content of the file alone.
ResultadoIdioma RecuperarIdiomaDeTexto(TextosIdioma& textos, std::string_view contenido, std::string& IdiomaActual);

// The languages of a file, in order.
struct ListaDeIdiomas {
    std::vector<std::string> nombres;     // without double quotes
    std::vector<TextosIdioma> presentes;  // of each the words about it, and the question for a language
    bool completa = true;                 // false when the reading failed; the languages are those read until then
    std::string detalle;                  // what the system said about a file that can't be read
};

ListaDeIdiomas ListarIdiomas(const std::filesystem::path& ruta);

}  // namespace qor
