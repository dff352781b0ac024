#pragma once

#include "editor/editor.h"

// The commands of the File menu. Each speaks to the user through the editor's view, and leaves the specification, the document and
// the lock in a whole state whatever fails.
namespace qor {

constexpr const char* tituloDelPrograma = "Qor Generator - Batch Input & BAPI-based Interface Generator";
constexpr const char* filtroDeDocumentos = "QOR format|*.qor";

// A new specification in the place of the open one, after the question whether to save it. The first pages of the tabs are shown,
// searches start anew, and no cell has the focus.
void NewOption(Editor& editor);

// Opens the document that the user chooses, or the one named at the start of the program. False when it was not opened.
bool OpenOption(Editor& editor);

// Saves under the document's name, asking for one when it has none. False when nothing was saved; a gap in a table also sets
// `GrabacionFallida`. The file is replaced in one atomic step and stays locked.
bool SaveOption(Editor& editor);

bool SaveAsOption(Editor& editor);

// The end of the program: offers to save, then lets the document go. False keeps it open: the user cancels, or wants to save and
// the save fails.
bool CerrarDocumento(Editor& editor);

// The title of the window.
std::string TituloDeVentana(const Editor& editor);

// Makes a path of the user's the document's own: absolute, with its name part.
void FijarDocumento(Editor& editor, const std::string& ruta);

}  // namespace qor
