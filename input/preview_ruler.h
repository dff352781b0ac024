#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "input/layout.h"
#include "model/specification.h"

// The ruler over a raw line: its scale, the borders of the fields, what comes of moving one, and the fields of a new file side.
// Columns count from 0 and stand between characters: a border at 18 has 18 characters before it.
namespace qor {

constexpr std::size_t anchoMaximoDeCampo = 65'535;  // of a character field of a report

// "....5...10...15", as long as the line.
std::string EscalaDe(std::size_t columnas);

// The column behind a field.
std::size_t BordeDe(const CampoDeRegistro& campo);

// The field whose border can be taken hold of at a place between columns, not further from it than `alcance`; -1 for none. Of
// fields that end in the same column, which all but the first have no width, a place before the column takes the first one, and a
// place behind it the one without a width that follows.
int BordeEn(const ClaseDeRegistro& clase, double columna, double alcance);

// The width of a field whose border goes to another column: at least 1.
std::size_t AnchoHasta(const CampoDeRegistro& campo, std::ptrdiff_t columna);
std::size_t AnchoMas(const CampoDeRegistro& campo, std::ptrdiff_t columnas);

// Columns marked in the ruler, in their order. A mark is set by a click and taken away by another one.
class MarcasDeRegla {
public:
    void Alternar(std::size_t columna);
    void Quitar() { columnas_.clear(); }
    const std::vector<std::size_t>& Columnas() const { return columnas_; }

private:
    std::vector<std::size_t> columnas_;
};

// Fields of a new file side, at most as many as it has room for. The fields between marks are FIELD1, FIELD2 and so on, the first
// one from column `desde`; the last one reaches to `largo`, the length of a line, where that lies behind the last mark.
std::vector<FilaDeArchivo> CamposDeMarcas(const MarcasDeRegla& marcas, std::size_t desde, std::size_t largo);

// The fields of a heading line whose names are separated by tabs: in upper case, with "_" for what no name may hold, at most 30
// characters, each one different; FIELDn where there is no name. Widths are those of the longest values in `lineas`; no width where
// none has a value.
std::vector<FilaDeArchivo> CamposDeCabecera(std::string_view cabecera, const std::vector<std::string>& lineas);

}  // namespace qor
