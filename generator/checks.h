#pragma once

#include <string>
#include <string_view>

#include "base/messages.h"
#include "base/view.h"
#include "generator/generation.h"

// The questions that a specification must pass before a report is made of it. Those that answer a boolean have shown their message
// when the answer is bad.
namespace qor {

// True when a named file row has an empty width.
bool FaltaAnchoCampos(const Especificacion& especificacion);

bool CalcularArchivoUnico(const Especificacion& especificacion, const Opciones& opciones, const Operaciones& operaciones);

// The n-th id, from 0, not trimmed; empty past the end. Ids are split at every comma.
std::string_view ObtenerIdentificador(std::string_view identificadores, int n);

// Sets LargoIdentificador.
bool ChequearIdentificadores(Generacion& g);

// True when the specification must be refused. Sets HayStepSinClave.
bool ExistenStepsInvalidos(Generacion& g);

bool ExistenCamposNoDefinidos(const Generacion& g);

// False when a file field serves two records, or a condition is missing.
bool ChequearArchivosCampos(const Generacion& g);

// Sets HayConversiones and HayConversionesStep.
void ChequearConversiones(Generacion& g);

// False when a value cell names no file field, is a broken constant, or an undeclared variable.
bool ChequearValores(const Generacion& g);

}  // namespace qor
