#pragma once

#include <string_view>

#include "base/messages.h"
#include "print/device.h"

// The page of a printed document: its set-up, the check for its end, and small services of lines.
namespace qor {

void ConfigurarImpresora(Dispositivo& d);

// Begins a new page with its head, and restores font and origin.
void PasarPagina(Dispositivo& d, const TextosIdioma& textos);

// Called before a line that may not fit: passes to a new page near the end of the present one.
void ControlarPagina(Dispositivo& d, const TextosIdioma& textos);

// A text in lines of at most `ancho` characters, broken at its own line breaks and else at the width.
void SPrint(Dispositivo& d, const TextosIdioma& textos, std::string_view texto, std::size_t ancho);

void Linea(Dispositivo& d, std::string_view texto);
void LineasVacias(Dispositivo& d, int cantidad);
void PonerTamano(Dispositivo& d, int tamano);
void PonerNegrita(Dispositivo& d, bool negrita);
// A line under the emphasis of headings.
void Encabezado(Dispositivo& d, std::string_view texto);
// A line of characters "_".
void LineaSeparadora(Dispositivo& d, std::size_t largo);

}  // namespace qor
