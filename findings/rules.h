#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "findings/catalogue.h"
#include "generator/generation.h"

// The rules that make findings, one unit for each kind of source. Each reads a run that has been composed as far as it came, so
// that analysis, names and values are those of the report, and adds what it finds, in any order.
namespace qor {

// Adds findings to the list, with the cell's text taken from the place. Both outlive it.
class Libreta {
public:
    // Sentences call the first row of a table by the number `primeraFila`.
    Libreta(const Generacion& g, std::vector<Hallazgo>& lista, int primeraFila = 0)
        : g_(g), lista_(lista), primeraFila_(primeraFila) {}
    // `variante` tells which of a kind's sentences it is.
    Hallazgo& Agregar(int codigo, const Lugar& lugar, std::initializer_list<std::string_view> valores = {}, int variante = 0);
    // A row of a table in a sentence.
    std::string NumeroDeFila(int fila) const { return std::to_string(fila + primeraFila_); }

private:
    const Generacion& g_;
    std::vector<Hallazgo>& lista_;
    int primeraFila_;
};

// The text that stands at a place: a cell, one line of a text, an option that is a text; empty for a choice.
std::string TextoEnLugar(const Especificacion& especificacion, const Opciones& opciones, const Preferencias& preferencias,
                         const Lugar& lugar);

void ReglasDeNombres(const Generacion& g, Libreta& libreta);         // names.cpp: fields, codes, screens, literals, reserved words
void ReglasDeTextos(const Generacion& g, Libreta& libreta);          // texts.cpp: lines that the wrapping breaks
void ReglasDeComportamiento(const Generacion& g, Libreta& libreta);  // behaviour.cpp: a report that runs, but not as meant
void ReglasDeUso(const Generacion& g, Libreta& libreta);             // usage.cpp: what nothing uses

}  // namespace qor
