#pragma once

#include <QWidget>

#include "app/pages/page.h"

namespace qor {

// Options, first page: posting, error handling, titles and the session.
class OpcionesDeErrores : public QWidget {
    Q_OBJECT
public:
    explicit OpcionesDeErrores(const EntornoDePagina& entorno);

private:
    QWidget* NuevaContabilizacion();
    QWidget* NuevoManejoDeErrores();
    QWidget* NuevosTitulos();
    QWidget* NuevoJuegoDeDatos();

    EntornoDePagina entorno_;
};

}  // namespace qor
