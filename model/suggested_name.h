#pragma once

#include <filesystem>
#include <string_view>

#include "base/messages.h"
#include "model/document.h"

namespace qor {

// The name of a new file that comes from a document, with an ending such as ".pdf": the document's own name; for one that was
// never saved that of its program file, else the beginning of its description, else a word of the language.
std::filesystem::path NombreSugerido(const Documento& documento, std::string_view final, const TextosIdioma& textos);

}  // namespace qor
