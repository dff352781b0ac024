#include "input/preview_files.h"

#include "base/failure.h"

namespace qor {

void ArchivoVisto::Abrir(const std::filesystem::path& ruta) {
    contador_ = {};
    indice_.reset();
    identidad_.reset();
    fallo_.reset();
    ruta_ = ruta;
    if (ruta_.empty()) return;
    try {
        indice_ = std::make_shared<IndiceDeLineas>(ruta_);
        identidad_ = Identidad(ruta_);
    } catch (const FalloDeArchivo& fallo) {
        fallo_ = FalloDe(fallo);
        return;
    }
    indice_->Avanzar();
    contador_ = std::jthread([indice = indice_.get()](const std::stop_token& alto) {
        while (!alto.stop_requested() && indice->Avanzar()) {
        }
    });
}

bool ArchivoVisto::HaCambiado() const {
    if (ruta_.empty()) return false;
    try {
        return Identidad(ruta_) != identidad_;
    } catch (const FalloDeArchivo&) {
        return identidad_.has_value();
    }
}

}  // namespace qor
