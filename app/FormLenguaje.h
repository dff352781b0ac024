#pragma once

#include <filesystem>

#include "base/qt/dialog.h"
#include "base/view.h"

class QComboBox;

namespace qor {

// Lets the user choose among the languages of the language file.
class FormLenguaje : public Dialogo {
    Q_OBJECT
public:
    FormLenguaje(const TextosIdioma& textos, Vista& vista, const std::filesystem::path& archivoDeIdiomas,
                 const std::string& IdiomaActual, QWidget* padre);

    // The chosen name, cut. Empty when the dialog was closed without OK.
    std::string IdiomaElegido() const;

private:
    QComboBox* Lenguaje_;
};

}  // namespace qor
