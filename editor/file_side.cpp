#include "editor/file_side.h"

#include <utility>

#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/tables_step.h"

namespace qor {

void CambiarAncho(Ventana& ventana, int fila, const std::string& ancho) {
    const int linea = fila - ventana.archivo.PrimeraFilaArchivo;
    if (linea < 0 || linea >= lineasArchivo) MostrarArchivoSinFocus(ventana, fila);
    EscribirEnCelda(ventana, {Columna::Ancho, fila - ventana.archivo.PrimeraFilaArchivo}, ancho);
}

void LlenarLadoDeArchivo(Ventana& ventana, std::vector<FilaDeArchivo> filas) {
    auto& documento = ventana.documento;
    auto& tabla = documento.especificacion.TablaArchivo;
    if (filas.empty() || documento.especificacion.FilasArchivo() > 0) return;
    filas.resize(filasTabla);
    MostrarArchivoSinFocus(ventana, 0);
    documento.GuardarDeshacer(PasoDeTablas(ventana, {Columna::CampoDeArchivo, 0}));
    tabla = std::move(filas);
    MostrarArchivoSinFocus(ventana, 0);
}

}  // namespace qor
