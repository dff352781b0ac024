#include "app/pages/structures_pane.h"

#include <QScrollBar>
#include <QTimer>
#include <utility>

#include "app/pages/controls.h"
#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/read_only_box.h"
#include "base/qt/text.h"
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
    : PanelQueSeCierra("TituloDeEstructuras", "CerrarEstructuras", padre),
      documento_(documento),
      preferencias_(preferencias),
      textos_(textos),
      texto_(Nuevo<CajaDeLectura>("TextoDeEstructuras", this)),
      pausa_(new QTimer(this)) {
    setObjectName(QStringLiteral("PanelDeEstructuras"));
    texto_->setFont(LetraFija());
    texto_->setLineWrapMode(QPlainTextEdit::NoWrap);
    new ColoresABAP(texto_->document());
    pausa_->setSingleShot(true);
    PonerContenido(texto_);

    connect(pausa_, &QTimer::timeout, this, &PanelDeEstructuras::Leer);
    RefrescarIdioma();
}

void PanelDeEstructuras::Encender(bool encendido) {
    encendido_ = encendido;
    leido_.reset();
    pausa_->stop();
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
    PonerTitulo(nombre);
    Nombrar(nombre, textos_);
}

bool PanelDeEstructuras::HayTexto() const { return !texto_->document()->isEmpty(); }

QSize PanelDeEstructuras::sizeHint() const {
    const int lineas = texto_->fontMetrics().lineSpacing() * lineasPropias;
    return {texto_->fontMetrics().averageCharWidth() * letrasPropias, AltoDeLaCabeza() + lineas};
}

QSize PanelDeEstructuras::minimumSizeHint() const { return {0, AltoDeLaCabeza() + texto_->fontMetrics().height() * 2}; }

}  // namespace qor
