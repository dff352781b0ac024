#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "base/qt/dialog.h"

class QRadioButton;

namespace qor {

// Asks for the language at the first start, in the words of each language of the file.
class FormSelectLanguage : public Dialogo {
    Q_OBJECT
public:
    FormSelectLanguage(const TextosIdioma& textos, const std::filesystem::path& archivoDeIdiomas, QWidget* padre);

    // The name of the chosen language, as the language file has it.
    std::string Idioma() const;

private:
    std::vector<std::pair<std::string, QRadioButton*>> opciones_;
};

}  // namespace qor
