#pragma once

#include "base/qt/dialog.h"

namespace qor {

class CajaDeLinea;

// Asks for the transaction of a new operation, or leads to the BAPI browser.
class FormTrans : public Dialogo {
    Q_OBJECT
public:
    // Runs the BAPI browser over a window.
    using NavegadorDeBAPIs = std::function<void(QWidget* ventana)>;

    FormTrans(const TextosIdioma& textos, NavegadorDeBAPIs navegador, QWidget* padre);

    // The transaction code; empty on Cancel and behind the browser.
    std::string OperacionElegida() const;

private:
    NavegadorDeBAPIs navegador_;
    CajaDeLinea* Transac_ = nullptr;
};

}  // namespace qor
