#include "editor/conditions.h"

#include <algorithm>
#include <utility>

#include "base/key_filters.h"
#include "base/text.h"

namespace qor {

namespace {

// Only rows up to 1000 are saved.
constexpr std::size_t maximoDeCondiciones = ultimaFila + 1;

bool EstaEnLista(const DialogoDeCondiciones& dialogo, std::string_view nombre) {
    const auto& lista = dialogo.ListaCondiciones;
    return std::find(lista.begin(), lista.end(), nombre) != lista.end();
}

}  // namespace

DialogoDeCondiciones AbrirCondiciones(const Ventana& ventana) {
    DialogoDeCondiciones dialogo;
    for (const auto& fila : ventana.documento.especificacion.TablaCondiciones) {
        if (fila.nombre.empty()) break;
        dialogo.ListaCondiciones.push_back(fila.nombre);
    }
    return dialogo;
}

void AgregarCondicion(Ventana& ventana, DialogoDeCondiciones& dialogo) {
    const auto cortado = Recortar(dialogo.Nuevo);
    if (cortado.empty()) return;
    if (EstaEnLista(dialogo, cortado)) {
        ventana.vista.Advertir(Componer(ventana.textos, {357}));
        return ventana.vista.Enfocar("Nuevo");
    }
    if (dialogo.ListaCondiciones.size() >= maximoDeCondiciones) {
        return ventana.vista.Advertir(MensajeLiteral("There is no room for another condition."));
    }
    const std::string nombre = Mayusculas(cortado);
    const int fila = static_cast<int>(dialogo.ListaCondiciones.size());
    ventana.documento.especificacion.TablaCondiciones[fila] = {nombre, ""};
    ventana.documento.Cambiar();
    dialogo.ListaCondiciones.push_back(nombre);
    dialogo.Nuevo.clear();
    SeleccionarCondicion(ventana, dialogo, fila);
    ventana.vista.Enfocar("Condicional");
}

void BorrarCondicion(Ventana& ventana, DialogoDeCondiciones& dialogo) {
    const int fila = std::exchange(dialogo.seleccion, -1);
    dialogo.Condicional.clear();
    if (fila < 0) return;
    auto& tabla = ventana.documento.especificacion.TablaCondiciones;
    std::move(tabla.begin() + fila + 1, tabla.end(), tabla.begin() + fila);
    tabla.back() = {};
    dialogo.ListaCondiciones.erase(dialogo.ListaCondiciones.begin() + fila);
    ventana.documento.Cambiar();
}

void SeleccionarCondicion(const Ventana& ventana, DialogoDeCondiciones& dialogo, int indice) {
    dialogo.seleccion = indice;
    dialogo.Condicional = indice < 0 ? std::string() : ventana.documento.especificacion.TablaCondiciones[indice].texto;
}

void CambiarCondicional(Ventana& ventana, DialogoDeCondiciones& dialogo, const std::string& texto) {
    dialogo.Condicional = texto;
    if (dialogo.seleccion < 0) return;
    std::string& guardado = ventana.documento.especificacion.TablaCondiciones[dialogo.seleccion].texto;
    if (guardado == texto) return;
    guardado = texto;
    ventana.documento.Cambiar();
}

char FiltrarTeclaDeCondicional(Ventana& ventana, const DialogoDeCondiciones& dialogo, char tecla) {
    if (dialogo.seleccion >= 0) return FiltrarTecla("Condicional", tecla);
    ventana.vista.Advertir(Componer(ventana.textos, {358}));
    return teclaDescartada;
}

}  // namespace qor
