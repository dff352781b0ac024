#include "app/show_changes.h"

#include <string>
#include <utility>

#include "base/words.h"
#include "editor/grids.h"

namespace qor {

void TomarImportacion(Ventana& ventana, Importacion importacion, std::string_view filas) {
    // What is no recording would leave nothing of the rows.
    if (importacion.filas == 0) {
        return ventana.vista.Advertir(MensajeDePalabra(ventana.textos, palabra::NoHayNadaQueImportar));
    }
    const std::string cuantas = std::to_string(importacion.filas);
    if (importacion.tabla != ventana.documento.especificacion.TablaTransaccion) {
        Importar(ventana.documento, std::move(importacion));
        MostrarTablaNueva(ventana);
        ventana.SSTab1 = 0;
    }
    ventana.vista.Informar(Componer(ventana.textos, {329, "\r\n", filas, ": ", cuantas, "."}));
}

void MostrarAnchos(Ventana& ventana) {
    MostrarArchivo(ventana, 0);
    ventana.SSTab1 = 0;
}

}  // namespace qor
