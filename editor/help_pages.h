#pragma once

#include <string_view>

namespace qor {

// Number of the message that names the help page of a control of the main form; F1 opens it. Cells are named with or without their
// line. A control without a page of its own has that of its page of SSTab1, `pestana`.
int PaginaDeAyuda(std::string_view control, int pestana);

// The page, by its name, of what no message names one for: buttons of the tool bar, the start page, dialogs. Empty where there is
// none.
std::string_view PaginaPropia(std::string_view nombre);

}  // namespace qor
