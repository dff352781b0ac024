#include "app/FormSelectLanguage.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qor {

FormSelectLanguage::FormSelectLanguage(const TextosIdioma& textos, QWidget* padre)
    : Dialogo(textos, "FormSelectLanguage", padre),
      OptionEnglish_(new QRadioButton(QStringLiteral("&English"), this)),
      OptionSpanish_(new QRadioButton(QStringLiteral("E&spañol"), this)) {
    // No language is chosen yet.
    setWindowTitle(QStringLiteral("Qor Generator"));
    OptionEnglish_->setObjectName(QStringLiteral("OptionEnglish"));
    OptionSpanish_->setObjectName(QStringLiteral("OptionSpanish"));
    OptionEnglish_->setChecked(true);
    auto* const BotonOK = NuevoBoton("BotonOK", QStringLiteral("OK"));
    BotonOK->setDefault(true);
    connect(BotonOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(NuevaExplicacion("Pregunta", QStringLiteral("Choose a language\nElija un idioma")));
    orden->addWidget(OptionEnglish_);
    orden->addWidget(OptionSpanish_);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({BotonOK}));
    PonerTamano(40, 10);
}

std::string FormSelectLanguage::Idioma() const { return OptionSpanish_->isChecked() ? "Espanol" : "English"; }

}  // namespace qor
