#include "editor/grids.h"

#include <algorithm>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/leaving_rules.h"

namespace qor {

namespace {

// A note or code gives its cell the colour when it isn't exactly empty, or when it isn't blank.
enum class Prueba { Vacio, EnBlanco };

Color RojoSi(bool rojo) { return rojo ? Color::Rojo : Color::Negro; }

bool HayTexto(const std::string& texto, Prueba prueba) { return prueba == Prueba::Vacio ? !texto.empty() : !EstaEnBlanco(texto); }

void ColorearArchivo(Editor& editor, int linea, Prueba prueba) {
    const auto i = static_cast<std::size_t>(linea);
    const auto& fila = editor.especificacion.TablaArchivo[editor.archivo.PrimeraFilaArchivo + linea];
    editor.archivo.Text1[i].color = RojoSi(HayTexto(fila.nota, prueba));
    editor.archivo.ABAP[i].color = RojoSi(HayTexto(fila.conversion, prueba));
}

void ColorearTransaccion(Editor& editor, int linea) {
    const auto& fila = editor.especificacion.TablaTransaccion[editor.transaccion.PrimeraFilaTransaccion + linea];
    editor.transaccion.Text4[static_cast<std::size_t>(linea)].color = RojoSi(!EstaEnBlanco(fila.nota));
}

void LlenarLineaArchivo(Editor& editor, int linea, Prueba prueba) {
    // A copy: the change rule writes into the row.
    const auto fila = editor.especificacion.TablaArchivo[editor.archivo.PrimeraFilaArchivo + linea];
    CambiarCelda(editor, Columna::Text1, linea, fila.campo);
    CambiarCelda(editor, Columna::Text2, linea, fila.ancho);
    ColorearArchivo(editor, linea, prueba);
}

void LlenarLineaTransaccion(Editor& editor, int linea) {
    const auto fila = editor.especificacion.TablaTransaccion[editor.transaccion.PrimeraFilaTransaccion + linea];
    for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
        CambiarCelda(editor, columna, linea, fila.*ColumnaDeTransaccion(columna));
    }
    ColorearTransaccion(editor, linea);
}

void LlenarArchivo(Editor& editor, int primeraFila, Prueba prueba) {
    const SinRegistrarCambios sinRegistrar(editor);
    editor.archivo.PrimeraFilaArchivo = primeraFila;
    for (int i = 0; i < lineasArchivo; ++i) LlenarLineaArchivo(editor, i, prueba);
}

void LlenarTransaccion(Editor& editor, int primeraFila) {
    const SinRegistrarCambios sinRegistrar(editor);
    editor.transaccion.PrimeraFilaTransaccion = primeraFila;
    for (int i = 0; i < lineasTransaccion; ++i) LlenarLineaTransaccion(editor, i);
}

void CopiarLineaArchivo(Editor& editor, int desde, int hasta) {
    const auto d = static_cast<std::size_t>(desde);
    const auto h = static_cast<std::size_t>(hasta);
    auto& rejilla = editor.archivo;
    CambiarCelda(editor, Columna::Text1, hasta, std::string(rejilla.Text1[d].texto));
    CambiarCelda(editor, Columna::Text2, hasta, std::string(rejilla.Text2[d].texto));
    rejilla.Text1[h].color = rejilla.Text1[d].color;
    rejilla.ABAP[h].color = rejilla.ABAP[d].color;
}

void CopiarLineaTransaccion(Editor& editor, int desde, int hasta) {
    for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
        CambiarCelda(editor, columna, hasta, std::string(TextoDe(editor, {columna, desde})));
    }
    for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4}) {
        CeldaDe(editor, {columna, hasta}).color = CeldaDe(editor, {columna, desde}).color;
    }
}

template <typename Tabla>
void BajarFilas(Tabla& tabla, int fila) {
    for (int r = ultimaFila; r > fila; --r) tabla[r] = tabla[r - 1];
}

template <typename Tabla>
void SubirFilas(Tabla& tabla, int fila) {
    for (int r = fila; r < ultimaFila; ++r) tabla[r] = tabla[r + 1];
}

bool TieneElFoco(const Editor& editor, Tabla tabla) {
    return editor.ventana.foco && TablaDe(editor.ventana.foco->columna) == tabla;
}

// Scrolls under the cell that has the focus: its row is left, the grid moves, another row is entered.
template <typename Mover>
void DesplazarConFoco(Editor& editor, Tabla tabla, Mover mover) {
    const auto foco = editor.ventana.foco;
    if (!TieneElFoco(editor, tabla)) return mover();
    DejarCelda(editor);
    mover();
    EntrarEnCelda(editor, *foco);
}

