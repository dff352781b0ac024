#include "generator/generate.h"

#include <filesystem>
#include <utility>

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

Chequeo ParaChequear(const Generacion& g) { return {g.especificacion, g.opciones, g.analisis, g.textos, g.oyente}; }

// True when the run may go on all the same.
bool RechazarEnControl(const Chequeo& c, const char* control, int mensaje) {
    c.oyente.Recibir({Componer(c.textos, {mensaje}), Lugar::EnOpcion(control), Icono::Advertencia, false, control});
    return c.oyente.Sigue();
}

void Informar(const Chequeo& c, const char* opcion, int mensaje) {
    c.oyente.Recibir({Componer(c.textos, {mensaje}), Lugar::EnOpcion(opcion), Icono::Informacion});
}

bool ChequearManejoDeErrores(const Chequeo& c) {
    const auto& o = c.opciones;
    if (o.ErrorHandlingCheck == 1 && !c.analisis.ManejoErrores) Informar(c, "ErrorHandlingCheck", 391);
    if (!c.analisis.ManejoErrores) return true;
    if (EstaEnBlanco(o.TablaZ) && !RechazarEnControl(c, "TablaZ", 392)) return false;
    return !EstaEnBlanco(o.ProgID) || RechazarEnControl(c, "ProgID", 402);
}

// What follows from the specification before anything is asked about it.
void AnalizarForma(Generacion& g) {
    g.nombres = SetearConvencionesDeNombres(g.preferencias);
    g.analisis = Analizar(g.especificacion, g.opciones);
}

bool ChequearClavesYOpciones(Generacion& g) {
    const Chequeo c = ParaChequear(g);
    if (g.analisis.ArchivoUnico && !ChequearIdentificadores(c)) return false;
    AnalizarClaves(g.analisis, g.especificacion);
    if (ExistenStepsInvalidos(c) || ExistenCamposNoDefinidos(c)) return false;
    const bool mezcla = g.analisis.operaciones.HayBAPI && g.analisis.operaciones.HayTransaccion;
    if (g.opciones.CallTransaction == 0 && mezcla) Informar(c, "CallTransaction", 390);
    if (g.opciones.CommitCheck == 1 && mezcla) Informar(c, "CommitCheck", 400);
    return ChequearManejoDeErrores(c);
}

// The checks that run before the pointer is busy; a failure in them is no failure of the report.
bool ChequearForma(Generacion& g, const PedidoDeGeneracion& pedido) {
    if (!TablasOK(g.especificacion, g.textos, pedido.vista)) return false;
    AnalizarForma(g);
    if (pedido.sistema != nullptr && FaltaAnchoCampos(g.especificacion) &&
        pedido.vista.Preguntar(Componer(g.textos, {246}), Botones::SiNo) == Respuesta::Si) {
        pedido.sistema->ObtenerAnchos();
    }
    if (!ChequearClavesYOpciones(g)) return false;
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
        c.oyente.Recibir({deTabla ? Componer(c.textos, {305, " ", campo, "]."}) : Componer(c.textos, {306, " ", campo, 307}),
                          Lugar::EnPrograma(r, 4)});
        if (!c.oyente.Sigue()) return false;
    }
    return true;
}

bool ChequearContenido(const Chequeo& c) {
    const auto cabeza = Recortar(c.especificacion.TablaTransaccion[0].programa);
    if (cabeza != "TRANS" && cabeza != "BAPI") {
        c.oyente.Recibir({Componer(c.textos, {302}), Lugar::EnPrograma(0, 0)});
        if (!c.oyente.Sigue()) return false;
    }
    return ChequearOrigen(c) && ChequearArchivosCampos(c) && ChequearNombresDeStepLoops(c) && ChequearValores(c);
}

// Writes one section. A failure in it ends the run, unless the listener lets that go on: then it is told, with the place that was
// being written.
void EscribirSeccion(Generacion& g, void (*seccion)(Generacion&)) {
    try {
        seccion(g);
    } catch (const FalloDeEjecucion& fallo) {
        if (!g.oyente.Sigue()) throw;
        g.reporte.OlvidarMemoria();
        g.oyente.Recibir({{{326}, fallo.what()}, g.reporte.LugarActual()});
    }
}

// The table of contents of the report.
void EscribirSecciones(Generacion& g) {
    EscribirSeccion(g, EscribirTitulos);
    EscribirSeccion(g, EscribirDeclaraciones);
    EscribirSeccion(g, EscribirPantallaDeSeleccion);
    EscribirSeccion(g, EscribirFlujoPrincipal);
    if (g.analisis.operaciones.HayTransaccion) EscribirSeccion(g, EscribirInsertData);
    EscribirSeccion(g, EscribirOperaciones);
    if (g.analisis.ManejoErrores) EscribirSeccion(g, EscribirInsertDataErrors);
    if (g.analisis.operaciones.HayTransaccion) EscribirSeccion(g, EscribirDynpro);
    EscribirSeccion(g, EscribirCondCheck);
    if (g.analisis.operaciones.HayTransaccion && g.analisis.HayJuegoDatos) EscribirSeccion(g, EscribirOpenGroup);
    if (g.analisis.HayConversiones) EscribirSeccion(g, EscribirConversions);
    if (g.analisis.HayConversionesStep) EscribirSeccion(g, EscribirTabConversions);
    EscribirSeccion(g, EscribirReadFile);
    EscribirSeccion(g, EscribirStepLoops);
    if (g.especificacion.OrigenUsuario) EscribirSeccion(g, EscribirUserForm);
    if (g.analisis.ManejoErrores) EscribirSeccion(g, EscribirAddStructures);
}

