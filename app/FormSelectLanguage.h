#pragma once

#include "base/qt/dialog.h"

class QRadioButton;

namespace qor {

// Asks for the language at the first start, in both languages.
class FormSelectLanguage : public Dialogo {
    Q_OBJECT
public:
    FormSelectLanguage(const TextosIdioma& textos, QWidget* padre);

    // The name of the chosen language, as the language file has it.
    std::string Idioma() const;

private:
    QRadioButton* OptionEnglish_;
    QRadioButton* OptionSpanish_;
};

}  // namespace qor
