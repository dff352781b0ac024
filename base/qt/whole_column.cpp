#include "base/qt/whole_column.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHeaderView>
#include <QTimer>
#include <algorithm>
#include <functional>

namespace qor {

namespace {

// Looks again whenever the width, the rows or the other columns change: once for all of that which comes at once.
class UltimaColumna : public QObject {
public:
    UltimaColumna(QAbstractItemView& vista, QHeaderView& cabecera, std::function<void(int)> medir)
        : QObject(&vista), vista_(vista), cabecera_(cabecera), medir_(std::move(medir)) {
        reloj_.setSingleShot(true);
        reloj_.setInterval(0);
        connect(&reloj_, &QTimer::timeout, this, [this] { Ajustar(); });
        const auto pedir = [this] { reloj_.start(); };
        const auto* const modelo = vista.model();
        connect(modelo, &QAbstractItemModel::modelReset, this, pedir);
        connect(modelo, &QAbstractItemModel::rowsInserted, this, pedir);
        connect(modelo, &QAbstractItemModel::dataChanged, this, pedir);
        connect(&cabecera, &QHeaderView::sectionResized, this, [this](int columna) {
            if (columna != cabecera_.count() - 1) reloj_.start();
        });
        vista.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::Resize || evento->type() == QEvent::Show) reloj_.start();
        return QObject::eventFilter(objeto, evento);
    }

private:
    void Ajustar() {
        const int ultima = cabecera_.count() - 1;
        if (ultima < 0) return;
        medir_(ultima);
        const int resto = vista_.viewport()->width() - cabecera_.sectionPosition(ultima);
        cabecera_.resizeSection(ultima, std::max(cabecera_.sectionSize(ultima), resto));
    }

    QAbstractItemView& vista_;
    QHeaderView& cabecera_;
    std::function<void(int)> medir_;
    QTimer reloj_;
};

template <class Vista>
void Preparar(Vista& vista, QHeaderView& cabecera) {
    cabecera.setStretchLastSection(false);
    vista.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    new UltimaColumna(vista, cabecera, [&vista](int columna) { vista.resizeColumnToContents(columna); });
}

}  // namespace

void MostrarEnteraLaUltimaColumna(QTreeView& arbol) { Preparar(arbol, *arbol.header()); }

void MostrarEnteraLaUltimaColumna(QTableView& tabla) { Preparar(tabla, *tabla.horizontalHeader()); }

}  // namespace qor
