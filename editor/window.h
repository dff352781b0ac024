#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/messages.h"
#include "base/view.h"
#include "model/columns.h"
#include "model/document.h"
#include "model/first_lines.h"

namespace qor {

// Offsets at which the last line of a grid shows row 1000; row 1001 is never shown.
constexpr int ultimaPrimeraFilaArchivo = 987;
constexpr int ultimaPrimeraFilaTransaccion = 990;

// Colours of the classic set of 16.
enum class Color { Negro = 0, Azul = 9, Rojo = 12 };

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

// Rows of a grid that are marked: from where the marking began to where the focus is, in any order.
struct FilasMarcadas {
    Tabla tabla = Tabla::Archivo;
    int ancla = 0;
    int ultima = 0;
};

struct Celda {
    std::string texto;
    Color color = Color::Negro;
};

// The two grids: windows on the tables, which hold the truth.
struct RejillaArchivo {
    std::array<Celda, lineasArchivo> campo;  // red with a note
    std::array<Celda, lineasArchivo> ancho;
    std::array<Celda, lineasArchivo> conversion;  // no text; red where there is one
    int PrimeraFilaArchivo = 0;                   // table row in line 0
    int LineaArchivo = 0;                         // table row last entered
};

struct RejillaTransaccion {
    std::array<Celda, lineasTransaccion> programa;  // blue on the head of an operation
    std::array<Celda, lineasTransaccion> dynpro;
    std::array<Celda, lineasTransaccion> campo;  // red with a note
    std::array<Celda, lineasTransaccion> valor;
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

// What is seen of a document: its grids, the focus, the pages of the tabs, the searches. One window for each document; the document
// outlives it.
struct Ventana {
    Ventana(Documento& documentoQueSeVe, const TextosIdioma& textosDelIdioma, Vista& vistaDeLaVentana)
        : documento(documentoQueSeVe), textos(textosDelIdioma), vista(vistaDeLaVentana) {}

    Documento& documento;
    const TextosIdioma& textos;
    Vista& vista;

    RejillaArchivo archivo;
    RejillaTransaccion transaccion;
    Busquedas busquedas;
    std::optional<LugarDeCelda> foco;            // the cell that has the focus
    bool DuplicadoRevisado = false;              // the duplicate rule has run since a name of the file grid changed
    std::optional<FilasMarcadas> filasMarcadas;  // by Shift and the arrow keys, until the focus goes elsewhere
    std::string aviso;                           // a hint for the user under the grid, until the next value; in windows-1252
    bool ExpandirCampo = false;                  // the field column has the room of the two in front of it; the button shows "-"
    int SSTab1 = 0;                              // pages shown
    int SSTab2 = 0;
    std::filesystem::path ReporteTrans;  // file to import

    // As a window on a new document stands.
    void Reiniciar();
};

}  // namespace qor
