#pragma once

#include <QWidget>

#include "app/pages/page.h"

class QGridLayout;

namespace qor {

// Options, second page: one input file or several, and the user's choices of upload and OPEN DATASET.
class OpcionesDeEntrada : public QWidget {
    Q_OBJECT
public:
    explicit OpcionesDeEntrada(const EntornoDePagina& entorno);

    bool OptionEncodingAdditional() const { return encoding_ == OpcionEncoding::Additional; }

private:
    QWidget* NuevaEntrada();
    QWidget* NuevoCliente();
    QWidget* NuevoServidor();

    EntornoDePagina entorno_;
    OpcionEncoding encoding_;
};

}  // namespace qor
