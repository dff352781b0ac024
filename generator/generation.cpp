#include "generator/generation.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace qor {

namespace {

// The name of a file can hold any character; what a report tells of it stays on its line.
std::string EnUnaLinea(std::string texto) {
    std::replace_if(texto.begin(), texto.end(), EsControl, '?');
    return texto;
}

}  // namespace

Generacion NuevaGeneracion(const PedidoDeGeneracion& pedido, Oyente& oyente) {
    return NuevaGeneracion(pedido.especificacion, pedido.opciones, pedido.preferencias, pedido.textos, oyente, pedido.RutaDocumento,
                           pedido.NombreDocumento);
}

Generacion NuevaGeneracion(const Especificacion& especificacion, const Opciones& opciones, const Preferencias& preferencias,
                           const TextosIdioma& textos, Oyente& oyente, std::string RutaDocumento, std::string NombreDocumento) {
    return {especificacion,
            opciones,
            preferencias,
            textos,
            oyente,
            EnUnaLinea(std::move(RutaDocumento)),
            EnUnaLinea(std::move(NombreDocumento)),
            {},
            {},
            {},
            {},
            {}};
}

void Generacion::Detener(const Observacion& observacion) const {
    if (!oyente.Sigue()) throw ParadaDeGeneracion{observacion};
    oyente.Recibir(observacion);
}

void Generacion::DetenerEnFila(const Lugar& lugar, std::initializer_list<Pieza> piezas) const {
    const bool delPrograma = lugar.parte == Lugar::Parte::Programa;
    Detener({Componer(textos, piezas), lugar, Icono::Advertencia, true, delPrograma ? "Text5_0" : ""});
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
