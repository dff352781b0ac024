#include "editor/missing_fields.h"

#include <algorithm>
#include <unordered_set>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/grids.h"
#include "editor/tables_step.h"
#include "model/cells.h"

namespace qor {

namespace {

// Behind all that stands on the file side, be it a width without a name.
int FilaTrasLaUltima(const Especificacion& especificacion) {
    int fila = ultimaFila + 1;
    while (fila > 0 && especificacion.TablaArchivo[static_cast<std::size_t>(fila) - 1] == FilaDeArchivo{}) --fila;
    return fila;
}

}  // namespace

std::vector<std::string> CamposQueFaltan(const Especificacion& especificacion) {
    std::unordered_set<std::string> hay;
    for (const auto& fila : especificacion.TablaArchivo) hay.emplace(Mayusculas(Recortar(fila.campo)));
    std::vector<std::string> faltan;
    for (const auto& fila : especificacion.TablaTransaccion) {
        const std::string valor = Mayusculas(Recortar(fila.valor));
        if (valor.empty() || EsConstante(valor) || EsVariable(valor)) continue;
        const bool esNombre = valor.size() <= largoMaximoDeCampo && ReemplazarBlancos(valor) == valor;
        if (esNombre && hay.insert(valor).second) faltan.push_back(valor);
    }
    return faltan;
}

void AgregarCampos(Ventana& ventana, const std::vector<std::string>& campos) {
    if (campos.empty()) return;
    auto& especificacion = ventana.documento.especificacion;
    const int primero = FilaTrasLaUltima(especificacion);
    const int lugar = ultimaFila + 1 - primero;
    if (static_cast<int>(campos.size()) > lugar) {
        return ventana.vista.Advertir(Componer(ventana.textos, {432, " ", std::to_string(lugar), "."}));
    }
    DejarCelda(ventana);
    const int visible = std::clamp(primero - ventana.archivo.PrimeraFilaArchivo, 0, lineasArchivo - 1);
    ventana.documento.GuardarDeshacer(PasoDeTablas(ventana, {Columna::CampoDeArchivo, visible}));
    std::transform(campos.begin(), campos.end(), especificacion.TablaArchivo.begin() + primero, [](const std::string& campo) {
        return FilaDeArchivo{campo, "", "", ""};
    });
    const int fin = primero + static_cast<int>(campos.size());
    const int antes = ventana.archivo.PrimeraFilaArchivo;
    const bool aLaVista = primero >= antes && fin <= antes + lineasArchivo;
    MostrarArchivoSinFocus(ventana, aLaVista ? antes : std::max(0, std::min(primero, fin - lineasArchivo)));
    EnfocarCelda(ventana, {Columna::Ancho, primero - ventana.archivo.PrimeraFilaArchivo});
}

}  // namespace qor
