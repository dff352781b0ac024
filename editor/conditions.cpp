#include "editor/conditions.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "editor/key_filters.h"

namespace qor {

namespace {

// Only rows up to 1000 are saved.
constexpr std::size_t maximoDeCondiciones = ultimaFila + 1;

bool EstaEnLista(const DialogoDeCondiciones& dialogo, std::string_view nombre) {
    const auto& lista = dialogo.ListaCondiciones;
    return std::find(lista.begin(), lista.end(), nombre) != lista.end();
}

}  // namespace

DialogoDeCondiciones AbrirCondiciones(const Editor& editor) {
    DialogoDeCondiciones dialogo;
    for (const auto& fila : editor.especificacion.TablaCondiciones) {
        if (fila.nombre.empty()) break;
        dialogo.ListaCondiciones.push_back(fila.nombre);
    }
    return dialogo;
}

void AgregarCondicion(Editor& editor, DialogoDeCondiciones& dialogo) {
    const auto cortado = Recortar(dialogo.Nuevo);
    if (cortado.empty()) return;
    if (EstaEnLista(dialogo, cortado)) {
        editor.vista.Advertir(Componer(editor.textos, {357}));
        return editor.vista.Enfocar("Nuevo");
    }
    if (dialogo.ListaCondiciones.size() >= maximoDeCondiciones) {
        return editor.vista.Advertir(MensajeLiteral("There is no room for another condition."));
    }
    const std::string nombre = Mayusculas(cortado);
    const int fila = static_cast<int>(dialogo.ListaCondiciones.size());
    editor.especificacion.TablaCondiciones[fila] = {nombre, ""};
    editor.HayCambios = true;
    dialogo.ListaCondiciones.push_back(nombre);
    dialogo.Nuevo.clear();
    SeleccionarCondicion(editor, dialogo, fila);
    editor.vista.Enfocar("Condicional");
}

void BorrarCondicion(Editor& editor, DialogoDeCondiciones& dialogo) {
    const int fila = std::exchange(dialogo.seleccion, -1);
    dialogo.Condicional.clear();
    if (fila < 0) return;
    auto& tabla = editor.especificacion.TablaCondiciones;
    std::move(tabla.begin() + fila + 1, tabla.end(), tabla.begin() + fila);
    tabla.back() = {};
    dialogo.ListaCondiciones.erase(dialogo.ListaCondiciones.begin() + fila);
    editor.HayCambios = true;
}

void SeleccionarCondicion(const Editor& editor, DialogoDeCondiciones& dialogo, int indice) {
    dialogo.seleccion = indice;
    dialogo.Condicional = indice < 0 ? std::string() : editor.especificacion.TablaCondiciones[indice].texto;
}

void CambiarCondicional(Editor& editor, DialogoDeCondiciones& dialogo, const std::string& texto) {
    dialogo.Condicional = texto;
    if (dialogo.seleccion < 0) return;
    std::string& guardado = editor.especificacion.TablaCondiciones[dialogo.seleccion].texto;
    if (guardado == texto) return;
    guardado = texto;
    editor.HayCambios = true;
}

char FiltrarTeclaDeCondicional(Editor& editor, const DialogoDeCondiciones& dialogo, char tecla) {
    if (dialogo.seleccion >= 0) return FiltrarTecla("Condicional", tecla);
    editor.vista.Advertir(Componer(editor.textos, {358}));
    return teclaDescartada;
}

}  // namespace qor
