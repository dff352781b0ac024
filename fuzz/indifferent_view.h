#pragma once

#include "bench/silent_view.h"

namespace qor {

// Answers every question with yes. Refusals are expected of hostile input.
class VistaIndiferente : public VistaSilenciosa {
public:
    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override {}
};

}  // namespace qor
