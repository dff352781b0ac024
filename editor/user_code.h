#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "editor/window.h"

// The rules of ABAPWindow: the conversion code of a file field, and the ready-made pieces of code that can be put into it.
namespace qor {

constexpr const char* nombreDeFormulas = "formulas.txt";
constexpr std::size_t maximoDeFormulas = 1000;

struct Formula {
    std::string nombre;
    std::string cuerpo;  // lines, each with CR LF; "!" stands for the field
};

// A line of the form "[name]" opens a formula; the lines up to the next one are its body. Lines in front of the first one are
// dropped, and so are formulas beyond 1000.
std::vector<Formula> LeerFormulas(std::string_view texto);

struct DialogoDeCodigo {
    int fila = 0;  // of the file side
    std::string titulo;
    std::string ABAPText;  // line breaks are CR LF
    std::vector<Formula> formulas;
};

// A missing or unreadable file of formulas gives message 356 and a window without any.
DialogoDeCodigo AbrirCodigo(Ventana& ventana, int fila, const std::filesystem::path& directorioDeDatos);

// Puts a formula in front of the code, below a comment with its name. Nothing without a selection (-1); message 355 when the field
// belongs to a step-loop.
void AplicarFormula(Ventana& ventana, DialogoDeCodigo& dialogo, int seleccion);

// Stores the code where it was changed; a code of nothing but blanks and line ends is none. False refuses the closing: the code has
// more lines than the generator can take, and the user has been told.
bool CerrarCodigo(Ventana& ventana, const DialogoDeCodigo& dialogo);

// The text with every "!" turned into a reference to the field.
std::string CuerpoParaCampo(std::string_view texto, std::string_view campo);

}  // namespace qor
