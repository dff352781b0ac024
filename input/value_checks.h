#pragma once

#include <optional>
#include <string>
#include <string_view>

// Whether a value is what its kind says. Values come without blanks around them and are not empty.
namespace qor {

// Digits with at most one decimal sign among them, '.' or ','; the other one may group thousands, and then each group has three
// digits and the first one no 0 in front, so that "0,870" is no number with a point. A sign stands in front or behind.
bool EsNumero(std::string_view valor, char decimal);

// How dates are written: the letters DD, MM and YY or YYYY, each at most once, with signs between them or none.
class FormatoDeFecha {
public:
    // Nothing where it is no such form.
    static std::optional<FormatoDeFecha> Leer(std::string_view formato);

    // The value is written so, and the calendar has the date. What the form leaves out may be anything; years of two digits are
    // those of this century.
    bool Admite(std::string_view valor) const;

private:
    std::string formato_;
};

}  // namespace qor
