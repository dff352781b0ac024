#include "editor/FormConsultaOrigen.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/words.h"

namespace qor {

FormConsultaOrigen::FormConsultaOrigen(const TextosIdioma& textos, QWidget* padre) : Dialogo(textos, "FormConsultaOrigen", padre) {
    setWindowTitle(Palabra(palabra::ArchivoALeer));
    auto* const orden = new QVBoxLayout(this);
    const auto nuevaOpcion = [&](const char* nombre, int rotulo) {
        auto* const opcion = new QRadioButton(Palabra(rotulo), this);
        opcion->setObjectName(QString::fromLatin1(nombre));
        orden->addWidget(opcion);
        return opcion;
    };
    ClientFlatOp_ = nuevaOpcion("ClientFlatOp", palabra::ArchivoDeEstacionAnchoFijo);
    ClientTabOp_ = nuevaOpcion("ClientTabOp", palabra::ArchivoDeEstacionTabuladores);
    ServerOp_ = nuevaOpcion("ServerOp", palabra::ArchivoDelServidor);
    ClientFlatOp_->setChecked(true);
    auto* const OKButton = NuevoBoton("OKButton", Palabra(palabra::Aceptar));
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
