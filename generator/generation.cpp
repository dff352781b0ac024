#include "generator/generation.h"

#include <algorithm>

#include "base/text.h"

namespace qor {

namespace {

// The name of a file can hold any character; what a report tells of it stays on its line.
std::string EnUnaLinea(std::string texto) {
    std::replace_if(texto.begin(), texto.end(), EsControl, '?');
    return texto;
}

}  // namespace

Generacion NuevaGeneracion(const PedidoDeGeneracion& pedido) {
    return {pedido.especificacion,
            pedido.opciones,
            pedido.preferencias,
            pedido.textos,
            pedido.vista,
            EnUnaLinea(pedido.RutaDocumento),
            EnUnaLinea(pedido.NombreDocumento),
            {},
            {},
            {},
            {},
            {}};
}

void DefinirNombres(Generacion& g) {
    const auto& n = g.nombres;
    auto& r = g.reporte;
    r.Definir("GS", n.GSprefijo);
    r.Definir("GN", n.GNprefijo);
    r.Definir("GT", n.GTprefijo);
    r.Definir("LS", n.LSprefijo);
    r.Definir("LN", n.LNprefijo);
    r.Definir("LT", n.LTprefijo);
    r.Definir("GC", n.GCprefijo);
    r.Definir("PS", n.PSprefijo);
    r.Definir("PN", n.PNprefijo);
    r.Definir("NEWB", n.ParamNuevoBatch);
    r.Definir("OLDB", n.ParamViejoBatch);
    r.Definir("BNUM", n.ParamNumeroBatch);
    r.Definir("TablaZ", g.opciones.TablaZ);
    r.Definir("ProgID", g.opciones.ProgID);
    r.Definir("ArchivoFuente", Recortar(g.opciones.ArchivoFuente));
    r.Definir("s", g.analisis.ManejoErrores ? "  " : "");
    // Set by the section that declares them; a check box that is neither set nor clear declares none.
    for (const char* nombre : {"ARCHIVO", "STEP", "MODO"}) r.Definir(nombre, "");
    for (int f = 0; f <= ultimaFila; ++f) {
        const std::string& campo = g.especificacion.TablaArchivo[f].campo;
        if (campo.empty()) break;
        g.filaDeCampo.try_emplace(campo, f);
    }
}

}  // namespace qor
