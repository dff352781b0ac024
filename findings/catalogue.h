#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "findings/finding.h"

// The kinds of findings: code, severity, and the sentence in both languages. Codes are a contract: one that was given stays.
namespace qor {

struct TipoDeHallazgo {
    int codigo;
    Gravedad gravedad;
    // "{1}" to "{4}" stand for what the finding puts in, and for nothing where it puts in less. Empty where the sentence is that of
    // a message of Generate. A kind that has several sentences, its variants, has one in each line. UTF-8.
    std::string_view ingles;
    std::string_view espanol;
};

std::span<const TipoDeHallazgo> TiposDeHallazgo();

// A finding of a kind. Throws std::logic_error for a code or a variant that is not in the catalogue.
Hallazgo NuevoHallazgo(const TextosIdioma& textos, int codigo, const Lugar& lugar, std::string_view celda,
                       std::initializer_list<std::string_view> valores = {}, int variante = 0);

std::string CodigoDeHallazgo(int codigo);               // "Q203"
std::string PaginaDeAyuda(int codigo);                  // "findings.html#Q203", of the help in any language
std::string_view PalabraDeGravedad(Gravedad gravedad);  // "error", "warning", "note"

// The place in words: "program side, row 12, value", "option TablaZ (Error table)", "conditions, row 3, text, line 2". In
// English.
std::string TextoDeLugar(const Lugar& lugar);
// The words of it one by one, for formats that keep them apart; empty where the place has none.
std::string_view LadoDeLugar(const Lugar& lugar);     // "program side", "option"
std::string_view ColumnaDeLugar(const Lugar& lugar);  // "value"
// What the screen calls the option or setting, in UTF-8; empty where the place is none.
std::string_view RotuloDeOpcion(const Lugar& lugar, bool enEspanol);

}  // namespace qor
