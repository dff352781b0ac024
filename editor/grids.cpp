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

void ColorearArchivo(Ventana& ventana, int linea, Prueba prueba) {
    const auto i = static_cast<std::size_t>(linea);
    const auto& fila = ventana.documento.especificacion.TablaArchivo[ventana.archivo.PrimeraFilaArchivo + linea];
    ventana.archivo.campo[i].color = RojoSi(HayTexto(fila.nota, prueba));
    ventana.archivo.conversion[i].color = RojoSi(HayTexto(fila.conversion, prueba));
}

void ColorearTransaccion(Ventana& ventana, int linea) {
    const auto& fila = ventana.documento.especificacion.TablaTransaccion[ventana.transaccion.PrimeraFilaTransaccion + linea];
    ventana.transaccion.campo[static_cast<std::size_t>(linea)].color = RojoSi(!EstaEnBlanco(fila.nota));
}

void LlenarLineaArchivo(Ventana& ventana, int linea, Prueba prueba) {
    // A copy: the change rule writes into the row.
    const auto fila = ventana.documento.especificacion.TablaArchivo[ventana.archivo.PrimeraFilaArchivo + linea];
    PonerEnCelda(ventana, {Columna::CampoDeArchivo, linea}, fila.campo);
    PonerEnCelda(ventana, {Columna::Ancho, linea}, fila.ancho);
    ColorearArchivo(ventana, linea, prueba);
}

void LlenarLineaTransaccion(Ventana& ventana, int linea) {
    const auto fila = ventana.documento.especificacion.TablaTransaccion[ventana.transaccion.PrimeraFilaTransaccion + linea];
    for (const Columna columna : columnasDeCeldasDeTransaccion) {
        PonerEnCelda(ventana, {columna, linea}, fila.*ColumnaDeTransaccion(columna));
    }
    ColorearTransaccion(ventana, linea);
}

void LlenarArchivo(Ventana& ventana, int primeraFila, Prueba prueba) {
    ventana.archivo.PrimeraFilaArchivo = primeraFila;
    for (int i = 0; i < lineasArchivo; ++i) LlenarLineaArchivo(ventana, i, prueba);
}

void LlenarTransaccion(Ventana& ventana, int primeraFila) {
    ventana.transaccion.PrimeraFilaTransaccion = primeraFila;
    for (int i = 0; i < lineasTransaccion; ++i) LlenarLineaTransaccion(ventana, i);
}

void CopiarLineaArchivo(Ventana& ventana, int desde, int hasta) {
    const auto d = static_cast<std::size_t>(desde);
    const auto h = static_cast<std::size_t>(hasta);
    auto& rejilla = ventana.archivo;
    PonerEnCelda(ventana, {Columna::CampoDeArchivo, hasta}, std::string(rejilla.campo[d].texto));
    PonerEnCelda(ventana, {Columna::Ancho, hasta}, std::string(rejilla.ancho[d].texto));
    rejilla.campo[h].color = rejilla.campo[d].color;
    rejilla.conversion[h].color = rejilla.conversion[d].color;
}

