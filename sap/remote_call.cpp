#include "sap/remote_call.h"

namespace qor {

namespace {

std::optional<std::vector<std::string>> LlamarConFallos(SesionSAP& sesion, const LlamadaRFC& llamada) {
    const auto funcion = sesion.SesionRFC->Add(llamada.modulo);
    funcion->Exports(llamada.exporta.first, llamada.exporta.second);
    TablaRFC* const entrada = llamada.entrada ? &funcion->Tables(llamada.entrada->tabla) : nullptr;
    TablaRFC& salida = funcion->Tables(llamada.salida);
    if (entrada != nullptr) entrada->FreeTable();
    salida.FreeTable();
    if (entrada != nullptr) entrada->Data(llamada.entrada->filas);
    if (!funcion->Call()) {
        sesion.Motivo = sesion.SesionRFC->UltimoError();
        return std::nullopt;
    }
    std::vector<std::string> filas;
    const int cantidad = salida.RowCount();
    for (int fila = 1; fila <= cantidad; ++fila) filas.push_back(salida.Value(fila, llamada.columna));
    return filas;
}

}  // namespace

std::optional<std::vector<std::string>> Llamar(SesionSAP& sesion, const LlamadaRFC& llamada) {
    if (!SesionActiva(sesion)) return std::nullopt;
    std::optional<std::vector<std::string>> filas;
    try {
        filas = LlamarConFallos(sesion, llamada);
    } catch (const FalloDelServicio& fallo) {
        sesion.Motivo = fallo.what();
    }
    if (!filas) NotarPerdida(sesion);
    return filas;
}

}  // namespace qor
