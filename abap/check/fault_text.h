#pragma once

#include <string>

#include "abap/check/check.h"

namespace qor::abap {

// What is wrong, in a sentence without a place.
std::string TextoDeFalta(const Falta& falta);

}  // namespace qor::abap
