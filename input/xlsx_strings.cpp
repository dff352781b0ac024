#include "input/xlsx_strings.h"

#include <algorithm>
#include <cstring>

#include "input/xlsx_elements.h"
#include "input/xlsx_package.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeTexto = std::size_t{4} << 20;
constexpr std::size_t maximoDeCelda = std::size_t{4} * 32767;  // bytes
constexpr std::uint64_t maximoDeTextos = std::uint64_t{8} << 30;
constexpr std::size_t paginasDeTextos = 4096;
constexpr std::size_t paginasDeFinales = 1024;

int Cifra(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// The character of an escape "_xHHHH_" at a place; -1 where there is none.
int CaracterEscrito(std::string_view texto) {
    if (texto.size() < 7 || texto[1] != 'x' || texto[6] != '_') return -1;
    int valor = 0;
    for (std::size_t i = 2; i < 6; ++i) {
        const int cifra = Cifra(texto[i]);
        if (cifra < 0) return -1;
        valor = valor * 16 + cifra;
    }
    return valor;
}

void AgregarCaracter(std::string& salida, int valor) {
    if (valor < 0x80) {
        salida += static_cast<char>(valor);
    } else if (valor < 0x800) {
        salida += {static_cast<char>(0xC0 | (valor >> 6)), static_cast<char>(0x80 | (valor & 0x3F))};
    } else {
        salida += {static_cast<char>(0xE0 | (valor >> 12)), static_cast<char>(0x80 | ((valor >> 6) & 0x3F)),
                   static_cast<char>(0x80 | (valor & 0x3F))};
    }
}

}  // namespace

std::string_view NombreLocal(const pugi::xml_node& nodo) {
    const std::string_view nombre = nodo.name();
    return nombre.substr(nombre.find(':') + 1);
}

void AgregarTextoDeCelda(std::string& utf8, std::string_view escrito) {
    for (std::size_t lugar = 0; lugar < escrito.size();) {
        const auto raya = std::min(escrito.find('_', lugar), escrito.size());
        utf8.append(escrito.substr(lugar, raya - lugar));
        lugar = raya;
        if (raya == escrito.size()) return;
        const int caracter = CaracterEscrito(escrito.substr(raya));
        if (caracter < 0) {
            utf8 += '_';
            ++lugar;
        } else {
            AgregarCaracter(utf8, caracter);
            lugar += 7;
        }
    }
}

std::string TextoDeElemento(const pugi::xml_node& elemento) {
    std::string texto;
    for (const auto& hijo : elemento.children()) {
        const auto nombre = NombreLocal(hijo);
        if (nombre == "t") {
            for (const auto& trozo : hijo.children()) AgregarTextoDeCelda(texto, trozo.value());
        } else if (nombre == "r") {
            texto += TextoDeElemento(hijo);
        }
    }
    return texto;
}

TextosCompartidos::TextosCompartidos(ParteXlsx& parte)
    : paginasDeTextos_(textos_, paginasDeTextos), paginasDeFinales_(finales_, paginasDeFinales) {
    Guardar(parte);
}

void TextosCompartidos::Guardar(ParteXlsx& parte) {
    PartidorDeElementos elementos([&parte](char* donde, std::size_t cuanto) { return parte.Leer(donde, cuanto); },
                                  [&parte](const std::string& motivo) { parte.Fallar(motivo); }, "si", maximoDeTexto);
    pugi::xml_document xml;
    std::size_t largo = 0;
    while (char* const elemento = elementos.Siguiente(largo)) {
        if (!xml.load_buffer_inplace(elemento, largo, pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8)) {
            parte.Fallar("a shared string is no XML");
        }
        const auto texto = TextoDeElemento(xml.document_element());
        if (texto.size() > maximoDeCelda) parte.Fallar("a text is longer than a cell can hold");
        textos_.Agregar(texto);
        if (textos_.Largo() > maximoDeTextos) parte.Fallar("the shared strings have more than 8 gigabytes");
        const std::uint64_t final = textos_.Largo();
        char bytes[sizeof final];
        std::memcpy(bytes, &final, sizeof final);
        finales_.Agregar({bytes, sizeof bytes});
        ++cuantos_;
    }
}

bool TextosCompartidos::Texto(std::uint64_t numero, std::string& utf8) {
    utf8.clear();
    if (numero >= cuantos_) return false;
    std::uint64_t extremos[2] = {0, 0};  // where the text begins and ends
    std::string bytes;
    const std::size_t primero = numero == 0 ? 1 : 0;
    paginasDeFinales_.Leer((numero - 1 + primero) * sizeof extremos[0], (2 - primero) * sizeof extremos[0], bytes);
    std::memcpy(&extremos[primero], bytes.data(), std::min(bytes.size(), sizeof extremos - primero * sizeof extremos[0]));
    paginasDeTextos_.Leer(extremos[0], static_cast<std::size_t>(extremos[1] - extremos[0]), utf8);
    return true;
}

}  // namespace qor
