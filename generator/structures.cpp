#include "generator/checks.h"
#include "generator/data_source_models.h"
#include "generator/generation.h"
#include "model/control_characters.h"
#include "model/gaps.h"

namespace qor {

namespace {

void EscribirCampo(Generacion& g, int fila) {
    const auto& [campo, ancho, nota, conversion] = g.especificacion.TablaArchivo[fila];
    g.reporte.Linea("        {campo}({anchocampo}),{_}", {{"campo", campo}, {"anchocampo", ancho}});
}

// One record: its fields are those that `pertenece` answers for.
template <typename Pertenece>
void EscribirRegistro(Generacion& g, const std::string& tabla, bool ultimo, Pertenece pertenece) {
    const bool conContador = g.analisis.ArchivoUnico && g.analisis.HayStepSinClave;
    const bool principal = tabla == g.nombres.GTprefijo + "ITAB";
    g.reporte.Linea("      BEGIN OF {tabla} OCCURS 0,", {{"tabla", tabla}});
    if (principal && g.analisis.ArchivoUnico) {
        g.reporte.Linea("        ID({largo}),{_}", {{"largo", std::to_string(g.analisis.LargoIdentificador)}});
    }
    if (conContador) g.reporte.Linea("        AUTOCOUNTER(10) TYPE N,");
    bool hayCampos = false;
    const int filas = g.especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        if (!pertenece(f)) continue;
        EscribirCampo(g, f);
        hayCampos = true;
    }
    if (principal && !hayCampos) g.reporte.Linea("        DUMMY(1),");
    g.reporte.Linea("      END OF {tabla}{fin}", {{"tabla", tabla}, {"fin", ultimo ? "." : ","}});
}

bool Chequear(Generacion& g, Vista& vista) {
    if (!SinCaracteresDeControl(g.especificacion, g.opciones, vista)) return false;
    if (!TablasOK(g.especificacion, g.textos, vista)) return false;
    g.nombres = SetearConvencionesDeNombres(g.preferencias);
    g.analisis = Analizar(g.especificacion, g.opciones);
    const Chequeo c{g.especificacion, g.opciones, g.analisis, g.textos, g.oyente};
    if (g.analisis.ArchivoUnico && !ChequearIdentificadores(c)) return false;
    AnalizarClaves(g.analisis, g.especificacion);
    return !ExistenStepsInvalidos(c) && ChequearArchivosCampos(c) && ChequearValores(c);
}

bool ChequearAnchos(const Generacion& g) {
    const int filas = g.especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        const auto& fila = g.especificacion.TablaArchivo[f];
        if (!fila.ancho.empty()) continue;
        g.oyente.Recibir({Componer(g.textos, {315, " ", fila.campo}), Lugar::EnArchivo(f, 1), Icono::Advertencia, true});
        return false;
    }
    return true;
}

}  // namespace

Estructuras ImprimirEstructuras(const PedidoDeGeneracion& pedido) {
    OyenteDeVista oyente(pedido.vista);
    Generacion g = NuevaGeneracion(pedido, oyente);
    if (!Chequear(g, pedido.vista) || !ChequearAnchos(g)) return {};
    DefinirNombres(g);
    Estructuras estructuras;
    const auto cabezas = CabezasStepLoop(g.especificacion);
    estructuras.tablas.push_back(g.nombres.GTprefijo + "ITAB");
    g.reporte.LineaVacia();
    EscribirRegistro(g, estructuras.tablas.back(), cabezas.empty(), [&](int f) {
        const auto clase = g.analisis.operaciones.ClaseCampoEnOperacion(f, 1);
        return clase == ClaseCampo::Ninguna || clase == ClaseCampo::Clave;
    });
    for (std::size_t i = 0; i < cabezas.size(); ++i) {
        const int n = static_cast<int>(i) + 1;
        if (g.analisis.operaciones.ContarCamposOperacion(n) == 0) {
            g.Avisar(Lugar::EnPrograma(cabezas[i], 4), {316, " ", g.especificacion.TablaTransaccion[cabezas[i]].campo, " ", 317});
        }
        estructuras.tablas.push_back(g.nombres.GTprefijo + "ITABSL_" + std::to_string(n));
        EscribirRegistro(g, estructuras.tablas.back(), n == static_cast<int>(cabezas.size()), [&](int f) {
            const auto clase = g.analisis.operaciones.ClaseCampoEnOperacion(f, n);
            return clase == ClaseCampo::DelGrupo || (clase == ClaseCampo::Clave && !g.opciones.EntradaDeTabla());
        });
    }
    estructuras.texto = g.reporte.Texto();
    return estructuras;
}

}  // namespace qor
