#include "editor/find.h"

#include "base/text.h"
#include "editor/grids.h"

namespace qor {

namespace {

std::string TextoDeFilaArchivo(const Ventana& ventana, int fila) {
    const auto& celdas = ventana.documento.especificacion.TablaArchivo[fila];
    std::string texto(Recortar(celdas.campo));
    return texto.append(Recortar(celdas.nota)).append(Recortar(celdas.conversion));
}

std::string TextoDeFilaTransaccion(const Ventana& ventana, int fila) {
    std::string texto;
    for (const auto columna : columnasDeTransaccion)
        texto.append(Recortar(ventana.documento.especificacion.TablaTransaccion[fila].*columna));
    return texto;
}

template <typename TextoDeFila, typename MostrarFila>
void Buscar(Ventana& ventana, Busquedas::Busqueda& busqueda, int filaActual, TextoDeFila textoDeFila, MostrarFila mostrar) {
    if (EstaEnBlanco(ventana.busquedas.TextoBuscado)) return;
    const int desde = busqueda.enCurso ? filaActual + 1 : 0;
    if (!busqueda.enCurso) busqueda = {true, true};
    const std::string buscado = Mayusculas(ventana.busquedas.TextoBuscado);
    for (int r = desde; r <= ultimaFila; ++r) {
        const std::string texto = textoDeFila(ventana, r);
        if (texto.empty()) break;
        if (Contiene(Mayusculas(texto), buscado)) return mostrar(ventana, r);
    }
    ventana.vista.Informar(Componer(ventana.textos, {374}));
    busqueda = {};
}

}  // namespace

void BuscarArchivo(Ventana& ventana) {
    Buscar(ventana, ventana.busquedas.archivo, ventana.archivo.LineaArchivo, TextoDeFilaArchivo, MostrarArchivo);
}

void BuscarTransaccion(Ventana& ventana) {
    Buscar(ventana, ventana.busquedas.transaccion, ventana.transaccion.LineaTransaccion, TextoDeFilaTransaccion,
           MostrarTransaccion);
}

int RotuloDeBuscarArchivo(const Ventana& ventana) { return ventana.busquedas.archivo.siguiente ? 45 : 46; }

int RotuloDeBuscarTransaccion(const Ventana& ventana) { return ventana.busquedas.transaccion.siguiente ? 47 : 48; }

void CambiarTextoBuscado(Ventana& ventana, const std::string& texto) {
    if (ventana.busquedas.TextoBuscado == texto) return;
    ventana.busquedas.TextoBuscado = texto;
    ventana.busquedas.archivo.siguiente = ventana.busquedas.transaccion.siguiente = false;
}

}  // namespace qor
