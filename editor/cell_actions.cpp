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
bool FilaAdmite(Editor& editor, int fila) {
    if (fila == 0) return true;
    if (!editor.especificacion.TablaTransaccion[fila - 1].CeldasVacias()) return true;
    editor.vista.Advertir(Componer(editor.textos, {345}));
    return false;
}

// A field of a step-loop goes into rows of that step-loop only.
bool CampoAdmite(Editor& editor, int fila, const std::string& campo) {
    const auto operaciones = ActualizarOperaciones(editor.especificacion, fila);
    const int grupo = operaciones.OperacionDeCampo(campo);
    if (grupo == 0 || grupo == operaciones.OperacionFila(fila)) return true;
    editor.vista.Advertir(Componer(editor.textos, {operaciones.FilaEnStepLoop(fila) ? 347 : 348}));
    return false;
}

}  // namespace

std::optional<FilaDeTabla> DobleClicEnCelda(Editor& editor, LugarDeCelda lugar) {
    const int fila = FilaDe(editor, lugar);
    if (lugar.columna == Columna::Text2 && !EstaEnBlanco(TextoDe(editor, {Columna::Text1, lugar.linea}))) {
        return FilaDeTabla{Tabla::Archivo, fila};
    }
    if (lugar.columna != Columna::Text4 || EstaEnBlanco(TextoDe(editor, lugar))) return std::nullopt;
    if (fila == 0) {
        editor.vista.Advertir(Componer(editor.textos, {343}));
        return std::nullopt;
    }
    return FilaDeTabla{Tabla::Transaccion, fila};
}

std::optional<int> ClicEnABAP(const Editor& editor, int linea) {
    const LugarDeCelda nombre{Columna::Text1, linea};
    if (EstaEnBlanco(TextoDe(editor, nombre))) return std::nullopt;
    return FilaDe(editor, nombre);
}

void SoltarOkCode(Editor& editor, int linea, RotuloDeOkCode rotulo) {
    constexpr std::array<const char*, 4> codigos = {"'/00'", "'/11'", "'/05'", "'/06'"};
    const int fila = FilaDe(editor, {Columna::Text5, linea});
    if (!FilaAdmite(editor, fila)) return;
    for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
        CambiarCelda(editor, columna, linea, "");
    }
    editor.especificacion.TablaTransaccion[fila].nota.clear();
    ColorearFila(editor, {Tabla::Transaccion, fila});
    CambiarCelda(editor, Columna::Text4, linea, "BDC_OKCODE");
    CambiarCelda(editor, Columna::Text5, linea, codigos[static_cast<std::size_t>(rotulo)]);
}

void SoltarCampo(Editor& editor, int linea, int lineaDeText1) {
    const LugarDeCelda destino{Columna::Text5, linea};
    const int fila = FilaDe(editor, destino);
    if (!FilaAdmite(editor, fila)) return;
    const LugarDeCelda campo{Columna::Text4, linea};
    if (EstaEnBlanco(TextoDe(editor, campo))) {
        editor.vista.Advertir(Componer(editor.textos, {346}));
        return EnfocarCelda(editor, campo);
    }
    const std::string nombre = TextoDe(editor, {Columna::Text1, lineaDeText1});
    if (CampoAdmite(editor, fila, Mayusculas(Recortar(nombre)))) CambiarCelda(editor, destino.columna, linea, nombre);
}

}  // namespace qor
