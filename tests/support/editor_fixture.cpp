#include "tests/support/editor_fixture.h"

#include <utility>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/key_filters.h"

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

std::string VistaDeEditor::TomarAvisos() {
    std::string todos;
    for (const auto& aviso : std::exchange(avisos, {})) todos += (todos.empty() ? "" : " ") + aviso;
    return todos;
}

void VistaDeEditor::Mostrar(const Mensaje& mensaje, Icono /*icono*/) { avisos.push_back(mensaje.texto); }

Respuesta VistaDeEditor::Preguntar(const Mensaje& mensaje, Botones /*botones*/) {
    avisos.push_back(mensaje.texto);
    if (respuestas.empty()) return Respuesta::Cancelar;
    const Respuesta respuesta = respuestas.front();
    respuestas.pop_front();
    return respuesta;
}

std::optional<std::string> VistaDeEditor::SiguienteArchivo() {
    if (archivos.empty()) return std::nullopt;
    std::string archivo = archivos.front();
    archivos.pop_front();
    return archivo;
}

std::optional<std::string> VistaDeEditor::ElegirParaAbrir(const std::string& /*directorio*/, const std::string& /*filtro*/) {
    return SiguienteArchivo();
}
std::optional<std::string> VistaDeEditor::ElegirParaGrabar(const std::string& /*filtro*/) { return SiguienteArchivo(); }

void VistaDeEditor::PunteroOcupado(bool /*ocupado*/) {}
void VistaDeEditor::MostrarFila(Tabla /*tabla*/, int /*fila*/) {}
void VistaDeEditor::Enfocar(const std::string& control) { focos.push_back(control); }
void VistaDeEditor::MostrarTexto(const std::string& /*texto*/) {}
bool VistaDeEditor::AbrirEditor(const std::string& /*ruta*/) { return false; }

EditorDePrueba::EditorDePrueba() : editor(textos, vista) {
    for (int n = 1; n < TextosIdioma::ultimo; ++n) textos.Poner(n, "<" + std::to_string(n) + ">");
}

void EditorDePrueba::Archivo(std::initializer_list<std::string_view> filas) {
    int r = 0;
    for (const auto fila : filas) PonerArchivo(r++, fila);
    MostrarArchivoSinFocus(editor, 0);
}

void EditorDePrueba::Transaccion(std::initializer_list<std::string_view> filas) {
    int r = 0;
    for (const auto fila : filas) PonerTransaccion(r++, fila);
    MostrarTransaccionSinFocus(editor, 0);
}

void EditorDePrueba::PonerArchivo(int fila, std::string_view celdas) {
    editor.especificacion.TablaArchivo[fila] = Partir<FilaDeArchivo>(columnasDeArchivo, celdas);
}
void EditorDePrueba::PonerTransaccion(int fila, std::string_view celdas) {
    editor.especificacion.TablaTransaccion[fila] = Partir<FilaDeTransaccion>(columnasDeTransaccion, celdas);
}

void EditorDePrueba::LlenarArchivo(int ultima) {
    for (int r = 0; r <= ultima; ++r) PonerArchivo(r, "F" + std::to_string(r));
    MostrarArchivoSinFocus(editor, 0);
}

void EditorDePrueba::LlenarTransaccion(int ultima) {
    for (int r = 0; r <= ultima; ++r) PonerTransaccion(r, "||F" + std::to_string(r));
    MostrarTransaccionSinFocus(editor, 0);
}

std::vector<std::string> EditorDePrueba::FilasArchivo() const {
    return UnirFilas(columnasDeArchivo, editor.especificacion.TablaArchivo);
}
std::vector<std::string> EditorDePrueba::FilasTransaccion() const {
    return UnirFilas(columnasDeTransaccion, editor.especificacion.TablaTransaccion);
}
std::string EditorDePrueba::FilaArchivo(int fila) const {
    return Unir(columnasDeArchivo, editor.especificacion.TablaArchivo[fila]);
}
std::string EditorDePrueba::FilaTransaccion(int fila) const {
    return Unir(columnasDeTransaccion, editor.especificacion.TablaTransaccion[fila]);
}

void EditorDePrueba::Escribir(LugarDeCelda lugar, std::string_view texto) {
    EntrarEnCelda(editor, lugar);
    bool seleccionado = true;
    for (const char tecla : texto) {
        const char pasada = FiltrarTeclaDeCelda(editor, lugar, tecla);
        if (pasada == teclaDescartada) continue;
        const std::string antes = std::exchange(seleccionado, false) ? std::string() : Texto(lugar);
        CambiarCelda(editor, lugar.columna, lugar.linea, antes + pasada);
    }
}

const std::string& EditorDePrueba::Texto(LugarDeCelda lugar) const { return TextoDe(editor, lugar); }
Color EditorDePrueba::ColorDe(LugarDeCelda lugar) const { return CeldaDe(editor, lugar).color; }
std::string EditorDePrueba::Foco() const { return editor.ventana.foco ? NombreDeControl(*editor.ventana.foco) : ""; }

}  // namespace qor::pruebas
