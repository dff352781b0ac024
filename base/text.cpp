#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/failure.h"

namespace qor {

std::string_view Recortar(std::string_view texto) {
    const auto primero = texto.find_first_not_of(' ');
    if (primero == std::string_view::npos) return {};
    return texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
}

bool EstaEnBlanco(std::string_view texto) { return texto.find_first_not_of(' ') == std::string_view::npos; }

namespace {

unsigned char Minuscula(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return c + 0x20;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
    if (c == 0x8A || c == 0x8C || c == 0x8E) return c + 0x10;
    if (c == 0x9F) return 0xFF;
    return c;
}

template <typename Funcion>
std::string Transformar(std::string_view texto, Funcion funcion) {
    std::string resultado(texto);
    std::transform(resultado.begin(), resultado.end(), resultado.begin(),
                   [&](char c) { return static_cast<char>(funcion(static_cast<unsigned char>(c))); });
    return resultado;
}

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

}  // namespace

unsigned char Mayuscula(unsigned char c) {
    if (c >= 'a' && c <= 'z') return c - 0x20;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
    if (c == 0x9A || c == 0x9C || c == 0x9E) return c - 0x10;
    if (c == 0xFF) return 0x9F;
    return c;
}

std::string Mayusculas(std::string_view texto) { return Transformar(texto, Mayuscula); }

std::string Minusculas(std::string_view texto) { return Transformar(texto, Minuscula); }

bool IgualesSinCaja(std::string_view uno, std::string_view otro) { return Mayusculas(uno) == Mayusculas(otro); }

bool EsControl(char caracter) {
    const auto codigo = static_cast<unsigned char>(caracter);
    return codigo < 0x20 || codigo == 0x7F;
}

bool TieneControl(std::string_view texto) { return std::any_of(texto.begin(), texto.end(), EsControl); }

std::size_t Posicion(std::string_view texto, std::string_view buscado, std::size_t desde) {
    if (desde > texto.size()) return 0;
    const auto lugar = texto.find(buscado, desde - 1);
    return lugar == std::string_view::npos ? 0 : lugar + 1;
}

bool Contiene(std::string_view texto, std::string_view buscado) { return Posicion(texto, buscado) != 0; }

std::string_view Tramo(std::string_view texto, std::size_t inicio, std::ptrdiff_t largo) {
    if (largo < 0) throw FalloDeEjecucion("a substring of negative length");
    if (inicio == 0) throw FalloDeEjecucion("a substring in front of the first character");
    if (inicio > texto.size()) return {};
    return texto.substr(inicio - 1, static_cast<std::size_t>(largo));
}

std::string_view TramoDesde(std::string_view texto, std::size_t inicio) {
    if (inicio == 0) throw FalloDeEjecucion("a substring in front of the first character");
    return inicio > texto.size() ? std::string_view{} : texto.substr(inicio - 1);
}

std::string_view AntesDe(std::string_view texto, char separador) { return texto.substr(0, texto.find(separador)); }

std::string_view DespuesDe(std::string_view texto, char separador) {
    const auto lugar = texto.find(separador);
    return lugar == std::string_view::npos ? std::string_view{} : texto.substr(lugar + 1);
}

std::string Blancos(std::ptrdiff_t cantidad) {
    if (cantidad < 0) throw FalloDeEjecucion("a padding below zero: a text is too long for its place");
    return std::string(static_cast<std::size_t>(cantidad), ' ');
}

double Numero(std::string_view texto) {
    std::size_t i = 0;
    while (i < texto.size() && texto[i] == ' ') ++i;
    bool negativo = false;
    if (i < texto.size() && (texto[i] == '-' || texto[i] == '+')) negativo = texto[i++] == '-';
    double valor = 0;
    while (i < texto.size() && EsDigito(texto[i])) valor = valor * 10 + (texto[i++] - '0');
    if (i < texto.size() && texto[i] == '.') {
        double peso = 0.1;
        for (++i; i < texto.size() && EsDigito(texto[i]); ++i, peso /= 10) valor += peso * (texto[i] - '0');
    }
    return negativo ? -valor : valor;
}

std::string TextoDeNumero(double numero) {
    char cifras[400];
    std::snprintf(cifras, sizeof cifras, "%.6f", numero == 0 ? 0.0 : numero);
    std::string texto(cifras);
    texto.erase(texto.find_last_not_of('0') + 1);
    if (texto.back() == '.') texto.pop_back();
    return texto == "-0" ? "0" : texto;
}

std::string ConCeros(double numero, int digitos) {
    char cifras[400];
    std::snprintf(cifras, sizeof cifras, "%0*.0f", digitos + (numero < 0 ? 1 : 0), std::round(numero));
    return cifras;
}

std::string Cuantos(std::uint64_t cuantos, std::string_view que) {
    return std::to_string(cuantos) + ' ' + std::string(que) + (cuantos == 1 ? "" : "s");
}

std::string QuitarBlancos(std::string_view texto) {
    std::string resultado(texto);
    std::erase(resultado, ' ');
    return resultado;
}

std::string ReemplazarBlancos(std::string_view texto) {
    std::string resultado(Recortar(texto));
    for (char& c : resultado) {
        const auto mayuscula = Mayuscula(static_cast<unsigned char>(c));
        const bool seQueda = (mayuscula >= 'A' && mayuscula <= 'Z') || EsDigito(c) || c == 0 || c == 8;
        if (!seQueda) c = '_';
    }
    return resultado;
}

std::string ReemplazarTodo(std::string_view texto, std::string_view viejo, std::string_view nuevo) {
    std::string resultado;
    std::size_t inicio = 0;
    for (auto lugar = texto.find(viejo); !viejo.empty() && lugar != std::string_view::npos; lugar = texto.find(viejo, inicio)) {
        resultado.append(texto, inicio, lugar - inicio);
        resultado.append(nuevo);
        inicio = lugar + viejo.size();
    }
    resultado.append(texto.substr(inicio));
    return resultado;
}

}  // namespace qor
