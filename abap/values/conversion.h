#pragma once

#include <cstring>
#include <string>

#include "abap/values/field.h"

namespace qor::abap {

// MOVE: the value of a field in the type of another. Characters are padded with blanks and cut on the right; N takes the digits of
// its source, right-justified behind zeros; a number goes into characters right-justified with its sign behind it, and one that
// does not fit is "*" in the first place. Throws CONVT_NO_NUMBER for a text that is no number where one is needed, the overflow of
// the target's type, and MOVE_TO_LIT_NOTALLOWED for a target that can't be written. Source and target may overlap.
inline void Mover(const Campo& origen, const Campo& destino);

// Puts a text into a field of characters as MOVE does; a STRING takes it as it stands.
void PonerTexto(std::string_view texto, const Campo& destino);
void PonerEntero(std::int64_t valor, const Campo& destino);

bool EsInicial(const Campo& campo);

// The value as a text: of a field of characters its bytes without the blanks behind them, of numbers plain digits with a "-" in
// front and a "." in front of the decimals, of X hexadecimal digits.
std::string TextoPlano(const Campo& campo);

// The value as characters for the statements on texts: characters as they stand, all else as MOVE puts it into a STRING, in
// `resto`.
std::string_view TextoDeOperando(const Campo& campo, std::string& resto);

// Throws MOVE_TO_LIT_NOTALLOWED for a field that can't be written.
void ExigirEscribible(const Campo& campo);

inline constexpr std::uint64_t ochoBlancos = 0x2020202020202020U;

// ---- The frequent moves, at their place of use ----

void MoverConvirtiendo(const Campo& origen, const Campo& destino);

constexpr bool EsDelConjunto(Tipo tipo, unsigned conjunto) { return ((1U << static_cast<unsigned>(tipo)) & conjunto) != 0; }
constexpr unsigned Conjunto(Tipo tipo) { return 1U << static_cast<unsigned>(tipo); }
constexpr unsigned tiposDeTexto = Conjunto(Tipo::C) | Conjunto(Tipo::Estructura);
constexpr unsigned tiposDeCaracteres = tiposDeTexto | Conjunto(Tipo::N) | Conjunto(Tipo::D) | Conjunto(Tipo::T);

// Bytes into bytes, padded with blanks or cut.
inline void CopiarCaracteres(const std::uint8_t* origen, std::uint32_t largo, const Campo& destino) {
    if (largo >= destino.largo) {
        std::memmove(destino.datos, origen, destino.largo);
    } else {
        std::memmove(destino.datos, origen, largo);
        std::memset(destino.datos + largo, ' ', destino.largo - largo);
    }
}

inline void Mover(const Campo& origen, const Campo& destino) {
    if (EsDelConjunto(destino.tipo, tiposDeTexto) && EsDelConjunto(origen.tipo, tiposDeCaracteres) && !destino.soloLectura) {
        CopiarCaracteres(origen.datos, origen.largo, destino);
    } else {
        MoverConvirtiendo(origen, destino);
    }
}

}  // namespace qor::abap
