#pragma once

#include <stdexcept>

#include "base/view.h"

namespace qor {

// Answers every question with yes, and takes a warning for a fault of the benchmark.
class VistaSilenciosa : public Vista {
public:
    void Mostrar(const Mensaje& mensaje, Icono icono) override {
        if (icono == Icono::Advertencia) throw std::runtime_error("message " + std::to_string(mensaje.Numero()) + mensaje.texto);
    }
    Respuesta Preguntar(const Mensaje& /*mensaje*/, Botones botones) override {
        return botones == Botones::AceptarCancelar ? Respuesta::Aceptar : Respuesta::Si;
    }
    std::optional<std::filesystem::path> ElegirParaAbrir(const std::filesystem::path& /*directorio*/,
                                                         const std::string& /*filtro*/) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> ElegirParaGrabar(const std::string& /*filtro*/) override { return std::nullopt; }
    void PunteroOcupado(bool /*ocupado*/) override {}
    void MostrarFila(Tabla /*tabla*/, int /*fila*/) override {}
    void Enfocar(const std::string& /*control*/) override {}
    void MostrarTexto(const std::string& /*texto*/) override {}
    bool OfreceEditor() const override { return false; }
    bool AbrirEditor(const std::filesystem::path& /*ruta*/) override { return false; }
};

}  // namespace qor
