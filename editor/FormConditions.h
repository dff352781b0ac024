#pragma once

#include "base/qt/dialog.h"
#include "editor/conditions.h"

class QListWidget;
class QPushButton;

namespace qor {

class CajaDeLinea;
class CajaDeTexto;

// The named conditions of the specification. What is typed is stored at once.
class FormConditions : public Dialogo {
    Q_OBJECT
public:
    FormConditions(Ventana& ventana, const AbrirAyuda& ayuda, QWidget* padre);

    // Selects a condition; where a line is named, the cursor goes to that line of its text.
    void IrA(int condicion, int linea);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void CrearControles(const AbrirAyuda& ayuda);
    void Escuchar();
    // Shows the state; changes of the controls that come of it are not the user's.
    void Mostrar();

    Ventana& ventana_;
    DialogoDeCondiciones estado_;
    bool mostrando_ = false;

    QListWidget* ListaCondiciones_ = nullptr;
    CajaDeTexto* Condicional_ = nullptr;
    CajaDeLinea* Nuevo_ = nullptr;
    QPushButton* Agregar_ = nullptr;
    QPushButton* Borrar_ = nullptr;
    QPushButton* OK_ = nullptr;
};

}  // namespace qor
