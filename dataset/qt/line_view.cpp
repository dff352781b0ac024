#include "dataset/qt/line_view.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <limits>

#include "base/qt/fixed_font.h"
#include "base/qt/text.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeCaracteres = 4096;              // of a line that is shown
constexpr std::size_t maximoAlCopiar = std::size_t{1} << 20;  // more than any line of a data set has
constexpr int milisegundosPorMirada = 100;
constexpr int separacion = 6;

}  // namespace

VistaDeLineas::VistaDeLineas(QWidget* padre) : QAbstractScrollArea(padre) {
    setFont(LetraFija());
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    verticalScrollBar()->setObjectName(QStringLiteral("VScroll1"));
    horizontalScrollBar()->setObjectName(QStringLiteral("HScroll1"));
    horizontalScrollBar()->setSingleStep(4);
    reloj_.setInterval(milisegundosPorMirada);
    connect(&reloj_, &QTimer::timeout, this, &VistaDeLineas::Contar);
}

VistaDeLineas::~VistaDeLineas() = default;

void VistaDeLineas::Abrir(const std::filesystem::path& ruta) {
    Cerrar();
    indice_ = std::make_unique<IndiceDeLineas>(ruta);
    indice_->Avanzar();
    Contar();
    contador_ = std::jthread([indice = indice_.get()](const std::stop_token& alto) {
        while (!alto.stop_requested() && indice->Avanzar()) {
        }
    });
    reloj_.start();
}

void VistaDeLineas::Cerrar() {
    reloj_.stop();
    contador_ = {};  // asks the thread to stop, and waits
    indice_.reset();
    lineas_ = actual_ = masAncha_ = 0;
    visibles_.clear();
    AjustarBarras();
    viewport()->update();
    emit PosicionCambiada(0, 0);
}

void VistaDeLineas::Contar() {
    const bool completo = indice_->Completo();
    lineas_ = indice_->Lineas();
    AjustarBarras();
    const bool paginaLlena = visibles_.size() > static_cast<std::size_t>(LineasPorPagina());
    if (!paginaLlena) LeerVisibles();
    if (completo) reloj_.stop();
    emit PosicionCambiada(actual_, lineas_);
}

int VistaDeLineas::LineasPorPagina() const { return std::max(1, viewport()->height() / fontMetrics().lineSpacing()); }

int VistaDeLineas::AnchoDeNumeros() const {
    const auto digitos = static_cast<int>(QString::number(std::max<std::size_t>(lineas_, 1)).size());
    return fontMetrics().horizontalAdvance(QLatin1Char('9')) * digitos + 2 * separacion;
}

std::size_t VistaDeLineas::Primera() const { return static_cast<std::size_t>(verticalScrollBar()->value()); }

void VistaDeLineas::AjustarBarras() {
    const auto pagina = static_cast<std::size_t>(LineasPorPagina());
    const std::size_t ultima = lineas_ > pagina ? lineas_ - pagina : 0;
    verticalScrollBar()->setPageStep(static_cast<int>(pagina));
    verticalScrollBar()->setRange(0, static_cast<int>(std::min<std::size_t>(ultima, std::numeric_limits<int>::max())));
    const int letra = std::max(1, fontMetrics().horizontalAdvance(QLatin1Char('0')));
    const int columnas = std::max(1, (viewport()->width() - AnchoDeNumeros()) / letra);
    horizontalScrollBar()->setPageStep(columnas);
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(masAncha_) - columnas + 1));
}

void VistaDeLineas::LeerVisibles() {
    if (!indice_) return;
    visibles_ = indice_->Leer(Primera(), static_cast<std::size_t>(LineasPorPagina()) + 1, maximoDeCaracteres);
    const std::size_t antes = masAncha_;
    for (const auto& linea : visibles_) masAncha_ = std::max(masAncha_, linea.size());
    if (masAncha_ != antes) AjustarBarras();
    viewport()->update();
}

