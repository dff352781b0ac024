#pragma once

#include "base/qt/dialog.h"
#include "base/view.h"
#include "sap/logon_choice.h"

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace qor {

// Asks for the system to log on to, a real one or the practice system, and who logs on. The password leaves the dialog in the
// parameters alone.
class FormLogon : public Dialogo {
    Q_OBJECT
public:
    // Shows the choice, and fills it when it is accepted. A text that can't be sent whole is refused: the dialog stays. `practica`
    // is the file of the practice system.
    FormLogon(EleccionDeLogon& eleccion, const std::filesystem::path& practica, const TextosIdioma& textos, Vista& vista,
              QWidget* padre);
    ~FormLogon() override;

protected:
    bool PuedeCerrar() override;

private:
    QLineEdit* NuevaCaja(const char* nombre, const std::string& texto, int letras = 0);
    QRadioButton* NuevaOpcion(const char* nombre, int rotulo, QWidget* marco);
    QWidget* CrearSistema();
    QWidget* CrearUsuario();
    QWidget* CrearPractica(const std::filesystem::path& practica);
    void Elegir();
    struct Fila {
        const char* nombre;
        int rotulo = 0;
        QLineEdit* caja;
    };
    void LlenarFilas(QGridLayout* rejilla, int primera, std::initializer_list<Fila> filas);
    // What is chosen has all that it needs: the practice system nothing, a real one its names, and a user.
    bool Completo() const;
    void Habilitar();
    bool TodosSePuedenMandar();

    EleccionDeLogon& eleccion_;
    ParametrosDeLogon& parametros_;
    Vista& vista_;
    bool aceptado_ = false;
    QRadioButton* OptionServidor_ = nullptr;
    QRadioButton* OptionMensajes_ = nullptr;
    QRadioButton* OptionPractica_ = nullptr;
    QComboBox* Rol_ = nullptr;
    QWidget* FrameUsuario_ = nullptr;
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
