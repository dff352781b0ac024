#include "app/FormAbout.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "editor/document_commands.h"

namespace qor {

namespace {

// In parts of the font of the other dialogs.
constexpr double letraDeTitulo = 1.3;

}  // namespace

FormAbout::FormAbout(const TextosIdioma& textos, const QString& version, QWidget* padre) : Dialogo(textos, "frmAbout", padre) {
    PonerTitulo("Qor Generator");
    setSizeGripEnabled(false);
    auto* const Titulo = NuevoRotulo("Titulo", QString::fromLatin1(tituloDelPrograma));
    Titulo->setTextFormat(Qt::PlainText);
    QFont letra = Titulo->font();
    letra.setPointSizeF(letra.pointSizeF() * letraDeTitulo);
    letra.setBold(true);
    Titulo->setFont(letra);
    Titulo->setAlignment(Qt::AlignCenter);
    Titulo->setWordWrap(true);
    auto* const Version = NuevoRotulo("Version", QStringLiteral("(Release %1)").arg(version));
    Version->setAlignment(Qt::AlignCenter);
    auto* const orden = new QVBoxLayout(this);
    orden->addStretch();
    orden->addWidget(Titulo);
    orden->addSpacing(AltoDeLineas(1));
    orden->addWidget(Version);
    orden->addStretch();
    PonerTamano(64, 14);
}

void FormAbout::mouseReleaseEvent(QMouseEvent* /*evento*/) { accept(); }

void FormAbout::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
        case Qt::Key_Space:
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter: accept(); break;
        default: Dialogo::keyPressEvent(evento);
    }
}

}  // namespace qor
