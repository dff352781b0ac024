#pragma once

#include <filesystem>
#include <optional>

#include "base/messages.h"
#include "base/view.h"
#include "model/document.h"
#include "model/document_lines.h"

// A document and its file. The open file is locked as long as the document is open. Each of these shows its own message, and
// answers false when nothing was done; the document, its path and its lock then stay as they were.
namespace qor {

constexpr const char* filtroDeDocumentos = "QOR format|*.qor";

// Reads a file of either format in the place of what `documento` holds, under its absolute path. What was open is not asked for.
// Message 335 when it can't be read, is locked by another, or is no document.
bool AbrirDocumento(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista);

// The same without showing the message: answers it, or nothing when the document is open. `lineas` is told where in the file its
// contents stand; a document of the earliest format tells nothing.
std::optional<Mensaje> AbrirDocumento(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos,
                                      LineasDeDocumento& lineas);

// Writes the document to its own path. A file that another program has changed or replaced since it was read is overwritten only
// after a question. Message 373 when a table has a gap, 336 when the file can't be written.
bool GuardarDocumento(Documento& documento, const TextosIdioma& textos, Vista& vista);

// Writes it to another path, where it is kept and locked from then on; the lock of the old file goes. A file that is there is
// replaced; at its own path this is GuardarDocumento.
bool GuardarDocumentoComo(Documento& documento, const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista);

}  // namespace qor
