#include "app/rehearsal.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <set>
#include <utility>

#include "app/practice_file.h"
#include "app/refusal_view.h"
#include "app/rehearsal_course.h"
#include "app/rehearsal_failed.h"
#include "app/rehearsal_place.h"
#include "app/rehearsal_profile.h"
#include "app/rehearsal_sends.h"
#include "app/rehearsal_view.h"
#include "app/repetition.h"
#include "base/code_page.h"
#include "base/failure.h"
#include "base/failure_reason.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "generator/analysis.h"
#include "generator/generate.h"
#include "practice/error_table_use.h"
#include "practice/explanation.h"
#include "practice/run.h"
#include "practice/session_transfer.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

// A view that keeps what it warns of, for who asks later why there is no report.
class VistaQueApunta : public VistaDeRechazo {
public:
    VistaQueApunta(Vista& vista, std::vector<Frase>& avisos) : VistaDeRechazo(vista), avisos_(avisos) {}

    void Mostrar(const qor::Mensaje& mensaje, Icono icono) override {
        if (icono == Icono::Advertencia) {
            avisos_.push_back(ConMotivo(mensaje));
        }
        VistaDeRechazo::Mostrar(mensaje, icono);
    }

private:
    static Frase ConMotivo(const qor::Mensaje& mensaje) {
        if (mensaje.detalle.empty() || !mensaje.fallo) return mensaje.texto;
        return Frase("%1 %2: %3", {mensaje.texto, FraseDeMotivo(DesdeUtf8ConFaltas(mensaje.fallo->motivo)),
                                   DesdeUtf8ConFaltas(mensaje.fallo->ruta.string())});
    }

    std::vector<Frase>& avisos_;
};

}  // namespace

struct Ensayo::Interior {
    Interior(const PedidoDeGeneracion& generacion, PedidoDeEnsayo suyo);

    void Generar(const PedidoDeGeneracion& generacion);
    OpcionesDeSistema LasOpciones();
    void Empezar(abap::Ejecucion& ejecucion);
    void Terminar(abap::Ejecucion& ejecucion);
    // The queue of the rehearsal's system. A system in a file is opened for as long as that takes.
    template <class Hacer>
    void ConSesiones(Hacer hacer);

    Especificacion especificacion;
    Opciones opciones;
    Preferencias preferencias;
    ConvencionesDeNombres nombres;
    PedidoDeEnsayo pedido;
    DisenoDeEntrada diseno;
    OrigenesDelReporte origenes{{}};
    ResultadoDeEnsayo resultado;

    std::optional<Explicaciones> explicaciones;
    std::optional<NotasDeEnsayo> notas;
    std::optional<PerfilDeEnsayo> perfil;
    std::optional<VistaDeEnsayo> vista;
    std::optional<CursoDeEnsayo> curso;
    std::optional<SistemaDePractica> sistema;
    std::optional<Repeticion> repeticion;
    bool deErrores = false;          // the records are those of an earlier run, read back from the error table
    std::vector<fs::path> entradas;  // the files that were read
    std::vector<std::optional<IdentidadDeArchivo>> identidades;
    std::int64_t sesionesDeAntes = 0;  // the number of the last one
};

Ensayo::Interior::Interior(const PedidoDeGeneracion& generacion, PedidoDeEnsayo suyo)
    : especificacion(generacion.especificacion),
      opciones(generacion.opciones),
      preferencias(generacion.preferencias),
      nombres(SetearConvencionesDeNombres(preferencias)),
      pedido(std::move(suyo)),
      diseno(especificacion, opciones) {
    Generar(generacion);
}

