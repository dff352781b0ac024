#pragma once

#include "app/findings_watch.h"
#include "base/view.h"

namespace qor {

// Another view, with what a run of Generate needs to be told apart by afterwards: whether it ended in a warning, and in which, or
// in a question that the user answered with no.
class VistaDeRechazo : public VistaDelegada {
public:
    using VistaDelegada::VistaDelegada;

    FinDeGeneracion Fin(bool escrito) const { return {escrito, !escrito && !negado_, aviso_}; }

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;

private:
    bool negado_ = false;
    int aviso_ = 0;
};

}  // namespace qor
