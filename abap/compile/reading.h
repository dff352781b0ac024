#pragma once

#include <initializer_list>
#include <span>
#include <string>

#include "abap/lexer.h"

namespace qor::abap {

// A statement that can't be compiled: where, and why.
struct FallaDeSentencia {
    Palabra palabra;
    std::string texto;
};

// A part of a word as a word of its own.
inline Palabra ConTexto(const Palabra& palabra, std::string_view texto) {
    Palabra otra = palabra;
    otra.columna += static_cast<int>(texto.data() - palabra.texto.data());
    otra.texto = texto;
    if (palabra.EsLiteral()) return otra;
    otra.clave = ClaveDe(texto);
    const auto base = texto.substr(0, texto.find_first_of("-+(["));
    otra.base = ClaveDe(base);
    otra.largoBase = static_cast<std::uint32_t>(base.size());
    return otra;
}

// A statement that is read word by word.
class Lectura {
public:
    explicit Lectura(std::span<const Palabra> palabras) : palabras_(palabras) {}

    bool Hay(std::size_t n = 0) const { return lugar_ + n < palabras_.size(); }
    const Palabra& Actual() const {
        if (!Hay()) Fallar("the statement is incomplete");
        return palabras_[lugar_];
    }
    const Palabra& Mirar(std::size_t n) const { return palabras_[lugar_ + n]; }
    const Palabra& Primera() const { return palabras_.front(); }
    void Avanzar(std::size_t n = 1) { lugar_ += n; }
    std::size_t Lugar() const { return lugar_; }
    void Volver(std::size_t lugar) { lugar_ = lugar; }

    bool Es(Clave clave, std::size_t n = 0) const { return Hay(n) && Mirar(n).clave == clave; }
    bool EsAlguna(std::initializer_list<Clave> claves, std::size_t n = 0) const {
        for (const Clave clave : claves) {
            if (Es(clave, n)) return true;
        }
        return false;
    }
    bool Toma(Clave clave) {
        if (!Es(clave)) return false;
        ++lugar_;
        return true;
    }
    bool Toma(Clave una, Clave otra) {
        if (!Es(una) || !Es(otra, 1)) return false;
        lugar_ += 2;
        return true;
    }
    void Exige(Clave clave, const char* palabra) {
        if (!Toma(clave)) Fallar(std::string(palabra) + " was expected");
    }
    // The word that comes next, whatever it is.
    const Palabra& Tomada() {
        const Palabra& palabra = Actual();
        ++lugar_;
        return palabra;
    }
    // Nothing more may stand here.
    void Fin() const {
        if (Hay()) Fallar("the statement should end in front of " + std::string(Mirar(0).texto));
    }
    void Resto() { lugar_ = palabras_.size(); }

    [[noreturn]] void Fallar(std::string texto) const {
        throw FallaDeSentencia{Hay() ? palabras_[lugar_] : palabras_.back(), std::move(texto)};
    }
    [[noreturn]] void NoSePractica() const {
        throw FallaDeSentencia{Hay() ? palabras_[lugar_] : palabras_.back(),
                               Hay() ? std::string(palabras_[lugar_].texto) + " is not known here" : "the statement is incomplete"};
    }

private:
    std::span<const Palabra> palabras_;
    std::size_t lugar_ = 0;
};

}  // namespace qor::abap
