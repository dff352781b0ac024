#include "editor/add_operation.h"

#include <algorithm>
#include <optional>

#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

// The place of a new operation: the first free row behind the program side, and the window in which it is shown.
struct LugarDeOperacion {
    int fila;
    int primeraFila;
    int linea;
};

// Line of the new row in a grid that isn't near its top.
constexpr int lineaDeOperacion = 5;

void EscribirCabeza(Ventana& ventana, const LugarDeOperacion& lugar, const std::string& transaccion) {
    auto& fila = ventana.documento.especificacion.TablaTransaccion[lugar.fila];
    ventana.documento.GuardarDeshacer({RegistroDeshacer::Paso::Cambio, lugar.linea, lugar.primeraFila, fila});
    AbrirFilaTransaccion(ventana, lugar.linea);
    for (const Columna columna : columnasDeCeldasDeTransaccion) {
        PonerEnCelda(ventana, {columna, lugar.linea}, "");
    }
    fila.nota.clear();
    ColorearFila(ventana, {Tabla::Transaccion, lugar.fila});
    PonerEnCelda(ventana, {Columna::Programa, lugar.linea}, "TRANS");
    PonerEnCelda(ventana, {Columna::Dynpro, lugar.linea}, transaccion);
}

// Nothing when there is no free row; the view has shown message 515.
std::optional<LugarDeOperacion> LugarParaOperacion(Ventana& ventana) {
    const int fila = ventana.documento.especificacion.PrimeraPosicionLibreTransaccion();
    if (fila > ultimaFila) {
        ventana.vista.Advertir(Componer(ventana.textos, {515}));
        return std::nullopt;
    }
    const int primera = fila < lineaDeOperacion ? 0 : std::min(fila - lineaDeOperacion, ultimaPrimeraFilaTransaccion);
    return LugarDeOperacion{fila, primera, fila - primera};
}

}  // namespace

void AgregarOperacion(Ventana& ventana, const PreguntaDeOperacion& preguntar) {
    const auto lugar = LugarParaOperacion(ventana);
    if (!lugar) return;
    const std::string transaccion = preguntar(lugar->fila);
    if (!transaccion.empty()) {
        MostrarTransaccion(ventana, lugar->primeraFila);
        EscribirCabeza(ventana, *lugar, transaccion);
    }
    if (ventana.documento.especificacion.PrimeraPosicionLibreTransaccion() != lugar->fila)
        MostrarTransaccion(ventana, lugar->primeraFila);
}

}  // namespace qor
