#include "input/value_checks.h"

#include <array>
#include <chrono>

namespace qor {

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

// Digits, in groups of three behind the first one where there are any; a group that begins a number has no 0 in front.
bool EsParteEntera(std::string_view texto, char grupo) {
    std::size_t digitos = 0;
    bool hayGrupos = false;
    for (const char c : texto) {
        if (c == grupo) {
            if (hayGrupos ? digitos != 3 : digitos < 1 || digitos > 3 || texto.front() == '0') return false;
            hayGrupos = true;
            digitos = 0;
        } else if (EsDigito(c)) {
            ++digitos;
        } else {
            return false;
        }
    }
    return !hayGrupos || digitos == 3;
}

bool SoloDigitos(std::string_view texto) {
    for (const char c : texto) {
        if (!EsDigito(c)) return false;
    }
    return true;
}

bool EsSigno(char c) { return c == '+' || c == '-'; }

bool EsLetra(char c) { return c == 'D' || c == 'M' || c == 'Y'; }

}  // namespace

bool EsNumero(std::string_view valor, char decimal) {
    if (!valor.empty() && EsSigno(valor.front())) {
        valor.remove_prefix(1);
    } else if (!valor.empty() && EsSigno(valor.back())) {
        valor.remove_suffix(1);
    }
    const auto coma = valor.find(decimal);
    const auto entera = valor.substr(0, coma);
    const auto fraccion = coma == std::string_view::npos ? std::string_view() : valor.substr(coma + 1);
    return !(entera.empty() && fraccion.empty()) && SoloDigitos(fraccion) && EsParteEntera(entera, decimal == '.' ? ',' : '.');
}

std::optional<FormatoDeFecha> FormatoDeFecha::Leer(std::string_view formato) {
    std::string vistas;
    for (std::size_t i = 0; i < formato.size();) {
        const char letra = formato[i];
        if (!EsLetra(letra)) {
            // A sign that could be part of a value would leave open where the value ends.
            if (EsDigito(letra) || (letra >= 'A' && letra <= 'Z') || (letra >= 'a' && letra <= 'z')) return std::nullopt;
            ++i;
            continue;
        }
        const auto fin = std::min(formato.find_first_not_of(letra, i), formato.size());
        const auto largo = fin - i;
        if (vistas.find(letra) != std::string::npos || !(largo == 2 || (letra == 'Y' && largo == 4))) return std::nullopt;
        vistas += letra;
        i = fin;
    }
    if (vistas.empty()) return std::nullopt;
    FormatoDeFecha leido;
    leido.formato_ = formato;
    return leido;
}

bool FormatoDeFecha::Admite(std::string_view valor) const {
    if (valor.size() != formato_.size()) return false;
    int dia = 0;
    int mes = 0;
    int ano = 0;
    int letrasDeAno = 0;
    bool conDia = false;
    bool conMes = false;
    for (std::size_t i = 0; i < valor.size(); ++i) {
        const char letra = formato_[i];
        if (!EsLetra(letra)) {
            if (valor[i] != letra) return false;
            continue;
        }
        if (!EsDigito(valor[i])) return false;
        int& parte = letra == 'D' ? dia : letra == 'M' ? mes : ano;
        parte = parte * 10 + (valor[i] - '0');
        conDia = conDia || letra == 'D';
        conMes = conMes || letra == 'M';
        letrasDeAno += letra == 'Y' ? 1 : 0;
    }
    if (letrasDeAno == 4 && ano == 0) return false;
    if (conMes && (mes < 1 || mes > 12)) return false;
    if (!conDia) return true;
    constexpr std::array<int, 13> dias = {31, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int largoDelAno = letrasDeAno == 2 ? 2000 + ano : ano;
    const bool sinBisiesto = mes == 2 && letrasDeAno > 0 && !std::chrono::year(largoDelAno).is_leap();
    return dia >= 1 && dia <= dias[static_cast<std::size_t>(mes)] - (sinBisiesto ? 1 : 0);
}

}  // namespace qor
