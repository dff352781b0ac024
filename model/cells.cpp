#include "model/cells.h"

#include "base/failure.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr std::size_t maximoLineasTexto = 501;

}  // namespace

std::string_view ExtraerMarca(std::string_view celda, int a, int b) {
    const auto p = Posicion(celda, "!" + std::to_string(a));
    const auto q = Posicion(celda, "!" + std::to_string(b));
    if (p == 0 && q == 0) return {};
    if (p == 0) return Tramo(celda, 1, static_cast<std::ptrdiff_t>(q) - 1);
    if (q == 0) return TramoDesde(celda, p + 2);
    const auto largo = static_cast<std::ptrdiff_t>(q) - static_cast<std::ptrdiff_t>(p) - 2;
    if (largo < 0) throw FalloDeEjecucion("the step-loop marks of a field stand in the wrong order: " + std::string(celda));
    return Tramo(celda, p + 2, largo);
}

std::string_view ValorDeMarca(std::string_view celda, int n) { return ExtraerMarca(celda, n, n + 1); }

bool EsCabezaStepLoop(std::string_view celda) {
    if (celda.empty()) return false;
    return Numero(ValorDeMarca(celda, 1)) == 1;
}

bool EsConstante(std::string_view celda) { return !celda.empty() && celda.front() == '\'' && celda.back() == '\''; }

bool EsVariable(std::string_view celda) { return !celda.empty() && celda.front() == '@'; }

bool TienePares(std::string_view conversion) { return Contiene(conversion, "@ "); }

std::vector<LineaPartida> PartirLineasConNumero(std::string_view texto, int ancho) {
    std::vector<LineaPartida> lineas;
    int numero = 1;
    const auto agregar = [&](std::string_view linea) {
        if (lineas.size() == maximoLineasTexto) throw FalloDeEjecucion("a text of more than 501 lines");
        lineas.push_back({std::string(linea), numero});
    };
    std::size_t inicio = 1;
    std::size_t blanco = 1;
    int cuenta = 0;
    for (std::size_t i = 1; i <= texto.size(); ++i, ++cuenta) {
        if (texto[i - 1] == ' ') blanco = i;
        if (texto[i - 1] == '\r') {
            agregar(Tramo(texto, inicio, static_cast<std::ptrdiff_t>(i - inicio)));
            ++numero;
            ++i;  // the line feed behind it
            inicio = blanco = i + 1;
            cuenta = 0;
        }
        if (cuenta > ancho) {
            agregar(Tramo(texto, inicio, static_cast<std::ptrdiff_t>(blanco - inicio)));
            inicio = blanco = blanco + 1;
            cuenta = 0;
        }
    }
    agregar(TramoDesde(texto, inicio));
    return lineas;
}

std::vector<std::string> PartirLineas(std::string_view texto, int ancho) {
    std::vector<std::string> lineas;
    for (auto& linea : PartirLineasConNumero(texto, ancho)) lineas.push_back(std::move(linea.texto));
    return lineas;
}

}  // namespace qor