// Swaps the file row with its neighbour by way of the ring, which so serves as the place for one row.
void IntercambiarFilas(Editor& editor, int fila, int otra) {
    const SinRegistrarCambios sinRegistrar(editor);
    auto& tabla = editor.especificacion.TablaArchivo;
    const auto& actual = tabla[fila];
    GuardarDeshacer(editor, {RegistroDeshacer::Paso::Cambio, 0, 0, actual});
    tabla[fila] = tabla[otra];
    tabla[otra] = std::get<FilaDeArchivo>(RecuperarDeshacer(editor)->fila);
    MostrarArchivoSinFocus(editor, editor.archivo.PrimeraFilaArchivo);
}

void MoverFila(Editor& editor, int paso) {
    const int fila = editor.archivo.LineaArchivo;
    const int otra = fila + paso;
    if (otra < 0 || otra > ultimaFila) return;
    IntercambiarFilas(editor, fila, otra);
    // The row last entered can have been scrolled out of sight; the grid then follows it.
    const int primera = editor.archivo.PrimeraFilaArchivo;
    if (otra < primera) LlenarArchivo(editor, otra, Prueba::EnBlanco);
    if (otra >= primera + lineasArchivo) LlenarArchivo(editor, otra - lineasArchivo + 1, Prueba::EnBlanco);
    // No cell is left by this: the text in the cell that has the focus has changed places.
    editor.ventana.foco.reset();
    EnfocarCelda(editor, {Columna::Text1, otra - editor.archivo.PrimeraFilaArchivo});
}

}  // namespace

void MostrarArchivoSinFocus(Editor& editor, int primeraFila) {
    LlenarArchivo(editor, std::clamp(primeraFila, 0, ultimaPrimeraFilaArchivo), Prueba::Vacio);
    editor.archivo.LineaArchivo = editor.archivo.PrimeraFilaArchivo;
}

void MostrarTransaccionSinFocus(Editor& editor, int primeraFila) {
    LlenarTransaccion(editor, std::clamp(primeraFila, 0, ultimaPrimeraFilaTransaccion));
    editor.transaccion.LineaTransaccion = editor.transaccion.PrimeraFilaTransaccion;
}

void MostrarArchivo(Editor& editor, int fila) {
    DejarCelda(editor);
    MostrarArchivoSinFocus(editor, fila);
    EnfocarCelda(editor, {Columna::Text1, std::min(fila, ultimaFila) - editor.archivo.PrimeraFilaArchivo});
}

void MostrarTransaccion(Editor& editor, int fila) {
    DejarCelda(editor);
    MostrarTransaccionSinFocus(editor, fila);
    EnfocarCelda(editor, {Columna::Text6, std::min(fila, ultimaFila) - editor.transaccion.PrimeraFilaTransaccion});
}

void VentanaArchivoAbajo(Editor& editor) {
    const int primera = editor.archivo.PrimeraFilaArchivo;
    if (primera < ultimaPrimeraFilaArchivo) LlenarArchivo(editor, primera + 1, Prueba::EnBlanco);
}

void VentanaArchivoArriba(Editor& editor) {
    const int primera = editor.archivo.PrimeraFilaArchivo;
    if (primera > 0) LlenarArchivo(editor, primera - 1, Prueba::EnBlanco);
}

void VentanaTransaccionAbajo(Editor& editor) {
    const int primera = editor.transaccion.PrimeraFilaTransaccion;
    if (primera < ultimaPrimeraFilaTransaccion) LlenarTransaccion(editor, primera + 1);
}

void VentanaTransaccionArriba(Editor& editor) {
    const int primera = editor.transaccion.PrimeraFilaTransaccion;
    if (primera > 0) LlenarTransaccion(editor, primera - 1);
}

void DesplazarArchivo(Editor& editor, int filas) {
    const int antes = editor.archivo.PrimeraFilaArchivo;
    const int despues = std::clamp(antes + filas, 0, ultimaPrimeraFilaArchivo);
    if (antes == despues) return;
    DesplazarConFoco(editor, Tabla::Archivo, [&] { LlenarArchivo(editor, despues, Prueba::EnBlanco); });
}

