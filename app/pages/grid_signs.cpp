#include "app/pages/grid_signs.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "base/qt/text.h"

namespace qor {

MargenDeSignos::MargenDeSignos(const char* nombre, QWidget* padre) : QWidget(padre) {
    setObjectName(QString::fromLatin1(nombre));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

int MargenDeSignos::Lado() const { return fontMetrics().ascent() + 2; }

QSize MargenDeSignos::sizeHint() const { return {Lado(), 0}; }

void MargenDeSignos::PonerSignos(SignosDeFilas signos) {
    if (signos == signos_) return;
    signos_ = std::move(signos);
    Describir();
    update();
}

void MargenDeSignos::MostrarDesde(int primeraFila) {
    if (primeraFila == primeraFila_) return;
    primeraFila_ = primeraFila;
    if (signos_.empty()) return;
    Describir();
    update();
}

void MargenDeSignos::Describir() {
    for (std::size_t i = 0; i < lineas_.size(); ++i) {
        const auto* const signo = SignoDe(i);
        const QString texto = signo == nullptr ? QString() : TextoQt(signo->texto);
        for (auto* const celda : lineas_[i]) {
            if (celda->accessibleDescription() != texto) celda->setAccessibleDescription(texto);
        }
    }
}

const SignoDeFila* MargenDeSignos::SignoDe(std::size_t linea) const {
    const auto hallado = signos_.find(primeraFila_ + static_cast<int>(linea));
    return hallado == signos_.end() ? nullptr : &hallado->second;
}

// The height of the line, over the width of the margin.
QRect MargenDeSignos::MarcoDe(std::size_t linea) const {
    const QWidget* const celda = lineas_[linea].front();
    const int arriba = mapFromGlobal(celda->mapToGlobal(QPoint(0, 0))).y();
    return {0, arriba, width(), celda->height()};
}

void MargenDeSignos::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pintor(this);
    for (std::size_t i = 0; i < lineas_.size(); ++i) {
        const auto* const signo = SignoDe(i);
        if (signo == nullptr) continue;
        QRect marco(0, 0, Lado(), Lado());
        marco.moveCenter(MarcoDe(i).center());
        iconos_.De(signo->gravedad).paint(&pintor, marco);
    }
}

bool MargenDeSignos::event(QEvent* evento) {
    if (evento->type() != QEvent::ToolTip) return QWidget::event(evento);
    const auto* const ayuda = static_cast<QHelpEvent*>(evento);
    for (std::size_t i = 0; i < lineas_.size(); ++i) {
        const auto* const signo = SignoDe(i);
        if (signo == nullptr || !MarcoDe(i).contains(ayuda->pos())) continue;
        QToolTip::showText(ayuda->globalPos(), ComoConsejo(TextoQt(signo->texto)), this, MarcoDe(i));
        return true;
    }
    QToolTip::hideText();
    evento->ignore();
    return true;
}

}  // namespace qor
