#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace qor {

// A regular expression over texts in windows-1252 that a whole value has to fit: the ECMAScript notation of characters, "." and
// classes, "\d \w \s" and their opposites, "\t \n \r \f \v \0 \xHH", groups, "|", "^", "$", and "* + ? {n} {n,} {n,m}". What looks
// around or back (assertions, references) is none of it. The time of a test grows with the length of the value alone.
class PatronDeValor {
public:
    // Throws FalloDeEjecucion for what is no such expression, or too large a one.
    explicit PatronDeValor(std::string_view expresion);

    bool Admite(std::string_view valor) const {
        std::uint16_t estado = inicio;
        for (const char c : valor) {
            estado = estados_[estado].siguiente[static_cast<unsigned char>(c)];
            if (estado == ninguno) return false;
        }
        return estados_[estado].final;
    }

private:
    static constexpr std::uint16_t ninguno = 0;
    static constexpr std::uint16_t inicio = 1;
    struct Estado {
        std::array<std::uint16_t, 256> siguiente{};
        bool final = false;
    };
    std::vector<Estado> estados_;
};

}  // namespace qor
