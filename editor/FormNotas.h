#pragma once

#include "base/qt/dialog.h"
#include "editor/notes.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace qor {

class CajaDeLinea;
class CajaDeTexto;

// The note of a row. It has three shapes: a line for a file row; a note alone; a note with the step-loop that the row heads.
// Closing it in whatever way stores the note, or is refused.
class FormNotas : public Dialogo {
    Q_OBJECT
public:
    // Throws FalloDeEjecucion when the marks of the row stand in the wrong order.
    FormNotas(Ventana& ventana, FilaDeTabla fila, const AbrirAyuda& ayuda, QWidget* padre);

protected:
    bool PuedeCerrar() override;

private:
    void CrearNota();
    void CrearStepLoop();
    QLayout* CrearArchivo();
    QLayout* CrearModos();
    void Escuchar();
    void MostrarForma();
    std::string FiltrarNota(std::string_view texto);
    void LeerLista();

    Ventana& ventana_;
    DialogoDeNotas estado_;

    CajaDeTexto* NotaCampo_ = nullptr;
    QCheckBox* Steploop_ = nullptr;
    QWidget* partes_ = nullptr;  // all that belongs to a step-loop
    QLabel* FileLabel_ = nullptr;
    CajaDeLinea* NombreArchivo_ = nullptr;
    QPushButton* ExaminarStep_ = nullptr;
    QLabel* DescripcionLabel_ = nullptr;
    CajaDeLinea* Descripcion_ = nullptr;
    QLabel* CamposLabel_ = nullptr;
    QListWidget* ListaCampos_ = nullptr;
    QGroupBox* ModoFrame_ = nullptr;
    QRadioButton* NuevaOpt_ = nullptr;
    QRadioButton* AvanceOpt_ = nullptr;
    QGroupBox* FrameParametros_ = nullptr;
    QLabel* FilasLabel_ = nullptr;
    CajaDeLinea* Filas_ = nullptr;
    QRadioButton* Pos1_ = nullptr;
    QRadioButton* Pos2_ = nullptr;
};

}  // namespace qor
