#include "app/pages/closable_pane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "app/qt/theme_icon.h"
#include "base/qt/words.h"

namespace qor {

PanelQueSeCierra::PanelQueSeCierra(const char* titulo, const char* cerrar, QWidget* padre)
    : QWidget(padre), titulo_(EnNegrita(Nuevo<QLabel>(titulo, this))), cerrar_(Nuevo<QToolButton>(cerrar, this)) {
    titulo_->setTextFormat(Qt::PlainText);
    cerrar_->setIcon(IconoDeTema("close"));
    cerrar_->setAutoRaise(true);
    cerrar_->setFocusPolicy(Qt::TabFocus);
    connect(cerrar_, &QToolButton::clicked, this, &PanelQueSeCierra::Cerrado);
}

QVBoxLayout* PanelQueSeCierra::PonerContenido(QWidget* contenido) {
    titulo_->setBuddy(contenido);
    auto* const cabeza = new QHBoxLayout;
    cabeza->addWidget(titulo_, 1);
    cabeza->addWidget(cerrar_);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(6, 0, 6, 0);
    orden->setSpacing(2);
    orden->addLayout(cabeza);
    orden->addWidget(contenido, 1);
    return orden;
}

void PanelQueSeCierra::PonerTitulo(const QString& titulo) { titulo_->setText(titulo); }

void PanelQueSeCierra::Nombrar(const QString& nombre, const TextosIdioma& textos) {
    titulo_->buddy()->setAccessibleName(nombre);
    cerrar_->setToolTip(Palabra(textos, palabra::Cerrar));
    cerrar_->setAccessibleName(Palabra(textos, palabra::Cerrar) + QLatin1Char(' ') + nombre);
}

int PanelQueSeCierra::AltoDeLaCabeza() const { return cerrar_->sizeHint().height(); }

}  // namespace qor
