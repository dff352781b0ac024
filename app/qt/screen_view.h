#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "base/messages.h"
#include "base/view.h"

class QMessageBox;
class QWidget;

namespace qor {

// The view of the desktop program: message boxes under the program's title, the desktop's file dialogs, windows. What concerns the
// controls of the main form it passes on.
class VistaDePantalla : public Vista {
public:
    // What the main form does for the view.
    struct Formulario {
        std::function<void()> refrescar;  // shows the state as it is, before the user is asked
        std::function<void(Tabla, int)> mostrarFila;
        std::function<void(const std::string&)> enfocar;
        // A question is answered by the dialogs that are open at the moment; without one this window owns it.
        QWidget* ventana = nullptr;
        // The command of the settings that opens texts; empty for a known editor.
        std::function<std::string()> editorDeTextos;
        // Where a file dialog can begin, and what was chosen in one.
        std::function<LugaresDeDialogo(ClaseDeArchivo)> lugares;
        std::function<void(ClaseDeArchivo, const std::filesystem::path&)> recordar;
    };

    explicit VistaDePantalla(const TextosIdioma& textos) : textos_(textos) {}

    void Servir(Formulario formulario) { formulario_ = std::move(formulario); }

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;
    std::optional<std::filesystem::path> ElegirParaAbrir(const PedidoDeArchivo& pedido) override;
    std::optional<std::filesystem::path> ElegirParaGrabar(const PedidoDeArchivo& pedido) override;
    std::optional<std::filesystem::path> ElegirCarpeta(const PedidoDeArchivo& pedido) override;
    void PunteroOcupado(bool ocupado) override;
    void MostrarFila(Tabla tabla, int fila) override;
    void Enfocar(const std::string& control) override;
    void MostrarTexto(const std::string& texto) override;
    bool OfreceEditor() const override { return true; }
    bool AbrirEditor(const std::filesystem::path& ruta) override;

private:
    QWidget* Padre() const;
    void AntesDePreguntar() const;
    QString Comienzo(const PedidoDeArchivo& pedido) const;
    std::optional<std::filesystem::path> RecordarElegido(const PedidoDeArchivo& pedido, const QString& ruta) const;
    // Buttons that lead to a file that was written, and leave the box open.
    void AgregarBotonesDe(QMessageBox& caja, const std::filesystem::path& escrito);
    const TextosIdioma& textos_;
    Formulario formulario_;
    bool ocupado_ = false;
};

}  // namespace qor
