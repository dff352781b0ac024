#pragma once

#include <string>

#include "abap/surroundings.h"
#include "practice/batch_rows.h"
#include "practice/events.h"
#include "practice/session_queue.h"
#include "practice/transactions.h"

namespace qor {

// The function modules of batch-input sessions. Each answers the name of the exception that it raises. A transaction that is put
// into a session is tried at once; what comes of it is for the listener alone.
class FuncionesDeSesion {
public:
    FuncionesDeSesion(ColaDeSesiones& cola, ProbadorDeTransacciones& probador, const FallosPedidos& fallos,
                      OyenteDePractica& oyente)
        : cola_(cola), probador_(probador), fallos_(fallos), oyente_(oyente) {}

    std::string LlamarBDC_OPEN_GROUP(const abap::LlamadaAFuncion& llamada);
    std::string LlamarBDC_INSERT(const abap::LlamadaAFuncion& llamada);
    std::string LlamarBDC_CLOSE_GROUP(const abap::LlamadaAFuncion& llamada);
    std::string LlamarBDC_OBJECT_READ(const abap::LlamadaAFuncion& llamada);

private:
    ColaDeSesiones& cola_;
    ProbadorDeTransacciones& probador_;
    const FallosPedidos& fallos_;
    OyenteDePractica& oyente_;
    LectorDeFilas lector_;
    bool abierta_ = false;
    std::string grupo_;
    std::size_t transacciones_ = 0;
};

}  // namespace qor
