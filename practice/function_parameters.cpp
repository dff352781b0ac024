#include "practice/function_parameters.h"

#include "abap/short_dump.h"
#include "abap/values/conversion.h"

namespace qor {

const abap::ParametroDeFuncion* BuscarParametro(std::span<const abap::ParametroDeFuncion> parametros, std::string_view nombre) {
    for (const auto& parametro : parametros) {
        if (parametro.nombre == nombre) return &parametro;
    }
    return nullptr;
}

std::string TextoExportado(const abap::LlamadaAFuncion& llamada, std::string_view nombre) {
    const auto* parametro = BuscarParametro(llamada.exporta, nombre);
    return parametro ? abap::TextoPlano(parametro->campo) : std::string();
}

void DevolverTexto(const abap::LlamadaAFuncion& llamada, std::string_view nombre, std::string_view valor) {
    if (const auto* parametro = BuscarParametro(llamada.importa, nombre)) abap::PonerTexto(valor, parametro->campo);
}

abap::TablaInterna& ExigirTabla(const abap::LlamadaAFuncion& llamada, std::string_view nombre) {
    const auto* parametro = BuscarParametro(llamada.tablas, nombre);
    if (parametro && parametro->tabla) return *parametro->tabla;
    throw abap::Volcado("CALL_FUNCTION_PARM_MISSING", "The call of " + llamada.nombre + " has no table " + std::string(nombre));
}

}  // namespace qor
