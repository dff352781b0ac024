#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "base/files.h"
#include "base/line_index.h"
#include "base/messages.h"

namespace qor {

// A file that the preview shows. Its lines are counted in a thread of its own, so that a file of any size opens at once.
class ArchivoVisto {
public:
    explicit ArchivoVisto(std::string parametro) : parametro_(std::move(parametro)) {}

    // Opens it, or opens it anew. What stands in the way is told by Fallo. An empty path is no file.
    void Abrir(const std::filesystem::path& ruta);

    const std::string& Parametro() const { return parametro_; }  // such as FILE or SLOOP_1
    const std::filesystem::path& Ruta() const { return ruta_; }
    // Null while it is not open.
    const std::shared_ptr<IndiceDeLineas>& Indice() const { return indice_; }
    const std::optional<FalloDeMensaje>& Fallo() const { return fallo_; }
    // It is another one than when it was opened, or gone.
    bool HaCambiado() const;

private:
    std::string parametro_;
    std::filesystem::path ruta_;
    std::shared_ptr<IndiceDeLineas> indice_;
    std::optional<IdentidadDeArchivo> identidad_;
    std::jthread contador_;  // goes before the index
    std::optional<FalloDeMensaje> fallo_;
};

}  // namespace qor
