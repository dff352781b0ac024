#pragma once

#include <QTableView>
#include <QTreeView>

namespace qor {

// The last column of a tree or table, whose model is set, has room for its title and for what it shows, and takes what is left of
// the width; what is wider than the view is scrolled to.
void MostrarEnteraLaUltimaColumna(QTreeView& arbol);
void MostrarEnteraLaUltimaColumna(QTableView& tabla);

}  // namespace qor