void CopiarLineaTransaccion(Ventana& ventana, int desde, int hasta) {
    for (const Columna columna : columnasDeCeldasDeTransaccion) {
        PonerEnCelda(ventana, {columna, hasta}, std::string(TextoDe(ventana, {columna, desde})));
    }
    for (const Columna columna : {Columna::Programa, Columna::Dynpro, Columna::Campo}) {
        CeldaDe(ventana, {columna, hasta}).color = CeldaDe(ventana, {columna, desde}).color;
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

bool TieneElFoco(const Ventana& ventana, Tabla tabla) { return ventana.foco && TablaDe(ventana.foco->columna) == tabla; }

// Scrolls under the cell that has the focus: its row is left, the grid moves, another row is entered.
template <typename Mover>
void DesplazarConFoco(Ventana& ventana, Tabla tabla, Mover mover) {
    const auto foco = ventana.foco;
    if (!TieneElFoco(ventana, tabla)) return mover();
    DejarCelda(ventana);
    mover();
    EntrarEnCelda(ventana, *foco);
}

// Swaps the file row with its neighbour by way of the ring, which so serves as the place for one row.
void IntercambiarFilas(Ventana& ventana, int fila, int otra) {
    auto& tabla = ventana.documento.especificacion.TablaArchivo;
    ventana.documento.GuardarDeshacer({RegistroDeshacer::Paso::Cambio, 0, 0, tabla[fila]});
    tabla[fila] = tabla[otra];
    tabla[otra] = std::get<FilaDeArchivo>(ventana.documento.deshacer.Recuperar()->antes);
    MostrarArchivoSinFocus(ventana, ventana.archivo.PrimeraFilaArchivo);
}

void MoverFila(Ventana& ventana, int paso) {
    const int fila = ventana.archivo.LineaArchivo;
    const int otra = fila + paso;
    if (otra < 0 || otra > ultimaFila) return;
    IntercambiarFilas(ventana, fila, otra);
    // The row last entered can have been scrolled out of sight; the grid then follows it.
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    if (otra < primera) LlenarArchivo(ventana, otra, Prueba::EnBlanco);
    if (otra >= primera + lineasArchivo) LlenarArchivo(ventana, otra - lineasArchivo + 1, Prueba::EnBlanco);
    // No cell is left by this: the text in the cell that has the focus has changed places.
    ventana.foco.reset();
    EnfocarCelda(ventana, {Columna::CampoDeArchivo, otra - ventana.archivo.PrimeraFilaArchivo});
}

}  // namespace

void MostrarArchivoSinFocus(Ventana& ventana, int primeraFila) {
    LlenarArchivo(ventana, std::clamp(primeraFila, 0, ultimaPrimeraFilaArchivo), Prueba::Vacio);
    ventana.archivo.LineaArchivo = ventana.archivo.PrimeraFilaArchivo;
}

void MostrarTransaccionSinFocus(Ventana& ventana, int primeraFila) {
    LlenarTransaccion(ventana, std::clamp(primeraFila, 0, ultimaPrimeraFilaTransaccion));
    ventana.transaccion.LineaTransaccion = ventana.transaccion.PrimeraFilaTransaccion;
}

void MostrarArchivo(Ventana& ventana, int fila) {
    DejarCelda(ventana);
    MostrarArchivoSinFocus(ventana, fila);
    EnfocarCelda(ventana, {Columna::CampoDeArchivo, std::min(fila, ultimaFila) - ventana.archivo.PrimeraFilaArchivo});
}

void MostrarTransaccion(Ventana& ventana, int fila) {
    DejarCelda(ventana);
    MostrarTransaccionSinFocus(ventana, fila);
    EnfocarCelda(ventana, {Columna::Programa, std::min(fila, ultimaFila) - ventana.transaccion.PrimeraFilaTransaccion});
}

void MostrarTablaNueva(Ventana& ventana) {
    ventana.foco.reset();
    MostrarTransaccion(ventana, 0);
    ventana.busquedas.transaccion.siguiente = false;
}

void VentanaArchivoAbajo(Ventana& ventana) {
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    if (primera < ultimaPrimeraFilaArchivo) LlenarArchivo(ventana, primera + 1, Prueba::EnBlanco);
}

void VentanaArchivoArriba(Ventana& ventana) {
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    if (primera > 0) LlenarArchivo(ventana, primera - 1, Prueba::EnBlanco);
}

void VentanaTransaccionAbajo(Ventana& ventana) {
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    if (primera < ultimaPrimeraFilaTransaccion) LlenarTransaccion(ventana, primera + 1);
}

void VentanaTransaccionArriba(Ventana& ventana) {
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    if (primera > 0) LlenarTransaccion(ventana, primera - 1);
}

void DesplazarArchivo(Ventana& ventana, int filas) {
    const int antes = ventana.archivo.PrimeraFilaArchivo;
    const int despues = std::clamp(antes + filas, 0, ultimaPrimeraFilaArchivo);
    if (antes == despues) return;
    DesplazarConFoco(ventana, Tabla::Archivo, [&] { LlenarArchivo(ventana, despues, Prueba::EnBlanco); });
}

void DesplazarTransaccion(Ventana& ventana, int filas) {
    const int antes = ventana.transaccion.PrimeraFilaTransaccion;
    const int despues = std::clamp(antes + filas, 0, ultimaPrimeraFilaTransaccion);
    if (antes == despues) return;
    DesplazarConFoco(ventana, Tabla::Transaccion, [&] { LlenarTransaccion(ventana, despues); });
}

void AbrirFilaArchivo(Ventana& ventana, int linea) {
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    auto& tabla = ventana.documento.especificacion.TablaArchivo;
    BajarFilas(tabla, primera + linea);
    for (int j = lineasArchivo - 1; j > linea; --j) CopiarLineaArchivo(ventana, j - 1, j);
    tabla[primera + linea].nota.clear();
    tabla[primera + linea].conversion.clear();
    ColorearArchivo(ventana, linea, Prueba::Vacio);
}

void InsertarArchivo(Ventana& ventana, int linea) {
    ventana.documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Insercion, linea, ventana.archivo.PrimeraFilaArchivo, FilaDeArchivo{}});
    AbrirFilaArchivo(ventana, linea);
    ventana.DuplicadoRevisado = false;
    ReglaDeDuplicados(ventana, linea);
}

