#include "editor/add_operation.h"

#include <algorithm>

#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

// Line of the new row in a grid that isn't near its top.
constexpr int lineaDeOperacion = 5;

void EscribirCabeza(Editor& editor, const LugarDeOperacion& lugar, const std::string& transaccion) {
    auto& fila = editor.especificacion.TablaTransaccion[lugar.fila];
    const SinRegistrarCambios sinRegistrar(editor);
    GuardarDeshacer(editor, {RegistroDeshacer::Paso::Cambio, lugar.linea, lugar.primeraFila, fila});
    InsertarTransaccion(editor, lugar.linea);
    for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
        CambiarCelda(editor, columna, lugar.linea, "");
    }
    fila.nota.clear();
    ColorearFila(editor, {Tabla::Transaccion, lugar.fila});
    CambiarCelda(editor, Columna::Text6, lugar.linea, "TRANS");
    CambiarCelda(editor, Columna::Text3, lugar.linea, transaccion);
}

}  // namespace

std::optional<LugarDeOperacion> LugarParaOperacion(Editor& editor) {
    const int fila = editor.especificacion.PrimeraPosicionLibreTransaccion();
    if (fila > ultimaFila) {
        editor.vista.Advertir(Componer(editor.textos, {515}));
        return std::nullopt;
    }
    const int primera = fila < lineaDeOperacion ? 0 : std::min(fila - lineaDeOperacion, ultimaPrimeraFilaTransaccion);
    return LugarDeOperacion{fila, primera, fila - primera};
}

void AgregarOperacion(Editor& editor, const PreguntaDeOperacion& preguntar) {
    const auto lugar = LugarParaOperacion(editor);
    if (!lugar) return;
    const std::string transaccion = preguntar(lugar->fila);
    if (!transaccion.empty()) {
        MostrarTransaccion(editor, lugar->primeraFila);
        EscribirCabeza(editor, *lugar, transaccion);
    }
    if (editor.especificacion.PrimeraPosicionLibreTransaccion() != lugar->fila) MostrarTransaccion(editor, lugar->primeraFila);
}

}  // namespace qor
