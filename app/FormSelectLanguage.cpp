#include "app/FormSelectLanguage.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QVBoxLayout>

#include "app/language.h"
#include "base/qt/text.h"
#include "base/qt/words.h"

namespace qor {

FormSelectLanguage::FormSelectLanguage(const TextosIdioma& textos, const std::filesystem::path& archivoDeIdiomas, QWidget* padre)
    : Dialogo(textos, "FormSelectLanguage", padre) {
    setWindowTitle(QStringLiteral("Qor Generator"));
    auto* const orden = new QVBoxLayout(this);
    auto* const pregunta = NuevaExplicacion("Pregunta", {});
    orden->addWidget(pregunta);
    QStringList preguntas;
    const auto idiomas = ListarIdiomas(archivoDeIdiomas);
    for (std::size_t i = 0; i < idiomas.nombres.size(); ++i) {
        const std::string& nombre = idiomas.nombres[i];
        const TextosIdioma& propios = idiomas.presentes[i];
        preguntas << qor::Palabra(propios, palabra::ElijaUnIdioma);
        const QString rotulo = qor::Palabra(propios, palabra::NombreDelIdioma);
        auto* const opcion = new QRadioButton(rotulo.isEmpty() ? TextoQt(nombre) : rotulo, this);
        opcion->setObjectName(QStringLiteral("Option") + TextoQt(nombre));
        opcion->setChecked(i == 0);
        orden->addWidget(opcion);
        opciones_.emplace_back(nombre, opcion);
    }
    preguntas.removeAll(QString());
    preguntas.removeDuplicates();
    pregunta->setText(preguntas.join(QLatin1Char('\n')));
    auto* const BotonOK = NuevoBoton("BotonOK", Palabra(palabra::Aceptar));
    BotonOK->setDefault(true);
    connect(BotonOK, &QPushButton::clicked, this, &QDialog::accept);
    orden->addStretch();
    orden->addLayout(FilaDeBotones({BotonOK}));
    PonerTamano(40, 10);
}

std::string FormSelectLanguage::Idioma() const {
    for (const auto& [nombre, opcion] : opciones_) {
        if (opcion->isChecked()) return nombre;
    }
    return "English";
}

}  // namespace qor
