#include "editor/find.h"

#include "base/text.h"
#include "editor/grids.h"

namespace qor {

namespace {

std::string TextoDeFilaArchivo(const Editor& editor, int fila) {
    const auto& celdas = editor.especificacion.TablaArchivo[fila];
    std::string texto(Recortar(celdas.campo));
    return texto.append(Recortar(celdas.nota)).append(Recortar(celdas.conversion));
}

std::string TextoDeFilaTransaccion(const Editor& editor, int fila) {
    std::string texto;
    for (const auto columna : columnasDeTransaccion) texto.append(Recortar(editor.especificacion.TablaTransaccion[fila].*columna));
    return texto;
}

template <typename TextoDeFila, typename MostrarFila>
void Buscar(Editor& editor, Busquedas::Busqueda& busqueda, int filaActual, TextoDeFila textoDeFila, MostrarFila mostrar) {
    if (EstaEnBlanco(editor.busquedas.TextoBuscado)) return;
    const int desde = busqueda.enCurso ? filaActual + 1 : 0;
    if (!busqueda.enCurso) busqueda = {true, true};
    const std::string buscado = Mayusculas(editor.busquedas.TextoBuscado);
    for (int r = desde; r <= ultimaFila; ++r) {
        const std::string texto = textoDeFila(editor, r);
        if (texto.empty()) break;
        if (Contiene(Mayusculas(texto), buscado)) return mostrar(editor, r);
    }
    editor.vista.Informar(Componer(editor.textos, {374}));
    busqueda = {};
}

}  // namespace

void BuscarArchivo(Editor& editor) {
    Buscar(editor, editor.busquedas.archivo, editor.archivo.LineaArchivo, TextoDeFilaArchivo, MostrarArchivo);
}

void BuscarTransaccion(Editor& editor) {
    Buscar(editor, editor.busquedas.transaccion, editor.transaccion.LineaTransaccion, TextoDeFilaTransaccion, MostrarTransaccion);
}

int RotuloDeBuscarArchivo(const Editor& editor) { return editor.busquedas.archivo.siguiente ? 45 : 46; }

int RotuloDeBuscarTransaccion(const Editor& editor) { return editor.busquedas.transaccion.siguiente ? 47 : 48; }

void CambiarTextoBuscado(Editor& editor, const std::string& texto) {
    if (editor.busquedas.TextoBuscado == texto) return;
    editor.busquedas.TextoBuscado = texto;
    editor.busquedas.archivo.siguiente = editor.busquedas.transaccion.siguiente = false;
}

}  // namespace qor