void Ensayo::Interior::Generar(const PedidoDeGeneracion& generacion) {
    VistaQueApunta vistaDeGeneracion(generacion.vista, resultado.porQueNo);
    const PedidoDeGeneracion propio{especificacion,
                                    opciones,
                                    preferencias,
                                    generacion.textos,
                                    vistaDeGeneracion,
                                    generacion.RutaDocumento,
                                    generacion.NombreDocumento};
    auto generado = ComponerReporte(propio);
    if (!generado) {
        if (resultado.porQueNo.empty()) resultado.porQueNo.emplace_back("No report was generated.");
        return;
    }
    resultado.porQueNo.clear();
    resultado.reporte = std::move(generado->texto);
    origenes = OrigenesDelReporte(std::move(generado->origenes));
}

OpcionesDeSistema Ensayo::Interior::LasOpciones() {
    auto suyas = pedido.sistema;
    for (std::size_t i = 0; i < pedido.archivos.size() && i < diseno.Archivos().size(); ++i) {
        if (pedido.archivos[i].empty()) continue;
        const auto nombre = explicaciones->VariableDeArchivo(diseno.Archivos()[i].clases.front(), nombres);
        suyas.archivos.push_back({nombre, pedido.archivos[i]});
    }
    if (suyas.bapis.empty()) {
        for (int i = 0; i < especificacion.FilasBAPIs(); ++i)
            suyas.bapis.push_back(especificacion.TablaBAPIs[static_cast<std::size_t>(i)].nombre);
    }
    if (const auto propio = suyas.carpeta / nombreDeDiccionario; !suyas.carpeta.empty()) {
        auto& propios = suyas.diccionariosPropios;
        if (std::find(propios.begin(), propios.end(), propio) == propios.end()) propios.push_back(propio);
    }
    suyas.guardaSesiones = true;
    return suyas;
}

void Ensayo::Interior::Empezar(abap::Ejecucion& ejecucion) {
    notas->EmpezarDiario();
    curso->Empezar();
    ejecucion.PonerPerfil(&*perfil);
    deErrores = repeticion->EsRepeticion(ejecucion);
    explicaciones->EsRepeticion(deErrores);
    for (const auto& archivo : diseno.Archivos()) {
        const auto variable = ejecucion.BuscarVariable(explicaciones->VariableDeArchivo(archivo.clases.front(), nombres));
        const auto ruta = variable.datos == nullptr ? std::nullopt : sistema->NombresDeLosArchivos().ParaLeer(variable.Texto());
        entradas.push_back(ruta.value_or(fs::path()));
        std::error_code error;
        identidades.push_back(fs::exists(entradas.back(), error) ? Identidad(entradas.back()) : std::nullopt);
    }
    explicaciones->PonerArchivos([this](int grupo) {
        const auto lugar = static_cast<std::size_t>(diseno.ArchivoUnico() ? 0 : grupo);
        return lugar < entradas.size() ? entradas[lugar].string() : std::string();
    });
}

void Ensayo::Interior::Terminar(abap::Ejecucion& ejecucion) {
    curso->Terminar(ejecucion.FilasPrincipales());
    resultado.registros = std::move(curso->Estados());
    resultado.condiciones = perfil->Condiciones();
    resultado.pares = perfil->Pares();
    resultado.detenido = curso->Parado();
    if (const auto cortado = curso->Cortado(); cortado > 0 && resultado.fallos.size() < maximoDeFallos) {
        const Frase motivo = curso->MotivoDelCorte();
        resultado.fallos.push_back({cortado, {"record %1: %2", {std::to_string(cortado), motivo}}, motivo, {}, {}, {}});
    }
}

template <class Hacer>
void Ensayo::Interior::ConSesiones(Hacer hacer) {
    const auto con = [&](ColaDePractica& cola) {
        std::vector<EntradaDeCola> propias;
        for (auto& entrada : cola.Entradas()) {
            if (entrada.numero > sesionesDeAntes) propias.push_back(std::move(entrada));
        }
        hacer(cola, propias);
    };
    if (!resultado.empezado) throw FalloDeEjecucion("the rehearsal has not run");
    if (sistema) return con(sistema->Cola());
    BaseDePractica base(pedido.sistema.archivo, Acceso::Leer);
    ColaDePractica cola(base, MomentoActual());
    con(cola);
}

