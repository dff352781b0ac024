#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "app/pages/grid_parts.h"
#include "app/pages/grid_signs.h"

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

    // The shares of the columns, with the button at "+" and at "-".
    std::array<std::vector<int>, 2> Partes() const;
    void PonerPartes(const std::array<std::vector<int>, 2>& partes);

private:
    void RepartirColumnas();
    void MostrarFormas(CeldaDeRejilla* celda);

    EntornoDePagina entorno_;
    std::vector<CeldaDeRejilla*> celdas_;
    MarcoDeRejilla* marco_;
    QLabel* relleno_;
    std::array<std::vector<int>, 2> partes_;
    QPushButton* expandir_;
    QLabel* linea_;
    QScrollBar* barra_;
    MargenDeSignos* signos_;
    int expandido_ = -1;  // state for which the columns were laid out
};

}  // namespace qor
