#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "abap/key.h"

namespace qor::abap {

// A word of a report, a literal with its apostrophes, or one of the three marks that end something. Its text is a part of the
// report's.
struct Palabra {
    enum class Tipo : std::uint8_t { Nombre, Literal, LiteralAbierto, Coma, DosPuntos, Punto };

    std::string_view texto;
    Clave clave = 0;              // of the whole word; 0 for all but names
    Clave base = 0;               // of what stands in front of the first "-", "+", "(" or "["
    std::uint32_t largoBase = 0;  // characters of that
    int linea = 0;
    int columna = 0;
    Tipo tipo = Tipo::Nombre;
    bool abreLinea = false;  // nothing stands in front of it on its line

    // Without characters in front.
    void Acortar(std::size_t cuantos) {
        texto.remove_prefix(cuantos);
        columna += static_cast<int>(cuantos);
    }

    bool EsLiteral() const { return tipo == Tipo::Literal || tipo == Tipo::LiteralAbierto; }
};

// Text of another language within a report.
struct TextoAjeno {
    std::string_view texto;
    int linea = 0;  // where it begins
    int columna = 0;
};

// Cuts a report into words. Lines that begin with "*" are comments, and so is what follows a double quote outside a literal. Lines
// end with CR LF, LF or CR. A literal that is not closed on its line ends there; a point or a comma at its end stands for itself,
// since it was meant to end the statement.
class Lexico {
public:
    explicit Lexico(std::string_view reporte) : reporte_(reporte) {}

    // The next word; false at the end of the report.
    bool Siguiente(Palabra& palabra);

    // The text from here up to that word, which comes next then. Where it does not come, the rest of the report.
    TextoAjeno HastaPalabra(std::string_view palabra);

private:
    void PasarBlancos();
    void PasarFinDeLinea();
    int Columna() const { return static_cast<int>(lugar_ - principio_) + 1; }
    void SaltarLinea();
    void LeerLiteral(Palabra& palabra);
    void LeerNombre(Palabra& palabra);

    std::string_view reporte_;
    std::size_t lugar_ = 0;
    std::size_t principio_ = 0;  // of the line
    int linea_ = 1;
    bool alPrincipio_ = true;  // of a line, before any word
    char pendiente_ = 0;       // the mark at the end of an open literal
};

}  // namespace qor::abap
