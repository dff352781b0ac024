#pragma once

#include <string>

#include "base/messages.h"
#include "base/view.h"
#include "model/place.h"

// What a run of the generator has to say about the specification: values that a listener takes. Generate shows each and stops at
// the first one that refuses; who wants to know all lets the run go on.
namespace qor {

struct Observacion {
    Mensaje mensaje;
    Lugar lugar;  // of the fault itself
    Icono icono = Icono::Advertencia;
    bool mostrarFila = false;  // the row of `lugar` is brought into sight
    std::string control = {};  // gets the focus, where there is one
};

class Oyente {
public:
    // `sigue`: a run goes on behind what refuses the specification. Its report is then no report, but all that is wrong was said.
    explicit Oyente(bool sigue) : sigue_(sigue) {}
    virtual ~Oyente() = default;
    Oyente(const Oyente&) = delete;
    Oyente& operator=(const Oyente&) = delete;

    virtual void Recibir(const Observacion& observacion) = 0;
    bool Sigue() const { return sigue_; }

private:
    bool sigue_;
};

// Shows what it hears, and lets no run go on.
class OyenteDeVista : public Oyente {
public:
    explicit OyenteDeVista(Vista& vista) : Oyente(false), vista_(vista) {}
    void Recibir(const Observacion& observacion) override;

private:
    Vista& vista_;
};

}  // namespace qor
