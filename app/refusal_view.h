#pragma once

#include "app/findings_watch.h"
#include "base/view.h"

namespace qor {

// Another view, with what a run of Generate needs to be told apart by afterwards: whether it ended in a warning, and in which, or
// in a question that the user answered with no.
class VistaDeRechazo : public Vista {
public:
    explicit VistaDeRechazo(Vista& vista) : vista_(vista) {}

    FinDeGeneracion Fin(bool escrito) const { return {escrito, !escrito && !negado_, aviso_}; }

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;
    std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& pedido) override {
        return vista_.ElegirParaAbrir(pedido);
    }
    std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& pedido) override {
        return vista_.ElegirParaGrabar(pedido);
    }
    std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& pedido) override {
        return vista_.ElegirCarpeta(pedido);
    }
    void PunteroOcupado(bool ocupado) override { vista_.PunteroOcupado(ocupado); }
    void MostrarFila(Tabla tabla, int fila) override { vista_.MostrarFila(tabla, fila); }
    void Enfocar(const std::string& control) override { vista_.Enfocar(control); }
    void MostrarTexto(const std::string& texto) override { vista_.MostrarTexto(texto); }
    bool OfreceEditor() const override { return vista_.OfreceEditor(); }
    bool AbrirEditor(const std::filesystem::path& ruta) override { return vista_.AbrirEditor(ruta); }

private:
    Vista& vista_;
    bool negado_ = false;
    int aviso_ = 0;
};

}  // namespace qor
