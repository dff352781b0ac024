#pragma once

#include <cstdint>
#include <string>

namespace qor {

// Kinds of findings about input files; their names are those of the JSON output.
enum class HallazgoDeEntrada : std::uint8_t {
    LineaCorta,          // line-too-short: a hint, as the blanks behind a record are often cut
    LineaLarga,          // line-too-long: something stands behind the record, and is lost
    Tabuladores,         // tab-count: too many, with a value behind the last field, which is lost
    TabuladoresDeMenos,  // tab-count: too few, which leaves fields blank: a hint
    SinCaracter,         // no-character: a byte that windows-1252 has no character for
    Utf8,                // utf-8: UTF-8 in a file that is read as windows-1252
    Utf8Mezclado,        // utf-8: a line of a file in windows-1252 that would be UTF-8 as well: a hint
    MarcaDeOrden,        // byte-order-mark
    Nulo,                // nul
    FinesMezclados,      // mixed-line-ends: a hint, as each of them ends a line
    SinFinDeLinea,       // no-final-line-end: a hint
    Desconocida,         // unknown-record: a line that begins with no known id
    SinPrincipal,        // item-without-order
    SinPartidas,         // order-without-items: a hint
    SinComparar,         // keys-not-compared: nothing is told of a step-loop's records and their main records: a hint
    ClaveDoble,          // duplicate-key
    ValorLargo,          // value-too-long: what is too much for the field is lost
    Obligatorio,         // missing-value
    NoEsNumero,          // not-a-number
    NoEsFecha,           // not-a-date
    FueraDePatron,       // pattern
    FueraDeLista,        // not-in-list
    CeldaSinLugar,       // cell-does-not-fit: in a conversion
};

// Names of the JSON output.
const char* NombreDe(HallazgoDeEntrada clase);
// What is wrong for certain is an error; what may be meant so is a hint.
bool EsAviso(HallazgoDeEntrada clase);

struct HallazgoDeDatos {
    HallazgoDeEntrada clase{};
    int archivo = 0;              // place in DisenoDeEntrada::Archivos
    std::uint64_t linea = 0;      // from 1; 0: of the file as a whole
    std::size_t columna = 0;      // of the line, from 1, in bytes (with tabs: the number of the field); 0: of the line as a whole
    int fila = -1;                // of the file side; -1: of no field
    std::string campo;            // its name
    std::string valor;            // as it stands, without the blanks behind it, windows-1252; cut where it is very long
    std::string texto;            // what is wrong, in English: a sentence without capital and point, for behind field and value
    std::uint64_t otraLinea = 0;  // of a duplicate key: the line that has it first; else 0
};

}  // namespace qor
