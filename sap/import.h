#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/messages.h"
#include "base/view.h"
#include "model/document.h"

// Recordings and batch-input sessions as rows of the program side. Two formats, both text files:
//
// The program that a system makes of a recording. A line with BDC_DYNPRO holds a program and a dynpro between apostrophes; one with
// BDC_FIELD a field, its value on the next line, that of a BDC_SUBSCR on the next two; one with BDC_TRANSACTION ends a transaction
// and holds its code. All other lines count for nothing.
//
// Records of the batch-input queue, in columns from 1:
//   1 to 40 program     45 kind: "T" transaction, "X" screen, blank field, "M" header    46 to 177 field, of a "T" the code
//   41 to 44 dynpro, "0000" where no screen starts                                        178 to 309 value
// A line with "0000T" in columns 41 to 45 turns the rest of a file into this format.
namespace qor {

// Reads a text into the rows of a table from `inicio` on, at most to row 1000. `malEscrita` is called for each line whose texts
// don't stand between pairs of apostrophes. Throws FalloDeEjecucion for a screen without a dynpro, and where the text ends inside a
// field; the rows read until then stay in the table.
void LeerSesion(std::vector<FilaDeTransaccion>& tabla, std::string_view texto, int inicio, const std::function<void()>& malEscrita);

// Whether a text, or the beginning of one, looks like one of the two: a line with BDC_DYNPRO or BDC_TRANSACTION and an apostrophe,
// or the header or transaction of a session among the first two lines.
bool EsGrabacion(std::string_view texto);

// The program side as it stands behind an import.
struct Importacion {
    std::vector<FilaDeTransaccion> tabla;
    int filas = 0;  // rows with text among those that came; 0: the file holds no recording
};

// Reads a file of either format to its end, and changes nothing. Where rows exist, the user chooses between replacing them and
// adding behind them. Nothing when the user backs out, without a free row (message 515) or a file's name (332), and when the file
// can't be read to its end (335).
std::optional<Importacion> LeerImportacion(const Especificacion& especificacion, const std::filesystem::path& archivo,
                                           const TextosIdioma& textos, Vista& vista);

// Puts an import into the document, as one step to undo.
void Importar(Documento& documento, Importacion importacion);

}  // namespace qor
