#pragma once

#include "base/messages.h"
#include "generator/analysis.h"
#include "generator/observation.h"

// The questions that a specification must pass before a report is made of it, or its layouts are shown. Each tells the listener
// what is wrong, and ends at the first such place unless the listener lets it go on.
namespace qor {

// What is asked, and whom the answers are told.
struct Chequeo {
    const Especificacion& especificacion;
    const Opciones& opciones;
    const Analisis& analisis;
    const TextosIdioma& textos;
    Oyente& oyente;
};

// True when a named file row has an empty width. No message belongs to it.
bool FaltaAnchoCampos(const Especificacion& especificacion);

// There is an id for each record, and all are of one length. Without any id there is no message.
bool ChequearIdentificadores(const Chequeo& c);

// True when the key lists must be refused. The analysis knows of them.
bool ExistenStepsInvalidos(const Chequeo& c);

// True when a field of a BAPI has no declaration.
bool ExistenCamposNoDefinidos(const Chequeo& c);

// False when a file field serves two records, or a condition is missing.
bool ChequearArchivosCampos(const Chequeo& c);

// False when a value cell names no file field, is a broken constant, or an undeclared variable.
bool ChequearValores(const Chequeo& c);

}  // namespace qor
