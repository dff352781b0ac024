#include "app/rehearsal_view.h"

#include "app/run_phrases.h"
#include "base/code_page.h"
#include "base/failure_reason.h"

namespace qor {

void VistaDeEnsayo::Linea(std::string_view linea) {
    if (resultado_.lista.size() < maximoDeLista)
        resultado_.lista.emplace_back(linea);
    else
        resultado_.hayMasLista = true;
}

void VistaDeEnsayo::Empieza(abap::Ejecucion& ejecucion) {
    resultado_.empezado = true;
    if (alEmpezar_) alEmpezar_(ejecucion);
}

void VistaDeEnsayo::Termina(abap::Ejecucion& ejecucion) {
    if (alTerminar_) alTerminar_(ejecucion);
}

void VistaDeEnsayo::Falla(const FalloDeRegistro& fallo) {
    if (resultado_.fallos.size() == maximoDeFallos) {
        resultado_.hayMasFallos = true;
        return;
    }
    auto motivo = MotivoDeFallo(fallo);
    resultado_.fallos.push_back({fallo.registro, LineaDeFallo(fallo.registro, motivo), std::move(motivo), explicaciones_.De(fallo),
                                 explicaciones_.CeldaDe(fallo), explicaciones_.EntradaDe(fallo)});
}

void VistaDeEnsayo::Falla(const FalloDeEjecucion& fallo) {
    if (resultado_.empezado)
        Apuntar({"The run ended: %1", {FraseDeFallo(fallo)}});
    else
        resultado_.porQueNo.push_back(FraseDeFallo(fallo));
}

void VistaDeEnsayo::FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) {
    resultado_.porQueNo.push_back(FraseDeFalta(falta, origen));
}

void VistaDeEnsayo::Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& /*origen*/) {
    resultado_.volcado = {registro, volcado.nombre, volcado.texto, volcado.linea, origenes_.LugarDe(volcado.linea)};
}

void VistaDeEnsayo::Mensaje(std::size_t registro, char tipo, std::string_view texto) {
    Apuntar(FraseDeMensajeDelReporte(registro, tipo, texto));
}

void VistaDeEnsayo::ArchivoSinLeer(std::string_view nombre, std::string_view motivo) {
    Apuntar(FraseDeArchivoSinLeer(nombre, motivo));
}

void VistaDeEnsayo::Aviso(std::string_view texto) {
    Apuntar(ReconocerFrase(texto, "%1: length not known, taken as C %2").value_or(Frase(std::string(texto))));
}

void VistaDeEnsayo::Apuntar(Frase frase) {
    if (resultado_.avisos.size() < maximoDeFallos) resultado_.avisos.push_back(std::move(frase));
}

void VistaDeEnsayo::SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) {
    resultado_.huerfanos.push_back(FraseSinRegistro(tabla, perdidas, todas));
}

}  // namespace qor
