#pragma once

#include <string>
#include <vector>

class QComboBox;
class QListWidget;

namespace qor {

// Makes a list show these texts, with one selected, -1 for none. A list that shows them already stays, so that it can be called
// while the list tells of a selection.
void PonerLista(QListWidget& lista, const std::vector<std::string>& textos, int seleccion);

// Fills a combo box, with its first text chosen; nothing chosen when there is none.
void PonerCombo(QComboBox& combo, const std::vector<std::string>& textos);

}  // namespace qor
