#include "practice/queue.h"

#include "base/failure.h"
#include "practice/queue_id.h"
#include "practice/session_transfer.h"
#include "practice/stored_recordings.h"

namespace qor {

namespace {

// Transactions of one kind differ in their values alone. So what they have in common, the skeleton, is kept once: programs,
// dynpros and fields of all rows, each text behind its length. The values lie in the same manner beside it.
constexpr std::size_t maximoDeTexto = 65535;
constexpr std::size_t muchosEsqueletos = 20000;

void AgregarTexto(std::string& bytes, std::string_view texto) {
    if (texto.size() > maximoDeTexto) throw FalloDeEjecucion("a text of a batch-input record is longer than 65535 characters");
    bytes += static_cast<char>(texto.size() & 0xFF);
    bytes += static_cast<char>(texto.size() >> 8);
    bytes += texto;
}

// Takes the next text off; a damaged one ends the reading.
std::string_view TomarTexto(std::string_view& bytes) {
    if (bytes.size() < 2) throw FalloDeEjecucion("a record of the queue is damaged");
    const std::size_t largo =
        static_cast<unsigned char>(bytes[0]) + (static_cast<std::size_t>(static_cast<unsigned char>(bytes[1])) << 8);
    if (bytes.size() - 2 < largo) throw FalloDeEjecucion("a record of the queue is damaged");
    const auto texto = bytes.substr(2, largo);
    bytes.remove_prefix(2 + largo);
    return texto;
}

void PonerFilas(TransaccionDeCola& transaccion) {
    transaccion.filas.clear();
    std::string_view esqueleto = transaccion.esqueleto;
    std::string_view valores = transaccion.valores;
    while (!esqueleto.empty()) {
        FilaDeBDC fila;
        fila.abre = esqueleto.front() == 'X';
        esqueleto.remove_prefix(1);
        fila.programa = TomarTexto(esqueleto);
        fila.dynpro = TomarTexto(esqueleto);
        fila.campo = TomarTexto(esqueleto);
        fila.valor = TomarTexto(valores);
        transaccion.filas.push_back(fila);
    }
}

}  // namespace

// ---- Sessions ----

std::string ColaDePractica::Abrir(std::string_view grupo, std::string_view usuario, std::string_view conservar) {
    base_.EmpezarUnidad();
    auto& conexion = base_.LaConexion();
    const auto numero = conexion.Numero("SELECT max(seq) FROM sqlite_sequence WHERE name = '_qor_queue'") + 1;
    const std::string qid = IdDeCola(momento_, numero);
    auto& insertar = conexion.Guardada("INSERT INTO _qor_queue VALUES (?, ?, ?, ?, ?, ?, ?, ?, 'C', 0)");
    insertar.Ligar(0, numero);
    insertar.LigarTexto(1, qid);
    insertar.LigarTexto(2, grupo);
    insertar.LigarTexto(3, base_.Cliente());
    insertar.LigarTexto(4, usuario);
    insertar.LigarTexto(5, momento_.fecha);
    insertar.LigarTexto(6, momento_.hora);
    insertar.LigarTexto(7, conservar);
    insertar.Ejecutar();
    abierta_ = numero;
    cuantas_ = 0;
    return qid;
}

std::int64_t ColaDePractica::Esqueleto(const std::string& esqueleto) {
    if (const auto lugar = esqueletos_.find(esqueleto); lugar != esqueletos_.end()) return lugar->second;
    if (esqueletos_.size() >= muchosEsqueletos) esqueletos_.clear();
    auto& conexion = base_.LaConexion();
    auto& insertar = conexion.Guardada("INSERT INTO _qor_shapes (rows) VALUES (?) ON CONFLICT DO NOTHING");
    insertar.LigarBloque(0, esqueleto);
    insertar.Ejecutar();
    auto& buscar = conexion.Guardada("SELECT number FROM _qor_shapes WHERE rows = ?");
    buscar.LigarBloque(0, esqueleto);
    buscar.Paso();
    const auto numero = buscar.Entero(0);
    buscar.Reiniciar();
    esqueletos_.emplace(esqueleto, numero);
    return numero;
}

void ColaDePractica::Insertar(std::string_view transaccion, std::span<const FilaDeBDC> filas) {
    base_.EmpezarUnidad();
    // What was put in before another unit may have been taken back.
    if (unidad_ != base_.NumeroDeUnidad()) {
        unidad_ = base_.NumeroDeUnidad();
        esqueletos_.clear();
    }
    auto& conexion = base_.LaConexion();
    esqueleto_.clear();
    valores_.clear();
    for (const auto& fila : filas) {
        esqueleto_ += fila.abre ? 'X' : ' ';
        AgregarTexto(esqueleto_, fila.programa);
        AgregarTexto(esqueleto_, fila.dynpro);
        AgregarTexto(esqueleto_, fila.campo);
        AgregarTexto(valores_, fila.valor);
    }
    const auto esqueleto = Esqueleto(esqueleto_);
    auto& insertar = conexion.Guardada("INSERT INTO _qor_transactions VALUES (?, ?, ?, ?, ?)");
    insertar.Ligar(0, abierta_);
    insertar.Ligar(1, ++cuantas_);
    insertar.LigarTexto(2, transaccion);
    insertar.Ligar(3, esqueleto);
    insertar.LigarBloque(4, valores_);
    insertar.Ejecutar();
}

void ColaDePractica::Cerrar() {
    base_.EmpezarUnidad();
    auto& cerrar = base_.LaConexion().Guardada("UPDATE _qor_queue SET state = '', transactions = ? WHERE number = ?");
    cerrar.Ligar(0, cuantas_);
    cerrar.Ligar(1, abierta_);
    cerrar.Ejecutar();
    abierta_ = 0;
}

bool ColaDePractica::Leer(std::string_view id, std::string_view tipoDeDatos, const Registro& registro) {
    const auto tipo = SinBlancosDetras(tipoDeDatos);
    const auto qid = SinBlancosDetras(id);
    if (tipo == "%BDC") {
        const auto grabacion = GrabacionesDePractica(base_).Buscar(qid);
        if (grabacion) GrabacionesDePractica::CadaRegistro(*grabacion, registro);
        return grabacion.has_value();
    }
    const auto entrada = tipo == "BDC" ? Buscar(qid) : std::nullopt;
    if (entrada) CadaRegistro(*entrada, registro);
    return entrada.has_value();
}

void ColaDePractica::PonerEstado(std::int64_t entrada, std::string_view estado) {
    base_.EmpezarUnidad();
    auto& poner = base_.LaConexion().Guardada("UPDATE _qor_queue SET state = ? WHERE number = ?");
    poner.LigarTexto(0, estado);
    poner.Ligar(1, entrada);
    poner.Ejecutar();
}

void ColaDePractica::Borrar(std::int64_t entrada) {
    base_.EmpezarUnidad();
    for (const char* const texto : {"DELETE FROM _qor_transactions WHERE entry = ?", "DELETE FROM _qor_queue WHERE number = ?"}) {
        auto& borrar = base_.LaConexion().Guardada(texto);
        borrar.Ligar(0, entrada);
        borrar.Ejecutar();
    }
}

std::vector<EntradaDeCola> ColaDePractica::Consultar(const std::string& donde, std::string_view qid) {
    std::vector<EntradaDeCola> entradas;
    // An entry that is being created has no number of transactions yet.
    const auto leer = base_.LaConexion().Preparar(
        "SELECT number, qid, grp, client, creator, date, time, keep, state, CASE state WHEN 'C' THEN"
        " (SELECT count(*) FROM _qor_transactions WHERE entry = q.number) ELSE transactions END FROM _qor_queue AS q" +
        donde + " ORDER BY number");
    if (!donde.empty()) leer->LigarTexto(0, qid);
    while (leer->Paso()) {
        entradas.push_back({leer->Entero(0), leer->Texto(1), leer->Texto(2), leer->Texto(3), leer->Texto(4), leer->Texto(5),
                            leer->Texto(6), leer->Texto(7) == "X", leer->Texto(8), leer->Entero(9)});
    }
    return entradas;
}

std::vector<EntradaDeCola> ColaDePractica::Entradas() { return Consultar("", {}); }

std::optional<EntradaDeCola> ColaDePractica::Buscar(std::string_view qid) {
    auto entradas = Consultar(" WHERE qid = ?", qid);
    if (entradas.empty()) return std::nullopt;
    return std::move(entradas.front());
}

void ColaDePractica::CadaTransaccion(std::int64_t entrada, const std::function<bool(const TransaccionDeCola&)>& hacer) {
    const auto leer = base_.LaConexion().Preparar(
        "SELECT t.tcode, s.rows, t.fields FROM _qor_transactions AS t JOIN _qor_shapes AS s ON s.number = t.shape"
        " WHERE t.entry = ? ORDER BY t.number");
    leer->Ligar(0, entrada);
    TransaccionDeCola transaccion;
    while (leer->Paso()) {
        transaccion.transaccion = leer->Texto(0);
        transaccion.esqueleto = leer->Bytes(1);
        transaccion.valores = leer->Bytes(2);
        PonerFilas(transaccion);
        if (!hacer(transaccion)) break;
    }
    leer->Reiniciar();
}

void ColaDePractica::CadaRegistro(const EntradaDeCola& entrada, const Registro& registro) {
    EscritorDeRegistros escritor(registro);
    escritor.Cabeza(entrada.grupo);
    CadaTransaccion(entrada.numero, [&](const TransaccionDeCola& transaccion) {
        escritor.Transaccion(transaccion.transaccion);
        for (const auto& fila : transaccion.filas) escritor.Fila(fila);
        return true;
    });
}

}  // namespace qor
