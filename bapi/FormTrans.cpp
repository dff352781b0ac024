#include "bapi/FormTrans.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "base/key_filters.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

FormTrans::FormTrans(const TextosIdioma& textos, NavegadorDeBAPIs navegador, QWidget* padre)
    : Dialogo(textos, "FormTrans", padre), navegador_(std::move(navegador)), Transac_(new CajaDeLinea(this)) {
    setWindowTitle(Palabra(palabra::AgregarUnaOperacion));
    Transac_->setObjectName(QStringLiteral("Transac"));
    Transac_->PonerFiltro([](std::string_view texto) { return FiltrarTexto("Transac", texto); });
    auto* const ButtonBAPILocator = NuevoBoton("ButtonBAPILocator", Palabra(palabra::BuscadorDeBAPIs));
    ButtonBAPILocator->setEnabled(static_cast<bool>(navegador_));
    auto* const OK = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK->setEnabled(false);
    auto* const Cancel = NuevoBoton("Cancel", Rotulo(187));
    connect(Transac_, &QLineEdit::textChanged, this, [this, OK, Cancel] {
        const bool hayTexto = !EstaEnBlanco(Transac_->Texto());
        OK->setEnabled(hayTexto);
        (hayTexto ? OK : Cancel)->setDefault(true);
    });
    connect(OK, &QPushButton::clicked, this, &QDialog::accept);
    connect(Cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ButtonBAPILocator, &QPushButton::clicked, this, [this] {
        Transac_->clear();
        navegador_(this);
        reject();
    });
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(NuevoRotulo("TransacLabel", Palabra(palabra::CodigoDeTransaccion), Transac_));
    orden->addWidget(Transac_);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({ButtonBAPILocator, OK, Cancel}, 1));
    PonerTamano(52, 8);
    Transac_->setFocus();
}

std::string FormTrans::OperacionElegida() const {
    return result() == QDialog::Accepted ? std::string(Recortar(Transac_->Texto())) : std::string();
}

}  // namespace qor
