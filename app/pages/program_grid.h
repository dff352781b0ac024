#pragma once

#include <QWidget>
#include <vector>

#include "app/pages/grid_parts.h"
#include "app/pages/grid_signs.h"

class QGridLayout;
class QPushButton;

namespace qor {

// The grid of the program side: transactions, screens, fields and values, and the button that gives the field column more room.
class PanelDePrograma : public QWidget {
    Q_OBJECT
public:
    PanelDePrograma(const EntornoDePagina& entorno, const AccionesDeRejilla& acciones, QWidget* padre);

    // Shows the lines of the grid as the editor has them.
    void MostrarLineas();
    MargenDeSignos& Signos() { return *signos_; }

private:
    void RepartirColumnas();

    EntornoDePagina entorno_;
    std::vector<CeldaDeRejilla*> celdas_;
    QGridLayout* columnas_;
    QPushButton* expandir_;
    QLabel* linea_;
    QScrollBar* barra_;
    MargenDeSignos* signos_;
    int expandido_ = -1;  // state for which the columns were laid out
};

}  // namespace qor
