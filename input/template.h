#pragma once

#include <filesystem>

#include "input/kinds.h"
#include "input/layout.h"
#include "model/specification.h"

namespace qor {

// Writes a workbook to fill in: a sheet for each kind of records with its headings, as ConvertirALayout reads them. A heading has
// the note of the field on the file side and what its kind says as a note; that of a field that has to be there is marked. Columns
// are as wide as their fields, and their cells take what the kinds and the widths allow. Lists of values lie in a hidden sheet.
// `documento` is the path that lists are beside. Throws FalloDeEjecucion or FalloDeArchivo.
void EscribirPlantilla(const DisenoDeEntrada& diseno, const Especificacion& especificacion, const ClasesDeCampos& clases,
                       const std::filesystem::path& documento, const std::filesystem::path& destino);

}  // namespace qor
