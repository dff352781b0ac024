#include "app/pages/structures_pane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "app/qt/theme_icon.h"
#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/read_only_box.h"
#include "base/qt/text.h"
#include "base/qt/words.h"
#include "base/words.h"
#include "editor/data_source.h"

namespace qor {

namespace {

constexpr int rotuloDeEstructuras = 131;
constexpr int milisegundosDePausa = 500;
constexpr int lineasPropias = 7;
constexpr int letrasPropias = 60;

}  // namespace

PanelDeEstructuras::PanelDeEstructuras(const Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos,
                                       QWidget* padre)
    : QWidget(padre),
      documento_(documento),
      preferencias_(preferencias),
      textos_(textos),
      titulo_(EnNegrita(Nuevo<QLabel>("TituloDeEstructuras", this))),
      cerrar_(Nuevo<QToolButton>("CerrarEstructuras", this)),
      texto_(Nuevo<CajaDeLectura>("TextoDeEstructuras", this)),
      pausa_(new QTimer(this)) {
    setObjectName(QStringLiteral("PanelDeEstructuras"));
    titulo_->setTextFormat(Qt::PlainText);
    titulo_->setBuddy(texto_);
    cerrar_->setIcon(IconoDeTema("close"));
    cerrar_->setAutoRaise(true);
    cerrar_->setFocusPolicy(Qt::TabFocus);
    texto_->setFont(LetraFija());
    texto_->setLineWrapMode(QPlainTextEdit::NoWrap);
    new ColoresABAP(texto_->document());
    pausa_->setSingleShot(true);

    auto* const cabeza = new QHBoxLayout;
    cabeza->addWidget(titulo_, 1);
    cabeza->addWidget(cerrar_);
    auto* const orden = new QVBoxLayout(this);
    orden->setContentsMargins(6, 0, 6, 0);
    orden->setSpacing(2);
    orden->addLayout(cabeza);
    orden->addWidget(texto_, 1);

    connect(cerrar_, &QToolButton::clicked, this, &PanelDeEstructuras::Cerrado);
    connect(pausa_, &QTimer::timeout, this, &PanelDeEstructuras::Leer);
    RefrescarIdioma();
}

void PanelDeEstructuras::Encender(bool encendido) {
    encendido_ = encendido;
    leido_.reset();
    Seguir();
}

void PanelDeEstructuras::Seguir() {
    if (!encendido_) return;
    const Leido ahora{documento_.Revision(), documento_.ruta, preferencias_};
    if (leido_ == ahora) return;
    const bool otro = !leido_ || leido_->ruta != ahora.ruta || leido_->revision > ahora.revision;
    leido_ = ahora;
    deOtro_ = deOtro_ || otro;
    pausa_->start(otro ? 0 : milisegundosDePausa);
}

void PanelDeEstructuras::Leer() {
    const QString nuevo = LineasQt(EstructurasDe(documento_, preferencias_, textos_)).trimmed();
    const bool deOtro = std::exchange(deOtro_, false);
    if (nuevo == texto_->toPlainText() || (nuevo.isEmpty() && !deOtro)) return;
    const int primera = texto_->verticalScrollBar()->value();
    texto_->setPlainText(nuevo);
    texto_->verticalScrollBar()->setValue(primera);
    emit Cambiado();
}

void PanelDeEstructuras::RefrescarIdioma() {
    const QString nombre = TextoQt(textos_.Texto(rotuloDeEstructuras));
    titulo_->setText(nombre);
    texto_->setAccessibleName(nombre);
    cerrar_->setToolTip(Palabra(textos_, palabra::Cerrar));
    cerrar_->setAccessibleName(Palabra(textos_, palabra::Cerrar) + QLatin1Char(' ') + nombre);
}

bool PanelDeEstructuras::HayTexto() const { return !texto_->document()->isEmpty(); }

QSize PanelDeEstructuras::sizeHint() const {
    const int lineas = texto_->fontMetrics().lineSpacing() * lineasPropias;
    return {texto_->fontMetrics().averageCharWidth() * letrasPropias, cerrar_->sizeHint().height() + lineas};
}

QSize PanelDeEstructuras::minimumSizeHint() const { return {0, cerrar_->sizeHint().height() + texto_->fontMetrics().height() * 2}; }

}  // namespace qor
