#pragma once

#include <string>
#include <vector>

#include "editor/window.h"

// The rules of FormConditions: the named conditions of the specification, each with its ABAP text.
namespace qor {

struct DialogoDeCondiciones {
    std::vector<std::string> ListaCondiciones;  // in table order; the index is the table's row
    int seleccion = -1;                         // selected item, -1 for none
    std::string Condicional;                    // text of the selected condition
    std::string Nuevo;                          // entry field for a new name
};

DialogoDeCondiciones AbrirCondiciones(const Ventana& ventana);

// Adds `Nuevo` at the end, selects it and gives Condicional the focus. A blank name adds nothing, one of the list gives message
// 357.
void AgregarCondicion(Ventana& ventana, DialogoDeCondiciones& dialogo);

// Removes the selected condition, if one is selected. None is afterwards.
void BorrarCondicion(Ventana& ventana, DialogoDeCondiciones& dialogo);

// A click in the list.
void SeleccionarCondicion(const Ventana& ventana, DialogoDeCondiciones& dialogo, int indice);

// A change of Condicional, which goes into the table at once. Filling the box by a selection is none.
void CambiarCondicional(Ventana& ventana, DialogoDeCondiciones& dialogo, const std::string& texto);

// A key in Condicional: dropped with message 358 while no condition is selected.
char FiltrarTeclaDeCondicional(Ventana& ventana, const DialogoDeCondiciones& dialogo, char tecla);

}  // namespace qor
