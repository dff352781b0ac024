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
    // The context menu of a cell, at a point of the screen.
    std::function<void(LugarDeCelda, const QPoint&)> menu;
};

// A cell that passes its events to the core.
CeldaDeRejilla* NuevaCelda(const EntornoDePagina& entorno, LugarDeCelda lugar, QWidget* padre, const AccionesDeRejilla& acciones);

// The number of the text above a column.
int TituloDe(Columna columna);

// The lines of a grid as the editor has them, with the marked rows.
void MostrarCeldas(const Ventana& ventana, const std::vector<CeldaDeRejilla*>& celdas);

// The cells of a grid, which were made line by line, by their lines.
std::vector<std::vector<QWidget*>> CeldasPorLinea(const std::vector<CeldaDeRejilla*>& celdas, int lineas);

// A frame whose ground shows between the cells as the lines of a grid. The wheel moves rows over it: `desplazar` is told how many,
// down for positive ones. Its first columns share the room there is; the borders between them can be dragged on the headings.
class MarcoDeRejilla : public QFrame {
public:
    MarcoDeRejilla(QWidget* padre, std::function<void(int)> desplazar);

    QGridLayout* Orden() const { return orden_; }

    // The heading of the next column that shares the room, at least so many letters wide.
    QLabel* NuevaCabecera(const char* nombre, int letras);
    // The shares of those columns, in any measure.
    void PonerPartes(const std::vector<int>& partes);
    const std::vector<int>& Partes() const { return partes_; }
    // Makes the column wider or narrower at the cost of the next one.
    void MoverBorde(int columna, int paso);

protected:
    void wheelEvent(QWheelEvent* evento) override;

private:
    std::function<void(int)> desplazar_;
    QGridLayout* orden_;
    std::vector<int> partes_;
    int cabeceras_ = 0;
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
