#pragma once

#include "abap/compile/compiler.h"
#include "abap/values/output_format.h"

// The statements on the list and MESSAGE, each read from behind its first word.
namespace qor::abap {

void CompilarWRITE(Compilador& c, Lectura& l);    // write.cpp
void CompilarULINE(Compilador& c, Lectura& l);    // write.cpp
void CompilarMESSAGE(Compilador& c, Lectura& l);  // message.cpp

// An addition that is about looks alone: read and passed over. False where none stands there.
bool TomarApariencia(Compilador& c, Lectura& l);

}  // namespace qor::abap
