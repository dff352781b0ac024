#include "tests/support/window_fixture.h"

#include <utility>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/key_filters.h"
#include "tests/support/language.h"

namespace qor::pruebas {

namespace {

template <typename Fila, typename Columnas>
Fila Partir(const Columnas& columnas, std::string_view celdas) {
    Fila fila;
    for (const auto columna : columnas) {
        fila.*columna = AntesDe(celdas, '|');
        celdas = DespuesDe(celdas, '|');
    }
    return fila;
}

template <typename Fila, typename Columnas>
std::string Unir(const Columnas& columnas, const Fila& fila) {
    std::string texto;
    for (const auto columna : columnas) texto += fila.*columna + '|';
    texto.erase(texto.find_last_not_of('|') + 1);
    return texto;
}

template <typename Columnas, typename UnaTabla>
std::vector<std::string> UnirFilas(const Columnas& columnas, const UnaTabla& tabla) {
    std::vector<std::string> filas;
    for (const auto& fila : tabla) filas.push_back(Unir(columnas, fila));
    while (!filas.empty() && filas.back().empty()) filas.pop_back();
    return filas;
}

}  // namespace

std::string VistaDePrueba::TomarAvisos() {
    std::string todos;
    for (const auto& aviso : std::exchange(avisos, {})) todos += (todos.empty() ? "" : " ") + aviso;
    return todos;
}

void VistaDePrueba::Mostrar(const Mensaje& mensaje, Icono /*icono*/) {
    avisos.push_back(mensaje.texto);
    mensajes.push_back(mensaje);
    detalles += mensaje.detalle;
}

Respuesta VistaDePrueba::Preguntar(const Mensaje& mensaje, Botones /*botones*/) {
    avisos.push_back(mensaje.texto);
    if (alPreguntar) alPreguntar();
    if (respuestas.empty()) return Respuesta::Cancelar;
    const Respuesta respuesta = respuestas.front();
    respuestas.pop_front();
    return respuesta;
}

std::optional<std::filesystem::path> VistaDePrueba::SiguienteArchivo(const PedidoDeArchivo& pedido) {
    pedidos.push_back(pedido);
    if (archivos.empty()) return std::nullopt;
    std::filesystem::path archivo = archivos.front();
    archivos.pop_front();
    return archivo;
}

std::optional<std::filesystem::path> VistaDePrueba::ElegirParaAbrir(const PedidoDeArchivo& pedido) {
    return SiguienteArchivo(pedido);
}
std::optional<std::filesystem::path> VistaDePrueba::ElegirParaGrabar(const PedidoDeArchivo& pedido) {
    return SiguienteArchivo(pedido);
}
std::optional<std::filesystem::path> VistaDePrueba::ElegirCarpeta(const PedidoDeArchivo& pedido) {
    return SiguienteArchivo(pedido);
}

void VistaDePrueba::PunteroOcupado(bool /*ocupado*/) {}
void VistaDePrueba::MostrarFila(Tabla /*tabla*/, int /*fila*/) {}
void VistaDePrueba::Enfocar(const std::string& control) { focos.push_back(control); }
void VistaDePrueba::MostrarTexto(const std::string& /*texto*/) {}
bool VistaDePrueba::AbrirEditor(const std::filesystem::path& /*ruta*/) { return false; }

VentanaDePrueba::VentanaDePrueba() : ventana(documento, textos, vista) {
    for (int n = 1; n < TextosIdioma::ultimo; ++n) textos.Poner(n, "<" + std::to_string(n) + ">");
    PonerPalabras(textos);
}

void VentanaDePrueba::Archivo(std::initializer_list<std::string_view> filas) {
    int r = 0;
    for (const auto fila : filas) PonerArchivo(r++, fila);
    MostrarArchivoSinFocus(ventana, 0);
}

void VentanaDePrueba::Transaccion(std::initializer_list<std::string_view> filas) {
    int r = 0;
    for (const auto fila : filas) PonerTransaccion(r++, fila);
    MostrarTransaccionSinFocus(ventana, 0);
}

void VentanaDePrueba::PonerArchivo(int fila, std::string_view celdas) {
    ventana.documento.especificacion.TablaArchivo[fila] = Partir<FilaDeArchivo>(columnasDeArchivo, celdas);
}
void VentanaDePrueba::PonerTransaccion(int fila, std::string_view celdas) {
    ventana.documento.especificacion.TablaTransaccion[fila] = Partir<FilaDeTransaccion>(columnasDeTransaccion, celdas);
}

void VentanaDePrueba::LlenarArchivo(int ultima) {
    for (int r = 0; r <= ultima; ++r) PonerArchivo(r, "F" + std::to_string(r));
    MostrarArchivoSinFocus(ventana, 0);
}

void VentanaDePrueba::LlenarTransaccion(int ultima) {
    for (int r = 0; r <= ultima; ++r) PonerTransaccion(r, "||F" + std::to_string(r));
    MostrarTransaccionSinFocus(ventana, 0);
}

std::vector<std::string> VentanaDePrueba::FilasArchivo() const {
    return UnirFilas(columnasDeArchivo, ventana.documento.especificacion.TablaArchivo);
}
std::vector<std::string> VentanaDePrueba::FilasTransaccion() const {
    return UnirFilas(columnasDeTransaccion, ventana.documento.especificacion.TablaTransaccion);
}
std::string VentanaDePrueba::FilaArchivo(int fila) const {
    return Unir(columnasDeArchivo, ventana.documento.especificacion.TablaArchivo[fila]);
}
std::string VentanaDePrueba::FilaTransaccion(int fila) const {
    return Unir(columnasDeTransaccion, ventana.documento.especificacion.TablaTransaccion[fila]);
}

void VentanaDePrueba::Escribir(LugarDeCelda lugar, std::string_view texto) {
    EntrarEnCelda(ventana, lugar);
    bool seleccionado = true;
    for (const char tecla : texto) {
        const char pasada = FiltrarTeclaDeCelda(ventana, lugar, tecla);
        if (pasada == teclaDescartada) continue;
        const std::string antes = std::exchange(seleccionado, false) ? std::string() : Texto(lugar);
        EscribirEnCelda(ventana, lugar, antes + pasada);
    }
}

const std::string& VentanaDePrueba::Texto(LugarDeCelda lugar) const { return TextoDe(ventana, lugar); }
Color VentanaDePrueba::ColorDe(LugarDeCelda lugar) const { return CeldaDe(ventana, lugar).color; }
std::string VentanaDePrueba::Foco() const { return ventana.foco ? NombreDeControl(*ventana.foco) : ""; }

}  // namespace qor::pruebas
