#include "editor/FormConsultadeEliminar.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/words.h"

namespace qor {

FormConsultadeEliminar::FormConsultadeEliminar(const TextosIdioma& textos, QWidget* padre)
    : Dialogo(textos, "FormConsultadeEliminar", padre) {
    setWindowTitle(Palabra(palabra::BorrarElOrigenDeDatos));
    auto* const orden = new QVBoxLayout(this);
    const auto nuevaCasilla = [&](const char* nombre, int rotulo) {
        auto* const casilla = new QCheckBox(Palabra(rotulo), this);
        casilla->setObjectName(QString::fromLatin1(nombre));
        orden->addWidget(casilla);
        return casilla;
    };
    casillas_ = {nuevaCasilla("CheckVariables", palabra::CasillaDeclaraciones), nuevaCasilla("CheckForms", palabra::CasillaRutinas),
                 nuevaCasilla("CheckUsuario", palabra::CasillaCodigoQueLee)};
    auto* const OKButton = NuevoBoton("OKButton", Palabra(palabra::Aceptar));
    OKButton->setDefault(true);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OKButton}));
    PonerTamano(44, 8);
}

std::string FormConsultadeEliminar::Eleccion() const {
    std::string eleccion;
    for (const auto* const casilla : casillas_) eleccion += result() == QDialog::Accepted && casilla->isChecked() ? '1' : '0';
    return eleccion;
}

}  // namespace qor
