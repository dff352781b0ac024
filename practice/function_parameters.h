#pragma once

#include <span>
#include <string>
#include <string_view>

#include "abap/surroundings.h"

namespace qor {

// The parameter of a name; null where the call has none.
const abap::ParametroDeFuncion* BuscarParametro(std::span<const abap::ParametroDeFuncion> parametros, std::string_view nombre);

// What the call exports under a name, without the blanks behind it; nothing where it exports nothing.
std::string TextoExportado(const abap::LlamadaAFuncion& llamada, std::string_view nombre);

// Gives a field that the call imports a value; nothing where it does not ask for it.
void DevolverTexto(const abap::LlamadaAFuncion& llamada, std::string_view nombre, std::string_view valor);

// The table that a call hands over. Throws the dump CALL_FUNCTION_PARM_MISSING where it has none.
abap::TablaInterna& ExigirTabla(const abap::LlamadaAFuncion& llamada, std::string_view nombre);

}  // namespace qor
