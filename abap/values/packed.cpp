#include "abap/values/packed.h"

#include "abap/short_dump.h"
#include "abap/values/arithmetic.h"

namespace qor::abap {
namespace {

constexpr std::uint32_t corto = 9;  // bytes whose digits 64 bits hold

template <typename Entero>
Entero128 Leer(const std::uint8_t* datos, std::uint32_t largo) {
    Entero digitos = 0;
    bool malo = largo == 0;
    for (std::uint32_t i = 0; i < largo; ++i) {
        const unsigned alto = datos[i] >> 4;
        const unsigned bajo = datos[i] & 0x0FU;
        malo = malo || alto > 9;
        digitos = digitos * 10 + alto;
        if (i + 1 < largo) {
            malo = malo || bajo > 9;
            digitos = digitos * 10 + bajo;
        } else {
            malo = malo || bajo < 0x0A;
            if (bajo == 0x0D || bajo == 0x0B) digitos = -digitos;
        }
    }
    if (malo) throw Volcado("BCD_BADDATA", "A field of type P holds no packed number");
    return digitos;
}

template <typename Entero>
void Poner(Entero resto, bool negativo, std::uint8_t* datos, std::uint32_t largo) {
    unsigned bajo = negativo ? 0x0D : 0x0C;
    for (auto i = largo; i > 0; --i) {
        const auto alto = static_cast<unsigned>(resto % 10);
        datos[i - 1] = static_cast<std::uint8_t>(alto << 4 | bajo);
        resto /= 10;
        bajo = static_cast<unsigned>(resto % 10);
        resto /= 10;
    }
}

}  // namespace

Entero128 LeerEmpaquetado(const std::uint8_t* datos, std::uint32_t largo) {
    return largo <= corto ? Leer<std::int64_t>(datos, largo) : Leer<Entero128>(datos, largo);
}

void PonerEmpaquetado(Entero128 digitos, std::uint8_t* datos, std::uint32_t largo) {
    const auto resto = Absoluto(digitos);
    const auto lugares = 2 * largo - 1;
    if (lugares < potencias.size() && resto >= potencias[lugares]) FallarPorEmpaquetado();
    if (CabeEn64(resto)) {
        Poner(static_cast<std::uint64_t>(resto), digitos < 0, datos, largo);
    } else {
        Poner(resto, digitos < 0, datos, largo);
    }
}

}  // namespace qor::abap
