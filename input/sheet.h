#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/sheet_format.h"

namespace qor {

// A cell of a table. Texts are windows-1252.
struct CeldaDeHoja {
    enum class Clase : std::uint8_t {
        Vacia,
        Texto,
        Numero,    // a date too, as its number of days in the 1900 system; `texto` is the number as the file has it
        Fecha,     // a date that the file holds as a text: "2024-12-31", or with a time behind it
        Booleano,  // `numero` is 0 or 1
        Error,     // `texto` is its name, such as "#N/A"
        SinValor,  // a formula whose value the file doesn't have
        Ilegible,  // what the file holds is nothing that its kind of cell may hold
    };
    Clase clase = Clase::Vacia;
    bool conFaltas = false;  // the text has characters that windows-1252 lacks; each is "?"
    std::string texto;
    double numero = 0;
    const FormatoDeNumero* formato = nullptr;  // of a number; null: General. Lives as long as the source of the cell.

    // The cell as it was made, keeping its memory.
    void Vaciar() {
        clase = Clase::Vacia;
        conFaltas = false;
        texto.clear();
        numero = 0;
        formato = nullptr;
    }
    // Makes it one of a text, or an empty one.
    void PonerUtf8(std::string_view utf8);
};

// A row of a table.
struct FilaDeHoja {
    std::uint64_t numero = 0;  // from 1: of the row in its sheet, or of the line in its file at which it begins
    std::vector<CeldaDeHoja> celdas;
};

// The letters of a column, from 0, and the name of a cell in a row, from 1: "AB", "AB12".
std::string LetrasDeColumna(std::size_t columna);
std::string NombreDeCelda(std::size_t columna, std::uint64_t fila);

// The rows of a table, one at a time and each one once. Whatever fails throws FalloDeArchivo.
class FuenteDeFilas {
public:
    virtual ~FuenteDeFilas() = default;
    // The next row that the file has; false behind the last one. Rows without any value may come or be left out.
    virtual bool Siguiente(FilaDeHoja& fila) = 0;
};

}  // namespace qor
