#pragma once

#include "base/qt/dialog.h"
#include "editor/definitions.h"

class QListWidget;

namespace qor {

class CajaDeTexto;

// The global definitions and the call texts of BAPIs. What is typed is stored at once.
class FormNuevasVariables : public Dialogo {
    Q_OBJECT
public:
    // Runs the BAPI browser over a window, for a definition instead of rows.
    using NavegadorDeBAPIs = std::function<void(QWidget* ventana)>;

    FormNuevasVariables(Ventana& ventana, NavegadorDeBAPIs navegador, const AbrirAyuda& ayuda, QWidget* padre);

    // Selects an entry of the list, with the cursor at a line of its text where one is named.
    void IrA(int definicion, int linea);

private:
    void CrearControles(const AbrirAyuda& ayuda);
    void Mostrar();

    Ventana& ventana_;
    NavegadorDeBAPIs navegador_;
    DialogoDeDefiniciones estado_;
    bool mostrando_ = false;

    QListWidget* ListaDefiniciones_ = nullptr;
    CajaDeTexto* Vars_ = nullptr;
};

}  // namespace qor
