#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// Helpers for texts. A text is a run of bytes in windows-1252. "Blank" is the character 0x20 and nothing else. Positions count
// from 1, and 0 means "not found". All comparing is byte by byte.
namespace qor {

// The text without blanks at both ends.
std::string_view Recortar(std::string_view texto);

// The text without the blanks behind it. Fields of records and screens are mostly blanks, so they are passed over many at
// a time.
inline std::string_view SinBlancosDetras(std::string_view texto) {
    constexpr std::uint64_t ochoBlancos = 0x2020202020202020;
    const auto ocho = [&texto](std::size_t lugar) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, texto.data() + lugar, sizeof bytes);
        return bytes ^ ochoBlancos;
    };
    std::size_t largo = texto.size();
    while (largo >= 32 && (ocho(largo - 8) | ocho(largo - 16) | ocho(largo - 24) | ocho(largo - 32)) == 0) largo -= 32;
    while (largo >= 8 && ocho(largo - 8) == 0) largo -= 8;
    while (largo > 0 && texto[largo - 1] == ' ') --largo;
    return texto.substr(0, largo);
}

bool EstaEnBlanco(std::string_view texto);

// The letters of the code page, accented ones included, in upper or lower case.
unsigned char Mayuscula(unsigned char caracter);
std::string Mayusculas(std::string_view texto);
std::string Minusculas(std::string_view texto);

bool IgualesSinCaja(std::string_view uno, std::string_view otro);

// A control character: 0x00 to 0x1F, or 0x7F.
bool EsControl(char caracter);
bool TieneControl(std::string_view texto);

// Position of `buscado` in `texto`, the first at or behind `desde`. An empty `buscado` is found in every text but the empty one.
std::size_t Posicion(std::string_view texto, std::string_view buscado, std::size_t desde = 1);
bool Contiene(std::string_view texto, std::string_view buscado);

// `largo` characters from position `inicio`, fewer where the text ends. Throws FalloDeEjecucion for a negative length.
std::string_view Tramo(std::string_view texto, std::size_t inicio, std::ptrdiff_t largo);
std::string_view TramoDesde(std::string_view texto, std::size_t inicio);

// The text up to before the first `separador`, and the text behind it; the whole text and nothing when there is none.
std::string_view AntesDe(std::string_view texto, char separador);
std::string_view DespuesDe(std::string_view texto, char separador);

// A run of blanks. Throws FalloDeEjecucion for a negative number.
std::string Blancos(std::ptrdiff_t cantidad);

// The number at the start of a text: blanks are passed over, then a sign, digits, one point, digits. No number is 0.
double Numero(std::string_view texto);

// Plain decimal text of a number, without an exponent and without a needless fraction.
std::string TextoDeNumero(double numero);

// The number, rounded, in at least `digitos` digits.
std::string ConCeros(double numero, int digitos);

// "1 file", "2 files": a number and the English name of what was counted.
std::string Cuantos(std::uint64_t cuantos, std::string_view que);

std::string QuitarBlancos(std::string_view texto);

// Cut at both ends, with every character but letters A to Z, digits and the characters 0 and 8 turned into "_".
std::string ReemplazarBlancos(std::string_view texto);

std::string ReemplazarTodo(std::string_view texto, std::string_view viejo, std::string_view nuevo);

}  // namespace qor
