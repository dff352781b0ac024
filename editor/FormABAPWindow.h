#pragma once

#include <filesystem>

#include "base/qt/dialog.h"
#include "editor/user_code.h"

class QComboBox;

namespace qor {

class CajaDeTexto;

// The conversion code of a file field, with formulas that can be put into it. Closing it stores the code. Its object name is
// ABAPWindow.
class FormABAPWindow : public Dialogo {
    Q_OBJECT
public:
    FormABAPWindow(Ventana& ventana, int fila, const std::filesystem::path& directorioDeDatos, const AbrirAyuda& ayuda,
                   QWidget* padre);

    // The cursor goes to a line of the code.
    void IrA(int linea);

protected:
    bool PuedeCerrar() override;

private:
    void CrearControles(const AbrirAyuda& ayuda);
    void Aplicar();

    Ventana& ventana_;
    DialogoDeCodigo estado_;

    CajaDeTexto* ABAPText_ = nullptr;
    QComboBox* FormulaCombo_ = nullptr;
};

}  // namespace qor
