#pragma once

#include "base/qt/dialog.h"

namespace qor {

// A finished text, to read and to copy.
class FormMostrarTextos : public Dialogo {
    Q_OBJECT
public:
    FormMostrarTextos(const TextosIdioma& textos, const std::string& TextoMostrado, QWidget* padre);
};

}  // namespace qor
