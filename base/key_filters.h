#pragma once

#include <string>
#include <string_view>

// What becomes of a character before it reaches a text box. Characters are bytes in windows-1252; a form passes printable ones and
// the backspace (8), and for a paste each character of the text. No text box takes a double quote.
namespace qor {

// A key that the text box ignores.
constexpr char teclaDescartada = 0;
constexpr char retroceso = 8;

enum class ClaseDeTexto {
    Libre,
    Mayusculas,
    Nombre,  // letters in upper case and digits; "_" for everything else
    Digitos
};

char FiltrarTecla(ClaseDeTexto clase, char tecla);
std::string FiltrarTexto(ClaseDeTexto clase, std::string_view texto);

// A key in a text box of the main form and its dialogs, by the name of the control. The boxes with a rule of their own beyond this
// are those of notes and conditions.
char FiltrarTecla(std::string_view control, char tecla);
std::string FiltrarTexto(std::string_view control, std::string_view texto);

}  // namespace qor
