#pragma once

#include <string>
#include <string_view>

#include "model/place.h"

// Places as people and programs read them: on the command line in English, whatever the language, and on the screen in the words of
// the language file, of which the English ones are the same.
namespace qor {

// The place in words: "program side, row 12, value", "option TablaZ (Error table)", "conditions, row 3, text, line 2". In
// English.
std::string TextoDeLugar(const Lugar& lugar);
// The words of it one by one, for formats that keep them apart; empty where the place has none.
std::string_view LadoDeLugar(const Lugar& lugar);     // "program side", "option"
std::string_view ColumnaDeLugar(const Lugar& lugar);  // "value"

// The numbers of these words in the language file, and of what the screen calls the option or setting; 0 where the place has none.
int PalabraDeLado(const Lugar& lugar);
int PalabraDeColumna(const Lugar& lugar);
int PalabraDeOpcion(const Lugar& lugar);

}  // namespace qor
