#pragma once

#include <functional>

#include "base/messages.h"
#include "base/view.h"
#include "sap/publish.h"

namespace qor {

// The dialog that asks for the name of a program which is to be published, behind a question where the report has errors. A user
// who says no backs out, and the dialog isn't shown. `errores` tells how many the report has; it is asked when the dialog is due.
DialogoABAP TrasPreguntarPorErrores(DialogoABAP FormABAP, std::function<int()> errores, const TextosIdioma& textos, Vista& vista);

}  // namespace qor
