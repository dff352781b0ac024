#pragma once

#include <array>

#include "base/messages.h"
#include "base/view.h"
#include "model/specification.h"

// The lines of the two grids at their top, without the grids. A row that is shown goes through its cells, so the first rows of a
// specification come out as if they had been typed: cut and in upper case, names of file fields at most 30 characters long. Rows
// further down keep what their file has. A program without a screen does the same here, so that both save the same bytes.
namespace qor {

constexpr int lineasArchivo = 14;
constexpr int lineasTransaccion = 11;

class PrimerasLineas {
public:
    // Behind the opening of a document: the lines up to the first row without a name (on the program side, without both names).
    // Message 333 for a name that is cut.
    void MostrarDocumento(Especificacion& especificacion, const TextosIdioma& textos, Vista& vista);

    // Behind a change of a whole table: all lines.
    void MostrarArchivo(Especificacion& especificacion, const TextosIdioma& textos, Vista& vista);
    void MostrarTransaccion(Especificacion& especificacion);

private:
    void MostrarFilaDeArchivo(Especificacion& especificacion, int fila, const TextosIdioma& textos, Vista& vista);
    void MostrarFilaDeTransaccion(Especificacion& especificacion, int fila);

    // The texts as they were shown. A cell that gets the text it shows already changes nothing.
    std::array<FilaDeArchivo, lineasArchivo> archivo_;
    std::array<FilaDeTransaccion, lineasTransaccion> transaccion_;
};

}  // namespace qor
