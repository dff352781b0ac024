#include "app/findings_watch.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"

namespace qor {

namespace {

using Clase = Destino::Clase;
using Parte = Lugar::Parte;

constexpr int columnaNotaDeArchivo = 2;
constexpr int columnaConversion = 3;
constexpr int columnaNotaDePrograma = 4;
constexpr int codigoSinSalida = 110;
constexpr int milisegundosDePausa = 500;

int EnTabla(int fila) { return std::clamp(fila, 0, ultimaFila); }

bool MarcasLegibles(const std::string& nota) {
    try {
        constexpr int ultimaMarca = 7;
        ExtraerMarca(nota, 0, 1);
        for (int n = 1; n <= ultimaMarca; ++n) ValorDeMarca(nota, n);
        return true;
    } catch (const FalloDeEjecucion&) {
        return false;
    }
}

Destino EnArchivo(const Lugar& lugar, const Especificacion& especificacion) {
    const int fila = EnTabla(lugar.fila);
    Destino destino{Clase::Celda, lugar.columna == 1 ? Columna::Ancho : Columna::CampoDeArchivo, fila, {}, 0};
    if (EstaEnBlanco(especificacion.TablaArchivo[fila].campo)) return destino;
    if (lugar.columna == columnaNotaDeArchivo) destino.clase = Clase::Nota;
    if (lugar.columna == columnaConversion) {
        destino.clase = Clase::Conversion;
        destino.linea = lugar.linea;
    }
    return destino;
}

Destino EnPrograma(const Lugar& lugar, const Especificacion& especificacion) {
    const int fila = EnTabla(lugar.fila);
    if (lugar.columna == columnaNotaDePrograma) {
        const auto& celdas = especificacion.TablaTransaccion[fila];
        const bool conNota = fila > 0 && !EstaEnBlanco(celdas.campo) && MarcasLegibles(celdas.nota);
        return {conNota ? Clase::Nota : Clase::Celda, Columna::Campo, fila, {}, 0};
    }
    const auto columna = static_cast<std::size_t>(std::clamp<int>(lugar.columna, 0, columnaNotaDePrograma - 1));
    return {Clase::Celda, columnasDeCeldasDeTransaccion.at(columna), fila, {}, 0};
}

// The head that uses a BAPI; its call text is edited with the definitions, behind the global ones.
Destino EnBAPI(const Lugar& lugar, const Especificacion& especificacion) {
    const int fila = std::clamp<int>(lugar.fila, 0, ultimaFilaBAPIs);
    const Destino definicion{Clase::Definiciones, {}, fila + 1, {}, lugar.linea};
    if (lugar.columna > 0) return definicion;
    const auto& tabla = especificacion.TablaTransaccion;
    const auto nombre = Recortar(especificacion.TablaBAPIs[fila].nombre);
    const auto cabeza = std::find_if(tabla.begin(), tabla.begin() + ultimaFila + 1, [&](const FilaDeTransaccion& f) {
        return f.EsCabezaBAPI() && Recortar(AntesDe(f.dynpro, ';')) == nombre;
    });
    if (cabeza == tabla.begin() + ultimaFila + 1) return definicion;
    return {Clase::Celda, Columna::Dynpro, static_cast<int>(cabeza - tabla.begin()), {}, 0};
}

Destino EnOpcion(const Lugar& lugar, const Opciones& opciones) {
    if (lugar.opcion == nullptr) return {};
    std::string control = lugar.opcion;
    // Of the groups of buttons, the one that is on.
    if (control == "Modo") control = std::string(1, opciones.Modo) + "Option";
    struct Par {
        std::string_view primero;
        bool Opciones::*opcion;
        const char* segundo;
    };
    constexpr std::array pares = {Par{"ClienteOp", &Opciones::ClienteOp, "ServidorOp"},
                                  Par{"AnchoFijo", &Opciones::AnchoFijo, "DelimTab"},
                                  Par{"MultipleFilesOption", &Opciones::MultipleFilesOption, "OneFileOption"},
                                  Par{"GeneracionAutomatica", &Opciones::GeneracionAutomatica, "GeneracionManual"},
                                  Par{"ProcesarTodoOpt", &Opciones::ProcesarTodoOpt, "ProcesarParteOpt"}};
    for (const auto& [primero, opcion, segundo] : pares) {
        if (control == primero && !(opciones.*opcion)) control = segundo;
    }
    return {Clase::Control, {}, -1, control, lugar.linea};
}

Destino EnTextoDeOrigen(const char* caja, const Lugar& lugar) { return {Clase::Origen, {}, -1, caja, lugar.linea}; }

bool SinFilas(const Especificacion& especificacion) {
    const auto& archivo = especificacion.TablaArchivo;
    const auto& programa = especificacion.TablaTransaccion;
    return std::all_of(archivo.begin(), archivo.end(), [](const auto& fila) { return EstaEnBlanco(fila.campo); }) &&
           std::all_of(programa.begin(), programa.end(),
                       [](const auto& fila) { return EstaEnBlanco(fila.programa) && EstaEnBlanco(fila.campo); });
}

Hallazgos Analizar(const MateriaDeHallazgos& m) {
    if (SinFilas(m.documento.especificacion)) return {};
    Hallazgos hallazgos = BuscarHallazgos({m.documento.especificacion, m.documento.opciones, m.preferencias, m.textos,
                                           m.documento.RutaDocumento(), m.documento.NombreDocumento(), 1});
    if (m.conectado) std::erase_if(hallazgos.lista, [](const Hallazgo& h) { return h.codigo == codigoSinSalida; });
    return hallazgos;
}

}  // namespace

Destino DestinoDe(const Lugar& lugar, const Especificacion& especificacion, const Opciones& opciones) {
    switch (lugar.parte) {
        case Parte::Archivo: return EnArchivo(lugar, especificacion);
        case Parte::Programa: return EnPrograma(lugar, especificacion);
        case Parte::Condiciones: return {Clase::Condiciones, {}, EnTabla(lugar.fila), {}, lugar.linea};
        case Parte::BAPIs: return EnBAPI(lugar, especificacion);
        case Parte::VariablesGlobales: return {Clase::Definiciones, {}, 0, {}, lugar.linea};
        case Parte::OrigenVariables: return EnTextoDeOrigen("Variables", lugar);
        case Parte::OrigenForms: return EnTextoDeOrigen("Forms", lugar);
        case Parte::OrigenSource: return EnTextoDeOrigen("Source", lugar);
        case Parte::Opcion:
        case Parte::Preferencia: return EnOpcion(lugar, opciones);
        case Parte::Ninguna: break;
    }
    return {};
}

SignosDeFilas SignosDe(const std::vector<Hallazgo>& lista, Tabla tabla, const Especificacion& especificacion,
                       const Opciones& opciones) {
    SignosDeFilas signos;
    for (const auto& hallazgo : lista) {
        const Destino destino = DestinoDe(hallazgo.lugar, especificacion, opciones);
        if (!destino.EnRejilla() || TablaDe(destino.columna) != tabla) continue;
        auto& signo = signos[destino.fila];
        signo.gravedad = std::min(signo.gravedad, hallazgo.gravedad);
        if (!signo.texto.empty()) signo.texto += '\n';
        signo.texto += hallazgo.texto;
    }
    return signos;
}

void VigiaDeHallazgos::Encender(bool encendido) {
    encendido_ = encendido;
    llamado_ = false;
    if (!encendido_) hallazgos_ = {};
}

std::optional<int> VigiaDeHallazgos::PausaHastaMirar(const MateriaDeHallazgos& m) {
    const Leido ahora{m.documento.Revision(), m.documento.ruta,  m.documento.identidad,
                      m.preferencias,         m.textos.Texto(0), m.conectado};
    if (leido_ == ahora) return std::nullopt;
    const bool otro = leido_ && (leido_->ruta != ahora.ruta || leido_->revision > ahora.revision);
    leido_ = ahora;
    if (!Pedido()) return std::nullopt;
    return otro ? 0 : milisegundosDePausa;
}

// A fault of the analysis must not end the work on the specification.
Hallazgos VigiaDeHallazgos::Analizados(const MateriaDeHallazgos& materia) {
    fallo_.clear();
    try {
        return Analizar(materia);
    } catch (const std::exception& fallo) {
        fallo_ = fallo.what();
        return {};
    }
}

void VigiaDeHallazgos::Mirar(const MateriaDeHallazgos& materia) {
    hallazgos_ = Pedido() ? Analizados(materia) : Hallazgos{};
    if (hallazgos_.lista.empty()) llamado_ = false;
}

int VigiaDeHallazgos::Vecino(int actual, int paso) const {
    const int cuantos = static_cast<int>(Lista().size());
    if (cuantos == 0) return -1;
    if (actual < 0) return paso > 0 ? 0 : cuantos - 1;
    return (actual + paso + cuantos) % cuantos;
}

int VigiaDeHallazgos::TrasGenerar(const FinDeGeneracion& fin, const MateriaDeHallazgos& materia) {
    Hallazgos hallazgos = Analizados(materia);
    const auto& lista = hallazgos.lista;
    const auto primero = [&](auto prueba) {
        const auto hallado = std::find_if(lista.begin(), lista.end(), prueba);
        return hallado == lista.end() ? -1 : static_cast<int>(hallado - lista.begin());
    };
    int elegido = -1;
    if (fin.rechazado && fin.mensaje > 0) elegido = primero([&](const Hallazgo& h) { return h.mensaje == fin.mensaje; });
    if (elegido < 0 && (fin.rechazado || fin.escrito)) {
        elegido = primero([](const Hallazgo& h) { return h.gravedad == Gravedad::Error; });
    }
    if (elegido >= 0) llamado_ = true;
    hallazgos_ = Pedido() ? std::move(hallazgos) : Hallazgos{};
    return elegido;
}

int ContarErrores(const MateriaDeHallazgos& materia) { return ContarHallazgos(Analizar(materia).lista).errores; }

}  // namespace qor
