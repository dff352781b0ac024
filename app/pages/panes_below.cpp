#include "app/pages/panes_below.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int parteDeLaVentana = 3;   // at most a third
constexpr int parteConPocoSitio = 5;  // a fifth, where the pages need more than is left
constexpr int letrasParaDos = 150;    // of the width, for a second pane

}  // namespace

DivisionConPaneles::DivisionConPaneles(QWidget* paginas, QWidget* primero, QWidget* segundo, QWidget* padre)
    : QSplitter(Qt::Vertical, padre), primero_(primero), segundo_(segundo), paneles_(new QSplitter(Qt::Horizontal, this)) {
    setObjectName(QStringLiteral("DivisionConPaneles"));
    setChildrenCollapsible(false);
    addWidget(paginas);
    paneles_->setObjectName(QStringLiteral("PanelesDeAbajo"));
    paneles_->setChildrenCollapsible(false);
    paneles_->addWidget(primero);
    paneles_->addWidget(segundo);
    paneles_->setStretchFactor(0, 3);
    paneles_->setStretchFactor(1, 2);
    addWidget(paneles_);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    for (auto* const oculto : {primero, segundo, static_cast<QWidget*>(paneles_)}) oculto->hide();
    connect(this, &QSplitter::splitterMoved, this, [this] { alto_ = paneles_->height(); });
}

void DivisionConPaneles::MostrarPrimero(bool pedido) {
    if (primero_->isHidden() != pedido) return;
    primero_->setVisible(pedido);
    Acomodar();
}

void DivisionConPaneles::MostrarSegundo(bool pedido) {
    segundoPedido_ = pedido;
    Acomodar();
}

void DivisionConPaneles::resizeEvent(QResizeEvent* evento) {
    QSplitter::resizeEvent(evento);
    Acomodar();
}

int DivisionConPaneles::Libre() const { return height() - handleWidth() - widget(0)->sizeHint().height(); }

void DivisionConPaneles::Acomodar() {
    const bool cabe = Libre() >= segundo_->sizeHint().height() && width() >= fontMetrics().averageCharWidth() * letrasParaDos;
    segundo_->setVisible(segundoPedido_ && cabe);
    const bool antes = !paneles_->isHidden();
    const bool ahora = !primero_->isHidden() || !segundo_->isHidden();
    paneles_->setMaximumHeight(std::max(paneles_->minimumSizeHint().height(), window()->height() / parteDeLaVentana));
    paneles_->setVisible(ahora);
    // What a user has moved stays as it is.
    if (!ahora || (antes && alto_ > 0)) return;
    // Where there is little room the pages need it more.
    const int poco =
        std::max(primero_->minimumSizeHint().height(), std::min(primero_->sizeHint().height(), height() / parteConPocoSitio));
    const int propio = std::max(poco, Libre());
    const int alto = std::min(alto_ > 0 ? alto_ : propio, paneles_->maximumHeight());
    setSizes({height() - handleWidth() - alto, alto});
}

}  // namespace qor
