#include "abap/values/output_format.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "abap/values/arithmetic.h"
#include "abap/values/conversion.h"
#include "abap/values/decimal_text.h"
#include "abap/values/edit_mask.h"
#include "abap/values/number.h"
#include "abap/values/value_text.h"
#include "base/text.h"

namespace qor::abap {
namespace {

bool SonCeros(std::string_view texto) { return texto.find_first_not_of('0') == std::string_view::npos; }

std::string ConGrupos(const std::string& cifras) {
    const auto enteros = std::min(cifras.find(','), cifras.size());
    std::string texto;
    for (std::size_t i = 0; i < cifras.size(); ++i) {
        if (i > 0 && i < enteros && (enteros - i) % 3 == 0) texto += '.';
        texto += cifras[i];
    }
    return texto;
}

// I and P in a width: the points go first where it is short, then the place of a positive sign.
std::string TextoDeEntero(const Campo& campo, std::size_t ancho, const FormatoDeSalida& formato) {
    auto numero = LeerNumero(campo, Calculo::Empaquetado);
    if (formato.sinCero && numero.digitos == 0) return std::string(ancho, ' ');
    const int decimales = formato.decimales.value_or(numero.escala);
    if (decimales < numero.escala) {
        numero.digitos = QuitarLugares(numero.digitos, numero.escala - decimales);
        numero.escala = static_cast<std::uint8_t>(decimales);
    }
    auto cifras = CifrasDe(numero.digitos, numero.escala);
    std::replace(cifras.begin(), cifras.end(), '.', ',');
    if (decimales > numero.escala) {
        if (numero.escala == 0) cifras += ',';
        cifras.append(static_cast<std::size_t>(decimales - numero.escala), '0');
    }
    const bool negativo = numero.digitos < 0 && !formato.sinSigno;
    const auto agrupadas = formato.sinGrupos ? cifras : ConGrupos(cifras);
    const auto caben = [&](const std::string& texto, bool signo) { return texto.size() + (signo ? 1 : 0) <= ancho; };
    return TextoConSigno(caben(agrupadas, negativo) ? agrupadas : cifras, negativo, ancho);
}

std::string TextoDeFecha(std::string_view fecha, std::size_t ancho) {
    if (SinBlancosDetras(fecha).empty()) return "";
    const std::string punto = ancho >= 10 ? "." : "";
    const auto ano = ancho >= 8 ? fecha.substr(0, 4) : fecha.substr(2, 2);
    return std::string(fecha.substr(6, 2)) + punto + std::string(fecha.substr(4, 2)) + punto + std::string(ano);
}

std::string TextoDeHora(std::string_view hora, std::size_t ancho) {
    if (SinBlancosDetras(hora).empty()) return "";
    const std::string punto = ancho >= 8 ? ":" : "";
    return std::string(hora.substr(0, 2)) + punto + std::string(hora.substr(2, 2)) + punto + std::string(hora.substr(4, 2));
}

std::string SinCerosDelante(std::string texto) {
    const auto primero = std::min(texto.find_first_not_of('0'), texto.size());
    std::fill(texto.begin(), texto.begin() + static_cast<std::ptrdiff_t>(primero), ' ');
    return texto;
}

std::string TextoDeCaracteres(const Campo& campo, const FormatoDeSalida& formato) {
    std::string texto(campo.Texto());
    return formato.sinCero ? SinCerosDelante(texto) : texto;
}

std::string TextoSinAjuste(const Campo& campo, std::size_t ancho, const FormatoDeSalida& formato) {
    switch (campo.tipo) {
        case Tipo::I:
        case Tipo::P: return TextoDeEntero(campo, ancho, formato);
        case Tipo::F: {
            auto valor = LeerNumero(campo, Calculo::Flotante).flotante;
            if (formato.sinCero && valor == 0) return "";
            if (formato.sinSigno) valor = std::fabs(valor);
            return TextoCientifico(valor, ancho, ',', std::clamp(formato.decimales.value_or(16), 0, 16));
        }
        case Tipo::D:
        case Tipo::T:
            if (formato.sinCero && SonCeros(campo.Texto())) return "";
            return campo.tipo == Tipo::D ? TextoDeFecha(campo.Texto(), ancho) : TextoDeHora(campo.Texto(), ancho);
        case Tipo::X: return Hexadecimal(campo);
        default: return TextoDeCaracteres(campo, formato);
    }
}

// Blanks around what stands in a text: in front of it, around it or behind it.
std::string Ajustar(std::string texto, std::size_t ancho, FormatoDeSalida::Ajuste ajuste) {
    using Ajuste = FormatoDeSalida::Ajuste;
    texto.resize(std::max(texto.size(), ancho), ' ');
    if (ajuste == Ajuste::Ninguno) return texto.substr(0, ancho);
    const auto primero = texto.find_first_not_of(' ');
    if (primero == std::string::npos) return texto.substr(0, ancho);
    const auto dentro = std::string(SinBlancosDetras(texto)).substr(primero);
    if (dentro.size() >= ancho) return dentro.substr(0, ancho);
    const auto libres = ancho - dentro.size();
    const auto delante = ajuste == Ajuste::Izquierda ? 0 : ajuste == Ajuste::Derecha ? libres : libres / 2;
    return std::string(delante, ' ') + dentro + std::string(libres - delante, ' ');
}

}  // namespace

int AnchoDeSalida(const Campo& campo) {
    const auto largo = static_cast<int>(campo.largo);
    switch (campo.tipo) {
        case Tipo::I: return 11;
        case Tipo::P: return 2 * largo + (campo.decimales > 0 ? 1 : 0);
        case Tipo::D: return 10;
        case Tipo::T: return 8;
        case Tipo::F: return 22;
        case Tipo::X: return 2 * largo;
        case Tipo::Cadena: return static_cast<int>(campo.cadena->size());
        default: return largo;
    }
}

std::string TextoDeSalida(const Campo& campo, int ancho, const FormatoDeSalida& formato) {
    const auto lugares = static_cast<std::size_t>(std::max(0, ancho));
    auto texto = formato.mascara.empty() ? TextoSinAjuste(campo, lugares, formato) : TextoConMascara(campo, formato);
    return Ajustar(std::move(texto), lugares, formato.ajuste);
}

void EscribirEn(const Campo& campo, const Campo& destino, const FormatoDeSalida& formato) {
    ExigirEscribible(destino);
    if (destino.tipo == Tipo::Cadena) {
        *destino.cadena = TextoDeSalida(campo, AnchoDeSalida(campo), formato);
        return;
    }
    const auto texto = TextoDeSalida(campo, static_cast<int>(destino.largo), formato);
    Campo caracteresDe = destino;
    if (EsDelConjunto(destino.tipo, tiposDeCaracteres)) caracteresDe.tipo = Tipo::C;
    PonerTexto(texto, caracteresDe);
}

}  // namespace qor::abap
