#include "input/encoding.h"

#include <algorithm>

#include "base/code_page.h"

namespace qor {

namespace {

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

bool EsAscii(std::string_view texto) {
    unsigned char todos = 0;
    for (const char c : texto) todos |= Byte(c);
    return todos < 0x80;
}

// What is left of a text behind its valid characters: empty, a beginning of one that the next text may end, or what is no UTF-8.
std::string_view PasarCaracteres(std::string_view texto) {
    constexpr std::size_t trecho = 4096;
    while (!texto.empty()) {
        if (const auto parte = texto.substr(0, trecho); EsAscii(parte)) {
            texto.remove_prefix(parte.size());
            continue;
        }
        const auto antes = texto.size();
        while (!texto.empty() && antes - texto.size() < trecho) {
            const auto largo = LargoDeCaracter(texto);
            if (largo == 0) return texto;
            texto.remove_prefix(largo);
        }
    }
    return texto;
}

constexpr std::size_t largoDeBloque = std::size_t{1} << 18;

bool EsUtf8Desde(const ArchivoAbierto& archivo, std::uint64_t lugar, bool& hayOtros) {
    std::string bloque(largoDeBloque, '\0');
    std::size_t quedan = 0;  // of a character that the block before began
    for (;;) {
        const auto leidos = archivo.LeerEn(bloque.data() + quedan, bloque.size() - quedan, lugar);
        if (leidos == 0) return quedan == 0;
        lugar += leidos;
        const std::string_view texto(bloque.data(), quedan + leidos);
        hayOtros = hayOtros || !EsAscii(texto);
        const auto resto = PasarCaracteres(texto);
        if (resto.size() > 3) return false;
        std::copy(resto.begin(), resto.end(), bloque.begin());
        quedan = resto.size();
    }
}

}  // namespace

Codificacion MarcaDeOrden(std::string_view principio) {
    if (principio.starts_with("\xEF\xBB\xBF")) return Codificacion::Utf8;
    if (principio.starts_with("\xFF\xFE") || principio.starts_with("\xFE\xFF")) return Codificacion::Utf16;
    return Codificacion::Windows1252;
}

Codificacion BuscarCodificacion(const ArchivoAbierto& archivo) {
    std::string principio(largoDeMarcaUtf8, '\0');
    principio.resize(archivo.LeerEn(principio.data(), principio.size(), 0));
    const auto marca = MarcaDeOrden(principio);
    if (marca != Codificacion::Windows1252) return marca;
    bool hayOtros = false;
    return EsUtf8Desde(archivo, 0, hayOtros) && hayOtros ? Codificacion::Utf8 : Codificacion::Windows1252;
}

bool EsUtf8Desde(const ArchivoAbierto& archivo, std::uint64_t lugar) {
    bool hayOtros = false;
    return EsUtf8Desde(archivo, lugar, hayOtros);
}

std::size_t LargoDeCaracter(std::string_view texto) {
    const auto primero = Byte(texto.front());
    if (primero < 0x80) return 1;
    const std::size_t largo = primero >= 0xF0 ? 4 : primero >= 0xE0 ? 3 : 2;
    if (primero < 0xC2 || primero > 0xF4 || texto.size() < largo) return 0;
    const auto segundo = Byte(texto[1]);
    // No longer form than needed, no half of a pair of UTF-16, nothing behind the last character.
    if ((primero == 0xE0 && segundo < 0xA0) || (primero == 0xED && segundo > 0x9F) || (primero == 0xF0 && segundo < 0x90) ||
        (primero == 0xF4 && segundo > 0x8F))
        return 0;
    for (std::size_t i = 1; i < largo; ++i) {
        if ((Byte(texto[i]) & 0xC0) != 0x80) return 0;
    }
    return largo;
}

Codificacion CodificacionDe(std::string_view texto) {
    const auto marca = MarcaDeOrden(texto);
    return marca == Codificacion::Windows1252 && TieneUtf8(texto) ? Codificacion::Utf8 : marca;
}

bool TieneUtf8(std::string_view texto) { return !EsAscii(texto) && PasarCaracteres(texto).empty(); }

bool EsAsciiSinNulos(std::string_view texto) {
    // The byte before NUL is FF; that before 80 is ASCII, so both are looked at.
    unsigned char todos = 0;
    for (const char c : texto) todos |= static_cast<unsigned char>(Byte(c) | (Byte(c) - 1));
    return todos < 0x80;
}

std::string TextoDesdeUtf8(std::string_view texto, std::vector<std::size_t>& faltas) {
    std::string convertido;
    convertido.reserve(texto.size());
    while (!texto.empty()) {
        const auto largo = std::max<std::size_t>(LargoDeCaracter(texto), 1);
        const auto caracter = DesdeUtf8(texto.substr(0, largo));
        if (!caracter) faltas.push_back(convertido.size());
        convertido += caracter.value_or("?");
        texto.remove_prefix(largo);
    }
    return convertido;
}

}  // namespace qor
