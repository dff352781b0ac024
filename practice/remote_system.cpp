#include "practice/remote_system.h"

#include <utility>

#include "practice/run.h"
#include "sap/service.h"

namespace qor {

namespace {

// Another number behind each change that somebody else made.
std::int64_t VersionDe(BaseDePractica& base) { return base.LaConexion().Numero("PRAGMA data_version"); }

}  // namespace

// Keeps the list of a report, and the first thing that went wrong.
class SistemaRemoto::Vista : public VistaDeCorrida, public abap::SalidaDeLista {
public:
    std::vector<std::string> TomarLista() { return std::exchange(lista_, {}); }
    std::string TomarMotivo() { return std::exchange(motivo_, {}); }

    void Linea(std::string_view linea) override { lista_.emplace_back(linea); }

    void FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& /*origen*/) override {
        Fallar("Line " + std::to_string(falta.linea) + " of the report: " + falta.texto);
    }
    void Volcado(std::size_t /*registro*/, const VolcadoDicho& volcado, const OrigenDeLinea& /*origen*/) override {
        Fallar(volcado.nombre + " in line " + std::to_string(volcado.linea) + " of the report: " + volcado.texto);
    }
    void Mensaje(std::size_t /*registro*/, char tipo, std::string_view texto) override {
        if (tipo == 'A' || tipo == 'E' || tipo == 'X') Fallar(std::string("Message ") + tipo + ": " + std::string(texto));
    }
    void Rechaza(const std::string& texto) override { Fallar(texto); }
    void Falla(const FalloDeEjecucion& fallo) override { Fallar(fallo.what()); }
    // The report has seen these itself.
    void Falla(const FalloDeRegistro& /*fallo*/) override {}
    void ArchivoSinLeer(std::string_view /*nombre*/, std::string_view /*motivo*/) override {}
    void Aviso(std::string_view /*texto*/) override {}
    bool Avanza(const CuentaDeCorrida& /*cuenta*/) override { return false; }
    void Empieza(abap::Ejecucion& /*ejecucion*/) override {}
    void Termina(abap::Ejecucion& /*ejecucion*/) override {}
    void SinRegistro(std::string_view /*tabla*/, std::size_t /*perdidas*/, std::size_t /*todas*/) override {}
    void Resumen(const CuentaDeCorrida& /*cuenta*/) override {}

private:
    void Fallar(const std::string& motivo) {
        if (motivo_.empty()) motivo_ = motivo;
    }

    std::vector<std::string> lista_;
    std::string motivo_;
};

SistemaRemoto::SistemaRemoto(const OpcionesDeSistema& opciones)
    : vista_(std::make_unique<Vista>()),
      curso_(*vista_, {}, {}),
      sistema_(opciones, curso_, curso_),
      version_(VersionDe(sistema_.Base())) {}

SistemaRemoto::~SistemaRemoto() = default;

std::vector<std::string> SistemaRemoto::Correr(std::string_view reporte) {
    PedidoDeCorrida pedido;
    pedido.reporte = reporte;
    qor::Correr(pedido, sistema_, curso_, *vista_, *vista_);
    auto lista = vista_->TomarLista();
    if (const auto motivo = vista_->TomarMotivo(); !motivo.empty()) throw FalloDelServicio(motivo);
    return lista;
}

bool SistemaRemoto::EsViejo() { return VersionDe(sistema_.Base()) != version_; }

}  // namespace qor
