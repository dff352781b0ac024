#include "print/FormPreview.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/read_only_box.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 709;

}  // namespace

FormPreview::FormPreview(const TextosIdioma& textos, Vista& vista, const std::string& texto, const AbrirAyuda& ayuda,
                         QWidget* padre)
    : Dialogo(textos, "FormPreview", padre) {
    setWindowTitle(Rotulo(131));
    auto* const Preview = new CajaDeLectura(this);
    Preview->setObjectName(QStringLiteral("Preview"));
    Preview->setAccessibleName(windowTitle());
    Preview->setFont(LetraFija());
    Preview->setLineWrapMode(QPlainTextEdit::NoWrap);
    new ColoresABAP(Preview->document());
    Preview->PonerTexto(texto);
    Preview->AlTeclear([&textos, &vista] { vista.Advertir(Componer(textos, {362})); });
    auto* const AyudaBoton = NuevaAyuda("Ayuda", Rotulo(132), ayuda, paginaDeAyuda);
    auto* const OKButton = NuevoBoton("OKButton", Palabra(palabra::Aceptar));
    OKButton->setDefault(true);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(Preview);
    orden->addLayout(FilaDeBotones({AyudaBoton, OKButton}, 1));
    PonerTamanoPara(*Preview);
    OKButton->setFocus();
}

}  // namespace qor
