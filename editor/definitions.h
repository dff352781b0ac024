#pragma once

#include <string>
#include <vector>

#include "editor/window.h"

// The rules of FormNuevasVariables: the global definitions and the call texts of BAPIs, in one text box.
namespace qor {

struct DialogoDeDefiniciones {
    std::vector<std::string> ListaDefiniciones;  // the global definitions, then the BAPIs in table order
    int seleccion = 0;
    std::string Vars;  // text of the selected entry
};

// The same after the BAPI browser has added an entry (InsertBAPIButton).
DialogoDeDefiniciones AbrirDefiniciones(const Ventana& ventana);

// A click in the list.
void SeleccionarDefinicion(const Ventana& ventana, DialogoDeDefiniciones& dialogo, int indice);

// A change of Vars, which goes into the specification at once. Filling the box by a selection is none.
void CambiarVars(Ventana& ventana, DialogoDeDefiniciones& dialogo, const std::string& texto);

// Clears the global definitions, or removes the BAPI of the selected entry, after the question 366 or 387.
void Limpiar(Ventana& ventana, DialogoDeDefiniciones& dialogo);

}  // namespace qor
