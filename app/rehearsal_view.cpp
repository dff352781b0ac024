#include "app/rehearsal_view.h"

#include "base/code_page.h"
#include "base/failure.h"

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
    resultado_.fallos.push_back({fallo.registro, LineaDeFallo(fallo), explicaciones_.De(fallo), explicaciones_.CeldaDe(fallo)});
}

void VistaDeEnsayo::Falla(const FalloDeEjecucion& fallo) {
    const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo);
    const auto texto = DesdeUtf8ConFaltas(deArchivo != nullptr ? deArchivo->Detalle() : std::string(fallo.what()));
    if (resultado_.empezado)
        Aviso("The run ended: " + texto);
    else
        resultado_.porQueNo.push_back(texto);
}

void VistaDeEnsayo::FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) {
    std::string linea = "line " + std::to_string(falta.linea) + ", column " + std::to_string(falta.columna);
    if (!origen.palabras.empty()) linea += ", " + origen.palabras;
    resultado_.porQueNo.push_back(linea + ": " + falta.texto);
}

void VistaDeEnsayo::Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& /*origen*/) {
    resultado_.volcado = {registro, volcado.nombre, volcado.texto, volcado.linea, origenes_.LugarDe(volcado.linea)};
}

void VistaDeEnsayo::Mensaje(std::size_t registro, char tipo, std::string_view texto) {
    Aviso((registro == 0 ? "message " : "record " + std::to_string(registro) + ", message ") + tipo + ": " + std::string(texto));
}

void VistaDeEnsayo::ArchivoSinLeer(std::string_view nombre, std::string_view motivo) {
    Aviso("file " + std::string(nombre) + ": " + std::string(motivo));
}

void VistaDeEnsayo::Aviso(std::string_view texto) {
    if (resultado_.avisos.size() < maximoDeFallos) resultado_.avisos.emplace_back(texto);
}

void VistaDeEnsayo::SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) {
    resultado_.huerfanos.push_back(std::string(tabla) + ": " + std::to_string(perdidas) + " of " + std::to_string(todas) +
                                   " lines belong to no record");
}

}  // namespace qor
