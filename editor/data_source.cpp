#include "editor/data_source.h"

#include "base/failure.h"

namespace qor {

namespace {

PedidoDeGeneracion PedidoDe(Ventana& ventana, const Preferencias& preferencias) {
    return PedidoDeGeneracion::De(ventana.documento, preferencias, ventana.textos, ventana.vista);
}

// Nothing is told, and every question is left open.
class VistaCallada : public VistaSinPantalla {
public:
    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override {}
    Respuesta Preguntar(const Mensaje& /*mensaje*/, Botones /*botones*/) override { return Respuesta::Cancelar; }
};

void ConCambios(Ventana& ventana, bool hecho) {
    if (hecho) ventana.documento.Cambiar();
}

}  // namespace

std::optional<DialogoDeOrigen> AbrirOrigen(Ventana& ventana, const Preferencias& preferencias) {
    // The declarations are those of a report with the user's own source.
    auto& documento = ventana.documento;
    Especificacion conOrigen = documento.especificacion;
    conOrigen.OrigenUsuario = true;
    DialogoDeOrigen dialogo;
    dialogo.estructuras = ImprimirEstructuras({conOrigen, documento.opciones, preferencias, ventana.textos, ventana.vista,
                                               documento.RutaDocumento(), documento.NombreDocumento()});
    if (dialogo.estructuras.texto.empty()) return std::nullopt;
    dialogo.ComboItabs = dialogo.estructuras.tablas.front();
    return dialogo;
}

void CambiarOtroOrigen(Ventana& ventana, bool encendido) {
    if (ventana.documento.especificacion.OrigenUsuario == encendido) return;
    ventana.documento.especificacion.OrigenUsuario = encendido;
    ventana.documento.Cambiar();
}

bool HabilitadoEnOrigen(const Ventana& ventana, std::string_view control) {
    return ventana.documento.especificacion.OrigenUsuario || control == "CheckOtroOrigen" || control == "OKButton" ||
           control == "Ayuda";
}

void CambiarTextoDeOrigen(Ventana& ventana, std::string Especificacion::*texto, const std::string& nuevo) {
    if (ventana.documento.especificacion.*texto == nuevo) return;
    ventana.documento.especificacion.*texto = nuevo;
    ventana.documento.Cambiar();
}

void ClicModeloArchivo(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo, FuenteDeModelo fuente) {
    ConCambios(ventana, ModeloArchivo(PedidoDe(ventana, preferencias), TextosDe(ventana.documento.especificacion),
                                      dialogo.ComboItabs, fuente));
}

void ClicModeloOpenSQL(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo) {
    ConCambios(ventana, ModeloOpenSQL(PedidoDe(ventana, preferencias), TextosDe(ventana.documento.especificacion),
                                      dialogo.ComboItabs, dialogo.estructuras.texto));
}

void ClicModeloSQLNativo(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo) {
    ConCambios(ventana, ModeloSQLNativo(PedidoDe(ventana, preferencias), TextosDe(ventana.documento.especificacion),
                                        dialogo.ComboItabs, dialogo.estructuras.texto));
}

void EliminarDeOrigen(Ventana& ventana, const std::string& eleccion) {
    const auto& especificacion = ventana.documento.especificacion;
    const auto largo = [&] {
        return especificacion.OrigenVariables.size() + especificacion.OrigenForms.size() + especificacion.OrigenSource.size();
    };
    const auto antes = largo();
    EliminarTextos(TextosDe(ventana.documento.especificacion), eleccion);
    ConCambios(ventana, largo() != antes);
}

std::string TextoDePreview(Ventana& ventana, const Preferencias& preferencias) {
    return ImprimirEstructuras(PedidoDe(ventana, preferencias)).texto;
}

std::string EstructurasDe(const Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos) {
    VistaCallada vista;
    Opciones opciones = documento.opciones;  // a run changes its own
    try {
        return ImprimirEstructuras({documento.especificacion, opciones, preferencias, textos, vista, documento.RutaDocumento(),
                                    documento.NombreDocumento()})
            .texto;
    } catch (const FalloDeEjecucion&) {
        return {};  // a document can hold what no rule of the editor lets in; the findings tell of it
    }
}

}  // namespace qor
