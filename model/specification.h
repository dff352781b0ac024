#pragma once

#include <array>
#include <string>
#include <vector>

namespace qor {

// Limits of the tables. Rows are numbered from 0; no scan goes past row `ultimaFila`.
constexpr int filasTabla = 1002;
constexpr int ultimaFila = 1000;
constexpr int filasTablaBAPIs = 502;

template <std::size_t columnas>
using TablaDeTextos = std::vector<std::array<std::string, columnas>>;

// The specification: plain data, all texts in windows-1252. An empty cell is the empty string.
struct Especificacion {
    // File side: field name, width in decimal text, note, conversion text. The first row with a blank name ends the table.
    TablaDeTextos<4> TablaArchivo{filasTabla};

    // Program side: operation or screen's program, code or dynpro, field name, value cell, note with step-loop marks.
    TablaDeTextos<5> TablaTransaccion{filasTabla};

    // Named conditions: name, ABAP text. The first empty name ends the table.
    TablaDeTextos<2> TablaCondiciones{filasTabla};

    // BAPIs in use: name, whole text of the CALL FUNCTION statement in lines that CR LF separates.
    TablaDeTextos<2> TablaBAPIs{filasTablaBAPIs};

    bool OrigenUsuario = false;     // the data come from source code of the user's
    std::string OrigenVariables;    // its declarations
    std::string OrigenForms;        // its forms
    std::string OrigenSource;       // the body of USER_FORM
    std::string VariablesGlobales;  // declarations added by the user or by a BAPI insertion

    // The file row doesn't exist: its name is blank.
    bool FilaArchivoVacia(int fila) const;
    // Columns 0 and 2 of the program row are blank, which ends the table whatever else it holds.
    bool FilaTransaccionVacia(int fila) const;
    // Number of rows in front of the first empty one, at most 1001.
    int FilasArchivo() const;
    int FilasTransaccion() const;
    // The row behind the last one of the program side with any text, looked for upward from row 1000; 0 for an empty table.
    int PrimeraPosicionLibreTransaccion() const;
};

bool EsCabezaTransaccion(const std::array<std::string, 5>& fila);  // "TRANS" in column 0, after cutting
bool EsCabezaBAPI(const std::array<std::string, 5>& fila);         // "BAPI"

}  // namespace qor
