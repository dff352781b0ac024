#include "editor/definitions.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int definicionesGlobales = 0;

std::string& TextoDeEntrada(Ventana& ventana, int indice) {
    auto& especificacion = ventana.documento.especificacion;
    return indice == definicionesGlobales ? especificacion.VariablesGlobales : especificacion.TablaBAPIs[indice - 1].llamada;
}

bool Confirma(Ventana& ventana, const Mensaje& pregunta) {
    return ventana.vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si;
}

void QuitarBAPI(Ventana& ventana, int fila) {
    auto& tabla = ventana.documento.especificacion.TablaBAPIs;
    std::move(tabla.begin() + fila + 1, tabla.end(), tabla.begin() + fila);
    tabla.back() = {};
    ventana.documento.Cambiar();
}

}  // namespace

DialogoDeDefiniciones AbrirDefiniciones(const Ventana& ventana) {
    const auto& especificacion = ventana.documento.especificacion;
    DialogoDeDefiniciones dialogo{{ventana.textos.Texto(163)}, definicionesGlobales, especificacion.VariablesGlobales};
    for (int r = 0; r < especificacion.FilasBAPIs(); ++r) {
        dialogo.ListaDefiniciones.push_back(ventana.textos.Texto(164) + ": " + especificacion.TablaBAPIs[r].nombre);
    }
    return dialogo;
}

void SeleccionarDefinicion(const Ventana& ventana, DialogoDeDefiniciones& dialogo, int indice) {
    const auto& especificacion = ventana.documento.especificacion;
    dialogo.seleccion = indice;
    dialogo.Vars =
        indice == definicionesGlobales ? especificacion.VariablesGlobales : especificacion.TablaBAPIs[indice - 1].llamada;
}

void CambiarVars(Ventana& ventana, DialogoDeDefiniciones& dialogo, const std::string& texto) {
    dialogo.Vars = texto;
    std::string& guardado = TextoDeEntrada(ventana, dialogo.seleccion);
    if (guardado == texto) return;
    guardado = texto;
    ventana.documento.Cambiar();
}

void Limpiar(Ventana& ventana, DialogoDeDefiniciones& dialogo) {
    if (dialogo.seleccion == definicionesGlobales) {
        if (Confirma(ventana, Componer(ventana.textos, {366}))) CambiarVars(ventana, dialogo, "");
        return;
    }
    if (!Confirma(ventana, Componer(ventana.textos, {387, "\r", 388}))) return;
    QuitarBAPI(ventana, dialogo.seleccion - 1);
    dialogo = AbrirDefiniciones(ventana);
}

}  // namespace qor
