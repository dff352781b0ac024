#include "model/undo.h"

#include <utility>

namespace qor {

namespace {

int Siguiente(int lugar) { return lugar >= PilaDeshacer::lugares - 1 ? 0 : lugar + 1; }

}  // namespace

void PilaDeshacer::Guardar(RegistroDeshacer registro) {
    const auto lugar = static_cast<std::size_t>(cabeza_);
    if (lugar >= registros_.size()) registros_.resize(lugar + 1);
    registros_[lugar] = std::move(registro);
    cabeza_ = Siguiente(cabeza_);
    if (cabeza_ == cola_) cola_ = Siguiente(cola_);
}

std::optional<RegistroDeshacer> PilaDeshacer::Recuperar() {
    if (Vacia()) return std::nullopt;
    cabeza_ = cabeza_ == 0 ? lugares - 1 : cabeza_ - 1;
    return registros_[static_cast<std::size_t>(cabeza_)];
}

}  // namespace qor
