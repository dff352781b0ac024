// CONCATENATE, SPLIT, CONDENSE, TRANSLATE, REPLACE, SEARCH, STRLEN. Shifts stand in shifts.cpp.
#include "abap/values/text_operations.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "abap/values/conversion.h"
#include "base/text.h"

namespace qor::abap {
namespace {

// A text as the statements take it: fields of fixed length without the blanks behind, a STRING whole.
std::string_view SinRelleno(const Campo& campo, std::string& resto) {
    const auto texto = TextoDeOperando(campo, resto);
    return campo.tipo == Tipo::Cadena ? texto : SinBlancosDetras(texto);
}

// Characters into a field, whose type counts as C; 4 where they are more than it holds.
int PonerCaracteres(std::string_view texto, Campo destino) {
    if (EsDelConjunto(destino.tipo, tiposDeCaracteres)) destino.tipo = Tipo::C;
    PonerTexto(texto, destino);
    return destino.tipo != Tipo::Cadena && texto.size() > destino.largo ? 4 : 0;
}

// The text of a field, to be changed at its place.
std::span<char> Caracteres(const Campo& campo) {
    if (campo.tipo == Tipo::Cadena) return *campo.cadena;
    return {reinterpret_cast<char*>(campo.datos), campo.largo};
}

bool SonIgualesSinCaja(std::string_view texto, std::size_t i, std::string_view otro) {
    return i + otro.size() <= texto.size() && IgualesSinCaja(texto.substr(i, otro.size()), otro);
}

bool SeparaPalabras(char c) { return std::string_view(" ,;:.?!()/+=").find(c) != std::string_view::npos; }

// Where a word of `texto` stands that begins or ends with `parte`.
std::size_t BuscarPalabra(std::string_view texto, std::string_view parte, bool alComienzo) {
    std::size_t inicio = 0;
    while (inicio < texto.size()) {
        if (SeparaPalabras(texto[inicio])) {
            ++inicio;
            continue;
        }
        auto fin = inicio;
        while (fin < texto.size() && !SeparaPalabras(texto[fin])) ++fin;
        const auto palabra = texto.substr(inicio, fin - inicio);
        if (palabra.size() >= parte.size() && SonIgualesSinCaja(palabra, alComienzo ? 0 : palabra.size() - parte.size(), parte)) {
            return inicio;
        }
        inicio = fin;
    }
    return std::string_view::npos;
}

std::size_t BuscarTexto(std::string_view texto, std::string_view buscado) {
    for (std::size_t i = 0; i + buscado.size() <= texto.size(); ++i) {
        if (SonIgualesSinCaja(texto, i, buscado)) return i;
    }
    return std::string_view::npos;
}

}  // namespace

int Concatenar(std::span<const Campo> fuentes, const Campo* separador, const Campo& destino) {
    std::array<char, 1024> corto;
    std::string largo;  // instead, where it is too short
    std::string resto;
    std::size_t usados = 0;
    bool cabe = true;
    const auto agregar = [&](std::string_view texto) {
        if (cabe && usados + texto.size() <= corto.size()) {
            std::copy(texto.begin(), texto.end(), corto.begin() + static_cast<std::ptrdiff_t>(usados));
            usados += texto.size();
            return;
        }
        if (cabe) largo.assign(corto.data(), usados);
        cabe = false;
        largo += texto;
    };
    for (std::size_t i = 0; i < fuentes.size(); ++i) {
        if (i > 0 && separador != nullptr) agregar(TextoDeOperando(*separador, resto));
        agregar(SinRelleno(fuentes[i], resto));
    }
    return PonerCaracteres(cabe ? std::string_view(corto.data(), usados) : std::string_view(largo), destino);
}

namespace {

// The parts of a text between separators, at most `maximo` of them; the last one has what is left.
std::vector<std::string> Partes(const Campo& texto, const Campo& separador, std::size_t maximo) {
    std::string restoDeTexto;
    std::string restoDeSeparador;
    auto queda = SinRelleno(texto, restoDeTexto);
    const auto entre = TextoDeOperando(separador, restoDeSeparador);
    std::vector<std::string> partes;
    while (partes.size() + 1 < maximo && !entre.empty()) {
        const auto posicion = queda.find(entre);
        if (posicion == std::string_view::npos) break;
        partes.emplace_back(queda.substr(0, posicion));
        queda.remove_prefix(posicion + entre.size());
    }
    partes.emplace_back(queda);
    return partes;
}

}  // namespace

int Partir(const Campo& texto, const Campo& separador, std::span<const Campo> destinos) {
    const auto partes = Partes(texto, separador, destinos.size());
    int subrc = 0;
    for (std::size_t i = 0; i < destinos.size(); ++i) {
        subrc = std::max(subrc, PonerCaracteres(i < partes.size() ? partes[i] : std::string_view(), destinos[i]));
    }
    return subrc;
}

void PartirEnTabla(const Campo& texto, const Campo& separador, TablaInterna& tabla) {
    auto partes = Partes(texto, separador, std::string_view::npos);
    if (partes.back().empty()) partes.pop_back();
    tabla.Vaciar();
    for (const auto& parte : partes) {
        tabla.Agregar();
        PonerTexto(parte, tabla.CampoDeFila(tabla.Filas() - 1));
    }
}

void Condensar(const Campo& campo, bool sinBlancos) {
    ExigirEscribible(campo);
    const auto texto = Caracteres(campo);
    std::size_t puestos = 0;
    bool pendiente = false;
    for (const char c : texto) {
        if (c == ' ') {
            pendiente = puestos > 0 && !sinBlancos;
            continue;
        }
        if (pendiente) texto[puestos++] = ' ';
        pendiente = false;
        texto[puestos++] = c;
    }
    if (campo.tipo == Tipo::Cadena) {
        campo.cadena->resize(puestos);
    } else {
        std::memset(texto.data() + puestos, ' ', texto.size() - puestos);
    }
}

void CambiarCaja(const Campo& campo, bool mayusculas) {
    ExigirEscribible(campo);
    const auto texto = Caracteres(campo);
    if (mayusculas) {
        for (char& c : texto) c = static_cast<char>(Mayuscula(static_cast<unsigned char>(c)));
    } else {
        const auto otro = Minusculas({texto.data(), texto.size()});
        std::copy(otro.begin(), otro.end(), texto.begin());
    }
}

void TrasladarPares(const Campo& campo, const Campo& pares) {
    ExigirEscribible(campo);
    std::array<char, 256> tabla;
    for (std::size_t i = 0; i < tabla.size(); ++i) tabla[i] = static_cast<char>(i);
    std::string resto;
    const auto texto = TextoDeOperando(pares, resto);
    // The first pair of a character counts.
    for (std::size_t i = texto.size() / 2 * 2; i >= 2; i -= 2) tabla[static_cast<unsigned char>(texto[i - 2])] = texto[i - 1];
    for (char& c : Caracteres(campo)) c = tabla[static_cast<unsigned char>(c)];
}

int Reemplazar(const Campo& que, std::optional<int> largo, const Campo& otro, const Campo& campo, std::int32_t& fdpos) {
    ExigirEscribible(campo);
    std::string restoDeQue;
    std::string restoDeOtro;
    auto buscado = TextoDeOperando(que, restoDeQue);
    if (largo) {
        buscado = buscado.substr(0, static_cast<std::size_t>(std::max(0, *largo)));
    } else if (const auto corto = SinBlancosDetras(buscado); !corto.empty()) {
        buscado = corto;
    }
    const std::string texto(Caracteres(campo).begin(), Caracteres(campo).end());
    // A pattern of blanks is not found in those that fill the field.
    const bool enBlanco = SinBlancosDetras(buscado).empty() && campo.tipo != Tipo::Cadena;
    const auto posicion =
        buscado.empty() ? std::string::npos : (enBlanco ? SinBlancosDetras(texto) : std::string_view(texto)).find(buscado);
    if (posicion == std::string::npos) return 4;
    fdpos = static_cast<std::int32_t>(posicion);
    std::string nuevo = texto.substr(0, posicion);
    nuevo += SinRelleno(otro, restoDeOtro);
    nuevo += std::string_view(texto).substr(posicion + buscado.size());
    PonerCaracteres(nuevo, campo);
    return 0;
}

int Buscar(const Campo& campo, const Campo& patron, std::int32_t& fdpos) {
    std::string restoDeCampo;
    std::string restoDePatron;
    const auto texto = TextoDeOperando(campo, restoDeCampo);
    auto buscado = SinBlancosDetras(TextoDeOperando(patron, restoDePatron));
    auto posicion = std::string_view::npos;
    if (buscado.size() > 2 && buscado.front() == '.' && buscado.back() == '.') {
        posicion = BuscarTexto(texto, buscado.substr(1, buscado.size() - 2));
    } else if (buscado.size() > 1 && buscado.front() == '*') {
        posicion = BuscarPalabra(texto, buscado.substr(1), false);
    } else if (buscado.size() > 1 && buscado.back() == '*') {
        posicion = BuscarPalabra(texto, buscado.substr(0, buscado.size() - 1), true);
    } else if (!buscado.empty()) {
        posicion = BuscarTexto(texto, buscado);
    }
    fdpos = posicion == std::string_view::npos ? 0 : static_cast<std::int32_t>(posicion);
    return posicion == std::string_view::npos ? 4 : 0;
}

int LargoDeTexto(const Campo& campo) {
    std::string resto;
    return static_cast<int>(SinRelleno(campo, resto).size());
}

}  // namespace qor::abap
