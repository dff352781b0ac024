#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

void EscribirUserForm(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM USER_FORM                                                *
{RULE}
FORM USER_FORM.
)");
    g.reporte.Desde(Lugar::EnTexto(Lugar::Parte::OrigenSource, 0));
    for (const auto& [linea, numero] : PartirLineasConNumero(g.especificacion.OrigenSource, 69)) {
        if (EstaEnBlanco(linea)) continue;
        g.reporte.Desde(Lugar::EnTexto(Lugar::Parte::OrigenSource, numero));
        g.reporte.LineaDelUsuario("  " + linea);
    }
    g.reporte.Desde({});
    g.reporte.Linea("ENDFORM.");
    g.reporte.Desde(Lugar::EnTexto(Lugar::Parte::OrigenForms, 0));
    for (const auto& [linea, numero] : PartirLineasConNumero(g.especificacion.OrigenForms, 71)) {
        if (EstaEnBlanco(linea)) continue;
        g.reporte.Desde(Lugar::EnTexto(Lugar::Parte::OrigenForms, numero));
        g.reporte.LineaDelUsuario(linea);
    }
}

}  // namespace qor
