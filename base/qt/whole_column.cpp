#include "base/qt/whole_column.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHeaderView>
#include <QTimer>
#include <algorithm>

namespace qor {

namespace {

// Looks again whenever the width, the rows or the other columns change: once for all of that which comes at once.
class UltimaColumna : public QObject {
public:
    explicit UltimaColumna(QTreeView& arbol) : QObject(&arbol), arbol_(arbol) {
        reloj_.setSingleShot(true);
        reloj_.setInterval(0);
        connect(&reloj_, &QTimer::timeout, this, [this] { Ajustar(); });
        const auto pedir = [this] { reloj_.start(); };
        const auto* const modelo = arbol.model();
        connect(modelo, &QAbstractItemModel::modelReset, this, pedir);
        connect(modelo, &QAbstractItemModel::rowsInserted, this, pedir);
        connect(modelo, &QAbstractItemModel::dataChanged, this, pedir);
        connect(arbol.header(), &QHeaderView::sectionResized, this, [this](int columna) {
            if (columna != arbol_.header()->count() - 1) reloj_.start();
        });
        connect(&arbol, &QTreeView::expanded, this, pedir);
        arbol.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::Resize || evento->type() == QEvent::Show) reloj_.start();
        return QObject::eventFilter(objeto, evento);
    }

private:
    void Ajustar() {
        auto* const cabecera = arbol_.header();
        const int ultima = cabecera->count() - 1;
        if (ultima < 0) return;
        arbol_.resizeColumnToContents(ultima);
        const int resto = arbol_.viewport()->width() - cabecera->sectionPosition(ultima);
        cabecera->resizeSection(ultima, std::max(cabecera->sectionSize(ultima), resto));
    }

    QTreeView& arbol_;
    QTimer reloj_;
};

}  // namespace

void MostrarEnteraLaUltimaColumna(QTreeView& arbol) {
    arbol.header()->setStretchLastSection(false);
    arbol.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    new UltimaColumna(arbol);
}

}  // namespace qor
