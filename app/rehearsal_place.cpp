#include "app/rehearsal_place.h"

#include "base/files.h"
#include "input/check_line.h"
#include "input/line_reader.h"

namespace qor {

std::size_t LineaDeRegistro(const DisenoDeEntrada& diseno, int clase, std::size_t numero, const std::filesystem::path& archivo) {
    if (!diseno.ArchivoUnico()) return numero;
    const ReglasDeValores sinReglas;
    const RevisorDeLineas revisor(diseno, sinReglas);
    const ArchivoAbierto abierto(archivo);
    LectorDeEntrada lector(abierto);
    LineaLeida linea;
    for (std::size_t lugar = 1; lector.Linea(linea); ++lugar) {
        if (revisor.ClaseDe(0, linea.texto) == clase && --numero == 0) return lugar;
    }
    return 0;
}

}  // namespace qor
