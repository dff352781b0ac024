#pragma once

#include "base/qt/dialog.h"
#include "sap/queue_choice.h"

class QTableWidget;

namespace qor {

// The list of the system's recordings or sessions. A double click, or Enter, takes one.
class FormImport : public Dialogo {
    Q_OBJECT
public:
    // `formulario` says what is listed, and takes the file that is written.
    FormImport(FormularioImport& formulario, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista, QWidget* padre);

protected:
    void showEvent(QShowEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void CrearGrilla();
    void Llenar();
    void Activar(int fila);

    FormularioImport& formulario_;
    SesionSAP& sesion_;
    Vista& vista_;
    bool llena_ = false;
    QTableWidget* Grilla_ = nullptr;
};

}  // namespace qor
