#include "editor/FormConsultaOrigen.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qor {

FormConsultaOrigen::FormConsultaOrigen(const TextosIdioma& textos, QWidget* padre) : Dialogo(textos, "FormConsultaOrigen", padre) {
    setWindowTitle(Literal("File to read"));
    auto* const orden = new QVBoxLayout(this);
    const auto nuevaOpcion = [&](const char* nombre, std::string_view rotulo) {
        auto* const opcion = new QRadioButton(Literal(rotulo), this);
        opcion->setObjectName(QString::fromLatin1(nombre));
        orden->addWidget(opcion);
        return opcion;
    };
    ClientFlatOp_ = nuevaOpcion("ClientFlatOp", "File of the &workstation, fields of fixed width");
    ClientTabOp_ = nuevaOpcion("ClientTabOp", "File of the workstation, fields delimited by &tabs");
    ServerOp_ = nuevaOpcion("ServerOp", "File of the &server");
    ClientFlatOp_->setChecked(true);
    auto* const OKButton = NuevoBoton("OKButton", Literal("OK"));
    OKButton->setDefault(true);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OKButton}));
    PonerTamano(56, 8);
}

FuenteDeModelo FormConsultaOrigen::Fuente() const {
    if (result() != QDialog::Accepted) return FuenteDeModelo::Ninguna;
    if (ClientFlatOp_->isChecked()) return FuenteDeModelo::ClientFlat;
    return ClientTabOp_->isChecked() ? FuenteDeModelo::ClientTab : FuenteDeModelo::Server;
}

}  // namespace qor
