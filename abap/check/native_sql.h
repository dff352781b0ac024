#pragma once

#include "abap/check/phrase.h"

namespace qor::abap {

// The text between EXEC SQL and ENDEXEC. Databases differ, so that little can be said of it: the lists
// of a SELECT, its conditions, and the variables of the report in it.
void RevisarSQLNativo(const TextoAjeno& texto, Contexto& contexto);

}  // namespace qor::abap
