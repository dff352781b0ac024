#pragma once

#include <string>
#include <string_view>
#include <vector>

// What cells and long texts carry beside plain values: marks, value forms, lines.
namespace qor {

// The text between the marks "!a" and "!b" of a cell of column 4; with one of them missing, the text up to or from the other
// one. `ExtraerMarca(celda, 0, 1)` is the free note. Throws FalloDeEjecucion when mark b stands in front of mark a.
std::string_view ExtraerMarca(std::string_view celda, int a, int b);

// The value of mark n: the text up to mark n + 1.
std::string_view ValorDeMarca(std::string_view celda, int n);

// The row is the head of a step-loop: its mark 1 has the numeric value 1.
bool EsCabezaStepLoop(std::string_view celda);

// Forms of a value cell: 'constant', @variable, or else the name of a file field.
bool EsConstante(std::string_view celda);
bool EsVariable(std::string_view celda);

// The conversion text of a file field holds value pairs.
bool TienePares(std::string_view conversion);

// Breaks a text at CR LF, and at blanks where a line grows beyond `ancho` characters. The count starts anew at the break and not
// at the blank, so a line can come out longer; a stretch without a blank that is longer than `ancho` gives an empty line and
// loses its first character. Throws FalloDeEjecucion for more than 501 lines.
std::vector<std::string> PartirLineas(std::string_view texto, int ancho);

// The same, each with the number of the text's line, from 1, that it was broken from.
struct LineaPartida {
    std::string texto;
    int numero;
};
std::vector<LineaPartida> PartirLineasConNumero(std::string_view texto, int ancho);

}  // namespace qor
