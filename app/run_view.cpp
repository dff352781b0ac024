#include "app/run_view.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "app/console_view.h"
#include "app/run_phrases.h"
#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr auto pausaHastaElAvance = std::chrono::milliseconds(700);
constexpr auto pausaDelAvance = std::chrono::milliseconds(250);

// What a handler of signals can reach.
volatile std::sig_atomic_t hayInterrupcion = 0;

void AlInterrumpir(int /*senal*/) { hayInterrupcion = 1; }

// A line as a terminal takes it: UTF-8, with "#" for what is no character to be seen.
std::string LineaDeTerminal(std::string_view texto) {
    std::string visible(texto);
    std::replace_if(visible.begin(), visible.end(), EsInvisible, '#');
    return AUtf8(visible);
}

}  // namespace

Interrupcion::Interrupcion() {
    hayInterrupcion = 0;
    struct sigaction accion {};
    accion.sa_handler = AlInterrumpir;
    accion.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&accion.sa_mask);
    sigaction(SIGINT, &accion, &anteriorInt_);
    sigaction(SIGTERM, &accion, &anteriorTerm_);
}

Interrupcion::~Interrupcion() {
    sigaction(SIGINT, &anteriorInt_, nullptr);
    sigaction(SIGTERM, &anteriorTerm_, nullptr);
}

bool Interrupcion::Pedida() const { return hayInterrupcion != 0; }

VistaDeTerminal::VistaDeTerminal(std::ostream& salida, std::ostream& errores, Explicaciones& explicaciones)
    : salida_(salida),
      errores_(errores),
      explicaciones_(explicaciones),
      enTerminal_(errores.rdbuf() == std::cerr.rdbuf() && isatty(STDERR_FILENO) == 1) {}

void VistaDeTerminal::Linea(std::string_view linea) {
    BorrarAvance();
    salida_ << LineaDeTerminal(linea) << '\n';
}

void VistaDeTerminal::Empieza(abap::Ejecucion& ejecucion) {
    if (alEmpezar_) alEmpezar_(ejecucion);
    empezado_ = true;
    comienzo_ = Reloj::now();
    siguiente_ = comienzo_ + pausaHastaElAvance;
}

void VistaDeTerminal::Termina(abap::Ejecucion& ejecucion) {
    BorrarAvance();
    if (alTerminar_) alTerminar_(ejecucion);
}

bool VistaDeTerminal::Avanza(const CuentaDeCorrida& cuenta) {
    if (enTerminal_ && Reloj::now() >= siguiente_) MostrarAvance(cuenta);
    return interrupcion_.Pedida();
}

void VistaDeTerminal::Falla(const FalloDeRegistro& fallo) {
    Decir(LineaDeFallo(fallo.registro, MotivoDeFallo(fallo)).EnIngles());
    for (const auto& linea : explicaciones_.De(fallo)) Decir("  " + linea.EnIngles());
}

void VistaDeTerminal::Falla(const FalloDeEjecucion& fallo) {
    BorrarAvance();
    const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo);
    errores_ << (empezado_ ? "0: The run ended.\n  " : "0: The report was not started.\n  ")
             << (deArchivo != nullptr ? deArchivo->Detalle() : std::string(fallo.what())) << '\n';
}

void VistaDeTerminal::FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) {
    Decir(FraseDeFalta(falta, origen).EnIngles());
}

void VistaDeTerminal::Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& origen) {
    std::string linea = "record " + std::to_string(registro) + ", line " + std::to_string(volcado.linea);
    if (!origen.palabras.empty()) linea += ", " + origen.palabras;
    Decir(linea + ": " + volcado.nombre + " " + volcado.texto);
}

void VistaDeTerminal::Mensaje(std::size_t registro, char tipo, std::string_view texto) {
    if (tipo == 'A' || tipo == 'E' || tipo == 'X')
        Decir("record " + std::to_string(registro) + ", message " + tipo + ": " + std::string(texto));
}

void VistaDeTerminal::ArchivoSinLeer(std::string_view nombre, std::string_view motivo) {
    Decir(FraseDeArchivoSinLeer(nombre, motivo).EnIngles());
}

void VistaDeTerminal::Aviso(std::string_view texto) { Decir(texto); }

void VistaDeTerminal::Rechaza(const std::string& texto) { Decir("0: " + texto); }

void VistaDeTerminal::SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) {
    Decir(FraseSinRegistro(tabla, perdidas, todas).EnIngles());
}

void VistaDeTerminal::Resumen(const CuentaDeCorrida& cuenta) {
    BorrarAvance();
    salida_ << LineaDeResumen(cuenta) << '\n';
    if (interrupcion_.Pedida()) Decir("0: The run was interrupted.");
}

void VistaDeTerminal::Decir(std::string_view linea) {
    BorrarAvance();
    errores_ << LineaDeTerminal(linea) + '\n';
}

void VistaDeTerminal::MostrarAvance(const CuentaDeCorrida& cuenta) {
    const auto ahora = Reloj::now();
    siguiente_ = ahora + pausaDelAvance;
    const std::chrono::duration<double> segundos = ahora - comienzo_;
    const auto porSegundo = static_cast<long>(static_cast<double>(cuenta.registros) / segundos.count());
    errores_ << "\r\033[K" + std::to_string(cuenta.registros) + " records, " + std::to_string(cuenta.fallados) + " failed, " +
                    std::to_string(porSegundo) + " per second"
             << std::flush;
    avanceVisible_ = true;
}

void VistaDeTerminal::BorrarAvance() {
    if (!avanceVisible_) return;
    errores_ << "\r\033[K" << std::flush;
    avanceVisible_ = false;
}

}  // namespace qor
