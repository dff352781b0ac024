#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "abap/lexer.h"

namespace qor::abap {

// One statement. A chain is as many statements as it has pieces, each with the words in front of the colon.
struct Sentencia {
    enum class Estado {
        Entera,
        LiteralAbierto,  // `donde` is the literal
        SinPunto,        // `donde` is the word that begins the next one, null where the report ends
        Perdida,         // what is left of a literal that the line before did not close
    };

    std::span<const Palabra> palabras;  // without the point
    Estado estado = Estado::Entera;
    const Palabra* donde = nullptr;
    const Palabra* comaSuelta = nullptr;  // the comma behind it that no colon goes before
    const Palabra* primera = nullptr;     // its first word, that of its piece in a chain
};

// What only the reader of the statements knows about a word.
class Conocidos {
public:
    virtual ~Conocidos() = default;
    virtual bool EsMacro(Clave palabra) const = 0;
    virtual bool EsDato(Clave nombre) const = 0;
};

// Puts words together to statements. Where a point is missing and the next line begins with what can only be another statement, the
// two are taken apart there; so is what follows a word that begins no statement, and an open literal.
class LectorDeSentencias {
public:
    LectorDeSentencias(std::string_view reporte, const Conocidos& conocidos) : lexico_(reporte), conocidos_(conocidos) {}

    // The next statement; false at the end. Its words stay until the next call.
    bool Siguiente(Sentencia& sentencia);

    // The statement that was read last is none from that word on. Where another one may begin there it ends in front of it, and
    // true is answered.
    bool Cortar(const Palabra& palabra);

    // Behind a statement that opens text of another language: that text, as Lexico::HastaPalabra.
    TextoAjeno Saltar(std::string_view palabra) { return lexico_.HastaPalabra(palabra); }

private:
    bool LeerTramo();
    bool LeerPalabra(Palabra& palabra);
    bool PegarPunto(const Palabra& punto);
    void Contar(Palabra& palabra);
    void Repartir(std::size_t inicio, std::size_t fin, Sentencia& sentencia);
    void PonerEstado(bool sinPunto, Sentencia& sentencia) const;
    void CortarParte();
    bool EsOtraSentencia(std::size_t i) const;
    bool EsComienzoCualquiera(std::size_t i) const;
    bool EsComienzo(std::size_t i) const;
    bool EsRestoDeLiteral(std::size_t i) const;
    bool EsCorte(std::size_t i, int lineaAbierta) const;
    const Palabra* Tras(std::size_t i) const { return i + 1 < tramo_.size() ? &tramo_[i + 1] : nullptr; }
    bool EsMarca(std::size_t i, Palabra::Tipo tipo) const { return i < tramo_.size() && tramo_[i].tipo == tipo; }

    Lexico lexico_;
    Palabra adelantada_;  // read behind a point that may not be the end
    bool hayAdelantada_ = false;
    const Conocidos& conocidos_;
    std::vector<Palabra> tramo_;      // the words up to a point, which is the last one if there is one
    bool conListas_ = false;          // its commas may be within brackets
    int parentesis_ = 0;              // that are open then
    int registrosAbiertos_ = 0;       // BEGIN OF without END OF in it
    std::size_t parte_ = 0;           // where the part that is being handed out begins
    std::size_t finDeParte_ = 0;      // and where it ends
    std::size_t pieza_ = 0;           // the next piece of it
    std::size_t piezas_ = 0;          // that were handed out
    std::size_t leida_ = 0;           // the piece that was read last
    std::size_t cabeza_ = 0;          // words in front of its colon
    bool encadenada_ = false;         // it has a colon
    bool cortada_ = false;            // it ends where another one begins, not at its point
    bool callar_ = false;             // it was said already what is wrong with it
    std::vector<Palabra> expandida_;  // the statement of a piece
};

}  // namespace qor::abap
