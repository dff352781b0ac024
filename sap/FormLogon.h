#pragma once

#include "base/qt/dialog.h"
#include "base/view.h"
#include "sap/nwrfc_service.h"

class QGridLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace qor {

// Asks for the system to log on to, and who logs on. The password leaves the dialog in the parameters alone.
class FormLogon : public Dialogo {
    Q_OBJECT
public:
    // Shows the parameters, and fills them when it is accepted. A text that can't be sent whole is refused: the dialog stays.
    FormLogon(ParametrosDeLogon& parametros, const TextosIdioma& textos, Vista& vista, QWidget* padre);
    ~FormLogon() override;

protected:
    bool PuedeCerrar() override;

private:
    QLineEdit* NuevaCaja(const char* nombre, const std::string& texto, int letras = 0);
    QWidget* CrearSistema();
    QWidget* CrearUsuario();
    struct Fila {
        const char* nombre;
        std::string_view rotulo;
        QLineEdit* caja;
    };
    void LlenarFilas(QGridLayout* rejilla, int primera, std::initializer_list<Fila> filas);
    // One of the two ways to the system has all that it needs, and so has the user.
    bool Completo() const;
    void Habilitar();
    bool TodosSePuedenMandar();

    ParametrosDeLogon& parametros_;
    Vista& vista_;
    bool aceptado_ = false;
    QRadioButton* OptionServidor_ = nullptr;
    QRadioButton* OptionMensajes_ = nullptr;
    QLineEdit* Servidor_ = nullptr;
    QLineEdit* NumeroDeSistema_ = nullptr;
    QLineEdit* ServidorDeMensajes_ = nullptr;
    QLineEdit* Sistema_ = nullptr;
    QLineEdit* Grupo_ = nullptr;
    QLineEdit* Ruta_ = nullptr;
    QLineEdit* Cliente_ = nullptr;
    QLineEdit* Usuario_ = nullptr;
    QLineEdit* Clave_ = nullptr;
    QLineEdit* Idioma_ = nullptr;
    QPushButton* OK_ = nullptr;
};

}  // namespace qor
