#include "editor/undo_command.h"

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

}  // namespace

void Deshacer(Ventana& ventana) {
    const auto registro = ventana.documento.deshacer.Recuperar();
    if (!registro) return;
    ventana.documento.Cambiar();
    ventana.foco.reset();
    if (const auto* const archivo = std::get_if<FilaDeArchivo>(&registro->antes)) {
        DeshacerEnArchivo(ventana, *registro, *archivo);
    } else if (const auto* const transaccion = std::get_if<FilaDeTransaccion>(&registro->antes)) {
        DeshacerEnTransaccion(ventana, *registro, *transaccion);
    } else if (const auto* const lado = std::get_if<std::vector<FilaDeArchivo>>(&registro->antes)) {
        ventana.documento.especificacion.TablaArchivo = *lado;
        MostrarArchivo(ventana, 0);
    } else {
        ventana.documento.especificacion.TablaTransaccion = std::get<std::vector<FilaDeTransaccion>>(registro->antes);
        MostrarTablaNueva(ventana);
    }
}

}  // namespace qor
