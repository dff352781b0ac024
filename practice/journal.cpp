#include "practice/journal.h"

#include <cerrno>
#include <utility>

#include "base/failure.h"
#include "base/files.h"

namespace qor {

namespace {

constexpr std::size_t bloqueLleno = std::size_t{1} << 18;

void PonerPantallas(EscritorJson& evento, std::span<const FilaDeBDC> filas) {
    evento.Clave("screens").Abrir('[');
    bool abierta = false;
    const auto abrir = [&](std::string_view programa, std::string_view dynpro) {
        if (abierta) evento.Cerrar(']').Cerrar('}');
        evento.Abrir('{').Clave("program").Texto(programa).Clave("dynpro").Texto(dynpro).Clave("fields").Abrir('[');
        abierta = true;
    };
    for (const auto& fila : filas) {
        if (fila.abre) abrir(fila.programa, fila.dynpro);
        if (fila.abre && fila.campo.empty()) continue;
        if (!abierta) abrir({}, {});
        evento.Abrir('[').Texto(fila.campo).Texto(fila.valor).Cerrar(']');
    }
    if (abierta) evento.Cerrar(']').Cerrar('}');
    evento.Cerrar(']');
}

void PonerRespuesta(EscritorJson& evento, const TransaccionProbada& transaccion) {
    evento.Clave("subrc").Entero(transaccion.subrc).Clave("messages").Abrir('[');
    for (const auto& mensaje : transaccion.mensajes) {
        evento.Abrir('{').Clave("type").Texto({&mensaje.tipo, 1}).Clave("id").Texto(mensaje.id);
        evento.Clave("number").Texto(mensaje.numero).Clave("text").Texto(mensaje.texto).Cerrar('}');
    }
    evento.Cerrar(']');
}

}  // namespace

void Diario::Abrir() {
    descriptor_ = Descriptor(llamadas::Abrir(ruta_, modos::soloEscribir | modos::crear, 0666));
    if (!descriptor_.Abierto()) throw FalloDeArchivo(errno, ruta_);
    EstadoDeArchivo datos;
    if (llamadas::Mirar(descriptor_.Valor(), datos) != 0) throw FalloDeArchivo(errno, ruta_);
    regular_ = datos.EsRegular();
    if (!regular_) return;
    Bloquear(descriptor_.Valor(), ruta_);
    if (llamadas::Truncar(descriptor_.Valor(), 0) != 0) throw FalloDeArchivo(errno, ruta_);
}

EscritorJson Diario::Evento(std::string_view nombre, std::size_t registro) {
    EscritorJson evento(bloque_);
    evento.Abrir('{').Clave("event").Texto(nombre).Clave("record").Entero(static_cast<std::int64_t>(registro));
    return evento;
}

void Diario::Terminar(EscritorJson& evento) {
    evento.Cerrar('}');
    bloque_ += '\n';
    if (descriptor_.Abierto() && bloque_.size() >= bloqueLleno) Vaciar();
}

void Diario::Inicio(std::string_view reporte, const std::vector<ParametroEnDiario>& parametros) {
    Abrir();
    const std::string anterior = std::exchange(bloque_, {});
    EscritorJson evento(bloque_);
    evento.Abrir('{').Clave("event").Texto("start").Clave("report").Texto(reporte).Clave("parameters").Abrir('{');
    for (const auto& parametro : parametros) {
        evento.Clave(parametro.nombre);
        if (parametro.rango != nullptr)
            evento.Tabla(*parametro.rango);
        else
            evento.Valor(parametro.campo, nullptr);
    }
    evento.Cerrar('}');
    Terminar(evento);
    bloque_ += anterior;
}

void Diario::Transaccion(std::size_t registro, const TransaccionProbada& transaccion) {
    auto evento = Evento("transaction", registro);
    evento.Clave("tcode").Texto(transaccion.transaccion).Clave("mode").Texto({&transaccion.modo, 1});
    evento.Clave("update").Texto({&transaccion.actualizacion, 1});
    PonerPantallas(evento, transaccion.filas);
    PonerRespuesta(evento, transaccion);
    Terminar(evento);
}

void Diario::AbreSesion(std::size_t registro, const SesionAbierta& sesion) {
    auto evento = Evento("session-open", registro);
    evento.Clave("group").Texto(sesion.grupo).Clave("user").Texto(sesion.usuario).Clave("keep").Texto(sesion.conservar);
    Terminar(evento);
}

void Diario::InsertaEnSesion(std::size_t registro, const TransaccionProbada& transaccion) {
    auto evento = Evento("session-insert", registro);
    evento.Clave("tcode").Texto(transaccion.transaccion);
    PonerPantallas(evento, transaccion.filas);
    PonerRespuesta(evento, transaccion);
    Terminar(evento);
}

void Diario::CierraSesion(std::size_t registro, std::string_view grupo, std::size_t transacciones) {
    auto evento = Evento("session-close", registro);
    evento.Clave("group").Texto(grupo).Clave("transactions").Entero(static_cast<std::int64_t>(transacciones));
    Terminar(evento);
}

void Diario::Bapi(std::size_t registro, const LlamadaDeBapi& llamada) {
    auto evento = Evento("bapi", registro);
    evento.Clave("function").Texto(llamada.llamada.nombre).Clave("exports").Abrir('{');
    for (const auto& parametro : llamada.llamada.exporta)
        evento.Clave(parametro.nombre).Valor(parametro.campo, parametro.estructura);
    evento.Cerrar('}').Clave("tables").Abrir('{');
    for (const auto& parametro : llamada.llamada.tablas) {
        evento.Clave(parametro.nombre);
        if (parametro.tabla != nullptr)
            evento.Tabla(*parametro.tabla);
        else
            evento.Abrir('[').Cerrar(']');
    }
    evento.Cerrar('}').Clave("subrc").Entero(llamada.subrc);
    Terminar(evento);
}

void Diario::Confirma(std::size_t registro) {
    auto evento = Evento("commit", registro);
    Terminar(evento);
}

void Diario::Deshace(std::size_t registro) {
    auto evento = Evento("rollback", registro);
    Terminar(evento);
}

void Diario::Inserta(std::size_t registro, const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) {
    auto evento = Evento("insert", registro);
    evento.Clave("table").Texto(tabla.nombre).Clave("row").Fila(tabla, fila);
    Terminar(evento);
}

void Diario::Actualiza(std::size_t registro, std::string_view tabla, std::int64_t filas) {
    auto evento = Evento("update", registro);
    evento.Clave("table").Texto(tabla).Clave("rows").Entero(filas);
    Terminar(evento);
}

void Diario::Borra(std::size_t registro, std::string_view tabla, std::int64_t filas) {
    auto evento = Evento("delete", registro);
    evento.Clave("table").Texto(tabla).Clave("rows").Entero(filas);
    Terminar(evento);
}

void Diario::Mensaje(std::size_t registro, char tipo, std::string_view texto) {
    auto evento = Evento("message", registro);
    evento.Clave("type").Texto({&tipo, 1}).Clave("text").Texto(texto);
    Terminar(evento);
}

void Diario::Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenEnDiario& origen) {
    auto evento = Evento("dump", registro);
    evento.Clave("error").Texto(volcado.nombre).Clave("line").Entero(volcado.linea);
    if (!origen.tabla.empty()) evento.Clave("table").Texto(origen.tabla);
    if (origen.fila >= 0) evento.Clave("row").Entero(origen.fila);
    if (origen.columna >= 0) evento.Clave("column").Entero(origen.columna);
    evento.Clave("text").Texto(volcado.texto);
    Terminar(evento);
}

