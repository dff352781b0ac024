#include "editor/row_places.h"

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

constexpr int filasDeContexto = 2;  // that are seen above a row which the grid has to go to

const FilaDeTransaccion& FilaDelPrograma(const Ventana& ventana, LugarDeCelda lugar) {
    return ventana.documento.especificacion.TablaTransaccion[FilaDe(ventana, lugar)];
}

}  // namespace

void MostrarCelda(Ventana& ventana, Columna columna, int fila) {
    const bool deArchivo = TablaDe(columna) == Tabla::Archivo;
    const int& primera = deArchivo ? ventana.archivo.PrimeraFilaArchivo : ventana.transaccion.PrimeraFilaTransaccion;
    const int lineas = deArchivo ? lineasArchivo : lineasTransaccion;
    DejarCelda(ventana);
    if (fila < primera || fila >= primera + lineas) {
        (deArchivo ? MostrarArchivoSinFocus : MostrarTransaccionSinFocus)(ventana, fila - filasDeContexto);
    }
    EnfocarCelda(ventana, {columna, fila - primera});
}

std::optional<int> CampoDelValor(const Ventana& ventana, LugarDeCelda lugar) {
    if (TablaDe(lugar.columna) != Tabla::Transaccion) return std::nullopt;
    const auto valor = Recortar(FilaDelPrograma(ventana, lugar).valor);
    if (valor.empty()) return std::nullopt;
    const auto& especificacion = ventana.documento.especificacion;
    for (int f = 0; f < especificacion.FilasArchivo(); ++f) {
        if (IgualesSinCaja(Recortar(especificacion.TablaArchivo[f].campo), valor)) return f;
    }
    return std::nullopt;
}

std::optional<int> CondicionDeFila(const Ventana& ventana, LugarDeCelda lugar) {
    if (TablaDe(lugar.columna) != Tabla::Transaccion) return std::nullopt;
    const auto& fila = FilaDelPrograma(ventana, lugar);
    const auto& celda = EstaEnBlanco(fila.programa) ? fila.campo : fila.dynpro;
    const auto nombre = Recortar(DespuesDe(celda, ';'));
    const auto& condiciones = ventana.documento.especificacion.TablaCondiciones;
    for (int r = 0; r < filasTabla && !condiciones[r].nombre.empty(); ++r) {
        if (!nombre.empty() && condiciones[r].nombre == nombre) return r;
    }
    return std::nullopt;
}

}  // namespace qor
