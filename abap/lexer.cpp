#include "abap/lexer.h"

#include <array>

namespace qor::abap {

namespace {

enum class Caracter : std::uint8_t { DePalabra, Blanco, FinDeLinea, Marca, Apostrofo, Comilla };

constexpr std::array<Caracter, 256> Clasificar() {
    std::array<Caracter, 256> clases{};
    clases[' '] = clases['\t'] = clases['\f'] = clases['\v'] = clases[0] = Caracter::Blanco;
    clases['\r'] = clases['\n'] = Caracter::FinDeLinea;
    clases['.'] = clases[','] = clases[':'] = Caracter::Marca;
    clases['\''] = Caracter::Apostrofo;
    clases['"'] = Caracter::Comilla;
    return clases;
}

constexpr std::array<Caracter, 256> clases = Clasificar();

Caracter ClaseDe(char c) { return clases[static_cast<unsigned char>(c)]; }

Palabra::Tipo TipoDeMarca(char c) {
    if (c == '.') return Palabra::Tipo::Punto;
    return c == ',' ? Palabra::Tipo::Coma : Palabra::Tipo::DosPuntos;
}

bool EsFinDeBase(char c) { return c == '-' || c == '+' || c == '(' || c == '['; }

}  // namespace

void Lexico::SaltarLinea() {
    while (lugar_ < reporte_.size() && ClaseDe(reporte_[lugar_]) != Caracter::FinDeLinea) ++lugar_;
}

void Lexico::PasarFinDeLinea() {
    if (reporte_[lugar_] == '\r' && lugar_ + 1 < reporte_.size() && reporte_[lugar_ + 1] == '\n') ++lugar_;
    principio_ = ++lugar_;
    ++linea_;
    alPrincipio_ = true;
}

// Blanks, line ends and comments.
void Lexico::PasarBlancos() {
    while (lugar_ < reporte_.size()) {
        const char c = reporte_[lugar_];
        if (alPrincipio_ && c == '*' && lugar_ == principio_) {
            SaltarLinea();
            continue;
        }
        switch (ClaseDe(c)) {
            case Caracter::Blanco: ++lugar_; break;
            case Caracter::FinDeLinea: PasarFinDeLinea(); break;
            case Caracter::Comilla: SaltarLinea(); break;
            default: return;
        }
    }
}

void Lexico::LeerLiteral(Palabra& palabra) {
    const std::size_t inicio = lugar_++;
    palabra.tipo = Palabra::Tipo::Literal;
    while (true) {
        if (lugar_ >= reporte_.size() || ClaseDe(reporte_[lugar_]) == Caracter::FinDeLinea) {
            palabra.tipo = Palabra::Tipo::LiteralAbierto;
            break;
        }
        if (reporte_[lugar_++] != '\'') continue;
        if (lugar_ >= reporte_.size() || reporte_[lugar_] != '\'') break;
        ++lugar_;
    }
    if (palabra.tipo == Palabra::Tipo::LiteralAbierto) {
        auto texto = reporte_.substr(inicio, lugar_ - inicio);
        const auto ultimo = texto.find_last_not_of(" \t");
        if (ultimo > 0 && (texto[ultimo] == '.' || texto[ultimo] == ',')) {
            pendiente_ = texto[ultimo];
            lugar_ = inicio + ultimo;
        }
    } else if (lugar_ + 4 < reporte_.size() && reporte_[lugar_] == '(' && reporte_[lugar_ + 4] == ')') {
        lugar_ += 5;  // the number of the text element that stands for it
    }
    palabra.texto = reporte_.substr(inicio, lugar_ - inicio);
}

void Lexico::LeerNombre(Palabra& palabra) {
    const std::size_t inicio = lugar_;
    Clave clave = claveVacia;
    char c = reporte_[lugar_];
    while (!EsFinDeBase(c)) {
        clave = Agregar(clave, c);
        if (++lugar_ == reporte_.size()) break;
        c = reporte_[lugar_];
        if (ClaseDe(c) != Caracter::DePalabra) break;
    }
    palabra.base = clave;
    palabra.largoBase = static_cast<std::uint32_t>(lugar_ - inicio);
    while (lugar_ < reporte_.size() && ClaseDe(reporte_[lugar_]) == Caracter::DePalabra) clave = Agregar(clave, reporte_[lugar_++]);
    palabra.clave = clave;
    palabra.tipo = Palabra::Tipo::Nombre;
    palabra.texto = reporte_.substr(inicio, lugar_ - inicio);
}

bool Lexico::Siguiente(Palabra& palabra) {
    palabra.clave = palabra.base = 0;
    palabra.largoBase = 0;
    if (pendiente_ == 0) PasarBlancos();
    if (lugar_ >= reporte_.size()) return false;
    palabra.linea = linea_;
    palabra.columna = Columna();
    palabra.abreLinea = alPrincipio_;
    alPrincipio_ = false;
    pendiente_ = 0;
    const char c = reporte_[lugar_];
    switch (ClaseDe(c)) {
        case Caracter::Marca:
            palabra.tipo = TipoDeMarca(c);
            palabra.texto = reporte_.substr(lugar_++, 1);
            break;
        case Caracter::Apostrofo: LeerLiteral(palabra); break;
        default: LeerNombre(palabra); break;
    }
    return true;
}

TextoAjeno Lexico::HastaPalabra(std::string_view palabra) {
    const std::size_t inicio = lugar_;
    const Clave buscada = ClaveDe(palabra);
    TextoAjeno ajeno{{}, linea_, Columna()};
    pendiente_ = 0;
    while (lugar_ < reporte_.size()) {
        const char c = reporte_[lugar_];
        const auto clase = ClaseDe(c);
        if (clase == Caracter::FinDeLinea) {
            PasarFinDeLinea();
        } else if (c == '*' && lugar_ == principio_) {
            SaltarLinea();
        } else if (clase != Caracter::DePalabra) {
            ++lugar_;
        } else {
            const std::size_t comienzo = lugar_;
            Clave clave = claveVacia;
            while (lugar_ < reporte_.size() && ClaseDe(reporte_[lugar_]) == Caracter::DePalabra)
                clave = Agregar(clave, reporte_[lugar_++]);
            if (clave == buscada) {
                lugar_ = comienzo;
                break;
            }
            alPrincipio_ = false;
        }
    }
    ajeno.texto = reporte_.substr(inicio, lugar_ - inicio);
    return ajeno;
}

}  // namespace qor::abap