Ensayo::Ensayo(const PedidoDeGeneracion& generacion, PedidoDeEnsayo pedido)
    : interior_(std::make_unique<Interior>(generacion, std::move(pedido))) {}

Ensayo::~Ensayo() = default;

void Ensayo::Correr() {
    auto& yo = *interior_;
    if (yo.resultado.reporte.empty()) return;
    try {
        yo.explicaciones.emplace(&yo.especificacion, &yo.opciones, TextoDeRuta(yo.pedido.sistema.valores));
        yo.notas.emplace();
        yo.perfil.emplace(yo.especificacion, yo.nombres, yo.origenes, yo.resultado.reporte, *yo.notas);
        yo.vista.emplace(yo.resultado, *yo.explicaciones, yo.origenes);
        yo.curso.emplace(*yo.vista, yo.pedido, *yo.notas);
        yo.repeticion.emplace(BuscarTablaDeErrores(yo.resultado.reporte).value_or(UsoDeTablaDeErrores()).nombre, yo.nombres);
        const auto opciones = yo.LasOpciones();
        yo.sistema.emplace(opciones, *yo.curso, *yo.curso);
        for (const auto& sesion : yo.sistema->Cola().Entradas()) yo.sesionesDeAntes = std::max(yo.sesionesDeAntes, sesion.numero);
        yo.vista->AlEmpezar([&yo](abap::Ejecucion& ejecucion) { yo.Empezar(ejecucion); });
        yo.vista->AlTerminar([&yo](abap::Ejecucion& ejecucion) { yo.Terminar(ejecucion); });
        yo.vista->AlAvanzar([this](const CuentaDeCorrida& cuenta) {
            empezados_ = cuenta.registros;
            fallados_ = cuenta.fallados;
            return parar_.load();
        });
        PedidoDeCorrida pedido;
        pedido.reporte = yo.resultado.reporte;
        pedido.archivos = opciones.archivos;
        pedido.parametros = {yo.pedido.parametros.begin(), yo.pedido.parametros.end()};
        pedido.diario = yo.notas->Diario();
        pedido.todosLosRegistros = yo.pedido.tramo.Todos();
        pedido.origen = [&yo](int linea) { return yo.origenes.De(linea); };
        qor::Correr(pedido, *yo.sistema, *yo.curso, *yo.vista, *yo.vista);
    } catch (const ParametroImposible& imposible) {
        yo.resultado.porQueNo.emplace_back(std::string(imposible.what()));
    } catch (const FalloDeEjecucion& fallo) {
        if (yo.vista)
            static_cast<VistaDeCorrida&>(*yo.vista).Falla(fallo);
        else
            yo.resultado.porQueNo.push_back(FraseDeFallo(fallo));
    }
    empezados_ = yo.resultado.cuenta.registros;
    fallados_ = yo.resultado.cuenta.fallados;
    // A system in a file is free again.
    if (!yo.pedido.sistema.archivo.empty()) yo.sistema.reset();
}

const ResultadoDeEnsayo& Ensayo::Resultado() const { return interior_->resultado; }

std::vector<Envio> Ensayo::EnviosDe(std::size_t registro) const {
    const auto& yo = *interior_;
    std::vector<Envio> envios;
    if (!yo.resultado.empezado) return envios;
    const FilasDeEnsayo filas(yo.especificacion, yo.origenes, yo.diseno.HayArchivo() && !yo.deErrores);
    const bool conManejoDeErrores = Analizar(yo.especificacion, yo.opciones).ManejoErrores;
    for (const auto& notas : yo.notas->De(registro)) {
        auto suyos = LectorDeEnvios(filas, conManejoDeErrores).Leer(registro, notas);
        std::move(suyos.begin(), suyos.end(), std::back_inserter(envios));
    }
    return envios;
}

