#pragma once

#include <QWidget>

#include "app/pages/page.h"

namespace qor {

class OpcionesDeEntrada;
class Pestanas;

// The second page: the options of the specification and the user's own, on three pages inside of it.
class PaginaDeOpciones : public QWidget {
    Q_OBJECT
public:
    explicit PaginaDeOpciones(const EntornoDePagina& entorno);

    // The tabs SSTab2.
    Pestanas* SSTab2() const { return SSTab2_; }
    // Of the additions of OPEN DATASET, the one with a text of its own is on.
    bool OptionEncodingAdditional() const;

private:
    Pestanas* SSTab2_;
    OpcionesDeEntrada* entrada_;
};

}  // namespace qor
