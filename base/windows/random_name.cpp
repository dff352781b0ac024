#include "base/windows/random_name.h"

#include <random>
#include <string_view>

namespace qor::sistema {

std::wstring NombreAlAzar() {
    // The device asks Windows each time.
    constexpr std::wstring_view signos = L"0123456789abcdefghijklmnopqrstuv";
    constexpr std::size_t largo = 6;
    std::random_device azar;
    std::wstring nombre;
    while (nombre.size() < largo) nombre += signos[azar() % signos.size()];
    return nombre;
}

}  // namespace qor::sistema
