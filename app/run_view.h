#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "base/process.h"
#include "practice/explanation.h"
#include "practice/run.h"

namespace qor {

// A run as the terminal shows it. The list and the summary go to `salida`; what fails, and what the user should know, to `errores`.
// While a terminal stands behind `errores`, a line there tells how far a long run is, and goes with its end.
class VistaDeTerminal : public VistaDeCorrida, public abap::SalidaDeLista {
public:
    VistaDeTerminal(std::ostream& salida, std::ostream& errores, Explicaciones& explicaciones);

    // Called when the report is about to start, and when it has ended.
    using HacerConReporte = std::function<void(abap::Ejecucion&)>;
    void AlEmpezar(HacerConReporte hacer) { alEmpezar_ = std::move(hacer); }
    void AlTerminar(HacerConReporte hacer) { alTerminar_ = std::move(hacer); }

    void Linea(std::string_view linea) override;
    void Empieza(abap::Ejecucion& ejecucion) override;
    void Termina(abap::Ejecucion& ejecucion) override;
    bool Avanza(const CuentaDeCorrida& cuenta) override;

    using VistaDeCorrida::Falla;
    void Falla(const FalloDeRegistro& fallo) override;
    void Falla(const FalloDeEjecucion& fallo) override;
    void FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) override;
    void Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& origen) override;
    void Mensaje(std::size_t registro, char tipo, std::string_view texto) override;
    void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) override;
    void Aviso(std::string_view texto) override;
    void Rechaza(const std::string& texto) override;
    void SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) override;
    void Resumen(const CuentaDeCorrida& cuenta) override;

private:
    using Reloj = std::chrono::steady_clock;

    void Decir(std::string_view linea);
    void MostrarAvance(const CuentaDeCorrida& cuenta);
    void BorrarAvance();

    std::ostream& salida_;
    std::ostream& errores_;
    Explicaciones& explicaciones_;
    Interrupcion interrupcion_;
    HacerConReporte alEmpezar_;
    HacerConReporte alTerminar_;
    bool enTerminal_;
    bool empezado_ = false;
    bool avanceVisible_ = false;
    Reloj::time_point comienzo_;
    Reloj::time_point siguiente_;
};

}  // namespace qor
