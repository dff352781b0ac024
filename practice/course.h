#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "abap/execution.h"
#include "practice/events.h"
#include "practice/failures.h"
#include "practice/journal.h"

namespace qor {

// What a run did.
struct CuentaDeCorrida {
    std::size_t registros = 0;  // rows that had a pass
    std::size_t fallados = 0;
    std::size_t transacciones = 0;  // called
    std::size_t insertadas = 0;     // put into sessions
    std::size_t sesiones = 0;
    std::size_t bapis = 0;
    bool archivoSinLeer = false;

    std::size_t Contabilizados() const { return registros - fallados; }
};

// "N records, N posted, N failed, N transactions called, N put into N sessions, N BAPI calls"
std::string LineaDeResumen(const CuentaDeCorrida& cuenta);

// Who is told of the course of a run while it goes on. Texts are windows-1252.
class OyenteDeCurso {
public:
    virtual ~OyenteDeCurso() = default;

    virtual void Falla(const FalloDeRegistro& fallo) = 0;
    // MESSAGE; one of type A, E or X ends the report.
    virtual void Mensaje(std::size_t registro, char tipo, std::string_view texto) = 0;
    virtual void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) = 0;
    virtual void Aviso(std::string_view texto) = 0;
    // A record begins, or the report asks whether it shall go on. True: it shall end before the next record.
    virtual bool Avanza(const CuentaDeCorrida& cuenta) = 0;
};

// The course of a run: which record is worked on, what became of each, and who has to know of what happens. The journal and the
// execution can come later, or not at all.
class Curso : public abap::Seguimiento, public OyenteDePractica, public FallosPedidos {
public:
    Curso(OyenteDeCurso& oyente, TramoDeRegistros tramo, FallosPorRegistro fallos)
        : oyente_(oyente), tramo_(tramo), encargos_(std::move(fallos)) {}

    void PonerDiario(Diario* diario) { diario_ = diario; }
    void PonerEjecucion(abap::Ejecucion* ejecucion) { ejecucion_ = ejecucion; }

    const CuentaDeCorrida& Cuenta() const { return cuenta_; }
    std::size_t RegistroActual() const { return registro_; }
    // The run was asked to end.
    bool Parado() const { return parado_; }
    // The record that is worked on has failed.
    bool Fallado() const { return fallado_; }
    // How much the journal holds so far, in bytes; nothing where there is none.
    std::uint64_t LugarEnDiario() const { return diario_ == nullptr ? 0 : diario_->Largo(); }
    // Lets the record that is worked on fail.
    void Fallar();
    // A run-time error ended the run.
    void Volcar(const VolcadoDicho& volcado, const OrigenEnDiario& origen);

    bool Registro(std::size_t numero) override;
    void FinDeRegistros() override { registro_ = 0; }
    void Mensaje(char tipo, std::string_view id, std::string_view numero, std::span<const std::string> variables) override;
    bool Detener() override;

    void Transaccion(const TransaccionProbada& transaccion) override;
    void AbreSesion(const SesionAbierta& sesion) override;
    void InsertaEnSesion(const TransaccionProbada& transaccion) override;
    void CierraSesion(std::string_view grupo, std::size_t transacciones) override;
    void Bapi(const LlamadaDeBapi& llamada) override;
    void Confirma() override;
    void Deshace() override;
    void Inserta(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) override;
    void Actualiza(std::string_view tabla, std::int64_t filas) override;
    void Borra(std::string_view tabla, std::int64_t filas) override;
    void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) override;
    void Aviso(std::string_view texto) override { oyente_.Aviso(texto); }

    const FalloPedido* Pedido() const override;

private:
    void Paso();
    void ContarFallo(const FalloDeRegistro& fallo);
    void Contar(const TransaccionProbada& transaccion);

    OyenteDeCurso& oyente_;
    TramoDeRegistros tramo_;
    FallosPorRegistro encargos_;
    Diario* diario_ = nullptr;
    abap::Ejecucion* ejecucion_ = nullptr;
    CuentaDeCorrida cuenta_;
    std::size_t registro_ = 0;
    std::size_t masAlto_ = 0;
    std::unordered_set<std::size_t> fallados_;
    bool fallado_ = false;  // the record that is worked on
    bool parado_ = false;
};

}  // namespace qor
