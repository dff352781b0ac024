#pragma once

#include <filesystem>

#include "model/document.h"

namespace qor {

// Where an input file of a document lies on this computer, by its place in DisenoDeEntrada::Archivos: under the name that the
// document has for it, or under the last part of that name beside the document. Empty where there is no such file.
std::filesystem::path ArchivoDelDocumento(const Documento& documento, int archivo);

}  // namespace qor
