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
#include "model/control_characters.h"
#include "model/gaps.h"

namespace qor {

namespace {

Chequeo ParaChequear(const Generacion& g) { return {g.especificacion, g.opciones, g.analisis, g.textos, g.vista}; }

bool RechazarEnControl(const Chequeo& c, const char* control, int mensaje) {
    c.vista.Enfocar(control);
    c.vista.Advertir(Componer(c.textos, {mensaje}));
    return false;
}

bool ChequearManejoDeErrores(const Chequeo& c) {
    const auto& o = c.opciones;
    if (o.ErrorHandlingCheck == 1 && !c.analisis.ManejoErrores) c.vista.Informar(Componer(c.textos, {391}));
    if (!c.analisis.ManejoErrores) return true;
    if (EstaEnBlanco(o.TablaZ)) return RechazarEnControl(c, "TablaZ", 392);
    if (EstaEnBlanco(o.ProgID)) return RechazarEnControl(c, "ProgID", 402);
    return true;
}

// The checks that run before the pointer is busy; a failure in them is no failure of the report.
bool ChequearForma(Generacion& g, const PedidoDeGeneracion& pedido) {
    if (!TablasOK(g.especificacion, g.textos, g.vista)) return false;
    g.nombres = SetearConvencionesDeNombres(g.preferencias);
    g.analisis = Analizar(g.especificacion, g.opciones);
    if (pedido.sistema != nullptr && FaltaAnchoCampos(g.especificacion) &&
        g.vista.Preguntar(Componer(g.textos, {246}), Botones::SiNo) == Respuesta::Si) {
        pedido.sistema->ObtenerAnchos();
    }
    const Chequeo c = ParaChequear(g);
    if (g.analisis.ArchivoUnico && !ChequearIdentificadores(c)) return false;
    AnalizarClaves(g.analisis, g.especificacion);
    if (ExistenStepsInvalidos(c) || ExistenCamposNoDefinidos(c)) return false;
    const bool mezcla = g.analisis.operaciones.HayBAPI && g.analisis.operaciones.HayTransaccion;
    if (g.opciones.CallTransaction == 0 && mezcla) g.vista.Informar(Componer(g.textos, {390}));
    if (g.opciones.CommitCheck == 1 && mezcla) g.vista.Informar(Componer(g.textos, {400}));
    if (!ChequearManejoDeErrores(c)) return false;
    pedido.opciones.TablaZ = std::string(Recortar(g.opciones.TablaZ));
    return true;
}

bool ChequearOrigen(const Chequeo& c) {
    if (!EstaEnBlanco(c.opciones.ArchivoFuente) || c.especificacion.OrigenUsuario) return true;
    if (c.opciones.EntradaDeTabla()) return RechazarEnControl(c, "ArchivoFuente", 303);
    if (c.opciones.FileParameterCh != 1) return RechazarEnControl(c, "ArchivoFuente", 304);
    return true;
}

// Step-loops whose files are neither parameters nor named.
bool ChequearNombresDeStepLoops(const Chequeo& c) {
    const bool deTabla = c.opciones.EntradaDeTabla();
    const bool hacenFalta = c.opciones.FileParameterCh != 1 || deTabla;
    if (!hacenFalta || c.especificacion.OrigenUsuario || c.analisis.ArchivoUnico) return true;
    for (const int r : CabezasStepLoop(c.especificacion)) {
        const auto& fila = c.especificacion.TablaTransaccion[r];
        if (!EstaEnBlanco(ValorDeMarca(fila.nota, 2))) continue;
        const auto campo = Recortar(fila.campo);
        c.vista.Advertir(deTabla ? Componer(c.textos, {305, " ", campo, "]."}) : Componer(c.textos, {306, " ", campo, 307}));
        return false;
    }
    return true;
}

bool ChequearContenido(const Chequeo& c) {
    const auto cabeza = Recortar(c.especificacion.TablaTransaccion[0].programa);
    if (cabeza != "TRANS" && cabeza != "BAPI") {
        c.vista.Advertir(Componer(c.textos, {302}));
        return false;
    }
    return ChequearOrigen(c) && ChequearArchivosCampos(c) && ChequearNombresDeStepLoops(c) && ChequearValores(c);
}

// The table of contents of the report.
void EscribirSecciones(Generacion& g) {
    EscribirTitulos(g);
    EscribirDeclaraciones(g);
    EscribirPantallaDeSeleccion(g);
    EscribirFlujoPrincipal(g);
    if (g.analisis.operaciones.HayTransaccion) EscribirInsertData(g);
    EscribirOperaciones(g);
    if (g.analisis.ManejoErrores) EscribirInsertDataErrors(g);
    if (g.analisis.operaciones.HayTransaccion) EscribirDynpro(g);
    EscribirCondCheck(g);
    if (g.analisis.operaciones.HayTransaccion && g.analisis.HayJuegoDatos) EscribirOpenGroup(g);
    if (g.analisis.HayConversiones) EscribirConversions(g);
    if (g.analisis.HayConversionesStep) EscribirTabConversions(g);
    EscribirReadFile(g);
    EscribirStepLoops(g);
    if (g.especificacion.OrigenUsuario) EscribirUserForm(g);
    if (g.analisis.ManejoErrores) EscribirAddStructures(g);
}

void EscribirReporte(Generacion& g) {
    g.valores.FechaCreacion = FechaYHora(HoraActual());
    DefinirNombres(g);
    EscribirSecciones(g);
}

// Writes the report, as far as it comes, in the place of the output file.
void EscribirArchivo(Generacion& g, const std::filesystem::path& ruta) {
    ArchivoNuevo archivo(ruta);
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

// A message about the written file, which the user of a desktop is told where to find.
Mensaje ConSalida(Mensaje mensaje, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    if (pedido.directorioDelDocumento) mensaje.texto += "\r\n" + TextoDeRuta(estado.UltimoPrograma);
    return mensaje;
}

void MostrarExito(const Generacion& g, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    g.vista.MostrarFila(Tabla::Archivo, 0);
    g.vista.MostrarFila(Tabla::Transaccion, 0);
    if (g.analisis.ManejoErrores) {
        g.vista.MostrarTexto(TextoDeTablaZ(g));
    } else {
        g.vista.Informar(ConSalida(Componer(g.textos, {323}), pedido, estado));
    }
    if (g.vista.OfreceEditor() && g.vista.Preguntar(Componer(g.textos, {324}), Botones::SiNo) == Respuesta::Si &&
        !g.vista.AbrirEditor(estado.UltimoPrograma)) {
        g.vista.Advertir(ConSalida(Componer(g.textos, {325}), pedido, estado));
    }
    if (pedido.sistema != nullptr) pedido.sistema->OfrecerPublicacion(estado.UltimoPrograma);
}

// Runs `accion` under the failure trap of the generator: message 326, or the message of a stop.
template <typename Accion>
bool ConTrampaDeGeneracion(const Generacion& g, Accion accion) {
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

// The checks of the first part, before which comes that nothing in the specification can turn into a statement.
bool ChequearFormaSinFallo(Generacion& g, const PedidoDeGeneracion& pedido) {
    if (!SinCaracteresDeControl(g.especificacion, g.opciones, g.vista)) return false;
    try {
        return ChequearForma(g, pedido);
    } catch (const FalloDeEjecucion& fallo) {
        g.vista.Advertir(MensajeLiteral(std::string("The specification can't be worked with: ") + fallo.what() + "."));
        return false;
    }
}

// Both parts of the checks, then `accion` under the trap that is set since the second.
template <typename Accion>
bool TrasLosChequeos(Generacion& g, const PedidoDeGeneracion& pedido, Accion accion) {
    return ChequearFormaSinFallo(g, pedido) &&
           ConTrampaDeGeneracion(g, [&] { return ChequearContenido(ParaChequear(g)) && accion(); });
}

}  // namespace

bool Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado) {
    Generacion g = NuevaGeneracion(pedido);
    const bool escrito = TrasLosChequeos(g, pedido, [&] {
        if (!ElegirSalida(pedido, estado)) return false;
        EscribirArchivo(g, estado.UltimoPrograma);
        return true;
    });
    if (escrito) MostrarExito(g, pedido, estado);
    return escrito;
}

bool ChequearEspecificacion(const PedidoDeGeneracion& pedido) {
    Generacion g = NuevaGeneracion(pedido);
    return TrasLosChequeos(g, pedido, [&] { return ChequearNombreDeSalida(pedido); });
}

std::optional<std::string> ComponerReporte(const PedidoDeGeneracion& pedido) {
    Generacion g = NuevaGeneracion(pedido);
    const bool compuesto = TrasLosChequeos(g, pedido, [&] {
        EscribirReporte(g);
        return true;
    });
    if (!compuesto) return std::nullopt;
    return g.reporte.Texto();
}

}  // namespace qor