void AbrirFilaTransaccion(Ventana& ventana, int linea) {
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    auto& tabla = ventana.documento.especificacion.TablaTransaccion;
    BajarFilas(tabla, primera + linea);
    for (int j = lineasTransaccion - 1; j > linea; --j) CopiarLineaTransaccion(ventana, j - 1, j);
    tabla[primera + linea].nota.clear();
    ColorearTransaccion(ventana, linea);
}

void InsertarTransaccion(Ventana& ventana, int linea) {
    ventana.documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Insercion, linea, ventana.transaccion.PrimeraFilaTransaccion, FilaDeTransaccion{}});
    AbrirFilaTransaccion(ventana, linea);
}

void InsertarArchivoEnBlanco(Ventana& ventana, int linea) {
    ventana.documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Insercion, linea, ventana.archivo.PrimeraFilaArchivo, FilaDeArchivo{}});
    AbrirFilaArchivo(ventana, linea);
    for (const Columna columna : columnasDeCeldasDeArchivo) PonerEnCelda(ventana, {columna, linea}, "");
}

void InsertarTransaccionEnBlanco(Ventana& ventana, int linea) {
    InsertarTransaccion(ventana, linea);
    for (const Columna columna : columnasDeCeldasDeTransaccion) PonerEnCelda(ventana, {columna, linea}, "");
}

void QuitarFilaArchivo(Ventana& ventana, int linea) {
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    auto& tabla = ventana.documento.especificacion.TablaArchivo;
    // Row 1000 stays where it is, so that in a full table it comes twice.
    SubirFilas(tabla, primera + linea);
    for (int j = linea; j < lineasArchivo - 1; ++j) CopiarLineaArchivo(ventana, j + 1, j);
    LlenarLineaArchivo(ventana, lineasArchivo - 1, Prueba::EnBlanco);
}

void BorrarArchivo(Ventana& ventana, int linea) {
    const int primera = ventana.archivo.PrimeraFilaArchivo;
    auto& documento = ventana.documento;
    documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Borrado, linea, primera, documento.especificacion.TablaArchivo[primera + linea]});
    QuitarFilaArchivo(ventana, linea);
}

void QuitarFilaTransaccion(Ventana& ventana, int linea) {
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    auto& tabla = ventana.documento.especificacion.TablaTransaccion;
    SubirFilas(tabla, primera + linea);
    tabla[ultimaFila] = {};
    for (int j = linea; j < lineasTransaccion - 1; ++j) CopiarLineaTransaccion(ventana, j + 1, j);
    LlenarLineaTransaccion(ventana, lineasTransaccion - 1);
}

void BorrarTransaccion(Ventana& ventana, int linea) {
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    auto& documento = ventana.documento;
    documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Borrado, linea, primera, documento.especificacion.TablaTransaccion[primera + linea]});
    QuitarFilaTransaccion(ventana, linea);
}

void UpButton(Ventana& ventana) { MoverFila(ventana, -1); }

void DownButton(Ventana& ventana) { MoverFila(ventana, 1); }

void MoverTransaccion(Ventana& ventana, LugarDeCelda lugar, int paso) {
    auto& tabla = ventana.documento.especificacion.TablaTransaccion;
    const int primera = ventana.transaccion.PrimeraFilaTransaccion;
    const int fila = primera + lugar.linea;
    const int otra = fila + paso;
    if (otra < 0 || otra > ultimaFila) return;
    const int arriba = std::min(fila, otra);
    ventana.documento.GuardarDeshacer(
        {RegistroDeshacer::Paso::Cambio, arriba - primera, primera, FilasCambiadas{tabla[arriba], tabla[arriba + 1]}});
    std::swap(tabla[fila], tabla[otra]);
    const int linea = otra - primera;
    const int corrida = std::min(linea, 0) + std::max(linea - lineasTransaccion + 1, 0);
    MostrarTransaccionSinFocus(ventana, primera + corrida);
    ventana.foco.reset();
    EnfocarCelda(ventana, {lugar.columna, linea - corrida});
}

void DobleClicLineaArchivo(Ventana& ventana) {
    MostrarArchivo(ventana, 0);
    ventana.busquedas.archivo.siguiente = false;
}

void DobleClicLineaTransaccion(Ventana& ventana) {
    MostrarTransaccion(ventana, 0);
    ventana.busquedas.transaccion.siguiente = false;
}

void ColorearFila(Ventana& ventana, FilaDeTabla fila) {
    const bool deArchivo = fila.tabla == Tabla::Archivo;
    const int linea = fila.fila - (deArchivo ? ventana.archivo.PrimeraFilaArchivo : ventana.transaccion.PrimeraFilaTransaccion);
    if (linea < 0 || linea >= (deArchivo ? lineasArchivo : lineasTransaccion)) return;
    if (deArchivo) {
        ColorearArchivo(ventana, linea, Prueba::EnBlanco);
    } else {
        ColorearTransaccion(ventana, linea);
    }
}

}  // namespace qor
