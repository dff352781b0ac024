#include "app/rehearsal_sends.h"

#include <utility>

#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr const char* motivoDeFallo = "An operation in front of it has failed.";

bool EsDeEnvio(const ValorDeDiario& evento) {
    const auto nombre = evento.TextoDe("event");
    return nombre == "transaction" || nombre == "session-insert" || nombre == "bapi";
}

}  // namespace

std::vector<Envio> LectorDeEnvios::Leer(std::size_t registro, const NotasDePasada& notas) {
    registro_ = registro;
    for (const auto linea : PartirEnLineas(notas.diario)) {
        if (auto evento = LeerLineaDeDiario(linea); evento && EsDeEnvio(*evento)) eventos_.push_back(std::move(*evento));
    }
    for (const auto& leido : LeerPasos(notas.pasos)) Seguir(leido);
    PonerBapis(-1);
    DecirSinLlamar();
    DecirSinCondicion();
    return std::move(envios_);
}

void LectorDeEnvios::Seguir(const PasoLeido& leido) {
    const auto& paso = leido.paso;
    const auto lugar = filas_.LugarDe(paso);
    if (paso.clase == Paso::Clase::Evento) return LeerEvento(leido);
    if (paso.clase == Paso::Clase::Operacion) return TerminarForma(lugar.fila);
    if (paso.clase == Paso::Clase::Condicion && filas_.EsCabeza(lugar.fila))
        return PonerCondicion(lugar.fila, paso.Tiene(Paso::cierta));
    pasos_.push_back(leido);
}

void LectorDeEnvios::PonerCondicion(int cabeza, bool cierta) {
    DecirSinLlamar();
    DecirSinCondicion();
    condicionada_ = cabeza;
    cierta_ = cierta;
}

// The form of an operation has come back: that of a transaction has its rows ready, that of a BAPI has called it.
void LectorDeEnvios::TerminarForma(int cabeza) {
    if (condicionada_ == cabeza) condicionada_ = -1;
    DecirSinLlamar();
    DecirSinCondicion();
    if (filas_.Fila(cabeza).EsCabezaBAPI()) {
        if (bapis_.empty()) DecirSinCorrer(cabeza, conManejoDeErrores_ && fallo_ ? motivoDeFallo : sinMotivo);
        PonerBapis(cabeza);
    } else {
        lista_ = cabeza;
        llamada_ = false;
        pasosDeLista_ = std::move(pasos_);
    }
    pasos_.clear();
}

void LectorDeEnvios::LeerEvento(const PasoLeido& leido) {
    if (siguiente_ == eventos_.size()) return;
    const auto& evento = eventos_[siguiente_++];
    const auto clase = evento.TextoDe("event");
    if (clase == "bapi") {
        bapis_.push_back({&evento, leido, std::exchange(pasos_, {})});
        return;
    }
    Envio envio;
    envio.nombre = evento.TextoDe("tcode");
    envio.enSesion = clase == "session-insert";
    envio.fallado = leido.paso.Tiene(Paso::fallo);
    for (const auto& mensaje : evento.PartesDe("messages")) envio.mensajes.push_back(TextoDeMensajeDeDiario(mensaje));
    fallo_ = fallo_ || envio.fallado;
    // What is called without a form of its own in front was put together by the user's own code.
    if (lista_ >= 0 && filas_.Codigo(lista_) == envio.nombre) {
        LlenarTransaccion(envio, evento, pasosDeLista_, lista_, registro_, filas_);
        llamada_ = true;
    } else {
        LlenarTransaccion(envio, evento, pasos_, -1, registro_, filas_);
    }
    envios_.push_back(std::move(envio));
}

void LectorDeEnvios::PonerBapis(int cabeza) {
    for (const auto& [evento, leido, pasos] : std::exchange(bapis_, {})) {
        Envio envio;
        envio.nombre = evento->TextoDe("function");
        envio.esBapi = true;
        envio.fallado = leido.paso.Tiene(Paso::fallo);
        if (!leido.texto.empty()) envio.mensajes.emplace_back(leido.texto);
        fallo_ = fallo_ || envio.fallado;
        const bool suya = cabeza >= 0 && filas_.Codigo(cabeza) == envio.nombre;
        LlenarBapi(envio, *evento, pasos, suya ? cabeza : filas_.CabezaDeFuncion(envio.nombre), registro_, filas_);
        envios_.push_back(std::move(envio));
    }
}

void LectorDeEnvios::DecirSinLlamar() {
    if (lista_ >= 0 && !llamada_) DecirSinCorrer(lista_, conManejoDeErrores_ && fallo_ ? motivoDeFallo : sinMotivo);
    lista_ = -1;
}

void LectorDeEnvios::DecirSinCondicion() {
    if (condicionada_ >= 0 && !cierta_) DecirSinCorrer(condicionada_, FilasDeEnsayo::NoSeCumple(filas_.Fila(condicionada_).dynpro));
    condicionada_ = -1;
}

void LectorDeEnvios::DecirSinCorrer(int cabeza, Frase motivo) {
    Envio envio;
    envio.nombre = filas_.Codigo(cabeza);
    envio.esBapi = filas_.Fila(cabeza).EsCabezaBAPI();
    envio.sinEnviar = std::move(motivo);
    envios_.push_back(std::move(envio));
}

}  // namespace qor
