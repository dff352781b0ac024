#pragma once

#include "base/qt/dialog.h"
#include "base/view.h"

namespace qor {

// A small window for a text that is only read: the structures of the records.
class FormPreview : public Dialogo {
    Q_OBJECT
public:
    FormPreview(const TextosIdioma& textos, Vista& vista, const std::string& texto, const AbrirAyuda& ayuda, QWidget* padre);
};

}  // namespace qor
