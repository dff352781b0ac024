#pragma once

#include <span>
#include <string_view>
#include <vector>

// The statements of ABAP that a user has typed, as far as rules ask for them: words, without comments. Nothing is checked, and any
// text can be read.
namespace qor {

struct Palabra {
    std::string_view texto;  // a literal with its apostrophes
    int linea;               // of the text, from 1
};

class SentenciasABAP {
public:
    // With `sinPares` lines that hold a pair of values are left out, as they are no code.
    explicit SentenciasABAP(std::string_view texto, bool sinPares = false);

    std::size_t size() const { return finales_.size(); }
    // Words of the n-th statement, from 0. Chains are taken apart: "DATA: A, B." is "DATA A" and "DATA B". Never empty.
    std::span<const Palabra> operator[](std::size_t n) const {
        const std::size_t inicio = n == 0 ? 0 : finales_[n - 1];
        return std::span(palabras_).subspan(inicio, finales_[n] - inicio);
    }

private:
    void LeerLinea(std::string_view linea, int numero);
    void Cerrar();

    std::vector<Palabra> palabras_;
    std::vector<std::size_t> finales_;
    std::vector<Palabra> cabezaDeCadena_;
    bool enCadena_ = false;
};

// The word is this keyword or name, which is given in capitals.
bool Es(std::string_view palabra, std::string_view enMayusculas);
bool EsUnaDe(std::string_view palabra, std::initializer_list<std::string_view> enMayusculas);

// The name in a word such as "#KUNNR+2(4)" or "(ITAB-MATNR": without brackets, offset and length.
std::string_view NombreEn(std::string_view palabra);

// The statement names the object (in capitals); or may change its value, where a statement that isn't known well changes all that
// it names.
bool Nombra(std::span<const Palabra> sentencia, std::string_view nombre);
bool Cambia(std::span<const Palabra> sentencia, std::string_view nombre);

// Calls `funcion` with each line of a text in which CR LF separates lines, and its number from 1.
template <typename Funcion>
void PorCadaLinea(std::string_view texto, Funcion funcion) {
    for (int numero = 1;; ++numero) {
        const auto fin = texto.find('\r');
        funcion(texto.substr(0, fin), numero);
        if (fin == std::string_view::npos) return;
        texto.remove_prefix(fin + 1);
        if (!texto.empty() && texto.front() == '\n') texto.remove_prefix(1);
    }
}

}  // namespace qor
