#pragma once

#include <cstddef>
#include <vector>

#include "app/rehearsal_rows.h"

namespace qor {

// Tells what a record sent, out of what the journal and the steps of a rehearsal hold of it.
class LectorDeEnvios {
public:
    // `conManejoDeErrores`: behind an operation that fails the report calls no other one.
    LectorDeEnvios(const FilasDeEnsayo& filas, bool conManejoDeErrores) : filas_(filas), conManejoDeErrores_(conManejoDeErrores) {}

    // Of a pass.
    std::vector<Envio> Leer(std::size_t registro, const NotasDePasada& notas);

private:
    using Pasos = std::vector<PasoLeido>;

    // A BAPI whose form has not come back yet.
    struct LlamadaPendiente {
        const ValorDeDiario* evento = nullptr;
        PasoLeido paso;
        Pasos pasos;
    };

    void Seguir(const PasoLeido& leido);
    void PonerCondicion(int cabeza, bool cierta);
    void TerminarForma(int cabeza);
    void LeerEvento(const PasoLeido& leido);
    void PonerBapis(int cabeza);
    void DecirSinLlamar();
    void DecirSinCondicion();
    void DecirSinCorrer(int cabeza, Frase motivo);

    const FilasDeEnsayo& filas_;
    bool conManejoDeErrores_;

    // Of the pass that is read.
    std::size_t registro_ = 0;
    std::vector<Envio> envios_;
    std::vector<ValorDeDiario> eventos_;  // transactions and BAPIs of the journal
    std::size_t siguiente_ = 0;
    Pasos pasos_;         // since the last operation
    int lista_ = -1;      // the head of the transaction whose rows are ready
    Pasos pasosDeLista_;  // and what led to them
    bool llamada_ = false;
    int condicionada_ = -1;  // the head of an operation that was asked about and has not come back
    bool cierta_ = false;
    std::vector<LlamadaPendiente> bapis_;
    bool fallo_ = false;
};

}  // namespace qor
