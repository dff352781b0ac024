#pragma once

#include <string>
#include <vector>

#include "editor/window.h"

// The rules of FormNotas: the note of a row, and on the program side the step-loop that the row can be the head of.
namespace qor {

// The dialog's controls, under their names, and what decides over its shape. Of a pair of radio buttons the first one is kept.
struct DialogoDeNotas {
    struct Campo {
        std::string nombre;
        bool elegido = false;
    };

    FilaDeTabla fila;
    std::string titulo;
    bool EsStepLoop = false;      // the step-loop part is offered
    bool SinArchivoStep = false;  // the step-loop has no file of its own
    bool esBAPI = false;          // the row's operation

    std::string NotaCampo;
    int Steploop = 0;
    std::string NombreArchivo;
    bool NuevaOpt = true;  // else AvanceOpt
    std::string Descripcion;
    bool Pos1 = true;  // else Pos2
    std::string Filas;
    std::vector<Campo> ListaCampos;

    // What is seen. `FrameParametros` holds ModoFrame, DespuesLabel, Pos1 and Pos2.
    bool VerSteploop() const { return EsStepLoop; }
    bool VerLista() const { return EsStepLoop && Steploop == 1; }      // ListaCampos, CamposLabel
    bool VerParametros() const { return VerLista() && !esBAPI; }       // FrameParametros, ModoFrame
    bool VerArchivo() const { return VerLista() && !SinArchivoStep; }  // NombreArchivo and Descripcion with all theirs
    bool VerFilas() const { return VerParametros() && !NuevaOpt; }     // Filas, FilasLabel
    int RotuloDeSteploop() const { return esBAPI ? 175 : 93; }
};

// Throws FalloDeEjecucion when the row's marks stand in the wrong order.
DialogoDeNotas AbrirNotas(Ventana& ventana, FilaDeTabla fila);

// Writes the row. False refuses the closing, with the message shown and the row as it was: rows per screen are missing (352), or a
// step-loop with a file of its own has no field (353).
bool CerrarNotas(Ventana& ventana, const DialogoDeNotas& dialogo);

// A key in NotaCampo: "!" would forge a mark, and the note of a file row is a single line (message 354). Enter is '\r'.
char FiltrarTeclaDeNota(Ventana& ventana, const DialogoDeNotas& dialogo, char tecla);

// A change of Filas: at most two digits.
void CambiarFilas(DialogoDeNotas& dialogo, const std::string& texto);

// The file of the step-loop, from the open dialog; the name stays when the user cancels.
void ExaminarStep(Ventana& ventana, DialogoDeNotas& dialogo);

}  // namespace qor
