#pragma once

#include <QFrame>
#include <QLabel>
#include <functional>
#include <vector>

#include "app/pages/page.h"
#include "app/qt/grid_cell.h"

class QGridLayout;
class QScrollBar;

// What the two grids of the first page are made of.
namespace qor {

// What the grids ask of the main form.
struct AccionesDeRejilla {
    std::function<void(FilaDeTabla)> notas;  // the note of a row
    std::function<void(int)> codigo;         // the conversion code of a file row
};

// A cell that passes its events to the core.
CeldaDeRejilla* NuevaCelda(const EntornoDePagina& entorno, LugarDeCelda lugar, QWidget* padre,
                           const std::function<void(FilaDeTabla)>& notas);

// The cells of a grid, which were made line by line, by their lines.
std::vector<std::vector<QWidget*>> CeldasPorLinea(const std::vector<CeldaDeRejilla*>& celdas, int lineas);

// A frame whose ground shows between the cells as the lines of a grid. The wheel moves rows over it: `desplazar` is told how many,
// down for positive ones.
class MarcoDeRejilla : public QFrame {
public:
    MarcoDeRejilla(QWidget* padre, std::function<void(int)> desplazar);

    QGridLayout* Orden() const { return orden_; }

protected:
    void wheelEvent(QWheelEvent* evento) override;

private:
    std::function<void(int)> desplazar_;
    QGridLayout* orden_;
    int restoDeRueda_ = 0;
};

// The number of the row last entered; a double click on it runs an action.
class RotuloDeLinea : public QLabel {
public:
    RotuloDeLinea(QWidget* padre, std::function<void()> dobleClic) : QLabel(padre), dobleClic_(std::move(dobleClic)) {}

protected:
    void mouseDoubleClickEvent(QMouseEvent* evento) override;

private:
    std::function<void()> dobleClic_;
};

// A heading of a column: a label on the ground of buttons.
QLabel* ComoCabecera(QLabel* rotulo);

QScrollBar* NuevaBarra(QWidget* padre, const char* nombre, int ultima, int lineas);

// Height of the line above a grid, the same for both.
int AltoDeTitulo(const QWidget& control);

}  // namespace qor
