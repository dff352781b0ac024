#include "editor/cell_focus.h"

#include <utility>

#include "editor/cell_rules.h"
#include "editor/leaving_rules.h"

namespace qor {

namespace {

bool ReglaDeSalida(Ventana& ventana, LugarDeCelda lugar) {
    if (lugar.columna == Columna::CampoDeArchivo) return ReglaDeDuplicados(ventana, lugar.linea);
    if (lugar.columna == Columna::Valor) return ReglaDeValor(ventana, lugar.linea);
    return true;
}

}  // namespace

void EntrarEnCelda(Ventana& ventana, LugarDeCelda lugar) {
    if (ventana.foco != lugar) {
        DejarCelda(ventana);
        ventana.foco = lugar;
        ventana.filasMarcadas.reset();
    }
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    (deArchivo ? ventana.archivo.LineaArchivo : ventana.transaccion.LineaTransaccion) = FilaDe(ventana, lugar);
}

void SalirDeCelda(Ventana& ventana, LugarDeCelda lugar) {
    if (ventana.foco && ventana.foco != lugar) return;
    ventana.foco.reset();
    ReglaDeSalida(ventana, lugar);
}

void EnfocarCelda(Ventana& ventana, LugarDeCelda lugar) {
    EntrarEnCelda(ventana, lugar);
    ventana.vista.Enfocar(NombreDeControl(lugar));
}

bool DejarCelda(Ventana& ventana) {
    const auto lugar = std::exchange(ventana.foco, std::nullopt);
    return !lugar || ReglaDeSalida(ventana, *lugar);
}

}  // namespace qor
