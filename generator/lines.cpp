#include "generator/lines.h"

namespace qor {

namespace {

constexpr std::string_view finDeLinea = "\r\n";

void ImprimirPieza(std::string_view linea, std::string& salida) { salida.append(linea).append(finDeLinea); }

// Position before the last blank at or in front of column `ancho` that stands outside quotes; 0 when there is none. The quotes are
// counted from the end of the line.
std::size_t BuscarEspacioAnterior(std::string_view linea, std::size_t ancho) {
    bool entreComillas = false;
    for (std::size_t p = linea.size(); p >= 1; --p) {
        if (linea[p - 1] == '\'') entreComillas = !entreComillas;
        if (linea[p - 1] == ' ' && p <= ancho && !entreComillas) return p - 1;
    }
    return 0;
}

}  // namespace

int ImprimirLineasCortas(std::string_view linea, std::string& salida) {
    int piezas = 1;
    if (!linea.empty() && linea.front() == '*') {
        ImprimirPieza(linea, salida);
        return piezas;
    }
    while (linea.size() > columnasABAP) {
        const auto corte = BuscarEspacioAnterior(linea, columnasABAP);
        if (corte == 0) break;
        ImprimirPieza(linea.substr(0, corte), salida);
        ++piezas;
        linea = Recortar(linea.substr(corte));
        if (linea.size() < columnasABAP) {
            salida.append(columnasABAP - linea.size(), ' ');
            break;
        }
    }
    ImprimirPieza(linea, salida);
    return piezas;
}

std::string CompactarTexto(std::string_view texto, int n) {
    const auto sobra = static_cast<int>(texto.size()) - n;
    const auto limite = static_cast<std::size_t>(n);
    if (sobra <= 0) return Mayusculas(texto).substr(0, limite);
    std::string resultado;
    int vocales = 0;
    std::size_t i = 0;
    for (; i < texto.size() && vocales <= sobra; ++i) {
        const auto mayuscula = static_cast<char>(Mayuscula(static_cast<unsigned char>(texto[i])));
        if (std::string_view("AEIOU").find(mayuscula) == std::string_view::npos) {
            resultado += mayuscula;
        } else {
            ++vocales;
        }
    }
    // The rest begins at the last character seen: it restores the vowel that was one too many, and repeats the last character of
    // a text that was walked to its end.
    resultado.append(texto.substr(i - 1));
    return resultado.substr(0, limite);
}

}  // namespace qor
