#pragma once

#include "abap/compile/compiler.h"

namespace qor::abap {

// CALL TRANSACTION, behind that word.
void LeerCALL_TRANSACTION(Compilador& c, Lectura& l);

}  // namespace qor::abap
