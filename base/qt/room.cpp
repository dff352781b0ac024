#include "base/qt/room.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace qor {

namespace {

// A frame that is on the screen tells its size; before there is one, the style's title bar stands for it.
QSize MarcoDe(const QWidget& ventana) {
    for (const QWidget* una = ventana.window(); una != nullptr;
         una = una->parentWidget() ? una->parentWidget()->window() : nullptr) {
        const QSize marco = una->frameGeometry().size() - una->size();
        if (una->isVisible() && !marco.isEmpty()) return marco;
    }
    const int borde = ventana.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &ventana);
    return {2 * borde, ventana.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &ventana) + 2 * borde};
}

}  // namespace

QSize SitioEnPantalla(const QWidget& ventana) { return ventana.screen()->availableSize() - MarcoDe(ventana); }

}  // namespace qor
