#pragma once

#include <QStyledItemDelegate>
#include <QTableView>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "input/preview_rows.h"
#include "input/qt/record_model.h"

class QScrollBar;

namespace qor {

// Draws the name of the field in front of a value that bears it, quieter than the value.
class DelegadoDeRegistros : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* pintor, const QStyleOptionViewItem& opcion, const QModelIndex& lugar) const override;
    QSize sizeHint(const QStyleOptionViewItem& opcion, const QModelIndex& lugar) const override;
};

// The table alone: keys and the wheel move over the lines of the file, not over the rows of the model.
class RejillaDeRegistros : public QTableView {
    Q_OBJECT
public:
    explicit RejillaDeRegistros(QWidget* padre);

    // How many whole rows fit.
    int FilasQueCaben() const;

signals:
    // A key asks for another line: so many on, or the first (-1) or last (1) one.
    void LineasPedidas(qlonglong cuantas);
    void ExtremoPedido(int cual);
    void Rueda(int pasos);
    void TamanoCambiado();
    void CopiaPedida();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
};

// A table of the lines of a file of any length, with a scroll bar of its own. One line is the current one, also while it is out of
// sight.
class TablaDeRegistros : public QWidget {
    Q_OBJECT
public:
    TablaDeRegistros(ModeloDeRegistros* modelo, QWidget* padre);

    RejillaDeRegistros* Rejilla() { return rejilla_; }

    // The number of lines that are known.
    void PonerLineas(std::uint64_t lineas);
    // Shows the file from its beginning again, or what is seen of it anew.
    void Empezar();
    void Refrescar();
    // Widths that fit the fields of the layout.
    void AjustarColumnas();

    std::uint64_t Actual() const { return actual_; }
    // The row of the current line in the model; -1 while it is out of sight.
    int FilaActual() const;
    int ColumnaActual() const { return columna_; }
    void IrA(std::uint64_t linea, int columna = -1);

signals:
    // Another cell is the current one, or it is shown anew.
    void ActualCambiada();

private:
    void MoverA(std::uint64_t primera);
    void Colocar();
    void MostrarResto();

    ModeloDeRegistros* modelo_;
    RejillaDeRegistros* rejilla_;
    QScrollBar* barra_;
    VentanaDeRegistros ventana_;
    std::uint64_t primera_ = 0;
    std::uint64_t actual_ = 0;
    int columna_ = 0;
    bool colocando_ = false;
};

}  // namespace qor
