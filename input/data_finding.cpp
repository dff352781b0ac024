#include "input/data_finding.h"

namespace qor {

const char* NombreDe(HallazgoDeEntrada clase) {
    switch (clase) {
        case HallazgoDeEntrada::LineaCorta: return "line-too-short";
        case HallazgoDeEntrada::LineaLarga: return "line-too-long";
        case HallazgoDeEntrada::Tabuladores:
        case HallazgoDeEntrada::TabuladoresDeMenos: return "tab-count";
        case HallazgoDeEntrada::SinCaracter: return "no-character";
        case HallazgoDeEntrada::Utf8:
        case HallazgoDeEntrada::Utf8Mezclado: return "utf-8";
        case HallazgoDeEntrada::MarcaDeOrden: return "byte-order-mark";
        case HallazgoDeEntrada::Nulo: return "nul";
        case HallazgoDeEntrada::FinesMezclados: return "mixed-line-ends";
        case HallazgoDeEntrada::SinFinDeLinea: return "no-final-line-end";
        case HallazgoDeEntrada::Desconocida: return "unknown-record";
        case HallazgoDeEntrada::SinPrincipal: return "item-without-order";
        case HallazgoDeEntrada::SinPartidas: return "order-without-items";
        case HallazgoDeEntrada::SinComparar: return "keys-not-compared";
        case HallazgoDeEntrada::ClaveDoble: return "duplicate-key";
        case HallazgoDeEntrada::ValorLargo: return "value-too-long";
        case HallazgoDeEntrada::Obligatorio: return "missing-value";
        case HallazgoDeEntrada::NoEsNumero: return "not-a-number";
        case HallazgoDeEntrada::NoEsFecha: return "not-a-date";
        case HallazgoDeEntrada::FueraDePatron: return "pattern";
        case HallazgoDeEntrada::FueraDeLista: return "not-in-list";
        case HallazgoDeEntrada::CeldaSinLugar: return "cell-does-not-fit";
    }
    return "";
}

bool EsAviso(HallazgoDeEntrada clase) {
    switch (clase) {
        case HallazgoDeEntrada::LineaCorta:
        case HallazgoDeEntrada::TabuladoresDeMenos:
        case HallazgoDeEntrada::FinesMezclados:
        case HallazgoDeEntrada::SinFinDeLinea:
        case HallazgoDeEntrada::Utf8Mezclado:
        case HallazgoDeEntrada::SinComparar:
        case HallazgoDeEntrada::SinPartidas: return true;
        default: return false;
    }
}

}  // namespace qor
