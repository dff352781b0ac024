#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/files.h"
#include "base/messages.h"
#include "base/view.h"
#include "editor/undo.h"
#include "model/naming.h"
#include "model/options.h"
#include "model/specification.h"

namespace qor {

constexpr int lineasArchivo = 14;
constexpr int lineasTransaccion = 11;

// Offsets at which the last line of a grid shows row 1000; row 1001 is never shown.
constexpr int ultimaPrimeraFilaArchivo = 987;
constexpr int ultimaPrimeraFilaTransaccion = 990;

// Colours of the classic set of 16.
enum class Color { Negro = 0, Azul = 9, Rojo = 12 };

// The columns of cells, from left to right: two of the file grid, four of the program grid.
enum class Columna { Text1, Text2, Text6, Text3, Text4, Text5 };

// A cell of a grid by its column and line.
struct LugarDeCelda {
    Columna columna;
    int linea;
    bool operator==(const LugarDeCelda&) const = default;
};

// A row whose note or code a dialog edits.
struct FilaDeTabla {
    Tabla tabla = Tabla::Archivo;
    int fila = 0;
    bool operator==(const FilaDeTabla&) const = default;
};

struct Celda {
    std::string texto;
    Color color = Color::Negro;
};

// The two grids: windows on the tables, which hold the truth.
struct RejillaArchivo {
    std::array<Celda, lineasArchivo> Text1;  // field name; red with a note
    std::array<Celda, lineasArchivo> Text2;  // width
    std::array<Celda, lineasArchivo> ABAP;   // no text; red with conversion text
    int PrimeraFilaArchivo = 0;              // table row in line 0
    int LineaArchivo = 0;                    // table row last entered
};

struct RejillaTransaccion {
    std::array<Celda, lineasTransaccion> Text6;  // "TRANS", "BAPI" or program
    std::array<Celda, lineasTransaccion> Text3;  // code or dynpro
    std::array<Celda, lineasTransaccion> Text4;  // field; red with a note
    std::array<Celda, lineasTransaccion> Text5;  // value
    int PrimeraFilaTransaccion = 0;
    int LineaTransaccion = 0;
};

// The searches of the two grids.
struct Busquedas {
    struct Busqueda {
        bool enCurso = false;    // the next one goes on behind the row last entered
        bool siguiente = false;  // the button says "find next"
    };
    std::string TextoBuscado;
    Busqueda archivo;
    Busqueda transaccion;
};

// What the main form shows beside the grids and the option controls.
struct EstadoDeVentana {
    std::optional<LugarDeCelda> foco;  // the cell that has the focus
    bool ExpandirCampo = false;        // the field column has the room of the two in front of it; the button shows "-"
    int SSTab1 = 0;                    // pages shown
    int SSTab2 = 0;
    std::string ReporteTrans;  // file to import
};

// The specification that is open, what is seen of it, and its document. One of these for each specification; nothing is shared.
struct Editor {
    Editor(const TextosIdioma& textosDelIdioma, Vista& vistaDelEditor) : textos(textosDelIdioma), vista(vistaDelEditor) {}

    const TextosIdioma& textos;
    Vista& vista;

    Especificacion especificacion;
    Opciones opciones;
    RejillaArchivo archivo;
    RejillaTransaccion transaccion;
    Busquedas busquedas;
    EstadoDeVentana ventana;
    bool DuplicadoRevisado = false;  // the duplicate rule has run since a cell of Text1 changed
    PilaDeshacer deshacer;
    bool UndoButton = false;       // enabled
    bool RegistrarCambios = true;  // a change of a cell is the user's, and can be undone
    bool HayCambios = false;       // the specification differs from its document

    std::string RutaDocumento;  // absolute; empty for a new document
    std::string NombreDocumento;
    std::string DirectorioDocumentos;
    ArchivoBloqueado CanalDocumento;  // the open file that is the lock
    bool GrabacionFallida = false;
    // A document named at the start of the program, opened without a dialog.
    bool AbrirDesdeComando = false;
    std::string ArchivoInicial;
    // A document named at the start could not be opened: the program ends.
    bool TerminarPrograma = false;

    bool DocumentoBloqueado() const { return CanalDocumento.Abierto(); }
    // There are definitions, so the button NewDef bears its second picture.
    bool HayDefiniciones() const;
};

// As long as it lives, changes of cells are not the user's and leave no step to undo.
class SinRegistrarCambios {
public:
    explicit SinRegistrarCambios(Editor& editor) : editor_(editor), antes_(editor.RegistrarCambios) {
        editor_.RegistrarCambios = false;
    }
    ~SinRegistrarCambios() { editor_.RegistrarCambios = antes_; }
    SinRegistrarCambios(const SinRegistrarCambios&) = delete;
    SinRegistrarCambios& operator=(const SinRegistrarCambios&) = delete;

private:
    Editor& editor_;
    bool antes_;
};

// Pushes a step to undo; the specification then differs from its document.
void GuardarDeshacer(Editor& editor, RegistroDeshacer registro);
// Takes the last step off; nothing when there is none.
std::optional<RegistroDeshacer> RecuperarDeshacer(Editor& editor);
void ReiniciarDeshacer(Editor& editor);

}  // namespace qor
