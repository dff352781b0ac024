#pragma once

#include "base/qt/dialog.h"
#include "generator/data_source_models.h"

class QRadioButton;

namespace qor {

// Asks where a file of the data source's model lies.
class FormConsultaOrigen : public Dialogo {
    Q_OBJECT
public:
    FormConsultaOrigen(const TextosIdioma& textos, QWidget* padre);

    // Ninguna as long as OKButton was not pressed.
    FuenteDeModelo Fuente() const;

private:
    QRadioButton* ClientFlatOp_;
    QRadioButton* ClientTabOp_;
    QRadioButton* ServerOp_;
};

}  // namespace qor
