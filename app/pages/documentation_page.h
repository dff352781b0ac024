#pragma once

#include <QWidget>

#include "app/pages/page.h"

class QLayout;
class QSlider;

namespace qor {

// The fourth page: the documentation of the specification.
class PaginaDeDocumentacion : public QWidget {
    Q_OBJECT
public:
    explicit PaginaDeDocumentacion(const EntornoDePagina& entorno);

private:
    // How much is completed: a slider and its percentage.
    QLayout* NuevoAvance(QSlider*& completado);

    EntornoDePagina entorno_;
};

}  // namespace qor