void VistaDeLineas::IrALinea(std::size_t linea) {
    if (lineas_ == 0) return;
    actual_ = std::min(linea, lineas_ - 1);
    const auto pagina = static_cast<std::size_t>(LineasPorPagina());
    if (actual_ < Primera()) verticalScrollBar()->setValue(static_cast<int>(actual_));
    if (actual_ >= Primera() + pagina) verticalScrollBar()->setValue(static_cast<int>(actual_ - pagina + 1));
    viewport()->update();
    emit PosicionCambiada(actual_, lineas_);
}

void VistaDeLineas::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pintor(viewport());
    const int alto = fontMetrics().lineSpacing();
    const int margen = AnchoDeNumeros();
    const int letra = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int desplazado = horizontalScrollBar()->value() * letra;
    const QColor numeros = palette().color(QPalette::Disabled, QPalette::Text);
    for (std::size_t i = 0; i < visibles_.size(); ++i) {
        const int y = static_cast<int>(i) * alto;
        const bool elegida = Primera() + i == actual_;
        if (elegida) pintor.fillRect(margen, y, viewport()->width(), alto, palette().highlight());
        pintor.setClipRect(margen, 0, viewport()->width(), viewport()->height());
        pintor.setPen(palette().color(elegida ? QPalette::HighlightedText : QPalette::Text));
        pintor.drawText(margen + separacion - desplazado, y + fontMetrics().ascent(), TextoQt(visibles_[i]));
        pintor.setClipping(false);
        pintor.setPen(numeros);
        pintor.drawText(QRect(0, y, margen - separacion, alto), Qt::AlignRight | Qt::AlignVCenter,
                        QString::number(Primera() + i + 1));
    }
}

void VistaDeLineas::resizeEvent(QResizeEvent* evento) {
    QAbstractScrollArea::resizeEvent(evento);
    AjustarBarras();
    LeerVisibles();
}

void VistaDeLineas::keyPressEvent(QKeyEvent* evento) {
    const auto pagina = static_cast<std::size_t>(LineasPorPagina());
    const auto haciaArriba = [this](std::size_t cuantas) { IrALinea(actual_ > cuantas ? actual_ - cuantas : 0); };
    if (evento->matches(QKeySequence::Copy)) return Copiar();
    const bool conControl = evento->modifiers().testFlag(Qt::ControlModifier);
    auto* const horizontal = horizontalScrollBar();
    switch (evento->key()) {
        case Qt::Key_Up: return haciaArriba(1);
        case Qt::Key_Down: return IrALinea(actual_ + 1);
        case Qt::Key_PageUp: return haciaArriba(pagina);
        case Qt::Key_PageDown: return IrALinea(actual_ + pagina);
        case Qt::Key_Left: return horizontal->triggerAction(QScrollBar::SliderSingleStepSub);
        case Qt::Key_Right: return horizontal->triggerAction(QScrollBar::SliderSingleStepAdd);
        case Qt::Key_Home:
            horizontal->setValue(0);
            if (conControl) IrALinea(0);
            return;
        case Qt::Key_End: return conControl ? IrALinea(lineas_) : horizontal->setValue(horizontal->maximum());
        default: QAbstractScrollArea::keyPressEvent(evento);
    }
}

void VistaDeLineas::mousePressEvent(QMouseEvent* evento) {
    const int linea = static_cast<int>(evento->position().y()) / fontMetrics().lineSpacing();
    if (evento->button() == Qt::LeftButton && linea >= 0) IrALinea(Primera() + static_cast<std::size_t>(linea));
}

void VistaDeLineas::scrollContentsBy(int /*dx*/, int dy) {
    if (dy != 0) LeerVisibles();
    viewport()->update();
}

void VistaDeLineas::changeEvent(QEvent* evento) {
    QAbstractScrollArea::changeEvent(evento);
    if (evento->type() == QEvent::FontChange) AjustarBarras();
}

void VistaDeLineas::Copiar() {
    if (!indice_) return;
    const auto linea = indice_->Leer(actual_, 1, maximoAlCopiar);
    if (!linea.empty()) QApplication::clipboard()->setText(TextoQt(linea.front()));
}

}  // namespace qor
