#pragma once

#include <array>

#include "base/qt/dialog.h"
#include "base/view.h"
#include "dataset/data_set.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace qor {

class CajaDeLinea;
class VistaDeLineas;

// The end user's editor of data sets: a replacement under conditions, or a look at the lines of the file.
class FormBDCEditor : public Dialogo {
    Q_OBJECT
public:
    FormBDCEditor(const TextosIdioma& textos, Vista& vista, const AbrirAyuda& ayuda, QWidget* padre);

    // Scans a file and fills the lists with what it holds, as Browse does for the chosen one.
    void Abrir(const std::filesystem::path& ruta);

protected:
    // A run that is under way is stopped first.
    bool PuedeCerrar() override;

private:
    struct Condicion {
        QComboBox* campo = nullptr;
        QComboBox* accion = nullptr;
        CajaDeLinea* valor = nullptr;
    };

    QLayout* CrearArchivo();
    void CrearSeleccion();
    void CrearReemplazo();
    void CrearValor();
    void CrearManual();
    QLayout* CrearEjecucion();
    void CambiarVista();

    void ResetearValores();
    void SetearCampos(bool activo);
    void LlenarListas();
    void HabilitarValor();
    void Ejecutar();
    void AbrirManual();
    Reemplazo PedidoDeReemplazo() const;
    // Runs a long action with the progress bar and the stop button.
    void ConProgreso(const std::function<void(const Progreso&)>& accion);

    Vista& vista_;
    std::filesystem::path RutaArchivo_;
    JuegoDeDatos datos_;
    bool trabajando_ = false;
    bool detener_ = false;
    bool manual_ = false;

    QPushButton* Browse_ = nullptr;
    QLabel* FileToEdit_ = nullptr;
    QLabel* LabelCompletado_ = nullptr;
    QGroupBox* FrameSeleccionar_ = nullptr;
    QComboBox* TransaccionCombo_ = nullptr;
    std::array<Condicion, 3> condiciones_;
    QRadioButton* OpcionSiempre_ = nullptr;
    QRadioButton* OpcionUnaVez_ = nullptr;
    QGroupBox* FrameReemplazar_ = nullptr;
    QComboBox* ComboField_ = nullptr;
    CajaDeLinea* NuevoValorCampo_ = nullptr;
    QRadioButton* OptionCualquiera_ = nullptr;
    QRadioButton* OptionValor_ = nullptr;
    QGroupBox* FrameValor_ = nullptr;
    CajaDeLinea* ValorCampo_ = nullptr;
    QRadioButton* OptionTodo_ = nullptr;
    QRadioButton* OptionParte_ = nullptr;
    QGroupBox* FrameManual_ = nullptr;
    VistaDeLineas* TextoManual_ = nullptr;
    QLabel* PosicionManual_ = nullptr;
    QPushButton* Ejecutar_ = nullptr;
    QProgressBar* ProgressBar1_ = nullptr;
    QPushButton* Detener_ = nullptr;
    QPushButton* EdicionButton_ = nullptr;
    QPushButton* Ayuda_ = nullptr;
    QPushButton* OK_ = nullptr;
};

}  // namespace qor
