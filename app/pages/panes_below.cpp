#include "app/pages/panes_below.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int parteDeLaVentana = 3;  // at most a third
constexpr int parteDePoco = 5;
constexpr int letrasParaDos = 150;  // of the width, for a second pane

}  // namespace

DivisionConPaneles::DivisionConPaneles(QWidget* paginas, QWidget* panel, QWidget* segundo, QWidget* padre)
    : QSplitter(Qt::Vertical, padre), panel_(panel), segundo_(segundo), paneles_(new QSplitter(Qt::Horizontal, this)) {
    setObjectName(QStringLiteral("DivisionConPanel"));
    setChildrenCollapsible(false);
    addWidget(paginas);
    paneles_->setObjectName(QStringLiteral("PanelesDeAbajo"));
    paneles_->setChildrenCollapsible(false);
    paneles_->addWidget(panel);
    paneles_->addWidget(segundo);
    paneles_->setStretchFactor(0, 3);
    paneles_->setStretchFactor(1, 2);
    addWidget(paneles_);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    for (auto* const oculto : {panel, segundo, static_cast<QWidget*>(paneles_)}) oculto->hide();
    connect(this, &QSplitter::splitterMoved, this, [this] { alto_ = paneles_->height(); });
}

void DivisionConPaneles::MostrarPanel(bool visible) {
    if (panel_->isHidden() != visible) return;
    panel_->setVisible(visible);
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
    const bool ahora = !panel_->isHidden() || !segundo_->isHidden();
    paneles_->setMaximumHeight(std::max(paneles_->minimumSizeHint().height(), window()->height() / parteDeLaVentana));
    paneles_->setVisible(ahora);
    // What a user has moved stays as it is.
    if (!ahora || (antes && alto_ > 0)) return;
    // Where there is little room the pages need it more.
    const int poco = std::max(panel_->minimumSizeHint().height(), std::min(panel_->sizeHint().height(), height() / parteDePoco));
    const int propio = std::max(poco, Libre());
    const int alto = std::min(alto_ > 0 ? alto_ : propio, paneles_->maximumHeight());
    setSizes({height() - handleWidth() - alto, alto});
}

}  // namespace qor
