#include "input/sheet_date.h"

#include <chrono>
#include <cstdio>

#include "base/text.h"

namespace qor {

namespace {

namespace cr = std::chrono;

constexpr std::int64_t diaQueNoHubo = 60;
constexpr std::int64_t ultimoDia = 2958465;
const cr::sys_days origen{cr::year{1899} / 12 / 30};

// A run of one letter of a format, from `lugar` on; `lugar` goes behind it.
std::size_t Racha(std::string_view formato, std::size_t& lugar) {
    const auto inicio = lugar;
    while (lugar < formato.size() && formato[lugar] == formato[inicio]) ++lugar;
    return lugar - inicio;
}

bool EsLetraDeFecha(char letra) { return letra == 'D' || letra == 'M' || letra == 'Y'; }

int& ParteDe(DiaDelAno& dia, char letra) { return letra == 'D' ? dia.dia : letra == 'M' ? dia.mes : dia.ano; }

}  // namespace

std::optional<DiaDelAno> DiaDeNumero(std::int64_t numero) {
    if (numero < 1 || numero == diaQueNoHubo || numero > ultimoDia) return std::nullopt;
    const cr::year_month_day dia{origen + cr::days{numero + (numero < diaQueNoHubo ? 1 : 0)}};
    return DiaDelAno{static_cast<int>(dia.year()), static_cast<int>(static_cast<unsigned>(dia.month())),
                     static_cast<int>(static_cast<unsigned>(dia.day()))};
}

std::optional<std::int64_t> NumeroDeDia(const DiaDelAno& dia) {
    if (dia.mes < 1 || dia.dia < 1 || dia.ano > 9999) return std::nullopt;
    const auto fecha = cr::year{dia.ano} / cr::month{static_cast<unsigned>(dia.mes)} / cr::day{static_cast<unsigned>(dia.dia)};
    if (!fecha.ok()) return std::nullopt;
    std::int64_t numero = (cr::sys_days{fecha} - origen).count();
    if (numero <= diaQueNoHubo) --numero;
    if (numero < 1) return std::nullopt;
    return numero;
}

std::string DiaComoTexto(const DiaDelAno& dia, std::string_view formato) {
    std::string texto;
    DiaDelAno partes = dia;
    for (std::size_t i = 0; i < formato.size();) {
        const char letra = formato[i];
        const auto largo = Racha(formato, i);
        if (!EsLetraDeFecha(letra)) {
            texto.append(largo, letra);
            continue;
        }
        char cifras[16];
        const int parte = ParteDe(partes, letra);
        std::snprintf(cifras, sizeof cifras, "%0*d", static_cast<int>(largo), letra == 'Y' && largo == 2 ? parte % 100 : parte);
        texto += cifras;
    }
    return texto;
}

std::optional<DiaDelAno> LeerDia(std::string_view texto, std::string_view formato) {
    DiaDelAno dia{-1, -1, -1};
    std::size_t lugar = 0;
    for (std::size_t i = 0; i < formato.size();) {
        const char letra = formato[i];
        const auto largo = Racha(formato, i);
        if (texto.size() - lugar < largo) return std::nullopt;
        const auto trozo = texto.substr(lugar, largo);
        lugar += largo;
        if (!EsLetraDeFecha(letra)) {
            if (trozo.find_first_not_of(letra) != std::string_view::npos) return std::nullopt;
            continue;
        }
        int& parte = ParteDe(dia, letra);
        if (parte != -1 || largo != (letra == 'Y' ? std::size_t{4} : std::size_t{2})) return std::nullopt;
        if (trozo.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
        parte = static_cast<int>(Numero(trozo));
    }
    if (lugar != texto.size() || !NumeroDeDia(dia)) return std::nullopt;
    return dia;
}

}  // namespace qor
