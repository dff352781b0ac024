#pragma once

#include <filesystem>
#include <string>

#include "editor/window.h"
#include "model/document_file.h"

// The commands of the File menu. Each speaks to the user through the window's view, and leaves the specification, the document and
// the lock in a whole state whatever fails.
namespace qor {

constexpr const char* tituloDelPrograma = "Qor Generator - Batch Input & BAPI-based Interface Generator";

// A new specification in the place of the open one, after the question whether to save it. The first pages of the tabs are shown,
// searches start anew, and no cell has the focus. False when the user backs out.
bool NewOption(Ventana& ventana);

// The first step of an opening: the question whether to save what differs, and a new specification. False when the user backs out.
bool DejarDocumento(Ventana& ventana);

// Leaves what is open and opens a document. False when the user backs out, or when it was not opened; the specification is a new
// one then.
bool OpenOption(Ventana& ventana, const std::filesystem::path& ruta);

// Work that was left behind unsaved, in the place of a new specification: under its document's path, which is locked again. Where
// another program has the document open, the work is a new document, and message 335 says why.
void RestaurarTrabajo(Ventana& ventana, Documento trabajo);

// Saves under the document's path, asking for one when it has none. False when nothing was saved.
bool SaveOption(Ventana& ventana);

// Asks for another path. The document stays where it is when nothing was saved.
bool SaveAsOption(Ventana& ventana);

// The end of the program: offers to save, then lets the document go. False keeps it open: the user cancels, or wants to save and
// the save fails.
bool CerrarDocumento(Ventana& ventana);

// The title of the window, in UTF-8: the name of the file is the system's.
std::string TituloDeVentana(const Documento& documento);

}  // namespace qor
