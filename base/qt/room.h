#pragma once

#include <QSize>

class QWidget;

namespace qor {

// What a window can have of its screen: what panels leave of it, less the frame that the desktop draws around the window.
QSize SitioEnPantalla(const QWidget& ventana);

}  // namespace qor
