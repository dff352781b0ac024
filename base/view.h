#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/file_request.h"
#include "base/messages.h"

namespace qor {

enum class Icono { Advertencia, Informacion };
enum class Botones {
    SiNo,
    SiNoCancelar,
    AceptarCancelar,
    RestaurarDescartarLuego  // answered with yes, no and cancel
};
enum class Respuesta { Si, No, Aceptar, Cancelar };
enum class Tabla { Archivo, Transaccion };

// The only way in which the routines speak to the user. There is one for the screen, one for the command line, and one for tests
// that answers from a script.
class Vista {
public:
    virtual ~Vista() = default;

    virtual void Mostrar(const Mensaje& mensaje, Icono icono) = 0;
    void Advertir(const Mensaje& mensaje) { Mostrar(mensaje, Icono::Advertencia); }
    void Informar(const Mensaje& mensaje) { Mostrar(mensaje, Icono::Informacion); }

    virtual Respuesta Preguntar(const Mensaje& mensaje, Botones botones) = 0;

    // File dialogs. Nothing when the user cancels.
    virtual std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& pedido) = 0;
    virtual std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& pedido) = 0;
    virtual std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& pedido) = 0;

    virtual void PunteroOcupado(bool ocupado) = 0;

    // Brings a row of a table to the first line of its grid.
    virtual void MostrarFila(Tabla tabla, int fila) = 0;

    // Gives a control the focus, on its page of the tabs. A cell of a grid is named with its line, such as "Text5_0".
    virtual void Enfocar(const std::string& control) = 0;

    // A longer text in a window of its own.
    virtual void MostrarTexto(const std::string& texto) = 0;

    // Whether a finished report is offered in an editor, and the editor itself, which is not waited for. False when it fails.
    virtual bool OfreceEditor() const = 0;
    virtual bool AbrirEditor(const std::filesystem::path& ruta) = 0;
};

// A view without a screen: no dialog and no longer text is shown, and nothing can be moved, pointed at or focused. What is said and
// asked is left to those that it is the base of.
class VistaSinPantalla : public Vista {
public:
    std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& /*pedido*/) override { return std::nullopt; }
    std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& /*pedido*/) override { return std::nullopt; }
    std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& /*pedido*/) override { return std::nullopt; }
    void PunteroOcupado(bool /*ocupado*/) override {}
    void MostrarFila(Tabla /*tabla*/, int /*fila*/) override {}
    void Enfocar(const std::string& /*control*/) override {}
    void MostrarTexto(const std::string& /*texto*/) override {}
    bool OfreceEditor() const override { return false; }
    bool AbrirEditor(const std::filesystem::path& /*ruta*/) override { return false; }
};

// Another view, to which all is passed on. Those that it is the base of override what they do otherwise.
class VistaDelegada : public Vista {
public:
    explicit VistaDelegada(Vista& vista) : vista_(vista) {}

    void Mostrar(const Mensaje& mensaje, Icono icono) override { vista_.Mostrar(mensaje, icono); }
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override { return vista_.Preguntar(mensaje, botones); }
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
};

}  // namespace qor