void Diario::Final(std::size_t registros, std::size_t contabilizados, std::size_t fallados) {
    EscritorJson evento(bloque_);
    evento.Abrir('{').Clave("event").Texto("end").Clave("records").Entero(static_cast<std::int64_t>(registros));
    evento.Clave("posted").Entero(static_cast<std::int64_t>(contabilizados));
    evento.Clave("failed").Entero(static_cast<std::int64_t>(fallados));
    Terminar(evento);
}

void Diario::Terminar() {
    Vaciar();
    if (descriptor_.Cerrar() != 0) throw FalloDeArchivo(errno, ruta_);
}

void Diario::Vaciar() {
    for (std::size_t desde = 0; desde < bloque_.size();) {
        const auto cuantos = llamadas::Escribir(descriptor_.Valor(), bloque_.data() + desde, bloque_.size() - desde);
        if (cuantos < 0) {
            const int error = errno;
            const auto entera = desde == 0 ? 0 : bloque_.rfind('\n', desde - 1) + 1;
            if (regular_) llamadas::Truncar(descriptor_.Valor(), static_cast<std::int64_t>(escritos_ + entera));
            Fallar(error);
        }
        desde += static_cast<std::size_t>(cuantos);
    }
    escritos_ += bloque_.size();
    bloque_.clear();
}

void Diario::Fallar(int error) {
    bloque_.clear();
    throw FalloDeArchivo(error, ruta_);
}

}  // namespace qor
