#pragma once

#include "app/pages/ties.h"
#include "app/start_up.h"
#include "base/view.h"
#include "editor/window.h"

namespace qor {

// What the pages of the main form work with. All of it belongs to the main form and outlives the pages. A page makes its controls
// and ties them to the state; what opens a dialog it leaves to the main form, by functions that are handed to it.
struct EntornoDePagina {
    Programa& programa;
    Ventana& ventana;
    Vista& vista;
    Lazos& lazos;
};

}  // namespace qor
