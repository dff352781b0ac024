#pragma once

#include "print/device.h"

namespace qor {

// Plain text: fonts and pages leave no trace. A tab moves to its column, or puts one blank where the line is already there. Blanks
// at a line's end go, and a line break inside an item is a blank. Lines end with CR LF.
class DispositivoDeTexto : public Dispositivo {
public:
    void Item(std::string_view texto) override;
    void Tab(int columna) override;
    void FinDeLinea() override;
    Letra LetraActual() const override { return letra_; }
    void PonerLetra(const Letra& letra) override { letra_ = letra; }
    void PonerEnfasis(Enfasis enfasis, bool puesto) override;
    int OrigenIzquierdo() const override { return origen_; }
    void PonerOrigenIzquierdo(int twips) override { origen_ = twips; }
    int PosicionVertical() const override { return 0; }
    void NuevaPagina() override {}
    int NumeroDePagina() const override { return 1; }
    void Terminar() override;

    const std::string& Texto() const { return texto_; }

private:
    Letra letra_;
    int origen_ = 0;
    std::string linea_;
    std::string texto_;
};

}  // namespace qor
