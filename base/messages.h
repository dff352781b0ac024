#pragma once

#include <array>
#include <exception>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/failure.h"

namespace qor {

// The numbered texts of the loaded language: messages below 1000, of which slot 0 holds the language's name, and words from 1000
// on, whose numbers have names in base/words.h.
class TextosIdioma {
public:
    static constexpr int ultimo = 1000;
    static constexpr int ultimaPalabra = 99'999;
    static constexpr int primeraCompartida = 1010;  // words below it tell of the language itself

    // The text of a message, or an empty one.
    const std::string& Texto(int numero) const;
    void Poner(int numero, std::string_view texto);
    // The text of a word, or an empty one.
    const std::string& Palabra(int numero) const;
    void PonerPalabra(int numero, std::string_view texto);
    // Takes the words that are missing here from another language, but for those about the language itself.
    void CompletarPalabras(const TextosIdioma& otro);
    // The word in English, for what is written in English in every language.
    const std::string& PalabraInglesa(int numero) const;
    void CompletarInglesas(const TextosIdioma& ingles);
    // The word whose English text this is, or the text itself.
    std::string_view PorIngles(std::string_view ingles) const;
    void Vaciar();

private:
    std::array<std::string, ultimo + 1> textos_;
    std::map<int, std::string> palabras_;
    std::map<int, std::string> inglesas_;
    std::map<std::string, int, std::less<>> numeros_;  // of the English ones
};

// A row of one of the sides that a message is about. The person counts rows from 1, the tables from 0.
struct FilaDeMensaje {
    bool delArchivo = false;  // of the file side, else of the program side
    int fila = 0;             // from 0
};

// The failed operation that a message is about.
struct FalloDeMensaje {
    CausaDeFallo causa = CausaDeFallo::Otra;
    std::filesystem::path ruta;  // empty where it is none on a file
    std::string motivo = {};     // in English or in the words of the system, in UTF-8
};

FalloDeMensaje FalloDe(const std::exception& fallo);

// What a message box shows: its text, and the numbers of the messages that it was built from.
struct Mensaje {
    std::vector<int> numeros;
    std::string texto;
    std::string detalle = {};  // what the system said about a failed operation on a file, in UTF-8; mostly nothing
    // What only the screen says: the row, and the text where its rows are counted otherwise than on paper.
    std::optional<FilaDeMensaje> fila = {};
    std::string enPantalla = {};  // empty where it is `texto`
    std::optional<FalloDeMensaje> fallo = {};
    std::filesystem::path escrito = {};  // the file that came out, which the user may go to; none for most messages

    // The first of the numbers, or 0 for a literal text.
    int Numero() const { return numeros.empty() ? 0 : numeros.front(); }
};

// A piece of a message: a number of the language table, or a text that stands for itself.
using Pieza = std::variant<int, std::string_view>;

Mensaje Componer(const TextosIdioma& textos, std::initializer_list<Pieza> piezas);
Mensaje MensajeLiteral(std::string_view texto);
// A word with "%1" to "%9" filled; a message without a number.
Mensaje MensajeDePalabra(const TextosIdioma& textos, int palabra, const std::vector<std::string>& partes = {});

// A message with what the system said, where the failure is one of a file; any other failure adds nothing.
Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo);
// The same about a file that could be read; a failure that is not one of a file means that its content is damaged.
Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo, const std::filesystem::path& ruta);
// A message about a file, which only the screen names.
Mensaje SobreArchivo(Mensaje mensaje, const std::filesystem::path& ruta);

}  // namespace qor
