#include "editor/FormMostrarTextos.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/read_only_box.h"
#include "base/words.h"
#include "editor/document_commands.h"

namespace qor {

FormMostrarTextos::FormMostrarTextos(const TextosIdioma& textos, const std::string& TextoMostrado, QWidget* padre)
    : Dialogo(textos, "FormMostrarTextos", padre) {
    PonerTitulo(tituloDelPrograma);
    auto* const Texto = new CajaDeLectura(this);
    Texto->setObjectName(QStringLiteral("Texto"));
    Texto->setAccessibleName(windowTitle());
    Texto->setFont(LetraFija());
    Texto->setLineWrapMode(QPlainTextEdit::NoWrap);
    new ColoresABAP(Texto->document());
    Texto->PonerTexto(TextoMostrado);
    auto* const OK = NuevoBoton("OK", Palabra(palabra::Aceptar));
    OK->setDefault(true);
    connect(OK, &QPushButton::clicked, this, &QDialog::accept);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(Texto);
    orden->addLayout(FilaDeBotones({OK}));
    PonerTamanoPara(*Texto);
    OK->setFocus();
}

}  // namespace qor
