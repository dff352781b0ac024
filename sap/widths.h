#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/document.h"
#include "sap/session.h"

// Widths of file fields from the dictionary of a system, by way of a file with one line for each field of the program side:
//   1 to 30 table    31 to 60 field    61 to 90 the value cell, so the file field    91 to 96 length, once it is looked up
namespace qor {

// Writes the file. While not connected, message 327 tells how to go on. False, and nothing is written, for a document with control
// characters (model/control_characters.h); false with message 328 when the file can't be written, or at a scalar BAPI parameter
// whose type names no field; the lines written so far stay in the file.
bool GenerarInfoCampos(const Documento& documento, const std::filesystem::path& archivo, bool conectado, const TextosIdioma& textos,
                       Vista& vista);

// Fills empty widths of the file side from the text of a file, and answers whether it filled any.
bool LlenarAnchos(Especificacion& especificacion, std::string_view texto);

// The names of the file fields without a width, with commas between them.
std::string CamposSinAncho(const Especificacion& especificacion);

// Reads the file back into the file side. False with message 328 when it can't be read.
bool ImportInfo(Documento& documento, const std::filesystem::path& archivo, const TextosIdioma& textos, Vista& vista);

// The report that looks up the lengths for the lines of the file. Throws FalloDeEjecucion when a table or field holds a control
// character.
LineasABAP ReporteDeAnchos(const std::vector<std::string_view>& lineas);

// Sends that report, and completes the file with the lengths. False when the file can't be read or written, or the call fails; a
// failed call leaves the file as it was.
bool ObtenerAnchos(SesionSAP& sesion, const std::filesystem::path& archivo);

// The whole way at once, around a file of a moment. That file stays when the system gives no answer. True when the file side was
// gone through and is to be shown anew.
bool ButtonOnlineAnchos(Documento& documento, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista);

}  // namespace qor
