#pragma once

#include <stdexcept>

#include "base/view.h"

namespace qor {

// Answers every question with yes, and takes a warning for a fault of the benchmark.
class VistaSilenciosa : public VistaSinPantalla {
public:
    void Mostrar(const Mensaje& mensaje, Icono icono) override {
        if (icono == Icono::Advertencia) throw std::runtime_error("message " + std::to_string(mensaje.Numero()) + mensaje.texto);
    }
    Respuesta Preguntar(const Mensaje& /*mensaje*/, Botones botones) override {
        return botones == Botones::AceptarCancelar ? Respuesta::Aceptar : Respuesta::Si;
    }
};

}  // namespace qor