std::optional<LugarDeEntrada> Ensayo::EntradaDe(int grupo, std::size_t numero, std::string_view campo) const {
    const auto& yo = *interior_;
    if (!yo.resultado.empezado || yo.deErrores || !yo.diseno.HayArchivo() || numero == 0) return std::nullopt;
    const auto& clases = yo.diseno.Clases();
    const auto clase = std::find_if(clases.begin(), clases.end(), [&](const auto& una) { return una.grupo == grupo; });
    if (clase == clases.end()) return std::nullopt;
    const auto archivo = static_cast<std::size_t>(yo.diseno.ArchivoUnico() ? 0 : grupo);
    const auto lugar = static_cast<int>(clase - clases.begin());
    LugarDeEntrada entrada{grupo, LineaDeRegistro(yo.diseno, lugar, numero, yo.entradas.at(archivo)), -1};
    if (entrada.linea == 0) return std::nullopt;
    const auto suyo =
        std::find_if(clase->campos.begin(), clase->campos.end(), [&](const auto& uno) { return uno.nombre == campo; });
    if (suyo != clase->campos.end()) entrada.fila = suyo->fila;
    return entrada;
}

void Ensayo::ExportarDiario(const fs::path& archivo) const {
    if (!interior_->resultado.empezado) throw FalloDeEjecucion("the rehearsal has not run");
    ArchivoNuevo nuevo(archivo);
    interior_->notas->CadaTrozoDelDiario([&](std::string_view trozo) { nuevo.Escribir(trozo); });
    nuevo.PonerEnSuLugar();
}

std::vector<fs::path> Ensayo::ExportarFallados(const fs::path& archivo) const {
    const auto& yo = *interior_;
    if (!yo.resultado.empezado) throw FalloDeEjecucion("the rehearsal has not run");
    if (!yo.diseno.HayArchivo()) throw FalloDeEjecucion("the records do not come from files");
    if (yo.deErrores) throw FalloDeEjecucion("the records come from the error table");
    for (std::size_t i = 0; i < yo.entradas.size(); ++i) {
        if (!yo.identidades[i] || Identidad(yo.entradas[i]) != yo.identidades[i])
            throw FalloDeArchivo(CausaDeFallo::Cambiado, yo.entradas[i]);
    }
    const auto& registros = yo.resultado.registros;
    RegistrosFallados fallados;
    fallados.es = [&](std::size_t registro) {
        return registro <= registros.size() && registros[registro - 1] == EstadoDeRegistro::Fallado;
    };
    fallados.lineas.resize(yo.diseno.Clases().size());
    for (std::size_t registro = 1; registro <= registros.size(); ++registro) {
        if (!fallados.es(registro)) continue;
        for (const auto& pasos : yo.notas->PasosDe(registro)) {
            for (const auto& leido : LeerPasos(pasos)) {
                if (leido.paso.clase == Paso::Clase::Linea && leido.paso.numero < fallados.lineas.size())
                    fallados.lineas[leido.paso.numero].insert(leido.paso.linea);
            }
        }
    }
    return EscribirFallados(yo.diseno, yo.entradas, fallados, archivo);
}

std::vector<fs::path> Ensayo::ArchivosDeFallados(const fs::path& archivo) const {
    return qor::ArchivosDeFallados(interior_->diseno, archivo);
}

std::vector<std::string> Ensayo::Sesiones() const {
    std::vector<std::string> nombres;
    if (!interior_->resultado.empezado) return nombres;
    interior_->ConSesiones([&](ColaDePractica&, const std::vector<EntradaDeCola>& propias) {
        for (const auto& sesion : propias) nombres.push_back(sesion.grupo);
    });
    return nombres;
}

void Ensayo::ExportarSesion(std::size_t sesion, const fs::path& archivo) const {
    interior_->ConSesiones([&](ColaDePractica& cola, const std::vector<EntradaDeCola>& propias) {
        if (sesion >= propias.size()) throw FalloDeEjecucion("there is no such session");
        qor::ExportarSesion(cola, propias[sesion], archivo);
    });
}

}  // namespace qor
