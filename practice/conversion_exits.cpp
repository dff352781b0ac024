#include "practice/conversion_exits.h"

#include <algorithm>

#include "abap/values/conversion.h"
#include "base/text.h"
#include "practice/function_parameters.h"

namespace qor {

namespace {

bool SonCifras(std::string_view valor) {
    return !valor.empty() && std::all_of(valor.begin(), valor.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string QuitarCerosDelante(std::string_view valor) {
    valor = Recortar(valor);
    if (!SonCifras(valor)) return std::string(valor);
    const auto lugar = valor.find_first_not_of('0');
    return std::string(lugar == std::string_view::npos ? "0" : valor.substr(lugar));
}

std::string PonerCerosDelante(std::string_view valor, std::size_t largo) {
    valor = Recortar(valor);
    if (!SonCifras(valor)) return std::string(valor);
    if (valor.size() > largo) return QuitarCerosDelante(valor);
    return std::string(largo - valor.size(), '0') + std::string(valor);
}

std::string LlamarCONVERSION_EXIT_ALPHA_INPUT(const abap::LlamadaAFuncion& llamada) {
    const std::string valor = TextoExportado(llamada, "INPUT");
    const auto* salida = BuscarParametro(llamada.importa, "OUTPUT");
    if (!salida) return {};
    // A STRING has no length to fill.
    const auto largo = salida->campo.tipo == abap::Tipo::Cadena ? Recortar(valor).size() : salida->campo.largo;
    abap::PonerTexto(PonerCerosDelante(valor, largo), salida->campo);
    return {};
}

std::string LlamarCONVERSION_EXIT_ALPHA_OUTPUT(const abap::LlamadaAFuncion& llamada) {
    DevolverTexto(llamada, "OUTPUT", QuitarCerosDelante(TextoExportado(llamada, "INPUT")));
    return {};
}

}  // namespace qor
