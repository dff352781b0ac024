#pragma once

#include <string>
#include <string_view>

#include "model/place.h"

// Places as people and programs read them.
namespace qor {

// The place in words: "program side, row 12, value", "option TablaZ (Error table)", "conditions, row 3, text, line 2". In
// English.
std::string TextoDeLugar(const Lugar& lugar);
// The words of it one by one, for formats that keep them apart; empty where the place has none.
std::string_view LadoDeLugar(const Lugar& lugar);     // "program side", "option"
std::string_view ColumnaDeLugar(const Lugar& lugar);  // "value"
// What the screen calls the option or setting, in UTF-8; empty where the place is none.
std::string_view RotuloDeOpcion(const Lugar& lugar, bool enEspanol);

}  // namespace qor
