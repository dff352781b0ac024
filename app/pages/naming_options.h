#pragma once

#include <QWidget>

#include "app/pages/page.h"

namespace qor {

// Options, third page: the prefixes of the names in a report. They are the user's, and not the specification's.
class OpcionesDeNombres : public QWidget {
    Q_OBJECT
public:
    explicit OpcionesDeNombres(const EntornoDePagina& entorno);
};

}  // namespace qor
