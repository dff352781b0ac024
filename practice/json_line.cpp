#include "practice/json_line.h"

#include <array>
#include <charconv>
#include <cstring>

#include "abap/values/conversion.h"
#include "base/code_page.h"
#include "practice/batch_rows.h"

namespace qor {

namespace {

// How each character of the code page is written; empty for those that stand as they are.
struct Escritura {
    std::uint8_t largo = 0;
    std::array<char, 6> bytes{};
};

Escritura EscrituraDe(unsigned char caracter) {
    constexpr const char* digitos = "0123456789abcdef";
    Escritura escritura;
    const auto poner = [&escritura](std::string_view texto) {
        escritura.largo = static_cast<std::uint8_t>(texto.size());
        std::memcpy(escritura.bytes.data(), texto.data(), texto.size());
    };
    const std::string utf8 = AUtf8(std::string(1, static_cast<char>(caracter)));
    if (EsInvisible(static_cast<char>(caracter))) {
        poner(std::string("\\u00") + digitos[caracter >> 4] + digitos[caracter & 15]);
    } else if (caracter == '"' || caracter == '\\') {
        poner(std::string("\\") + static_cast<char>(caracter));
    } else if (caracter >= 0x80) {
        poner(utf8);
    }
    return escritura;
}

const std::array<Escritura, 256>& Escrituras() {
    static const auto todas = [] {
        std::array<Escritura, 256> escrituras;
        for (std::size_t i = 0; i < escrituras.size(); ++i) escrituras[i] = EscrituraDe(static_cast<unsigned char>(i));
        return escrituras;
    }();
    return todas;
}

bool SonSolo(std::string_view texto, std::string_view caracteres) {
    return texto.find_first_not_of(caracteres) == std::string_view::npos;
}

bool EsInicialEnBase(const abap::ValorDeBase& valor, abap::Tipo tipo) {
    if (const auto* entero = std::get_if<std::int64_t>(&valor)) return *entero == 0;
    if (const auto* flotante = std::get_if<double>(&valor)) return *flotante == 0;
    const auto* texto = std::get_if<std::string>(&valor);
    if (texto == nullptr) return true;
    using enum abap::Tipo;
    switch (tipo) {
        case N:
        case D:
        case T: return SonSolo(*texto, " 0");
        case P: return SonSolo(*texto, " 0.-");
        default: return SonSolo(*texto, " ");
    }
}

std::string Hexadecimal(std::int64_t numero, std::size_t bytes) {
    std::string texto;
    for (std::size_t i = bytes * 2; i-- > 0;) texto += "0123456789ABCDEF"[i < 16 ? (numero >> (4 * i)) & 15 : 0];
    return texto;
}

}  // namespace

EscritorJson& EscritorJson::Abrir(char signo) {
    Separar();
    salida_ += signo;
    detras_ = false;
    return *this;
}

EscritorJson& EscritorJson::Cerrar(char signo) {
    salida_ += signo;
    detras_ = true;
    return *this;
}

EscritorJson& EscritorJson::Clave(std::string_view nombre) {
    Separar();
    Entrecomillar(nombre);
    salida_ += ':';
    detras_ = false;
    return *this;
}

EscritorJson& EscritorJson::Texto(std::string_view texto) {
    Separar();
    Entrecomillar(SinBlancosDetras(texto));
    return *this;
}

EscritorJson& EscritorJson::Entero(std::int64_t numero) {
    std::array<char, 24> cifras;
    const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), numero).ptr;
    Crudo({cifras.data(), fin});
    return *this;
}

EscritorJson& EscritorJson::Valor(const abap::Campo& campo, const abap::Estructura* estructura) {
    using enum abap::Tipo;
    if (estructura != nullptr) {
        Abrir('{');
        for (const auto& componente : estructura->componentes) {
            const auto parte = abap::CampoDeComponente(componente, campo.datos);
            if (abap::EsInicial(parte)) continue;
            Clave(componente.nombre).Valor(parte, componente.tipo.estructura);
        }
        return Cerrar('}');
    }
    switch (campo.tipo) {
        case N:
        case D:
        case T:
            Separar();
            Entrecomillar(campo.Texto());
            break;
        case I:
        case P: Crudo(abap::TextoPlano(campo)); break;
        case F: {
            double numero = 0;
            std::memcpy(&numero, campo.datos, sizeof numero);
            std::array<char, 40> cifras;
            Crudo({cifras.data(), std::to_chars(cifras.data(), cifras.data() + cifras.size(), numero).ptr});
            break;
        }
        case X: Texto(abap::TextoPlano(campo)); break;
        default: Texto(campo.Texto());
    }
    return *this;
}

EscritorJson& EscritorJson::Tabla(const abap::TablaInterna& tabla) {
    Abrir('[');
    for (std::size_t i = 0; i < tabla.Filas(); ++i) Valor(tabla.CampoDeFila(i), tabla.Linea().estructura);
    return Cerrar(']');
}

EscritorJson& EscritorJson::Fila(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) {
    Abrir('{');
    for (std::size_t i = 0; i < tabla.componentes.size() && i < fila.size(); ++i) {
        const auto& columna = tabla.componentes[i];
        if (EsInicialEnBase(fila[i], columna.tipo.tipo)) continue;
        Clave(columna.nombre);
        if (const auto* entero = std::get_if<std::int64_t>(&fila[i])) {
            if (columna.tipo.tipo == abap::Tipo::X)
                Texto(Hexadecimal(*entero, columna.tipo.largo));
            else
                Entero(*entero);
        } else if (const auto* flotante = std::get_if<double>(&fila[i])) {
            std::array<char, 40> cifras;
            Crudo({cifras.data(), std::to_chars(cifras.data(), cifras.data() + cifras.size(), *flotante).ptr});
        } else {
            const auto& texto = std::get<std::string>(fila[i]);
            if (columna.tipo.tipo == abap::Tipo::P)
                Crudo(texto);
            else
                Texto(texto);
        }
    }
    return Cerrar('}');
}

void EscritorJson::Separar() {
    if (detras_) salida_ += ',';
    detras_ = true;
}

void EscritorJson::Entrecomillar(std::string_view texto) {
    const auto& escrituras = Escrituras();
    salida_ += '"';
    std::size_t desde = 0;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const auto& escritura = escrituras[static_cast<unsigned char>(texto[i])];
        if (escritura.largo == 0) continue;
        salida_.append(texto, desde, i - desde).append(escritura.bytes.data(), escritura.largo);
        desde = i + 1;
    }
    salida_.append(texto, desde).append(1, '"');
}

void EscritorJson::Crudo(std::string_view texto) {
    Separar();
    salida_ += texto;
}

}  // namespace qor
