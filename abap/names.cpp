#include "abap/names.h"

#include <algorithm>

namespace qor::abap {

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

bool EsLetra(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80; }

constexpr std::string_view otrosDeNombre = "_%$&#?/";

bool EsDeNombre(char c) { return EsDigito(c) || EsLetra(c) || otrosDeNombre.find(c) != std::string_view::npos; }

}  // namespace

bool EsEntero(std::string_view texto) { return !texto.empty() && std::all_of(texto.begin(), texto.end(), EsDigito); }

bool EsNumero(std::string_view texto) {
    if (!texto.empty() && (texto.front() == '+' || texto.front() == '-')) texto.remove_prefix(1);
    return EsEntero(texto);
}

int ValorEntero(std::string_view texto) {
    constexpr int maximo = 999999;
    int valor = 0;
    for (const char c : texto) valor = std::min(maximo, valor * 10 + (c - '0'));
    return valor;
}

bool EsNombreDeDato(std::string_view nombre) {
    return !nombre.empty() && !EsDigito(nombre.front()) && std::all_of(nombre.begin(), nombre.end(), EsDeNombre);
}

bool EsNombreDeForma(std::string_view nombre) {
    return !nombre.empty() && std::all_of(nombre.begin(), nombre.end(), [](char c) { return EsDeNombre(c) || c == '-'; });
}

bool EsDeObjeto(std::string_view palabra) {
    for (std::size_t i = 1; i < palabra.size(); ++i) {
        if (palabra[i] == '>' && (palabra[i - 1] == '-' || palabra[i - 1] == '=')) return true;
    }
    return false;
}

bool EsSimboloDeCampo(std::string_view palabra) {
    if (palabra.size() < 3 || palabra.front() != '<' || palabra[1] == '=' || palabra[1] == '>') return false;
    return palabra.find('>') != std::string_view::npos;
}

std::optional<Referencia> LeerReferencia(const Palabra& palabra) {
    const std::string_view texto = palabra.texto;
    std::size_t i = palabra.largoBase;
    if (i == 0) return {};
    Referencia r;
    r.nombre = texto.substr(0, i);
    if (i == texto.size()) return r;
    const auto cortar = [&texto, &i] {
        const std::size_t inicio = ++i;
        while (i < texto.size() && texto[i] != '+' && texto[i] != '(' && texto[i] != '[') ++i;
        return texto.substr(inicio, i - inicio);
    };
    if (texto[i] == '-') {
        r.tieneComponente = true;
        r.componentes = cortar();
        if (r.componentes.empty()) return {};
        if (i == texto.size()) return r;
    }
    if (texto.substr(i) == "[]") {
        r.esCuerpo = true;
        return r;
    }
    if (texto[i] == '+') {
        r.tieneDesplazamiento = true;
        r.desplazamiento = cortar();
        if (r.desplazamiento.empty()) return {};
        if (i == texto.size()) return r;
    }
    if (texto[i] != '(' || texto.back() != ')') return {};
    r.tieneLargo = true;
    r.largo = texto.substr(i + 1, texto.size() - i - 2);
    if (r.largo.empty() || r.largo.find_first_of("()") != std::string_view::npos) return {};
    return r;
}

Declarado LeerDeclarado(std::string_view palabra) {
    Declarado d;
    const auto parentesis = palabra.find('(');
    d.nombre = palabra.substr(0, parentesis);
    if (parentesis == std::string_view::npos) return d;
    d.tieneLargo = true;
    d.largo = palabra.substr(parentesis + 1);
    d.cerrado = !d.largo.empty() && d.largo.back() == ')';
    if (d.cerrado) d.largo.remove_suffix(1);
    return d;
}

}  // namespace qor::abap
