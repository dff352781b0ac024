#include "generator/generate.h"

#include <filesystem>

#include "base/busy_pointer.h"
#include "base/clock.h"
#include "base/failure.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/checks.h"
#include "generator/sections.h"
#include "model/cells.h"
#include "model/gaps.h"

namespace qor {

namespace {

bool RechazarEnControl(const Generacion& g, const char* control, int mensaje) {
    g.vista.Enfocar(control);
    g.vista.Advertir(Componer(g.textos, {mensaje}));
    return false;
}

bool PrepararManejoDeErrores(Generacion& g, Opciones& opciones) {
    const bool sinLlamadas = opciones.CallTransaction == 0 && !g.operaciones.HayBAPI;
    if (opciones.ErrorHandlingCheck == 1 && sinLlamadas) g.vista.Informar(Componer(g.textos, {391}));
    g.valores.ManejoErrores = opciones.ErrorHandlingCheck == 1 && !sinLlamadas;
    if (g.valores.ManejoErrores) {
        if (EstaEnBlanco(opciones.TablaZ)) return RechazarEnControl(g, "TablaZ", 392);
        if (EstaEnBlanco(opciones.ProgID)) return RechazarEnControl(g, "ProgID", 402);
    }
    opciones.TablaZ = std::string(Recortar(opciones.TablaZ));
    return true;
}

// The checks that run before the pointer is busy; a failure in them is no failure of the report.
bool ChequearForma(Generacion& g, const PedidoDeGeneracion& pedido) {
    if (!TablasOK(g.especificacion, g.textos, g.vista)) return false;
    g.nombres = SetearConvencionesDeNombres(g.preferencias);
    g.operaciones = ActualizarOperaciones(g.especificacion, 0);
    if (pedido.sistema != nullptr && FaltaAnchoCampos(g.especificacion) &&
        g.vista.Preguntar(Componer(g.textos, {246}), Botones::SiNo) == Respuesta::Si) {
        pedido.sistema->ObtenerAnchos();
    }
    g.valores.ArchivoUnico = CalcularArchivoUnico(g.especificacion, g.opciones, g.operaciones);
    if (g.valores.ArchivoUnico && !ChequearIdentificadores(g)) return false;
    if (ExistenStepsInvalidos(g)) return false;
    if (ExistenCamposNoDefinidos(g)) return false;
    const bool mezcla = g.operaciones.HayBAPI && g.operaciones.HayTransaccion;
    if (g.opciones.CallTransaction == 0 && mezcla) g.vista.Informar(Componer(g.textos, {390}));
    if (g.opciones.CommitCheck == 1 && mezcla) g.vista.Informar(Componer(g.textos, {400}));
    if (!PrepararManejoDeErrores(g, pedido.opciones)) return false;
    g.valores.HayJuegoDatos = g.operaciones.HayTransaccion && ((g.opciones.CallTransaction == 0 && !g.operaciones.HayBAPI) ||
                                                               (g.PorLlamada() && g.opciones.SafeCallTransactionCheck == 1));
    ChequearConversiones(g);
    return true;
}

bool ChequearOrigen(const Generacion& g) {
    if (!EstaEnBlanco(g.opciones.ArchivoFuente) || g.especificacion.OrigenUsuario) return true;
    if (g.opciones.EntradaDeTabla()) return RechazarEnControl(g, "ArchivoFuente", 303);
    if (g.opciones.FileParameterCh != 1) return RechazarEnControl(g, "ArchivoFuente", 304);
    return true;
}

// Step-loops whose files are neither parameters nor named.
bool ChequearNombresDeStepLoops(const Generacion& g) {
    const bool deTabla = g.opciones.EntradaDeTabla();
    const bool hacenFalta = g.opciones.FileParameterCh != 1 || deTabla;
    if (!hacenFalta || g.especificacion.OrigenUsuario || g.valores.ArchivoUnico) return true;
    for (const int r : CabezasStepLoop(g.especificacion)) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        if (!EstaEnBlanco(ValorDeMarca(fila.nota, 2))) continue;
        const auto campo = Recortar(fila.campo);
        g.vista.Advertir(deTabla ? Componer(g.textos, {305, " ", campo, "]."}) : Componer(g.textos, {306, " ", campo, 307}));
        return false;
    }
    return true;
}

bool ChequearContenido(Generacion& g) {
    const auto cabeza = Recortar(g.especificacion.TablaTransaccion[0].programa);
    if (cabeza != "TRANS" && cabeza != "BAPI") {
        g.vista.Advertir(Componer(g.textos, {302}));
        return false;
    }
    return ChequearOrigen(g) && ChequearArchivosCampos(g) && ChequearNombresDeStepLoops(g) && ChequearValores(g);
}

bool ChequearNombreDeSalida(const Generacion& g) {
    if (EstaEnBlanco(g.opciones.Programa)) return RechazarEnControl(g, "Programa", 301);
    return true;
}

void BorrarTemporal(EstadoDelGenerador& estado) {
    if (!estado.ProgramaTemporal) return;
    std::error_code ignorado;
    std::filesystem::remove(RutaDelSistema(estado.UltimoPrograma), ignorado);
}

bool ElegirSalida(const Generacion& g, const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado) {
    std::string salida;
    if (pedido.sistema == nullptr) {
        if (!ChequearNombreDeSalida(g)) return false;
        salida = g.opciones.Programa;
        std::error_code ignorado;
        const auto ruta = RutaDelSistema(salida);
        const bool existe = Existe(ruta) && !std::filesystem::is_directory(ruta, ignorado);
        if (existe && g.vista.Preguntar(Componer(g.textos, {337}), Botones::AceptarCancelar) != Respuesta::Aceptar) {
            g.vista.Enfocar("Programa");
            return false;
        }
    } else {
        salida = pedido.sistema->ArchivoTemporal();
    }
    BorrarTemporal(estado);
    estado.UltimoPrograma = salida;
    estado.ProgramaTemporal = pedido.sistema != nullptr;
    return true;
}

// The table of contents of the report.
void EscribirReporte(Generacion& g) {
    EscribirTitulos(g);
    EscribirDeclaraciones(g);
    EscribirPantallaDeSeleccion(g);
    EscribirFlujoPrincipal(g);
    if (g.operaciones.HayTransaccion) EscribirInsertData(g);
    EscribirOperaciones(g);
    if (g.valores.ManejoErrores) EscribirInsertDataErrors(g);
    if (g.operaciones.HayTransaccion) EscribirDynpro(g);
    EscribirCondCheck(g);
    if (g.operaciones.HayTransaccion && g.valores.HayJuegoDatos) EscribirOpenGroup(g);
    if (g.valores.HayConversiones) EscribirConversions(g);
    if (g.valores.HayConversionesStep) EscribirTabConversions(g);
    EscribirReadFile(g);
    EscribirStepLoops(g);
    if (g.especificacion.OrigenUsuario) EscribirUserForm(g);
    if (g.valores.ManejoErrores) EscribirAddStructures(g);
}

// Writes the report, as far as it comes, in the place of the output file.
void EscribirArchivo(Generacion& g, const std::string& ruta) {
    ArchivoNuevo archivo(RutaDelSistema(ruta));
    g.valores.FechaCreacion = FechaYHora(HoraActual());
    DefinirNombres(g);
    try {
        EscribirReporte(g);
    } catch (...) {
        archivo.Escribir(g.reporte.Texto());
        archivo.PonerLoHecho();
        throw;
    }
    archivo.Escribir(g.reporte.Texto());
    archivo.PonerEnSuLugar();
}

void MostrarExito(const Generacion& g, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    g.vista.MostrarFila(Tabla::Archivo, 0);
    g.vista.MostrarFila(Tabla::Transaccion, 0);
    if (g.valores.ManejoErrores) {
        g.vista.MostrarTexto(TextoDeTablaZ(g));
    } else {
        g.vista.Informar(Componer(g.textos, {323}));
    }
    if (g.vista.OfreceEditor() && g.vista.Preguntar(Componer(g.textos, {324}), Botones::SiNo) == Respuesta::Si &&
        !g.vista.AbrirEditor(estado.UltimoPrograma)) {
        g.vista.Advertir(Componer(g.textos, {325}));
    }
    if (pedido.sistema != nullptr) pedido.sistema->OfrecerPublicacion(estado.UltimoPrograma);
}

// Runs `accion` under the failure trap of the generator: message 326, or the message of a stop.
template <typename Accion>
bool ConTrampa(const Generacion& g, Accion accion) {
    try {
        const ConPunteroOcupado puntero(g.vista);
        return accion();
    } catch (const ParadaDeGeneracion& parada) {
        if (parada.lugar) {
            g.vista.MostrarFila(parada.lugar->tabla, parada.lugar->fila);
            if (parada.lugar->tabla == Tabla::Transaccion) g.vista.Enfocar("Text5_0");
        }
        g.vista.Advertir(parada.mensaje);
    } catch (const FalloDeEjecucion& fallo) {
        g.vista.Advertir(ConDetalle(Componer(g.textos, {326}), fallo));
    }
    return false;
}

bool ChequearFormaSinFallo(Generacion& g, const PedidoDeGeneracion& pedido) {
    try {
        return ChequearForma(g, pedido);
    } catch (const FalloDeEjecucion& fallo) {
        g.vista.Advertir(MensajeLiteral(std::string("The specification can't be worked with: ") + fallo.what() + "."));
        return false;
    }
}

}  // namespace

bool Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado) {
    Generacion g = NuevaGeneracion(pedido);
    if (!ChequearFormaSinFallo(g, pedido)) return false;
    const bool escrito = ConTrampa(g, [&] {
        if (!ChequearContenido(g) || !ElegirSalida(g, pedido, estado)) return false;
        EscribirArchivo(g, estado.UltimoPrograma);
        return true;
    });
    if (escrito) MostrarExito(g, pedido, estado);
    return escrito;
}

bool ChequearEspecificacion(const PedidoDeGeneracion& pedido) {
    Generacion g = NuevaGeneracion(pedido);
    return ChequearFormaSinFallo(g, pedido) && ConTrampa(g, [&] { return ChequearContenido(g) && ChequearNombreDeSalida(g); });
}

}  // namespace qor
