// CO, CN, CA, NA, CS, NS, CP, NP.
#include <array>

#include "abap/values/comparison.h"
#include "base/text.h"

namespace qor::abap {
namespace {

using Posicion = std::string_view::size_type;
constexpr auto ninguna = std::string_view::npos;

class Caracteres {
public:
    explicit Caracteres(std::string_view texto) {
        for (const char c : texto) dentro_[static_cast<unsigned char>(c)] = true;
    }
    bool Tiene(char c) const { return dentro_[static_cast<unsigned char>(c)]; }

private:
    std::array<bool, 256> dentro_{};
};

Posicion PrimeroFuera(std::string_view texto, std::string_view conjunto) {
    const Caracteres caracteresDe(conjunto);
    for (Posicion i = 0; i < texto.size(); ++i) {
        if (!caracteresDe.Tiene(texto[i])) return i;
    }
    return ninguna;
}

Posicion PrimeroDentro(std::string_view texto, std::string_view conjunto) {
    const Caracteres caracteresDe(conjunto);
    for (Posicion i = 0; i < texto.size(); ++i) {
        if (caracteresDe.Tiene(texto[i])) return i;
    }
    return ninguna;
}

char Alta(char c) { return static_cast<char>(Mayuscula(static_cast<unsigned char>(c))); }

Posicion BuscarSinCaja(std::string_view texto, std::string_view buscado) {
    buscado = SinBlancosDetras(buscado);
    if (buscado.empty()) return 0;
    const char primero = Alta(buscado.front());
    for (Posicion i = 0; i + buscado.size() <= texto.size(); ++i) {
        if (Alta(texto[i]) == primero && IgualesSinCaja(texto.substr(i, buscado.size()), buscado)) return i;
    }
    return ninguna;
}

// A pattern of CP: * for any characters, + for one, # in front of one that stands for itself, case and all.
class Patron {
public:
    explicit Patron(std::string_view patron) : patron_(SinBlancosDetras(patron)) {
        std::size_t escapes = 0;
        while (escapes < patron_.size() && patron_[patron_.size() - 1 - escapes] == '#') ++escapes;
        if (escapes % 2 == 0) return;
        patron_ += ' ';  // a blank behind # belongs to the pattern
        conBlanco_ = true;
    }

    Posicion Buscar(std::string_view texto) const {
        if (!conBlanco_) texto = SinBlancosDetras(texto);
        const auto inicio = patron_.find_first_not_of('*');
        if (inicio == std::string::npos) return patron_.empty() && !texto.empty() ? ninguna : 0;
        const auto resto = std::string_view(patron_).substr(inicio);
        if (inicio == 0) return Cumple(texto, resto) ? 0 : ninguna;
        for (Posicion i = 0; i <= texto.size(); ++i) {
            if (Cumple(texto.substr(i), resto)) return i;
        }
        return ninguna;
    }

private:
    static bool CumpleUno(char c, std::string_view patron) {
        if (patron[0] == '#' && patron.size() > 1) return c == patron[1];
        return patron[0] == '+' || Alta(c) == Alta(patron[0]);
    }

    bool Cumple(std::string_view texto, std::string_view patron) const {
        Posicion i = 0;
        Posicion p = 0;
        Posicion trasEstrella = ninguna;
        Posicion vuelta = 0;
        while (i < texto.size()) {
            if (p < patron.size() && patron[p] == '*') {
                trasEstrella = ++p;
                vuelta = i;
            } else if (p < patron.size() && CumpleUno(texto[i], patron.substr(p))) {
                p += patron[p] == '#' && p + 1 < patron.size() ? 2 : 1;
                ++i;
            } else if (p == patron.size() && conBlanco_ && SinBlancosDetras(texto.substr(i)).empty()) {
                return true;
            } else if (trasEstrella != ninguna) {
                p = trasEstrella;
                i = ++vuelta;
            } else {
                return false;
            }
        }
        while (p < patron.size() && patron[p] == '*') ++p;
        return p == patron.size();
    }

    std::string patron_;
    bool conBlanco_ = false;
};

}  // namespace

bool ValeEnTexto(Relacion relacion, const Campo& a, const Campo& b, std::int32_t& fdpos) {
    std::string restoA;
    std::string restoB;
    const auto texto = TextoDeOperando(a, restoA);
    const auto otro = TextoDeOperando(b, restoB);
    auto posicion = ninguna;
    bool siHallado = true;
    switch (relacion) {
        case Relacion::CO:
        case Relacion::CN:
            posicion = PrimeroFuera(texto, otro);
            siHallado = relacion == Relacion::CN;
            break;
        case Relacion::CA:
        case Relacion::NA:
            posicion = PrimeroDentro(texto, otro);
            siHallado = relacion == Relacion::CA;
            break;
        case Relacion::CS:
        case Relacion::NS:
            posicion = BuscarSinCaja(texto, otro);
            siHallado = relacion == Relacion::CS;
            break;
        default:
            posicion = Patron(otro).Buscar(texto);
            siHallado = relacion == Relacion::CP;
            break;
    }
    fdpos = static_cast<std::int32_t>(posicion == ninguna ? texto.size() : posicion);
    return (posicion != ninguna) == siHallado;
}

}  // namespace qor::abap
