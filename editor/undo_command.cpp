#include "editor/undo_command.h"

#include <algorithm>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

void DeshacerEnArchivo(Ventana& ventana, const RegistroDeshacer& registro, const FilaDeArchivo& antes) {
    const int linea = registro.linea;
    MostrarArchivoSinFocus(ventana, registro.primeraFila);
    if (registro.paso == RegistroDeshacer::Paso::Insercion) {
        QuitarFilaArchivo(ventana, linea);
    } else {
        if (registro.paso == RegistroDeshacer::Paso::Borrado) AbrirFilaArchivo(ventana, linea);
        PonerEnCelda(ventana, {Columna::CampoDeArchivo, linea}, antes.campo);
        PonerEnCelda(ventana, {Columna::Ancho, linea}, antes.ancho);
        auto& fila = ventana.documento.especificacion.TablaArchivo[registro.FilaDeLaTabla()];
        fila.nota = antes.nota;
        fila.conversion = antes.conversion;
        ColorearFila(ventana, {Tabla::Archivo, registro.FilaDeLaTabla()});
    }
    EnfocarCelda(ventana, {Columna::CampoDeArchivo, linea});
}

void DeshacerEnTransaccion(Ventana& ventana, const RegistroDeshacer& registro, const FilaDeTransaccion& antes) {
    const int linea = registro.linea;
    MostrarTransaccionSinFocus(ventana, registro.primeraFila);
    if (registro.paso == RegistroDeshacer::Paso::Insercion) {
        QuitarFilaTransaccion(ventana, linea);
    } else {
        if (registro.paso == RegistroDeshacer::Paso::Borrado) AbrirFilaTransaccion(ventana, linea);
        for (const Columna columna : columnasDeCeldasDeTransaccion) {
            PonerEnCelda(ventana, {columna, linea}, antes.*ColumnaDeTransaccion(columna));
        }
        ventana.documento.especificacion.TablaTransaccion[registro.FilaDeLaTabla()].nota = antes.nota;
        ColorearFila(ventana, {Tabla::Transaccion, registro.FilaDeLaTabla()});
    }
    EnfocarCelda(ventana, {Columna::Programa, linea});
}

void DeshacerMovimiento(Ventana& ventana, const RegistroDeshacer& registro, const FilasCambiadas& antes) {
    std::copy(antes.begin(), antes.end(), ventana.documento.especificacion.TablaTransaccion.begin() + registro.FilaDeLaTabla());
    MostrarTransaccionSinFocus(ventana, registro.primeraFila);
    EnfocarCelda(ventana, {Columna::Programa, registro.linea});
}

void DeshacerTablas(Ventana& ventana, const RegistroDeshacer& registro, const TablasDeAntes& antes) {
    auto& especificacion = ventana.documento.especificacion;
    especificacion.TablaArchivo = antes.archivo;
    especificacion.TablaTransaccion = antes.programa;
    especificacion.VariablesGlobales = antes.VariablesGlobales;
    const bool deArchivo = TablaDe(antes.columna) == Tabla::Archivo;
    MostrarArchivoSinFocus(ventana, deArchivo ? registro.primeraFila : ventana.archivo.PrimeraFilaArchivo);
    MostrarTransaccionSinFocus(ventana, deArchivo ? ventana.transaccion.PrimeraFilaTransaccion : registro.primeraFila);
    EnfocarCelda(ventana, {antes.columna, registro.linea});
}

}  // namespace

void Deshacer(Ventana& ventana) {
    const auto registro = ventana.documento.deshacer.Recuperar();
    if (!registro) return;
    ventana.documento.Cambiar();
    ventana.aviso.clear();
    ventana.foco.reset();
    if (const auto* const archivo = std::get_if<FilaDeArchivo>(&registro->antes)) {
        DeshacerEnArchivo(ventana, *registro, *archivo);
    } else if (const auto* const transaccion = std::get_if<FilaDeTransaccion>(&registro->antes)) {
        DeshacerEnTransaccion(ventana, *registro, *transaccion);
    } else if (const auto* const filas = std::get_if<FilasCambiadas>(&registro->antes)) {
        DeshacerMovimiento(ventana, *registro, *filas);
    } else {
        DeshacerTablas(ventana, *registro, std::get<TablasDeAntes>(registro->antes));
    }
}

}  // namespace qor
