#include "editor/cell_actions.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "model/operations.h"

namespace qor {

namespace {

// Nothing can be dropped behind a gap.
bool FilaAdmite(Ventana& ventana, int fila) {
    if (fila == 0) return true;
    if (!ventana.documento.especificacion.TablaTransaccion[fila - 1].CeldasVacias()) return true;
    ventana.vista.Advertir(Componer(ventana.textos, {345}));
    return false;
}

// A field of a step-loop goes into rows of that step-loop only.
bool CampoAdmite(Ventana& ventana, int fila, const std::string& campo) {
    const auto operaciones = ActualizarOperaciones(ventana.documento.especificacion, fila);
    const int grupo = operaciones.OperacionDeCampo(campo);
    if (grupo == 0 || grupo == operaciones.OperacionFila(fila)) return true;
    ventana.vista.Advertir(Componer(ventana.textos, {operaciones.FilaEnStepLoop(fila) ? 347 : 348}));
    return false;
}

}  // namespace

bool TieneNombre(const Ventana& ventana, LugarDeCelda lugar) {
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    return !EstaEnBlanco(TextoDe(ventana, {deArchivo ? Columna::CampoDeArchivo : Columna::Campo, lugar.linea}));
}

std::optional<FilaDeTabla> DobleClicEnCelda(Ventana& ventana, LugarDeCelda lugar) {
    const int fila = FilaDe(ventana, lugar);
    if (lugar.columna == Columna::Ancho && !EstaEnBlanco(TextoDe(ventana, {Columna::CampoDeArchivo, lugar.linea}))) {
        return FilaDeTabla{Tabla::Archivo, fila};
    }
    if (lugar.columna != Columna::Campo || EstaEnBlanco(TextoDe(ventana, lugar))) return std::nullopt;
    if (fila == 0) {
        ventana.vista.Advertir(Componer(ventana.textos, {343}));
        return std::nullopt;
    }
    return FilaDeTabla{Tabla::Transaccion, fila};
}

std::optional<int> ClicEnABAP(const Ventana& ventana, int linea) {
    const LugarDeCelda nombre{Columna::CampoDeArchivo, linea};
    if (EstaEnBlanco(TextoDe(ventana, nombre))) return std::nullopt;
    return FilaDe(ventana, nombre);
}

void SoltarOkCode(Ventana& ventana, int linea, RotuloDeOkCode rotulo) {
    constexpr std::array<const char*, 4> codigos = {"'/00'", "'/11'", "'/05'", "'/06'"};
    const int fila = FilaDe(ventana, {Columna::Valor, linea});
    if (!FilaAdmite(ventana, fila)) return;
    for (const Columna columna : columnasDeCeldasDeTransaccion) {
        EscribirEnCelda(ventana, {columna, linea}, "");
    }
    ventana.documento.especificacion.TablaTransaccion[fila].nota.clear();
    ColorearFila(ventana, {Tabla::Transaccion, fila});
    EscribirEnCelda(ventana, {Columna::Campo, linea}, "BDC_OKCODE");
    EscribirEnCelda(ventana, {Columna::Valor, linea}, codigos[static_cast<std::size_t>(rotulo)]);
}

void SoltarCampo(Ventana& ventana, int linea, int lineaDeText1) {
    const LugarDeCelda destino{Columna::Valor, linea};
    const int fila = FilaDe(ventana, destino);
    if (!FilaAdmite(ventana, fila)) return;
    const LugarDeCelda campo{Columna::Campo, linea};
    if (EstaEnBlanco(TextoDe(ventana, campo))) {
        ventana.vista.Advertir(Componer(ventana.textos, {346}));
        return EnfocarCelda(ventana, campo);
    }
    const std::string nombre = TextoDe(ventana, {Columna::CampoDeArchivo, lineaDeText1});
    if (CampoAdmite(ventana, fila, Mayusculas(Recortar(nombre)))) EscribirEnCelda(ventana, destino, nombre);
}

}  // namespace qor
