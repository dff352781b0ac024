#pragma once

#include <string>

#include "abap/values/output_format.h"

namespace qor::abap {

// The value in the mask of a format. DD/MM/YYYY and its kin put the parts of a date in that order, with points in the place of
// slashes. Of an edit mask each "_" is the next character of the value, from the left, or from the right behind "RR" and of
// numbers; "V" is the sign of a number; "LL" takes them from the left. "==ALPHA" is the output of that
// conversion. All else stands as it is.
std::string TextoConMascara(const Campo& campo, const FormatoDeSalida& formato);

}  // namespace qor::abap