void DesplazarTransaccion(Editor& editor, int filas) {
    const int antes = editor.transaccion.PrimeraFilaTransaccion;
    const int despues = std::clamp(antes + filas, 0, ultimaPrimeraFilaTransaccion);
    if (antes == despues) return;
    DesplazarConFoco(editor, Tabla::Transaccion, [&] { LlenarTransaccion(editor, despues); });
}

void AbrirFilaArchivo(Editor& editor, int linea) {
    const int primera = editor.archivo.PrimeraFilaArchivo;
    if (editor.RegistrarCambios) GuardarDeshacer(editor, {RegistroDeshacer::Paso::Insercion, linea, primera, FilaDeArchivo{}});
    const SinRegistrarCambios sinRegistrar(editor);
    auto& tabla = editor.especificacion.TablaArchivo;
    BajarFilas(tabla, primera + linea);
    for (int j = lineasArchivo - 1; j > linea; --j) CopiarLineaArchivo(editor, j - 1, j);
    tabla[primera + linea].nota.clear();
    tabla[primera + linea].conversion.clear();
    ColorearArchivo(editor, linea, Prueba::Vacio);
}

void InsertarArchivo(Editor& editor, int linea) {
    AbrirFilaArchivo(editor, linea);
    editor.DuplicadoRevisado = false;
    ReglaDeDuplicados(editor, linea);
}

void InsertarTransaccion(Editor& editor, int linea) {
    const int primera = editor.transaccion.PrimeraFilaTransaccion;
    if (editor.RegistrarCambios) GuardarDeshacer(editor, {RegistroDeshacer::Paso::Insercion, linea, primera, FilaDeTransaccion{}});
    const SinRegistrarCambios sinRegistrar(editor);
    auto& tabla = editor.especificacion.TablaTransaccion;
    BajarFilas(tabla, primera + linea);
    for (int j = lineasTransaccion - 1; j > linea; --j) CopiarLineaTransaccion(editor, j - 1, j);
    tabla[primera + linea].nota.clear();
    ColorearTransaccion(editor, linea);
}

void BorrarArchivo(Editor& editor, int linea) {
    const int primera = editor.archivo.PrimeraFilaArchivo;
    auto& tabla = editor.especificacion.TablaArchivo;
    if (editor.RegistrarCambios) GuardarDeshacer(editor, {RegistroDeshacer::Paso::Borrado, linea, primera, tabla[primera + linea]});
    const SinRegistrarCambios sinRegistrar(editor);
    // Row 1000 stays where it is, so that in a full table it comes twice.
    SubirFilas(tabla, primera + linea);
    for (int j = linea; j < lineasArchivo - 1; ++j) CopiarLineaArchivo(editor, j + 1, j);
    LlenarLineaArchivo(editor, lineasArchivo - 1, Prueba::EnBlanco);
}

void BorrarTransaccion(Editor& editor, int linea) {
    const int primera = editor.transaccion.PrimeraFilaTransaccion;
    auto& tabla = editor.especificacion.TablaTransaccion;
    if (editor.RegistrarCambios) GuardarDeshacer(editor, {RegistroDeshacer::Paso::Borrado, linea, primera, tabla[primera + linea]});
    const SinRegistrarCambios sinRegistrar(editor);
    SubirFilas(tabla, primera + linea);
    tabla[ultimaFila] = {};
    for (int j = linea; j < lineasTransaccion - 1; ++j) CopiarLineaTransaccion(editor, j + 1, j);
    LlenarLineaTransaccion(editor, lineasTransaccion - 1);
}

void UpButton(Editor& editor) { MoverFila(editor, -1); }

void DownButton(Editor& editor) { MoverFila(editor, 1); }

void DobleClicLineaArchivo(Editor& editor) {
    MostrarArchivo(editor, 0);
    editor.busquedas.archivo.siguiente = false;
}

void DobleClicLineaTransaccion(Editor& editor) {
    MostrarTransaccion(editor, 0);
    editor.busquedas.transaccion.siguiente = false;
}

void ColorearFila(Editor& editor, FilaDeTabla fila) {
    const bool deArchivo = fila.tabla == Tabla::Archivo;
    const int linea = fila.fila - (deArchivo ? editor.archivo.PrimeraFilaArchivo : editor.transaccion.PrimeraFilaTransaccion);
    if (linea < 0 || linea >= (deArchivo ? lineasArchivo : lineasTransaccion)) return;
    if (deArchivo) {
        ColorearArchivo(editor, linea, Prueba::EnBlanco);
    } else {
        ColorearTransaccion(editor, linea);
    }
}

}  // namespace qor
