#include "app/FormLenguaje.h"

#include <QComboBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/language.h"
#include "app/start_up.h"
#include "base/qt/lists.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

FormLenguaje::FormLenguaje(const TextosIdioma& textos, Vista& vista, const std::filesystem::path& archivoDeIdiomas,
                           const std::string& IdiomaActual, QWidget* padre)
    : Dialogo(textos, "FormLenguaje", padre), Lenguaje_(new QComboBox(this)) {
    setWindowTitle(Palabra(palabra::ElijaUnIdioma));
    Lenguaje_->setObjectName(QStringLiteral("Lenguaje"));
    Lenguaje_->setAccessibleName(windowTitle());
    Lenguaje_->setEditable(true);
    Lenguaje_->setLineEdit(new CajaDeLinea(Lenguaje_));
    const auto lista = ListarIdiomas(archivoDeIdiomas);
    PonerCombo(*Lenguaje_, lista.nombres);
    // The list writes a name in its own case; so the start text is its entry where it has one.
    const int presente = Lenguaje_->findText(TextoQt(IdiomaActual), Qt::MatchFixedString);
    Lenguaje_->setCurrentIndex(presente);
    if (presente < 0) Lenguaje_->setCurrentText(TextoQt(IdiomaActual));
    auto* const OK = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK->setDefault(true);
    connect(OK, &QPushButton::clicked, this, &QDialog::accept);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(Lenguaje_);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OK}));
    PonerTamano(44, 6);
    if (lista.completa) return;
    Mensaje aviso = MensajeLiteral(avisoFalloListaDeIdiomas);
    aviso.detalle = lista.detalle;
    QTimer::singleShot(0, this, [&vista, aviso] { vista.Advertir(aviso); });
}

std::string FormLenguaje::IdiomaElegido() const {
    if (result() != QDialog::Accepted) return {};
    return std::string(Recortar(TextoDelModelo(Lenguaje_->currentText())));
}

}  // namespace qor
