#pragma once

#include <array>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qor {

// The numbered texts of the loaded language. Slot 0 holds the language's name.
class TextosIdioma {
public:
    static constexpr int ultimo = 1000;

    // The text of a message, or an empty one.
    const std::string& Texto(int numero) const;
    void Poner(int numero, std::string_view texto);
    void Vaciar();

private:
    std::array<std::string, ultimo + 1> textos_;
};

// What a message box shows: its text, and the numbers of the messages that it was built from.
struct Mensaje {
    std::vector<int> numeros;
    std::string texto;
    std::string detalle = {};  // what the system said about a failed operation on a file, in UTF-8; mostly nothing

    // The first of the numbers, or 0 for a literal text.
    int Numero() const { return numeros.empty() ? 0 : numeros.front(); }
};

// A piece of a message: a number of the language table, or a text that stands for itself.
using Pieza = std::variant<int, std::string_view>;

Mensaje Componer(const TextosIdioma& textos, std::initializer_list<Pieza> piezas);
Mensaje MensajeLiteral(std::string_view texto);

// A message with what the system said, where the failure is one of a file; any other failure adds nothing.
Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo);

}  // namespace qor
