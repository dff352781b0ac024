#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "app/examples.h"
#include "base/qt/dialog.h"

class QListWidget;

namespace qor {

// The choice of an example, each with its sentence.
class FormEjemplos : public Dialogo {
    Q_OBJECT
public:
    // `destino` is where the copy goes, which the user is told.
    FormEjemplos(const TextosIdioma& textos, const std::vector<EjemploIncluido>& ejemplos, const std::filesystem::path& destino,
                 QWidget* padre);

    // Behind exec: the place in the list; nothing where the user backs out.
    std::optional<std::size_t> Elegido() const;

private:
    QListWidget* lista_;
};

}  // namespace qor
