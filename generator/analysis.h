#pragma once

#include <string_view>

#include "model/operations.h"
#include "model/options.h"

namespace qor {

// What follows from a specification and its options before a line of a report is written.
struct Analisis {
    Operaciones operaciones;
    bool ArchivoUnico = false;   // main and step-loop records come in one file, told apart by ids
    int LargoIdentificador = 0;  // of the first id; with one file, ChequearIdentificadores makes sure that all have it
    bool HayConversiones = false;
    bool HayConversionesStep = false;
    bool ManejoErrores = false;    // error handling through the Z table
    bool HayJuegoDatos = false;    // the report can write a batch-input session
    bool HayStepSinClave = false;  // some step-loop has an empty key list
    bool ClavesMezcladas = false;  // and some other has not
};

// All but the last two, which are those of AnalizarClaves. Throws FalloDeEjecucion when the marks of a head stand in the wrong
// order.
Analisis Analizar(const Especificacion& especificacion, const Opciones& opciones);

// What the key lists of the step-loops tell; not all that works with an analysis needs it. Throws as Analizar does, also for heads
// behind the last row of the table.
void AnalizarClaves(Analisis& analisis, const Especificacion& especificacion);

// CALL TRANSACTION is used, by choice or because a BAPI is there.
inline bool PorLlamada(const Opciones& opciones, const Operaciones& operaciones) {
    return opciones.CallTransaction == 1 || operaciones.HayBAPI;
}
// Everything goes into a session. Not the opposite: of a choice that is neither 0 nor 1 neither is true.
inline bool SoloSesion(const Opciones& opciones, const Operaciones& operaciones) {
    return opciones.CallTransaction == 0 && !operaciones.HayBAPI;
}

// The n-th id, from 0, not trimmed; empty past the end. Ids are split at every comma.
std::string_view ObtenerIdentificador(std::string_view identificadores, int n);

}  // namespace qor
