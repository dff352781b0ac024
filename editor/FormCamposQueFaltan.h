#pragma once

#include <string>
#include <vector>

#include "base/qt/dialog.h"

class QListWidget;

namespace qor {

// A list of fields to tick: which of the fields that the program side names are added to the file side. All are ticked at first.
class FormCamposQueFaltan : public Dialogo {
    Q_OBJECT
public:
    FormCamposQueFaltan(const TextosIdioma& textos, const std::vector<std::string>& campos, QWidget* padre);

    // The ticked ones, in their order. None when the dialog was cancelled.
    std::vector<std::string> Elegidos() const;

private:
    void Marcar(bool marcados);

    const std::vector<std::string> campos_;
    QListWidget* lista_;
};

}  // namespace qor
