#pragma once

class QWidget;

namespace qor {

// Set on a widget whose controls keep the order that they have among themselves, such as the cells of a grid.
constexpr const char* propiedadDeOrdenPropio = "ordenPropio";

// Makes the order of the tabulator that in which a window is read: its layouts from their first to their last item, grids line by
// line, splitters and pages one behind the other. Controls that are hidden, or come to be shown later, have their place in it.
void OrdenarTabulador(QWidget& ventana);

// Gives each control that a label leads to the words of the label as the name that is read to those who don't see it, where it has
// no name of its own. Again behind a change of the language.
void NombrarPorRotulos(QWidget& ventana);

}  // namespace qor
