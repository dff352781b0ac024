#pragma once

#include "base/qt/dialog.h"
#include "base/view.h"
#include "sap/session.h"

class QPushButton;

namespace qor {

class CajaDeLinea;

// Asks for the name under which a program is put into the system.
class FormABAP : public Dialogo {
    Q_OBJECT
public:
    // `NombreElegido` is shown at first.
    FormABAP(SesionSAP& sesion, const TextosIdioma& textos, Vista& vista, std::string NombreElegido, QWidget* padre);

    // Empty when the user backed out, or the system could not tell whether the program exists.
    const std::string& NombreElegido() const { return NombreElegido_; }

private:
    void Aceptar();
    void Habilitar();

    SesionSAP& sesion_;
    Vista& vista_;
    std::string NombreElegido_;
    CajaDeLinea* NombreABAP_ = nullptr;
    QPushButton* OK_ = nullptr;
    QPushButton* Cancel_ = nullptr;
};

}  // namespace qor
