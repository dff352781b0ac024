#pragma once

#include <optional>

#include "base/qt/dialog.h"

class QRadioButton;

namespace qor {

// Asks which parameters of a BAPI get rows.
class FormBAPIFields : public Dialogo {
    Q_OBJECT
public:
    FormBAPIFields(const TextosIdioma& textos, QWidget* padre);

    // Runs the dialog: true for all parameters, false for the mandatory ones, nothing when it is cancelled.
    std::optional<bool> Preguntar();

private:
    QRadioButton* TodosOption_;
    QRadioButton* ObligatoriosOption_;
};

}  // namespace qor
