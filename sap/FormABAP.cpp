#include "sap/FormABAP.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "base/busy_pointer.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"
#include "sap/publish.h"

namespace qor {

namespace {

std::string FiltrarNombre(std::string_view texto) {
    std::string pasado;
    for (const char tecla : texto) {
        if (const auto letra = TeclaDeNombre(tecla)) pasado += *letra;
    }
    return pasado;
}

}  // namespace

FormABAP::FormABAP(SesionSAP& sesion, const TextosIdioma& textos, Vista& vista, std::string NombreElegido, QWidget* padre)
    : Dialogo(textos, "FormABAP", padre), sesion_(sesion), vista_(vista), NombreABAP_(new CajaDeLinea(this)) {
    setWindowTitle(Rotulo(221));
    NombreABAP_->setObjectName(QStringLiteral("NombreABAP"));
    NombreABAP_->PonerFiltro(FiltrarNombre);
    NombreABAP_->PonerTexto(NombreElegido);
    OK_ = NuevoBoton("OK", Palabra(palabra::Aceptar));
    Cancel_ = NuevoBoton("Cancel", Rotulo(187));
    connect(NombreABAP_, &QLineEdit::textChanged, this, &FormABAP::Habilitar);
    connect(OK_, &QPushButton::clicked, this, &FormABAP::Aceptar);
    connect(Cancel_, &QPushButton::clicked, this, &QDialog::reject);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(NuevoRotulo("NombreABAPLabel", Palabra(palabra::Nombre), NombreABAP_));
    orden->addWidget(NombreABAP_);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OK_, Cancel_}));
    Habilitar();
    PonerTamano(52, 8);
    NombreABAP_->setFocus();
    NombreABAP_->selectAll();
}

void FormABAP::Habilitar() {
    const bool vale = OKHabilitado(NombreABAP_->Texto());
    OK_->setEnabled(vale);
    (vale ? OK_ : Cancel_)->setDefault(true);
}

void FormABAP::Aceptar() {
    CierreABAP cierre;
    {
        const ConPunteroOcupado puntero(vista_);
        cierre = AceptarNombreABAP(sesion_, NombreABAP_->Texto(), Textos(), vista_);
    }
    if (!cierre.cerrar) return;
    NombreElegido_ = cierre.NombreElegido;
    NombreElegido_.empty() ? reject() : accept();
}

}  // namespace qor
