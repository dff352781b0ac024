#include "abap/values/dates.h"

#include <algorithm>
#include <array>

namespace qor::abap {
namespace {

// Day numbers that begin with 1 March of a year 0, in both calendars; those of the old one are brought to the same count.
constexpr std::int64_t primero = 306;         // 1 January of the year 1 in the old calendar, counted from 1 March 0000
constexpr std::int64_t cambio = 577'737;      // 15 October 1582
constexpr std::int64_t ultimo = 3'652'060;    // 31 December 9999
constexpr std::int64_t entreCalendarios = 2;  // by which the count of the new one lies ahead

std::int64_t DiasEnMeses(int mes) { return (153 * ((mes + 9) % 12) + 2) / 5; }

std::int64_t DiasAntiguos(int ano, int mes, int dia) {
    const std::int64_t a = mes <= 2 ? ano - 1 : ano;
    return 365 * a + a / 4 + DiasEnMeses(mes) + dia - 1 - primero;
}

std::int64_t DiasNuevos(int ano, int mes, int dia) {
    const std::int64_t a = mes <= 2 ? ano - 1 : ano;
    return 365 * a + a / 4 - a / 100 + a / 400 + DiasEnMeses(mes) + dia - 1 - primero + entreCalendarios;
}

int Digitos(std::string_view texto, std::size_t inicio, std::size_t cuenta) {
    int valor = 0;
    for (const char c : texto.substr(inicio, cuenta)) valor = valor * 10 + (c - '0');
    return valor;
}

bool SonDigitos(std::string_view texto, std::size_t cuantos) {
    return texto.size() >= cuantos && std::all_of(texto.begin(), texto.begin() + static_cast<std::ptrdiff_t>(cuantos),
                                                  [](char c) { return c >= '0' && c <= '9'; });
}

int DiasDelMes(int ano, int mes) {
    constexpr std::array<int, 12> dias = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bisiesto = ano % 4 == 0 && (ano < 1582 || ano % 100 != 0 || ano % 400 == 0);
    return mes == 2 && bisiesto ? 29 : dias[static_cast<std::size_t>(mes - 1)];
}

std::string ConCeros(std::int64_t valor, std::size_t cuantos) {
    std::string texto(cuantos, '0');
    for (auto i = cuantos; i > 0 && valor > 0; --i, valor /= 10) texto[i - 1] = static_cast<char>('0' + valor % 10);
    return texto;
}

}  // namespace

std::int32_t DiasDe(std::string_view fecha) {
    if (!SonDigitos(fecha, 8)) return 0;
    const int ano = Digitos(fecha, 0, 4);
    const int mes = Digitos(fecha, 4, 2);
    const int dia = Digitos(fecha, 6, 2);
    if (ano < 1 || mes < 1 || mes > 12 || dia < 1 || dia > DiasDelMes(ano, mes)) return 0;
    const bool antigua = ano * 10000 + mes * 100 + dia < 15821015;
    // The days that the change left out are the first one behind it.
    if (antigua) return static_cast<std::int32_t>(std::min(DiasAntiguos(ano, mes, dia), cambio));
    return static_cast<std::int32_t>(DiasNuevos(ano, mes, dia));
}

std::string FechaDe(std::int64_t dias) {
    if (dias <= 0 || dias > ultimo) return "00000000";
    const bool antigua = dias < cambio;
    // A year at or before that of the day, then on to it.
    int ano = std::max(1, static_cast<int>(dias * 4 / 1461));
    const auto inicioDe = [antigua](int a, int mes) { return antigua ? DiasAntiguos(a, mes, 1) : DiasNuevos(a, mes, 1); };
    while (ano < 9999 && inicioDe(ano + 1, 1) <= dias) ++ano;
    int mes = 1;
    while (mes < 12 && inicioDe(ano, mes + 1) <= dias) ++mes;
    return ConCeros(ano, 4) + ConCeros(mes, 2) + ConCeros(dias - inicioDe(ano, mes) + 1, 2);
}

std::int32_t SegundosDe(std::string_view hora) {
    if (!SonDigitos(hora, 6)) return 0;
    return Digitos(hora, 0, 2) * 3600 + Digitos(hora, 2, 2) * 60 + Digitos(hora, 4, 2);
}

std::string HoraDe(std::int64_t segundos) {
    segundos = ((segundos % 86400) + 86400) % 86400;
    return ConCeros(segundos / 3600, 2) + ConCeros(segundos / 60 % 60, 2) + ConCeros(segundos % 60, 2);
}

}  // namespace qor::abap
