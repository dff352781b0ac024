// SHIFT and OVERLAY.
#include <algorithm>

#include "abap/values/conversion.h"
#include "abap/values/text_operations.h"

namespace qor::abap {
namespace {

std::string Copia(const Campo& campo) { return std::string(campo.Texto()); }

// The changed text back at its place, whatever the type of the field is.
void Devolver(std::string_view texto, const Campo& campo) {
    Campo destino = campo;
    if (destino.tipo != Tipo::Cadena) destino.tipo = Tipo::C;
    PonerTexto(texto, destino);
}

bool EsDeCadena(const Campo& campo) { return campo.tipo == Tipo::Cadena; }

}  // namespace

void DesplazarLugares(const Campo& campo, Lado lado, int lugares, bool circular) {
    ExigirEscribible(campo);
    auto texto = Copia(campo);
    if (lugares <= 0 || texto.empty()) return;
    auto cuantos = static_cast<std::size_t>(lugares);
    if (circular) {
        cuantos %= texto.size();
        const auto corte = lado == Lado::Izquierda ? cuantos : texto.size() - cuantos;
        std::rotate(texto.begin(), texto.begin() + static_cast<std::ptrdiff_t>(corte), texto.end());
    } else if (lado == Lado::Izquierda) {
        texto.erase(0, cuantos);
    } else {
        texto.insert(0, EsDeCadena(campo) ? cuantos : std::min(cuantos, texto.size()), ' ');
    }
    Devolver(texto, campo);
}

int DesplazarHasta(const Campo& campo, Lado lado, const Campo& hasta, bool circular) {
    ExigirEscribible(campo);
    std::string resto;
    const auto texto = campo.Texto();
    const auto buscado = TextoDeOperando(hasta, resto);
    const auto posicion = lado == Lado::Izquierda ? texto.find(buscado) : texto.rfind(buscado);
    if (buscado.empty() || posicion == std::string_view::npos) return 4;
    const auto lugares = lado == Lado::Izquierda ? posicion : texto.size() - posicion - buscado.size();
    if (lugares == 0) return 0;
    if (EsDeCadena(campo) && lado == Lado::Derecha && !circular) {
        // A STRING keeps its length.
        Devolver(std::string(lugares, ' ') + std::string(texto.substr(0, texto.size() - lugares)), campo);
    } else {
        DesplazarLugares(campo, lado, static_cast<int>(lugares), circular);
    }
    return 0;
}

void DesplazarBorrando(const Campo& campo, Lado lado, const Campo& caracteresQueSobran) {
    ExigirEscribible(campo);
    std::string resto;
    const auto texto = campo.Texto();
    const auto sobran = TextoDeOperando(caracteresQueSobran, resto);
    if (lado == Lado::Izquierda) {
        const auto primero = std::min(texto.find_first_not_of(sobran), texto.size());
        if (primero > 0) Devolver(std::string(texto.substr(primero)), campo);
        return;
    }
    const auto ultimo = texto.find_last_not_of(sobran);
    const auto quedan = ultimo == std::string_view::npos ? 0 : ultimo + 1;
    if (quedan < texto.size()) Devolver(std::string(texto.size() - quedan, ' ') + std::string(texto.substr(0, quedan)), campo);
}

int Superponer(const Campo& campo, const Campo& otro, const Campo* solo) {
    ExigirEscribible(campo);
    std::string restoDeOtro;
    std::string restoDeSolo;
    auto texto = Copia(campo);
    const auto encima = TextoDeOperando(otro, restoDeOtro);
    const auto lugares = solo == nullptr ? std::string_view(" ") : TextoDeOperando(*solo, restoDeSolo);
    int subrc = 4;
    for (std::size_t i = 0; i < std::min(texto.size(), encima.size()); ++i) {
        if (lugares.find(texto[i]) == std::string_view::npos) continue;
        texto[i] = encima[i];
        subrc = 0;
    }
    if (subrc == 0) Devolver(texto, campo);
    return subrc;
}

}  // namespace qor::abap
