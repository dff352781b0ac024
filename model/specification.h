#pragma once

#include <array>
#include <string>
#include <vector>

namespace qor {

// Limits of the tables. Rows are numbered from 0; no scan goes past row `ultimaFila`.
constexpr int filasTabla = 1002;
constexpr int ultimaFila = 1000;
constexpr int filasTablaBAPIs = 502;
constexpr int ultimaFilaBAPIs = 500;

// A field of the input record.
struct FilaDeArchivo {
    std::string campo;  // name
    std::string ancho;  // width in decimal text
    std::string nota;
    std::string conversion;  // ABAP text or value pairs

    bool operator==(const FilaDeArchivo&) const = default;
};

// A row of the program side: the head of an operation, a screen, or a field with its value.
struct FilaDeTransaccion {
    std::string programa = {};  // "TRANS", "BAPI", or the program of a screen
    std::string dynpro = {};    // code of an operation, or dynpro of a screen; with ";" and a condition behind it where it has one
    std::string campo = {};     // field name, with ";" and a condition behind it where it has one
    std::string valor = {};     // value cell
    std::string nota = {};      // note with step-loop marks

    // `programa` and `campo` are exactly empty, which ends what is saved, shown and printed.
    bool SinNombres() const { return programa.empty() && campo.empty(); }
    // All that a grid shows of it is exactly empty.
    bool CeldasVacias() const { return SinNombres() && dynpro.empty() && valor.empty(); }
    // No text anywhere.
    bool Vacia() const { return *this == FilaDeTransaccion{}; }
    bool EsCabezaTransaccion() const;  // "TRANS" in `programa`, after cutting
    bool EsCabezaBAPI() const;         // "BAPI"

    bool operator==(const FilaDeTransaccion&) const = default;
};

// A named condition.
struct FilaDeCondicion {
    std::string nombre;
    std::string texto;  // ABAP

    bool operator==(const FilaDeCondicion&) const = default;
};

// A BAPI in use.
struct FilaDeBAPI {
    std::string nombre;
    std::string llamada;  // whole text of the CALL FUNCTION statement in lines that CR LF separates

    bool operator==(const FilaDeBAPI&) const = default;
};

// The texts of a row in the order of documents.
inline constexpr std::array columnasDeArchivo = {&FilaDeArchivo::campo, &FilaDeArchivo::ancho, &FilaDeArchivo::nota,
                                                 &FilaDeArchivo::conversion};
inline constexpr std::array columnasDeTransaccion = {&FilaDeTransaccion::programa, &FilaDeTransaccion::dynpro,
                                                     &FilaDeTransaccion::campo, &FilaDeTransaccion::valor,
                                                     &FilaDeTransaccion::nota};
inline constexpr std::array columnasDeCondicion = {&FilaDeCondicion::nombre, &FilaDeCondicion::texto};
inline constexpr std::array columnasDeBAPI = {&FilaDeBAPI::nombre, &FilaDeBAPI::llamada};

// The specification: plain data, all texts in windows-1252. An empty cell is the empty string.
struct Especificacion {
    // File side. The first row with a blank name ends the table.
    std::vector<FilaDeArchivo> TablaArchivo{filasTabla};

    // Program side.
    std::vector<FilaDeTransaccion> TablaTransaccion{filasTabla};

    // The first empty name ends the table.
    std::vector<FilaDeCondicion> TablaCondiciones{filasTabla};
    std::vector<FilaDeBAPI> TablaBAPIs{filasTablaBAPIs};

    bool OrigenUsuario = false;     // the data come from source code of the user's
    std::string OrigenVariables;    // its declarations
    std::string OrigenForms;        // its forms
    std::string OrigenSource;       // the body of USER_FORM
    std::string VariablesGlobales;  // declarations added by the user or by a BAPI insertion

    // The file row doesn't exist: its name is blank.
    bool FilaArchivoVacia(int fila) const;
    // `programa` and `campo` of the program row are blank, which ends the table whatever else it holds.
    bool FilaTransaccionVacia(int fila) const;
    // Number of rows in front of the first empty one, at most 1001.
    int FilasArchivo() const;
    int FilasTransaccion() const;
    // Number of BAPIs in use: rows in front of the first one without a name, at most 501.
    int FilasBAPIs() const;
    // The row behind the last one of the program side with any text, looked for upward from row 1000; 0 for an empty table.
    int PrimeraPosicionLibreTransaccion() const;
};

}  // namespace qor
