#include "editor/FormConsultadeEliminar.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace qor {

FormConsultadeEliminar::FormConsultadeEliminar(const TextosIdioma& textos, QWidget* padre)
    : Dialogo(textos, "FormConsultadeEliminar", padre) {
    setWindowTitle(Literal("Clear the data source"));
    auto* const orden = new QVBoxLayout(this);
    const auto nuevaCasilla = [&](const char* nombre, std::string_view rotulo) {
        auto* const casilla = new QCheckBox(Literal(rotulo), this);
        casilla->setObjectName(QString::fromLatin1(nombre));
        orden->addWidget(casilla);
        return casilla;
    };
    casillas_ = {nuevaCasilla("CheckVariables", "&Declarations and parameters"), nuevaCasilla("CheckForms", "&Forms"),
                 nuevaCasilla("CheckUsuario", "Code that &reads the data")};
    auto* const OKButton = NuevoBoton("OKButton", Literal("OK"));
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
