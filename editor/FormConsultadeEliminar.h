#pragma once

#include <array>

#include "base/qt/dialog.h"

class QCheckBox;

namespace qor {

// Asks which texts of the data source are to be cleared.
class FormConsultadeEliminar : public Dialogo {
    Q_OBJECT
public:
    FormConsultadeEliminar(const TextosIdioma& textos, QWidget* padre);

    // "1" or "0" for declarations, forms and code, in this order; "000" as long as OKButton was not pressed.
    std::string Eleccion() const;

private:
    std::array<QCheckBox*, 3> casillas_;
};

}  // namespace qor
