#include "abap/values/edit_mask.h"

#include <algorithm>
#include <array>

#include "abap/values/arithmetic.h"
#include "abap/values/conversion.h"
#include "abap/values/decimal_text.h"
#include "abap/values/number.h"
#include "abap/values/value_text.h"
#include "base/text.h"

namespace qor::abap {
namespace {

bool EsDeFecha(std::string_view mascara) {
    constexpr std::array<std::string_view, 7> fechas = {"DD/MM/YYYY", "MM/DD/YYYY", "DD/MM/YY", "MM/DD/YY",
                                                        "DDMMYY",     "MMDDYY",     "YYMMDD"};
    return std::find(fechas.begin(), fechas.end(), Mayusculas(mascara)) != fechas.end();
}

std::string TextoDeFecha(std::string_view fecha, const std::string& mascara) {
    if (SinBlancosDetras(fecha).empty()) return "";
    const auto alta = Mayusculas(mascara);
    std::string texto;
    for (std::size_t i = 0; i < alta.size();) {
        const char c = alta[i];
        if (c == '/') {
            texto += '.';
            ++i;
        } else if (alta.compare(i, 4, "YYYY") == 0) {
            texto += fecha.substr(0, 4);
            i += 4;
        } else {
            texto += fecha.substr(c == 'D' ? 6 : c == 'M' ? 4 : 2, 2);
            i += 2;
        }
    }
    return texto;
}

// The output of the conversion ALPHA: digits lose the zeros in front of them.
std::string SinCerosDeClave(const Campo& campo) {
    auto texto = TextoPlano(campo);
    if (texto.find_first_not_of("0123456789") == std::string::npos) texto.erase(0, texto.find_first_not_of('0'));
    return texto;
}

}  // namespace

std::string TextoConMascara(const Campo& campo, const FormatoDeSalida& formato) {
    auto mascara = formato.mascara;
    if (Mayusculas(mascara) == "==ALPHA") return SinCerosDeClave(campo);
    if (campo.tipo == Tipo::D && EsDeFecha(mascara)) return TextoDeFecha(campo.Texto(), mascara);
    const bool esNumero = campo.tipo == Tipo::I || campo.tipo == Tipo::P;
    bool porLaDerecha = esNumero;
    if (mascara.compare(0, 2, "LL") == 0 || mascara.compare(0, 2, "RR") == 0) {
        porLaDerecha = mascara[0] == 'R';
        mascara.erase(0, 2);
    }
    std::string valor;
    bool negativo = false;
    if (esNumero) {
        const auto numero = LeerNumero(campo, Calculo::Empaquetado);
        negativo = numero.digitos < 0;
        valor = CifrasDe(numero.digitos, 0);
        if (formato.sinCero && numero.digitos == 0) return "";
    } else {
        std::string resto;
        valor = TextoDeOperando(campo, resto);
        if (campo.tipo == Tipo::Cadena || porLaDerecha) valor = SinBlancosDetras(valor);
    }
    const auto lugares = static_cast<std::size_t>(std::count(mascara.begin(), mascara.end(), '_'));
    if (porLaDerecha) {
        if (valor.size() < lugares) valor.insert(0, lugares - valor.size(), ' ');
        valor.erase(0, valor.size() - lugares);
    }
    valor.resize(std::max(valor.size(), lugares), ' ');
    std::size_t siguiente = 0;
    for (char& c : mascara) {
        if (c == '_') {
            c = valor[siguiente++];
        } else if (c == 'V' && esNumero) {
            c = negativo ? '-' : ' ';
        }
    }
    return mascara;
}

}  // namespace qor::abap
