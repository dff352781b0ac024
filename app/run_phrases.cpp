#include "app/run_phrases.h"

#include <string>

namespace qor {

Frase FraseDeFalta(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) {
    const std::string linea = std::to_string(falta.linea);
    const std::string columna = std::to_string(falta.columna);
    if (origen.palabras.empty()) return {"line %1, column %2: %3", {linea, columna, falta.texto}};
    return {"line %1, column %2, %3: %4", {linea, columna, origen.palabras, falta.texto}};
}

Frase FraseDeArchivoSinLeer(std::string_view nombre, std::string_view motivo) {
    return {"file %1: %2", {std::string(nombre), std::string(motivo)}};
}

Frase FraseDeMensajeDelReporte(std::size_t registro, char tipo, std::string_view texto) {
    if (registro == 0) return {"message %1: %2", {std::string(1, tipo), std::string(texto)}};
    return {"record %1, message %2: %3", {std::to_string(registro), std::string(1, tipo), std::string(texto)}};
}

Frase FraseSinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) {
    return {"%1: %2 of %3 lines belong to no record", {std::string(tabla), std::to_string(perdidas), std::to_string(todas)}};
}

}  // namespace qor
