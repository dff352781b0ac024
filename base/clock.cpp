#include "base/clock.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace qor {

std::tm HoraActual() {
    std::tm hora{};
    if (const char* epoca = std::getenv("SOURCE_DATE_EPOCH")) {
        long long segundos = 0;
        const char* const fin = epoca + std::strlen(epoca);
        const auto leido = std::from_chars(epoca, fin, segundos);
        const auto instante = static_cast<std::time_t>(segundos);
        if (leido.ec == std::errc() && leido.ptr == fin && ::gmtime_r(&instante, &hora) != nullptr) return hora;
    }
    const std::time_t ahora = std::time(nullptr);
    ::localtime_r(&ahora, &hora);
    return hora;
}

std::string FechaParaNombre(const std::tm& hora) {
    char texto[64];
    std::strftime(texto, sizeof texto, "%Y%m%d_%H%M%S", &hora);
    return texto;
}

std::string FechaYHora(const std::tm& hora) {
    char texto[64];
    std::strftime(texto, sizeof texto, "%Y-%m-%d %H:%M:%S", &hora);
    return texto;
}

}  // namespace qor