void EscribirReporte(Generacion& g) {
    g.valores.FechaCreacion = FechaYHora(HoraActual());
    DefinirNombres(g);
    EscribirSecciones(g);
}

// Writes the report, as far as it comes, in the place of the output file, and answers which file that is now.
IdentidadDeArchivo EscribirArchivo(Generacion& g, const std::filesystem::path& ruta) {
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
    return archivo.Identidad();
}

// A message about the written file, which the user of a desktop is told where to find.
Mensaje ConSalida(Mensaje mensaje, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    if (!pedido.directorioDelDocumento) return mensaje;
    mensaje = SobreArchivo(std::move(mensaje), estado.UltimoPrograma);
    if (!estado.ProgramaTemporal) mensaje.escrito = estado.UltimoPrograma;
    return mensaje;
}

// Message 324; it names the file where no message before it has.
Mensaje PreguntaPorElEditor(const Generacion& g, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    Mensaje pregunta = Componer(g.textos, {324});
    return g.analisis.ManejoErrores ? ConSalida(std::move(pregunta), pedido, estado) : pregunta;
}

void MostrarExito(const Generacion& g, const PedidoDeGeneracion& pedido, const EstadoDelGenerador& estado) {
    Vista& vista = pedido.vista;
    vista.MostrarFila(Tabla::Archivo, 0);
    vista.MostrarFila(Tabla::Transaccion, 0);
    if (g.analisis.ManejoErrores) {
        vista.MostrarTexto(TextoDeTablaZ(g));
    } else {
        vista.Informar(ConSalida(Componer(g.textos, {323}), pedido, estado));
    }
    if (vista.OfreceEditor() && vista.Preguntar(PreguntaPorElEditor(g, pedido, estado), Botones::SiNo) == Respuesta::Si &&
        !vista.AbrirEditor(estado.UltimoPrograma)) {
        vista.Advertir(ConSalida(Componer(g.textos, {325}), pedido, estado));
    }
    if (pedido.sistema != nullptr) pedido.sistema->OfrecerPublicacion(estado.UltimoPrograma);
}

// Runs `accion` under the failure trap of the generator: message 326, or the message of a stop.
template <typename Accion>
bool ConTrampaDeGeneracion(const Generacion& g, Vista& vista, Accion accion) {
    try {
        const ConPunteroOcupado puntero(vista);
        return accion();
    } catch (const ParadaDeGeneracion& parada) {
        g.oyente.Recibir(parada.observacion);
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(ConDetalle(Componer(g.textos, {326}), fallo));
    }
    return false;
}

// The checks of the first part, before which comes that nothing in the specification can turn into a statement.
bool ChequearFormaSinFallo(Generacion& g, const PedidoDeGeneracion& pedido) {
    if (!SinCaracteresDeControl(g.especificacion, g.opciones, pedido.vista)) return false;
    try {
        return ChequearForma(g, pedido);
    } catch (const FalloDeEjecucion& fallo) {
        pedido.vista.Advertir(MensajeLiteral(std::string("The specification can't be worked with: ") + fallo.what() + "."));
        return false;
    }
}

// Both parts of the checks, then `accion` under the trap that is set since the second.
template <typename Accion>
bool TrasLosChequeos(Generacion& g, const PedidoDeGeneracion& pedido, Accion accion) {
    return ChequearFormaSinFallo(g, pedido) &&
           ConTrampaDeGeneracion(g, pedido.vista, [&] { return ChequearContenido(ParaChequear(g)) && accion(); });
}

ReporteGenerado Tomar(Reporte& reporte) { return {reporte.TomarTexto(), reporte.Origenes()}; }

}  // namespace

std::optional<ReporteGenerado> Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado) {
    OyenteDeVista oyente(pedido.vista);
    Generacion g = NuevaGeneracion(pedido, oyente);
    const bool escrito = TrasLosChequeos(g, pedido, [&] {
        if (!ElegirSalida(pedido, estado)) return false;
        const auto identidad = EscribirArchivo(g, estado.UltimoPrograma);
        if (pedido.reporte != nullptr) *pedido.reporte = {estado.UltimoPrograma, identidad};
        return true;
    });
    if (!escrito) return std::nullopt;
    MostrarExito(g, pedido, estado);
    return Tomar(g.reporte);
}

bool ChequearEspecificacion(const PedidoDeGeneracion& pedido) {
    OyenteDeVista oyente(pedido.vista);
    Generacion g = NuevaGeneracion(pedido, oyente);
    return TrasLosChequeos(g, pedido, [&] { return ChequearNombreDeSalida(pedido); });
}

std::optional<ReporteGenerado> ComponerReporte(const PedidoDeGeneracion& pedido) {
    OyenteDeVista oyente(pedido.vista);
    Generacion g = NuevaGeneracion(pedido, oyente);
    const bool compuesto = TrasLosChequeos(g, pedido, [&] {
        EscribirReporte(g);
        return true;
    });
    if (!compuesto) return std::nullopt;
    return Tomar(g.reporte);
}

void ComponerTodo(Generacion& g) {
    AnalizarForma(g);
    ChequearClavesYOpciones(g);
    ChequearContenido(ParaChequear(g));
    EscribirReporte(g);
}

}  // namespace qor
