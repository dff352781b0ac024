#include "findings/user_code.h"

#include <algorithm>

#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

constexpr std::string_view separadores = " \t\n:,.";

// The end of the literal that begins at `inicio`; a doubled apostrophe is a character of it.
std::size_t FinDeLiteral(std::string_view linea, std::size_t inicio) {
    for (std::size_t i = inicio + 1; i < linea.size(); ++i) {
        if (linea[i] != '\'') continue;
        if (i + 1 == linea.size() || linea[i + 1] != '\'') return i + 1;
        ++i;
    }
    return linea.size();
}

}  // namespace

SentenciasABAP::SentenciasABAP(std::string_view texto, bool sinPares) {
    PorCadaLinea(texto, [&](std::string_view linea, int numero) {
        if (linea.empty() || linea.front() == '*' || (sinPares && TienePares(linea))) return;
        LeerLinea(linea, numero);
    });
    enCadena_ = false;
    Cerrar();
}

void SentenciasABAP::LeerLinea(std::string_view linea, int numero) {
    std::size_t i = 0;
    while (i < linea.size()) {
        const char c = linea[i];
        if (c == '"') return;
        if (c == '\'') {
            const auto fin = FinDeLiteral(linea, i);
            palabras_.push_back({linea.substr(i, fin - i), numero});
            i = fin;
            continue;
        }
        if (separadores.find(c) == std::string_view::npos) {
            const auto fin = std::min(linea.find_first_of(" \t\n:,.'\"", i), linea.size());
            palabras_.push_back({linea.substr(i, fin - i), numero});
            i = fin;
            continue;
        }
        if (c == ':' && !enCadena_) {
            const auto inicio = finales_.empty() ? 0 : finales_.back();
            cabezaDeCadena_.assign(palabras_.begin() + static_cast<std::ptrdiff_t>(inicio), palabras_.end());
            enCadena_ = true;
        } else if (c == ',' && enCadena_) {
            Cerrar();
            palabras_.insert(palabras_.end(), cabezaDeCadena_.begin(), cabezaDeCadena_.end());
        } else if (c == '.') {
            enCadena_ = false;
            Cerrar();
        }
        ++i;
    }
}

void SentenciasABAP::Cerrar() {
    if (palabras_.size() > (finales_.empty() ? 0 : finales_.back())) finales_.push_back(palabras_.size());
}

bool Es(std::string_view palabra, std::string_view enMayusculas) {
    return std::equal(palabra.begin(), palabra.end(), enMayusculas.begin(), enMayusculas.end(),
                      [](char una, char otra) { return static_cast<char>(Mayuscula(static_cast<unsigned char>(una))) == otra; });
}

bool EsUnaDe(std::string_view palabra, std::initializer_list<std::string_view> enMayusculas) {
    return std::any_of(enMayusculas.begin(), enMayusculas.end(), [&](std::string_view una) { return Es(palabra, una); });
}

std::string_view NombreEn(std::string_view palabra) {
    while (!palabra.empty() && palabra.front() == '(') palabra.remove_prefix(1);
    return palabra.substr(0, palabra.find_first_of("+(<[)"));
}

namespace {

bool NombraDesde(std::span<const Palabra> sentencia, std::size_t desde, std::string_view nombre) {
    for (std::size_t i = desde; i < sentencia.size(); ++i) {
        if (Es(NombreEn(sentencia[i].texto), nombre)) return true;
    }
    return false;
}

// Behind the first of the words.
bool NombraDetrasDe(std::span<const Palabra> sentencia, std::initializer_list<std::string_view> palabras, std::string_view nombre) {
    for (std::size_t i = 1; i < sentencia.size(); ++i) {
        if (EsUnaDe(sentencia[i].texto, palabras)) return NombraDesde(sentencia, i + 1, nombre);
    }
    return false;
}

}  // namespace

bool Nombra(std::span<const Palabra> sentencia, std::string_view nombre) { return NombraDesde(sentencia, 0, nombre); }

bool Cambia(std::span<const Palabra> sentencia, std::string_view nombre) {
    const auto verbo = sentencia.front().texto;
    if (EsUnaDe(verbo, {"IF", "ELSEIF", "CASE", "WHEN", "CHECK", "WHILE"})) return false;
    const auto esElSegundo = [&](std::size_t i) { return i < sentencia.size() && Es(NombreEn(sentencia[i].texto), nombre); };
    if (sentencia.size() > 1 && sentencia[1].texto == "=") return esElSegundo(0);
    if (EsUnaDe(verbo, {"COMPUTE", "MULTIPLY", "DIVIDE"})) return esElSegundo(1);
    if (EsUnaDe(verbo, {"MOVE", "WRITE", "ADD"})) return NombraDetrasDe(sentencia, {"TO"}, nombre);
    if (Es(verbo, "SUBTRACT")) return NombraDetrasDe(sentencia, {"FROM"}, nombre);
    if (EsUnaDe(verbo, {"CONCATENATE", "SPLIT"})) return NombraDetrasDe(sentencia, {"INTO"}, nombre);
    if (Es(verbo, "CALL")) return NombraDetrasDe(sentencia, {"IMPORTING", "CHANGING", "TABLES"}, nombre);
    if (Es(verbo, "PERFORM")) return NombraDetrasDe(sentencia, {"TABLES", "USING", "CHANGING"}, nombre);
    return Nombra(sentencia, nombre);
}

}  // namespace qor
