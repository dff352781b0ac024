#include "input/convert_cell.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"
#include "input/sheet_date.h"
#include "input/sheet_number.h"
#include "input/value_checks.h"

namespace qor {

namespace {

using Tipo = ClaseDeCampo::Tipo;

constexpr double masDeQuinceCifras = 1e15;

// From one decimal sign to the other; the signs between thousands go the other way.
void CambiarSignos(std::string& texto) {
    for (char& c : texto) c = c == '.' ? ',' : c == ',' ? '.' : c;
}

// The number of decimals of a number that is written as its cell displays it; nothing for any other text.
std::optional<int> DecimalesDeNumeroLlano(std::string_view texto, char signo) {
    if (texto.starts_with("-")) texto.remove_prefix(1);
    const auto lugar = texto.find(signo);
    const auto enteros = texto.substr(0, lugar);
    const auto decimales = lugar == std::string_view::npos ? std::string_view() : texto.substr(lugar + 1);
    const auto sonCifras = [](std::string_view t) { return t.find_first_not_of("0123456789") == std::string_view::npos; };
    if (enteros.empty() || !sonCifras(enteros) || !sonCifras(decimales) || (enteros.size() > 1 && enteros.front() == '0')) {
        return std::nullopt;
    }
    if (lugar != std::string_view::npos && decimales.empty()) return std::nullopt;
    if (enteros.size() + decimales.size() > static_cast<std::size_t>(DecimalDeCelda::precision)) return std::nullopt;
    return static_cast<int>(decimales.size());
}

}  // namespace

bool DiceElDia(std::string_view formato) {
    const DiaDelAno dia{2004, 2, 29};
    return LeerDia(DiaComoTexto(dia, formato), formato) == dia;
}

ConversorDeCampo::ConversorDeCampo(const CampoDeRegistro& campo, const ClaseDeCampo* clase, bool porTabuladores,
                                   OpcionesDeCeldas opciones)
    : ancho_(campo.ancho), porTabuladores_(porTabuladores), opciones_(std::move(opciones)) {
    if (clase != nullptr) clase_ = *clase;
    diaEntero_ = clase_.tipo == Tipo::Fecha && DiceElDia(clase_.formato);
}

bool ConversorDeCampo::ALayout(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const {
    using Clase = CeldaDeHoja::Clase;
    bool bien = true;
    switch (celda.clase) {
        case Clase::Vacia: valor.clear(); return true;
        case Clase::Texto: bien = DeTexto(celda, valor, motivo); break;
        case Clase::Numero: bien = DeNumero(celda, valor, motivo); break;
        case Clase::Fecha: bien = DeFecha(celda, valor, motivo); break;
        case Clase::Booleano:
            valor = opciones_.comoGuardado ? (celda.numero != 0 ? "1" : "0") : (celda.numero != 0 ? "TRUE" : "FALSE");
            break;
        case Clase::Error: motivo = "the cell shows the error " + celda.texto; return false;
        case Clase::SinValor:
            motivo = "the cell has a formula, and the file does not have its value; open it in a spreadsheet program and save it";
            return false;
        case Clase::Ilegible: motivo = "what the file has for the cell is no number"; return false;
    }
    return bien && Cabe(valor, motivo);
}

bool ConversorDeCampo::DeTexto(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const {
    valor = celda.texto;
    if (celda.conFaltas) {
        motivo = "a character of the text is not in windows-1252";
        return false;
    }
    const auto llano = Recortar(valor);
    if (llano.empty()) return true;
    if (clase_.tipo == Tipo::Fecha && !opciones_.fechas.empty()) {
        const auto dia = LeerDia(llano, opciones_.fechas);
        if (!dia) {
            motivo = "the text is not a date in the form " + opciones_.fechas;
            return false;
        }
        valor = DiaComoTexto(*dia, clase_.formato);
    }
    if (clase_.tipo == Tipo::Numero && opciones_.decimales != 0) {
        if (!EsNumero(llano, opciones_.decimales)) {
            motivo = std::string("the text is not a number with \"") + opciones_.decimales + "\" in front of the decimals";
            return false;
        }
        if (opciones_.decimales != clase_.decimal) CambiarSignos(valor);
    }
    return true;
}

bool ConversorDeCampo::DeNumero(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const {
    const auto* const formato = celda.formato;
    const bool fecha = formato != nullptr && formato->EsFecha();
    const auto sinCubrir = [&] {
        if (formato->PorAjustes()) {
            motivo = fecha
                         ? "how the date is displayed depends on the computer; give the field a kind with its date format, or the "
                           "cell another number format"
                         : "how the number is displayed depends on the computer; give the field a kind, or the cell another number "
                           "format";
        } else {
            motivo = "the number format \"" + DesdeUtf8ConFaltas(formato->Codigo()) + "\" of the cell is not known here";
        }
        return false;
    };
    if (fecha && clase_.tipo == Tipo::Fecha) {
        const double dia = std::floor(celda.numero);
        const auto delAno = dia < 1e7 ? DiaDeNumero(static_cast<std::int64_t>(dia)) : std::nullopt;
        if (!delAno || !formato->TieneDia()) {
            motivo = "the cell has no day";
            return false;
        }
        if (celda.numero != dia) {
            motivo = "the cell has a time beside its day";
            return false;
        }
        valor = DiaComoTexto(*delAno, clase_.formato);
        return true;
    }
    if (!fecha && std::fabs(celda.numero) >= masDeQuinceCifras) {
        motivo = "the number has more than 15 digits, of which a spreadsheet keeps no more than 15; make its cell a text";
        return false;
    }
    std::optional<std::string> mostrado;
    if (clase_.tipo == Tipo::Numero) {
        if (fecha) {
            motivo = "the cell has a date, and the field takes a number";
            return false;
        }
        if (formato != nullptr && formato->EsPorcentaje() && !opciones_.comoGuardado) {
            motivo =
                "the number is displayed as a percentage; give the cell another number format, or take cells as they are stored";
            return false;
        }
        mostrado =
            formato == nullptr || opciones_.comoGuardado ? NumeroCompleto(celda.numero) : formato->MostrarCifras(celda.numero);
    } else if (opciones_.comoGuardado) {
        // Days of the 1904 system are stored as such.
        double guardado = celda.numero;
        LeerNumeroDeCelda(celda.texto, guardado);
        mostrado = NumeroCompleto(guardado);
    } else {
        mostrado = formato == nullptr ? NumeroCompleto(celda.numero) : formato->Mostrar(celda.numero);
    }
    if (!mostrado) return sinCubrir();
    auto texto = DesdeUtf8(*mostrado);
    if (!texto) return sinCubrir();
    valor = std::move(*texto);
    if (clase_.tipo == Tipo::Numero && clase_.decimal == ',') CambiarSignos(valor);
    if (clase_.tipo == Tipo::Fecha && !FormatoDeFecha::Leer(clase_.formato)->Admite(valor)) {
        motivo = "the cell has the number " + valor + ", and the field takes a date";
        return false;
    }
    return true;
}

// A date that the file holds as a text.
bool ConversorDeCampo::DeFecha(const CeldaDeHoja& celda, std::string& valor, std::string& motivo) const {
    valor = celda.texto;
    if (clase_.tipo == Tipo::Numero) {
        motivo = "the cell has a date, and the field takes a number";
        return false;
    }
    if (clase_.tipo == Tipo::Ninguno) return true;
    const auto dia = LeerDia(std::string_view(celda.texto).substr(0, 10), "YYYY-MM-DD");
    if (!dia) {
        motivo = "the cell has no day";
        return false;
    }
    if (celda.texto.find_first_of("123456789", 10) != std::string::npos) {
        motivo = "the cell has a time beside its day";
        return false;
    }
    valor = DiaComoTexto(*dia, clase_.formato);
    return true;
}

bool ConversorDeCampo::Cabe(std::string& valor, std::string& motivo) const {
    const std::string_view prohibidos(porTabuladores_ ? "\r\n\t\0" : "\r\n\0", porTabuladores_ ? 4 : 3);
    if (const auto lugar = valor.find_first_of(prohibidos); lugar != std::string::npos) {
        motivo = valor[lugar] == '\t'   ? "the cell has a tab, which ends a field"
                 : valor[lugar] == '\0' ? "the cell has a NUL character"
                                        : "the cell has a line end, which ends a record";
        return false;
    }
    if (std::any_of(valor.begin(), valor.end(), [](char c) { return c < 0 && EsInvisible(c); })) {
        motivo = "the cell has a byte without a character in windows-1252";
        return false;
    }
    const auto usados = porTabuladores_ ? valor.size() : valor.find_last_not_of(' ') + 1;
    if (usados == 0 || (ancho_ == 0 && porTabuladores_)) return true;
    if (ancho_ == 0) {
        motivo = "the field has no width in the layout";
        return false;
    }
    if (usados > ancho_) {
        motivo = "the field takes " + std::to_string(ancho_) + (ancho_ == 1 ? " character" : " characters") +
                 ", and the value has " + std::to_string(usados);
        return false;
    }
    return true;
}

bool ConversorDeCampo::AlTexto(std::string_view valor, std::string& texto, std::string& motivo) const {
    texto = valor;
    const auto llano = Recortar(valor);
    if (llano.empty()) return true;
    if (clase_.tipo == Tipo::Fecha && !opciones_.fechas.empty()) {
        const auto dia = LeerDia(llano, clase_.formato);
        if (!dia || llano.size() != valor.size()) {
            motivo = "the value is not a date in the form " + clase_.formato;
            return false;
        }
        texto = DiaComoTexto(*dia, opciones_.fechas);
    }
    if (clase_.tipo == Tipo::Numero && opciones_.decimales != 0) {
        if (!EsNumero(llano, clase_.decimal)) {
            motivo = std::string("the value is not a number with \"") + clase_.decimal + "\" in front of the decimals";
            return false;
        }
        if (opciones_.decimales != clase_.decimal) CambiarSignos(texto);
    }
    return true;
}

ValorDeCelda ConversorDeCampo::AlLibro(std::string_view valor) const {
    ValorDeCelda celda;
    celda.texto = valor;
    if (clase_.tipo == Tipo::Numero) {
        const auto decimales = DecimalesDeNumeroLlano(valor, clase_.decimal);
        if (!decimales) return celda;
        std::string numero(valor);
        if (clase_.decimal == ',') CambiarSignos(numero);
        if (!LeerNumeroDeCelda(numero, celda.numero) || (celda.numero == 0 && numero.starts_with("-"))) return celda;
        celda.decimales = *decimales;
        celda.clase = ValorDeCelda::Clase::Numero;
    } else if (diaEntero_) {
        // Programs don't agree on the days before March 1900.
        constexpr std::int64_t primeroSeguro = 61;
        const auto dia = LeerDia(valor, clase_.formato);
        const auto numero = dia ? NumeroDeDia(*dia) : std::nullopt;
        if (!numero || *numero < primeroSeguro) return celda;
        celda.numero = static_cast<double>(*numero);
        celda.clase = ValorDeCelda::Clase::Fecha;
    }
    return celda;
}

}  // namespace qor
