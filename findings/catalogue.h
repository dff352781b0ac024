#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "findings/finding.h"

// The kinds of findings: code, severity, and how many sentences. Codes are a contract: one that was given stays.
namespace qor {

struct TipoDeHallazgo {
    int codigo;
    Gravedad gravedad;
    // The sentences, its variants, are words of the language file (palabra::DeHallazgo), in which "{1}" to "{4}" stand for what the
    // finding puts in, and for nothing where it puts in less. None where the sentence is that of a message of Generate.
    int variantes = 0;
};

std::span<const TipoDeHallazgo> TiposDeHallazgo();
// Throws std::logic_error for a code that is not in the catalogue.
const TipoDeHallazgo& TipoDe(int codigo);

// A finding of a kind. Throws std::logic_error for a code or a variant that is not in the catalogue.
Hallazgo NuevoHallazgo(const TextosIdioma& textos, int codigo, const Lugar& lugar, std::string_view celda,
                       std::initializer_list<std::string_view> valores = {}, int variante = 0);

std::string CodigoDeHallazgo(int codigo);               // "Q203"
std::string PaginaDeHallazgo(int codigo);               // "findings.html#Q203", of the help in any language
std::string_view PalabraDeGravedad(Gravedad gravedad);  // "error", "warning", "note"

}  // namespace qor
