#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qor {

enum class Enfasis {
    Titulo,  // headings
    Clave    // names of key fields
};

// Where a document is printed: a stream of text items on lines, with a current font and a vertical position. Lengths are twips
// (1440 to an inch); a tab position is in characters of the current font, from 1. Texts are windows-1252.
class Dispositivo {
public:
    virtual ~Dispositivo() = default;

    virtual void Item(std::string_view texto) = 0;
    virtual void Tab(int columna) = 0;
    virtual void FinDeLinea() = 0;

    struct Letra {
        std::string nombre;
        int tamano = 10;  // points
        bool negrita = false;
    };
    virtual Letra LetraActual() const = 0;
    virtual void PonerLetra(const Letra& letra) = 0;
    virtual void PonerEnfasis(Enfasis enfasis, bool puesto) = 0;

    virtual int OrigenIzquierdo() const = 0;
    virtual void PonerOrigenIzquierdo(int twips) = 0;
    virtual int PosicionVertical() const = 0;
    virtual void NuevaPagina() = 0;
    virtual int NumeroDePagina() const = 0;
    virtual void Terminar() = 0;

    // The file that is written in the place of paper; empty for a printer.
    virtual std::filesystem::path Archivo() const { return {}; }
};

}  // namespace qor
