#include "app/qt/tabs.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcut>
#include <QTabBar>

namespace qor {

namespace {

bool PideOtraPagina(const QTabBar& barra, const QEvent& evento) {
    if (evento.type() == QEvent::Wheel || evento.type() == QEvent::Shortcut) return true;
    if (evento.type() != QEvent::MouseButtonPress) return false;
    const int pagina = barra.tabAt(static_cast<const QMouseEvent&>(evento).position().toPoint());
    return pagina >= 0 && pagina != barra.currentIndex();
}

}  // namespace

Pestanas::Pestanas(QWidget* padre) : QTabWidget(padre) {
    auto* const barra = new QTabBar(this);
    // Connected before the tabs connect themselves, so that it is told before the page changes.
    connect(barra, &QTabBar::currentChanged, this, &Pestanas::Elegida);
    barra->installEventFilter(this);
    setTabBar(barra);
}

void Pestanas::PonerTeclas() {
    for (int pagina = 0; pagina < count(); ++pagina) {
        const QKeySequence tecla(static_cast<int>(Qt::CTRL) | (Qt::Key_1 + pagina));
        connect(new QShortcut(tecla, this), &QShortcut::activated, this, [this, pagina] {
            if (pagina != currentIndex() && Admite()) setCurrentIndex(pagina);
        });
        setTabToolTip(pagina, tecla.toString(QKeySequence::NativeText));
    }
}

bool Pestanas::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == tabBar() && PideOtraPagina(*tabBar(), *evento) && !Admite()) return true;
    return QTabWidget::eventFilter(objeto, evento);
}

// Ctrl+Tab, and with Shift back.
void Pestanas::keyPressEvent(QKeyEvent* evento) {
    const bool deTab = evento->key() == Qt::Key_Tab || evento->key() == Qt::Key_Backtab;
    if (deTab && (evento->modifiers() & Qt::ControlModifier) && !Admite()) return;
    QTabWidget::keyPressEvent(evento);
}

}  // namespace qor
