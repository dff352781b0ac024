#pragma once

#include <array>

#include "base/qt/dialog.h"
#include "editor/data_source.h"

class QCheckBox;
class QComboBox;
class QLayout;

namespace qor {

class CajaDeTexto;

// The user's own source of data: three texts, and models for them. What is typed is stored at once.
class FormDataSource : public Dialogo {
    Q_OBJECT
public:
    // Shows the structures of the report over a window.
    using MostrarPreview = std::function<void(const std::string& texto, QWidget* ventana)>;

    FormDataSource(Ventana& ventana, const Preferencias& preferencias, DialogoDeOrigen estado, MostrarPreview preview,
                   const AbrirAyuda& ayuda, QWidget* padre);

    // The cursor goes to a line of one of the texts: Variables, Forms or Source.
    void IrA(const std::string& texto, int linea);

private:
    struct CajaDeOrigen {
        std::string Especificacion::*texto;
        CajaDeTexto* caja = nullptr;
    };

    void CrearTextos();
    QLayout* CrearModelos();
    void CrearBoton(QLayout* orden, const char* nombre, int rotulo, const std::function<void()>& accion);
    void ElegirYEliminar();
    void Habilitar();
    void Mostrar();

    Ventana& ventana_;
    const Preferencias& preferencias_;
    DialogoDeOrigen estado_;
    MostrarPreview preview_;
    bool mostrando_ = false;

    QCheckBox* CheckOtroOrigen_ = nullptr;
    QComboBox* ComboItabs_ = nullptr;
    std::array<CajaDeOrigen, 3> cajas_;
};

}  // namespace qor
