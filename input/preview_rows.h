#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/layout.h"

// Lines of an input file as the preview shows them: where the values of each stand, how bytes are seen, and which lines are.
namespace qor {

// Bytes of a line: the first one from 0, and how many.
struct TramoDeLinea {
    std::size_t desde = 0;
    std::size_t largo = 0;

    std::string_view En(std::string_view linea) const { return linea.substr(desde, largo); }
    bool operator==(const TramoDeLinea&) const = default;
};

// Where the values of a record stand, in the order of `campos`, and behind them what no field takes. A value that the line is too
// short for is empty. The blanks at the end of a value are no part of it.
std::vector<TramoDeLinea> PartirRegistro(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, std::string_view linea);

// Bytes of windows-1252 as UTF-8, one character for each byte. What has no character is a sign that can be seen: a tab is an arrow,
// another control character, or a byte that the code page leaves open, a question mark in a rhombus.
std::string TextoVisible(std::string_view bytes);

// The window on the lines of a file that a table shows, and the scroll bar beside it, which counts in int.
struct VentanaDeRegistros {
    std::uint64_t lineas = 0;    // known of the file
    std::uint64_t visibles = 1;  // that the table has room for

    std::uint64_t UltimaPrimera() const { return lineas > visibles ? lineas - visibles : 0; }
    // The greatest value of the bar, the line that a value stands for, and the value of a line. Up to 2^31 lines a value is a line;
    // beyond that the ends still are the ends.
    int MaximoDeBarra() const;
    std::uint64_t PrimeraDe(int valor) const;
    int ValorDe(std::uint64_t primera) const;
    // Where the window has to begin so that a line can be seen: moved as little as possible, and with the line in its middle where
    // it lies more than a window away.
    std::uint64_t PrimeraPara(std::uint64_t linea, std::uint64_t primera) const;
};

}  // namespace qor
