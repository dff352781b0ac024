#include "practice/stored_recordings.h"

#include "base/text.h"
#include "practice/moment.h"
#include "practice/queue_id.h"
#include "practice/recording_reader.h"
#include "practice/session_transfer.h"

namespace qor {

namespace {

constexpr std::size_t largoDeGrupo = 12;

}  // namespace

std::string GrupoDeGrabacion(std::string_view nombre) {
    auto base = Recortar(nombre.substr(0, nombre.find_last_of('.')));
    if (base.empty()) base = Recortar(nombre);
    return Mayusculas(base).substr(0, largoDeGrupo);
}

void GrabacionesDePractica::Poner(const std::string& nombre, const std::string& texto) {
    const auto momento = MomentoActual();
    base_.EmpezarUnidad();
    auto& conexion = base_.LaConexion();
    const auto numero = conexion.Numero("SELECT max(seq) FROM sqlite_sequence WHERE name = '_qor_recordings'") + 1;
    auto& poner = conexion.Guardada(
        "INSERT INTO _qor_recordings VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET grp = excluded.grp,"
        " creator = excluded.creator, date = excluded.date, time = excluded.time, source = excluded.source");
    const auto qid = IdDeGrabacion(momento, numero);
    const auto grupo = GrupoDeGrabacion(nombre);
    poner.Ligar(0, numero);
    poner.LigarTexto(1, qid);
    poner.LigarTexto(2, nombre);
    poner.LigarTexto(3, grupo);
    poner.LigarTexto(4, usuarioDePractica);
    poner.LigarTexto(5, momento.fecha);
    poner.LigarTexto(6, momento.hora);
    poner.LigarBloque(7, texto);
    poner.Ejecutar();
}

std::vector<GrabacionGuardada> GrabacionesDePractica::Consultar(const char* donde, std::string_view valor) {
    std::vector<GrabacionGuardada> grabaciones;
    const auto leer = base_.LaConexion().Preparar(
        std::string("SELECT name, grp, qid, creator, date, time, source FROM _qor_recordings ") + donde);
    if (!valor.empty()) leer->LigarTexto(0, valor);
    while (leer->Paso()) {
        grabaciones.push_back({leer->Texto(0), leer->Texto(1), leer->Texto(2), leer->Texto(3), leer->Texto(4), leer->Texto(5),
                               std::string(leer->Bytes(6))});
    }
    return grabaciones;
}

std::vector<GrabacionGuardada> GrabacionesDePractica::Todas() { return Consultar("ORDER BY name", {}); }

std::optional<GrabacionGuardada> GrabacionesDePractica::Buscar(std::string_view qid) {
    if (qid.empty()) return std::nullopt;
    auto grabaciones = Consultar("WHERE qid = ?", qid);
    if (grabaciones.empty()) return std::nullopt;
    return std::move(grabaciones.front());
}

void GrabacionesDePractica::Borrar(std::string_view qid) {
    base_.EmpezarUnidad();
    auto& borrar = base_.LaConexion().Guardada("DELETE FROM _qor_recordings WHERE qid = ?");
    borrar.LigarTexto(0, qid);
    borrar.Ejecutar();
}

void GrabacionesDePractica::CadaRegistro(const GrabacionGuardada& grabacion, const ColaDeSesiones::Registro& registro) {
    EscritorDeRegistros escritor(registro);
    escritor.Cabeza(grabacion.grupo);
    LeerGrabacion(grabacion.texto, [&](const TransaccionLeida& transaccion) {
        escritor.Transaccion(transaccion.codigo);
        for (const auto& fila : transaccion.filas) {
            escritor.Fila({fila.programa, fila.dynpro, fila.abre, fila.campo, fila.valor});
        }
    });
}

}  // namespace qor
