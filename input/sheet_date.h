#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Dates of spreadsheets and of files. A day is a number, as in the 1900 system: 1 is the 1st of January 1900, 61 the 1st of March;
// 60 is no day.
namespace qor {

struct DiaDelAno {
    int ano = 0;
    int mes = 0;
    int dia = 0;

    bool operator==(const DiaDelAno&) const = default;
};

constexpr int diasEntreSistemas = 1462;  // a day of the 1904 system has a number that is so much smaller

// Nothing for a number that stands for no day of the years 1900 to 9999.
std::optional<DiaDelAno> DiaDeNumero(std::int64_t numero);
// Nothing for a day that the calendar doesn't have, and for one that the 1900 system doesn't have.
std::optional<std::int64_t> NumeroDeDia(const DiaDelAno& dia);

// A format is what ClaseDeCampo has of one: letters D, M and Y with signs between them. Two letters Y are the last two digits.
std::string DiaComoTexto(const DiaDelAno& dia, std::string_view formato);
// Nothing where the text isn't that of a day, and where the format doesn't tell a whole day with all digits of its year.
std::optional<DiaDelAno> LeerDia(std::string_view texto, std::string_view formato);

}  // namespace qor
