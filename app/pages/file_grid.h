#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "app/pages/grid_parts.h"
#include "app/pages/grid_signs.h"

class QToolButton;

namespace qor {

// The grid of the file side: names and widths of the fields, and for each row the button of its conversion code.
class PanelDeArchivo : public QWidget {
    Q_OBJECT
public:
    PanelDeArchivo(const EntornoDePagina& entorno, const AccionesDeRejilla& acciones, QWidget* padre);

    // Shows the lines of the grid as the editor has them.
    void MostrarLineas();
    MargenDeSignos& Signos() { return *signos_; }
    MarcoDeRejilla& Marco() { return *marco_; }

private:
    void ReservarCodigo();
    QToolButton* NuevoBotonDeCodigo(int linea, QWidget* padre);

    EntornoDePagina entorno_;
    AccionesDeRejilla acciones_;
    std::vector<CeldaDeRejilla*> celdas_;
    std::array<QToolButton*, lineasArchivo> ABAP_{};
    MarcoDeRejilla* marco_;
    QLabel* linea_;
    QScrollBar* barra_;
    MargenDeSignos* signos_;
};

}  // namespace qor
