#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

void EscribirUserForm(Generacion& g) {
    g.reporte.Lineas(R"(

{RULE}
*       FORM USER_FORM                                                *
{RULE}
FORM USER_FORM.
)");
    for (const auto& linea : PartirLineas(g.especificacion.OrigenSource, 69)) {
        if (!EstaEnBlanco(linea)) g.reporte.LineaDelUsuario("  " + linea);
    }
    g.reporte.Linea("ENDFORM.");
    for (const auto& linea : PartirLineas(g.especificacion.OrigenForms, 71)) {
        if (!EstaEnBlanco(linea)) g.reporte.LineaDelUsuario(linea);
    }
}

}  // namespace qor
