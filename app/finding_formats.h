#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/messages.h"
#include "findings/finding.h"
#include "model/document_lines.h"

// The findings of several documents as texts for people and programs: UTF-8, with LF at line ends. The path of a document is the
// one that the user gave.
namespace qor {

struct DocumentoRevisado {
    std::string ruta;
    Hallazgos hallazgos;
    LineasDeDocumento lineas;
    std::optional<Mensaje> motivo = std::nullopt;  // why it could not be checked; there are no findings then
};
using DocumentosRevisados = std::vector<DocumentoRevisado>;

// Makes errors of the warnings, in whatever is printed and counted of them.
void TomarAvisosPorErrores(Hallazgos& hallazgos);

// One line for each finding, "materials.qor: program side, row 12, value: error Q203 (310): sentence", and nothing else.
std::string HallazgosComoTexto(const DocumentosRevisados& documentos);

// What belongs behind those lines: the documents that were not checked, or not to their end, and a line that counts.
std::string ResumenDeHallazgos(const DocumentosRevisados& documentos);

// One object; see the manual page for its members. A byte of a path that is no UTF-8 becomes U+FFFD.
std::string HallazgosComoJSON(const DocumentosRevisados& documentos);

// A log in the Static Analysis Results Interchange Format, 2.1.0. What it says of a kind of findings is in English.
std::string HallazgosComoSARIF(const DocumentosRevisados& documentos, const TextosIdioma& textos);

// Workflow commands, one for each finding and for each document that could not be checked.
std::string HallazgosParaGitHub(const DocumentosRevisados& documentos);

}  // namespace qor
