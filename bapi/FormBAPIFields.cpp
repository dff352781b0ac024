#include "bapi/FormBAPIFields.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/words.h"

namespace qor {

FormBAPIFields::FormBAPIFields(const TextosIdioma& textos, QWidget* padre)
    : Dialogo(textos, "FormBAPIFields", padre), TodosOption_(new QRadioButton(this)), ObligatoriosOption_(new QRadioButton(this)) {
    setWindowTitle(Rotulo(195));
    TodosOption_->setObjectName(QStringLiteral("TodosOption"));
    TodosOption_->setText(Rotulo(196));
    TodosOption_->setChecked(true);
    ObligatoriosOption_->setObjectName(QStringLiteral("ObligatoriosOption"));
    ObligatoriosOption_->setText(Rotulo(197));
    auto* const OK = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK->setDefault(true);
    auto* const Cancel = NuevoBoton("Cancel", Rotulo(187));
    connect(OK, &QPushButton::clicked, this, &QDialog::accept);
    connect(Cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(TodosOption_);
    orden->addWidget(ObligatoriosOption_);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({OK, Cancel}));
    PonerTamano(46, 8);
}

std::optional<bool> FormBAPIFields::Preguntar() {
    if (exec() != QDialog::Accepted) return std::nullopt;
    return TodosOption_->isChecked();
}

}  // namespace qor
