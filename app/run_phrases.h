#pragma once

#include <cstddef>
#include <string_view>

#include "base/phrase.h"
#include "practice/run.h"

// What a run tells beside the failures of its records, as sentences. Texts are windows-1252.
namespace qor {

// "line 7, column 3, program side, row 2, value: ..."
Frase FraseDeFalta(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen);
// "file items.txt: ..."
Frase FraseDeArchivoSinLeer(std::string_view nombre, std::string_view motivo);
// "record 3, message E: ..."; without the record for 0.
Frase FraseDeMensajeDelReporte(std::size_t registro, char tipo, std::string_view texto);
// "ITABSL_1: 3 of 120 lines belong to no record"
Frase FraseSinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas);

}  // namespace qor
