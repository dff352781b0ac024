#pragma once

#include <QWidget>

#include "app/findings_watch.h"
#include "app/pages/edit_box.h"
#include "app/pages/grid_parts.h"
#include "app/pages/source_box.h"

class QLabel;
class QSettings;
class QSplitter;

namespace qor {

class PanelDeArchivo;
class PanelDePrograma;

// The first page: the two grids, what edits them, and the source of the data.
class PaginaDeRejillas : public QWidget {
    Q_OBJECT
public:
    struct Acciones {
        AccionesDeRejilla rejilla;
        CajaDeEdicion::Acciones edicion;
        PanelDeOrigen::Acciones origen;
    };

    PaginaDeRejillas(const EntornoDePagina& entorno, const Acciones& acciones);

    // Shows the lines of both grids; the options keep what they show.
    void MostrarRejillas();
    // The signs of rows with findings.
    void PonerSignos(SignosDeFilas archivo, SignosDeFilas programa);
    // Searches again in the grid that was searched last; as a command.
    void RepetirBusqueda() { edicion_->RepetirBusqueda(); }

    // The widths that a user has given grids and columns.
    void GuardarReparto(QSettings& ajustes) const;
    void RestaurarReparto(const QSettings& ajustes);

private:
    static QLabel* NuevoAviso(const EntornoDePagina& entorno, QWidget* padre);

    QSplitter* division_ = nullptr;
    PanelDeArchivo* archivo_;
    PanelDePrograma* programa_;
    CajaDeEdicion* edicion_;
};

}  // namespace qor
