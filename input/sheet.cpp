#include "input/sheet.h"

#include <algorithm>

#include "base/code_page.h"

namespace qor {

void CeldaDeHoja::PonerUtf8(std::string_view utf8) {
    clase = utf8.empty() ? Clase::Vacia : Clase::Texto;
    const bool llano = std::none_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    if (llano) {
        texto = utf8;
    } else if (auto convertido = DesdeUtf8(utf8)) {
        texto = std::move(*convertido);
    } else {
        texto = DesdeUtf8ConFaltas(utf8);
        conFaltas = true;
    }
}

std::string LetrasDeColumna(std::size_t columna) {
    std::string letras;
    for (++columna; columna > 0; columna = (columna - 1) / 26) {
        letras.insert(letras.begin(), static_cast<char>('A' + (columna - 1) % 26));
    }
    return letras;
}

std::string NombreDeCelda(std::size_t columna, std::uint64_t fila) { return LetrasDeColumna(columna) + std::to_string(fila); }

}  // namespace qor
