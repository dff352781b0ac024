#include "practice/moment.h"

#include <array>
#include <cstdio>

#include "base/clock.h"

namespace qor {

abap::Momento MomentoActual() {
    const std::tm ahora = HoraActual();
    std::array<char, 16> fecha{};
    std::array<char, 16> hora{};
    std::strftime(fecha.data(), fecha.size(), "%Y%m%d", &ahora);
    std::strftime(hora.data(), hora.size(), "%H%M%S", &ahora);
    return {fecha.data(), hora.data()};
}

}  // namespace qor
