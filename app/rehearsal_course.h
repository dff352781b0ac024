#pragma once

#include <cstdint>
#include <vector>

#include "app/rehearsal.h"
#include "app/rehearsal_steps.h"
#include "practice/course.h"

namespace qor {

// The course of a rehearsal: what became of each record, and its part of the notes.
class CursoDeEnsayo : public Curso {
public:
    CursoDeEnsayo(OyenteDeCurso& oyente, const PedidoDeEnsayo& pedido, NotasDeEnsayo& notas)
        : Curso(oyente, pedido.tramo, pedido.fallos), notas_(notas) {}

    // The report is about to start.
    void Empezar();
    // It has ended; the main loop has had so many rows in front of it.
    void Terminar(std::size_t filas);

    // Of record n at n - 1.
    std::vector<EstadoDeRegistro>& Estados() { return estados_; }
    // The record in whose midst the run was ended, and why; 0 for none.
    std::size_t Cortado() const { return cortado_; }
    const char* MotivoDelCorte() const { return motivo_; }

    bool Registro(std::size_t numero) override;
    void FinDeRegistros() override;
    bool Detener() override;
    void Transaccion(const TransaccionProbada& transaccion) override;
    void InsertaEnSesion(const TransaccionProbada& transaccion) override;
    void Bapi(const LlamadaDeBapi& llamada) override;

private:
    void CerrarRegistro();
    bool Cortar(const char* motivo);

    NotasDeEnsayo& notas_;
    std::vector<EstadoDeRegistro> estados_;
    std::size_t abierto_ = 0;
    std::uint64_t lugar_ = 0;  // where its part of the journal begins
    bool enSesion_ = false;
    int preguntas_ = 0;  // whether the run shall end, since it shall and a record is worked on
    std::size_t cortado_ = 0;
    const char* motivo_ = "";
};

}  // namespace qor
