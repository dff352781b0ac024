#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>

// A std::filesystem::path is made from a narrow text by way of this function of the C library, whose texts can't be UTF-8 on
// Windows; what a path gives back as a narrow text is UTF-8 all the same. This one, which is linked in its place, takes UTF-8 too.
// The programs convert no other texts with it.
namespace {

struct Secuencia {
    std::size_t largo;
    std::uint32_t bits;   // of the first byte
    std::uint32_t menor;  // a smaller one has a shorter sequence
};

Secuencia SecuenciaDe(unsigned char primero) {
    if (primero < 0x80) return {1, primero, 0};
    if (primero >= 0xC2 && primero < 0xE0) return {2, primero & 0x1FU, 0x80};
    if (primero >= 0xE0 && primero < 0xF0) return {3, primero & 0x0FU, 0x800};
    if (primero >= 0xF0 && primero < 0xF5) return {4, primero & 0x07U, 0x10000};
    return {0, 0, 0};
}

constexpr auto noEsTexto = static_cast<std::size_t>(-1);
constexpr auto estaIncompleto = static_cast<std::size_t>(-2);

}  // namespace

// Where a character has two units of UTF-16, the first call takes all bytes but one, and the second that one; in between the state
// is the second unit.
extern "C" std::size_t mbrtowc(wchar_t* unidad, const char* texto, std::size_t largo, std::mbstate_t* estado) {
    static std::mbstate_t propio{};
    if (estado == nullptr) estado = &propio;
    if (texto == nullptr || largo == 0) return texto == nullptr ? 0 : estaIncompleto;
    wchar_t suya{};
    std::size_t tomados = 1;
    if (*estado != 0) {
        suya = static_cast<wchar_t>(*estado);
        *estado = 0;
    } else {
        const auto secuencia = SecuenciaDe(static_cast<unsigned char>(*texto));
        if (secuencia.largo == 0) return noEsTexto;
        std::uint32_t signo = secuencia.bits;
        for (std::size_t i = 1; i < secuencia.largo; ++i) {
            if (i == largo) return estaIncompleto;
            const auto byte = static_cast<unsigned char>(texto[i]);
            if ((byte & 0xC0U) != 0x80U) return noEsTexto;
            signo = (signo << 6) | (byte & 0x3FU);
        }
        if (signo < secuencia.menor || signo > 0x10FFFF || (signo >= 0xD800 && signo < 0xE000)) return noEsTexto;
        tomados = secuencia.largo;
        if (signo >= 0x10000) {
            *estado = static_cast<std::mbstate_t>(0xDC00 | (signo & 0x3FFU));
            suya = static_cast<wchar_t>(0xD800 + ((signo - 0x10000) >> 10));
            --tomados;
        } else {
            suya = static_cast<wchar_t>(signo);
        }
    }
    if (unidad != nullptr) *unidad = suya;
    return suya == 0 ? 0 : tomados;
}
