#pragma once

#include "model/options.h"
#include "model/specification.h"

// Whether main and step-loop records can come in one file, where ids tell them apart: one of fixed width on the client, or any file
// on the server, and no source of the user's own.
namespace qor {

// The choice between one file and several is open, and "one" counts.
bool AdmiteArchivoUnico(const Especificacion& especificacion, const Opciones& opciones);

// One file is chosen, and a step-loop asks for none of its own. Unlike in AdmiteArchivoUnico, a check box TablaCh that is neither
// set nor clear, as a document can hold it, is no hindrance here.
bool StepsSinArchivo(const Especificacion& especificacion, const Opciones& opciones);

}  // namespace qor
