#pragma once

#include "abap/key.h"

namespace qor::abap {

// A word that begins a statement of the language in some release.
bool EsPalabraDeSentencia(Clave palabra);

// A function that expressions know, by its name in front of the bracket.
bool EsFuncion(Clave nombre);

// A relation between two operands.
bool EsComparacion(Clave palabra);

}  // namespace qor::abap
