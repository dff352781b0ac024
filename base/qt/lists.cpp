#include "base/qt/lists.h"

#include <QComboBox>
#include <QListWidget>

#include "base/qt/text.h"

namespace qor {

namespace {

QStringList TextosQt(const std::vector<std::string>& textos) {
    QStringList lista;
    for (const auto& texto : textos) lista << TextoQt(texto);
    return lista;
}

}  // namespace

void PonerLista(QListWidget& lista, const std::vector<std::string>& textos, int seleccion) {
    const QStringList nuevos = TextosQt(textos);
    QStringList presentes;
    for (int i = 0; i < lista.count(); ++i) presentes << lista.item(i)->text();
    if (presentes != nuevos) {
        lista.clear();
        lista.addItems(nuevos);
    }
    if (lista.currentRow() != seleccion) lista.setCurrentRow(seleccion);
}

void PonerCombo(QComboBox& combo, const std::vector<std::string>& textos) {
    combo.clear();
    combo.addItems(TextosQt(textos));
}

}  // namespace qor
