#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "base/messages.h"
#include "base/view.h"

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
    };

    explicit VistaDePantalla(const TextosIdioma& textos) : textos_(textos) {}

    void Servir(Formulario formulario) { formulario_ = std::move(formulario); }

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;
    std::optional<std::filesystem::path> ElegirParaAbrir(const std::filesystem::path& directorio,
                                                         const std::string& filtro) override;
    std::optional<std::filesystem::path> ElegirParaGrabar(const std::string& filtro) override;
    void PunteroOcupado(bool ocupado) override;
    void MostrarFila(Tabla tabla, int fila) override;
    void Enfocar(const std::string& control) override;
    void MostrarTexto(const std::string& texto) override;
    bool OfreceEditor() const override { return true; }
    bool AbrirEditor(const std::filesystem::path& ruta) override;

private:
    QWidget* Padre() const;
    void AntesDePreguntar() const;
    const TextosIdioma& textos_;
    Formulario formulario_;
    bool ocupado_ = false;
};

}  // namespace qor
