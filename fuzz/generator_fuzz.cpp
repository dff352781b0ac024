// Any bytes as a document, through all that is made of one: the checks, the report, the declarations of its records and the printed
// specification. Everything ends in a result or in its message, and what a report's lines hold comes from texts that may hold it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/text.h"
#include "findings/finding.h"
#include "fuzz/indifferent_view.h"
#include "fuzz/require.h"
#include "generator/data_source_models.h"
#include "generator/generate.h"
#include "model/control_characters.h"
#include "model/document_format.h"
#include "print/specification_print.h"
#include "print/text_device.h"

namespace {

using namespace qor;

// Counts what it is told.
class VistaContadora : public VistaIndiferente {
public:
    int avisos = 0;

    void Mostrar(const Mensaje& /*mensaje*/, Icono /*icono*/) override { ++avisos; }
    void MostrarFila(Tabla /*tabla*/, int fila) override {
        Exigir(fila >= 0 && fila < filasTabla, "a shown row is one of the table");
    }
};

// Empties a table as far as a text of `largo` bytes may have filled it, which is much faster than a new one.
template <typename Fila>
void Vaciar(std::vector<Fila>& tabla, std::size_t largo) {
    std::fill_n(tabla.begin(), std::min(tabla.size(), largo / 2 + 2), Fila{});
}

void Vaciar(Especificacion& e, std::size_t largo) {
    Vaciar(e.TablaArchivo, largo);
    Vaciar(e.TablaTransaccion, largo);
    Vaciar(e.TablaCondiciones, largo);
    Vaciar(e.TablaBAPIs, largo);
    e.OrigenUsuario = false;
    for (auto* texto : {&e.OrigenVariables, &e.OrigenForms, &e.OrigenSource, &e.VariablesGlobales}) texto->clear();
}

bool Leer(std::string_view texto, Especificacion& especificacion, Opciones& opciones) {
    try {
        LectorValores lector(texto);
        if (LeerDocumento(lector, especificacion, opciones) == Formato::Actual) return true;
        Vaciar(especificacion, texto.size());
        opciones = {};
        lector.VolverAlPrincipio();
        ImportarFormatoAntiguo(lector, especificacion, opciones);
        return true;
    } catch (const FalloDeEjecucion&) {
        return false;
    }
}

// Leaves line ends as the only control characters of a text of several lines.
void Limpiar(std::string& texto) {
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (texto.compare(i, 2, "\r\n") == 0) {
            ++i;
        } else if (EsControl(texto[i])) {
            texto[i] = ' ';
        }
    }
}

void LimpiarTextos(Especificacion& e) {
    for (auto& fila : e.TablaArchivo) Limpiar(fila.conversion);
    for (auto& fila : e.TablaCondiciones) Limpiar(fila.texto);
    for (auto& fila : e.TablaBAPIs) Limpiar(fila.llamada);
    for (auto* texto : {&e.OrigenVariables, &e.OrigenForms, &e.OrigenSource, &e.VariablesGlobales}) Limpiar(*texto);
}

// The texts that a report takes from the language. None is empty.
const TextosIdioma& Textos() {
    static const TextosIdioma textos = [] {
        TextosIdioma nuevos;
        for (int n = 1; n <= TextosIdioma::ultimo; ++n) nuevos.Poner(n, "Text");
        return nuevos;
    }();
    return textos;
}

void ExigirLineas(std::string_view reporte) {
    while (!reporte.empty()) {
        const auto fin = reporte.find("\r\n");
        Exigir(fin != std::string_view::npos, "the last line of a report has its end");
        Exigir(!TieneControl(reporte.substr(0, fin)), "no cell or option puts a control character into a report");
        reporte.remove_prefix(fin + 2);
    }
}

template <typename Accion>
void SinCaer(Accion accion) {
    try {
        accion();
    } catch (const FalloDeEjecucion&) {
        // The trap of the action tells it.
    }
}

void Componer(const PedidoDeGeneracion& pedido, bool limpio, const VistaContadora& vista) {
    const auto reporte = ComponerReporte(pedido);
    Exigir(limpio || (!reporte && vista.avisos == 1), "a control character refuses the document with one message");
    if (reporte) ExigirLineas(reporte->texto);
    const auto hallazgos = BuscarHallazgos(
        {pedido.especificacion, pedido.opciones, pedido.preferencias, pedido.textos, pedido.RutaDocumento, pedido.NombreDocumento});
    // The name of the output file is no matter of a report without one.
    const bool conError = std::any_of(hallazgos.lista.begin(), hallazgos.lista.end(),
                                      [](const Hallazgo& h) { return h.gravedad == Gravedad::Error && h.mensaje != 301; });
    Exigir(reporte || conError, "what is refused has a finding that is an error");
}

void Declarar(const PedidoDeGeneracion& pedido, bool limpio) {
    const auto estructuras = ImprimirEstructuras(pedido);
    Exigir(limpio || estructuras.texto.empty(), "a control character refuses the declarations");
    ExigirLineas(estructuras.texto);
}

void Imprimir(const PedidoDeGeneracion& pedido) {
    DispositivoDeTexto dispositivo;
    PrintOption(pedido, [&] { return &dispositivo; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    static Especificacion especificacion;
    static std::size_t largoAnterior = 0;
    Vaciar(especificacion, std::exchange(largoAnterior, cantidad));
    Opciones opciones;
    if (!Leer(texto, especificacion, opciones)) return 0;

    VistaContadora vista;
    const Preferencias preferencias;
    const PedidoDeGeneracion pedido{especificacion, opciones, preferencias, Textos(), vista, "/a/b.qor", "b.qor"};
    const bool limpio = BuscarCaracteresDeControl(especificacion, opciones).empty();
    LimpiarTextos(especificacion);
    // The checks are much the same: one of the three ways is enough for one input.
    switch (cantidad % 4) {
        case 0: SinCaer([&] { Declarar(pedido, limpio); }); break;
        case 1: SinCaer([&] { Imprimir(pedido); }); break;
        default: Componer(pedido, limpio, vista); break;
    }
    return 0;
}
