#pragma once

#include <functional>

#include "app/rehearsal.h"
#include "practice/explanation.h"
#include "practice/run.h"

namespace qor {

// Gathers what a rehearsal has to tell.
class VistaDeEnsayo : public VistaDeCorrida, public abap::SalidaDeLista {
public:
    using HacerConReporte = std::function<void(abap::Ejecucion&)>;
    // Asked now and then; true ends the run.
    using Avance = std::function<bool(const CuentaDeCorrida&)>;

    VistaDeEnsayo(ResultadoDeEnsayo& resultado, Explicaciones& explicaciones, const OrigenesDelReporte& origenes)
        : resultado_(resultado), explicaciones_(explicaciones), origenes_(origenes) {}

    void AlEmpezar(HacerConReporte hacer) { alEmpezar_ = std::move(hacer); }
    void AlTerminar(HacerConReporte hacer) { alTerminar_ = std::move(hacer); }
    void AlAvanzar(Avance avance) { avance_ = std::move(avance); }

    void Linea(std::string_view linea) override;
    void Empieza(abap::Ejecucion& ejecucion) override;
    void Termina(abap::Ejecucion& ejecucion) override;
    bool Avanza(const CuentaDeCorrida& cuenta) override { return avance_ && avance_(cuenta); }

    void Falla(const FalloDeRegistro& fallo) override;
    void Falla(const FalloDeEjecucion& fallo) override;
    void FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) override;
    void Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& origen) override;
    void Mensaje(std::size_t registro, char tipo, std::string_view texto) override;
    void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) override;
    void Aviso(std::string_view texto) override;
    void Rechaza(const std::string& texto) override { resultado_.porQueNo.emplace_back(texto); }
    void SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) override;
    void Resumen(const CuentaDeCorrida& cuenta) override { resultado_.cuenta = cuenta; }

private:
    void Apuntar(Frase frase);

    ResultadoDeEnsayo& resultado_;
    Explicaciones& explicaciones_;
    const OrigenesDelReporte& origenes_;
    HacerConReporte alEmpezar_;
    HacerConReporte alTerminar_;
    Avance avance_;
};

}  // namespace qor
