#include "base/qt/colours.h"

#include <QGuiApplication>
#include <QPalette>

namespace qor {

QColor ColorLegible(Tono tono) {
    const bool oscura = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
    switch (tono) {
        case Tono::Nota: return oscura ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x10, 0x10);
        case Tono::Cabeza: return oscura ? QColor(0x8a, 0xb4, 0xff) : QColor(0x10, 0x30, 0xb0);
        case Tono::Comentario: return oscura ? QColor(0x9a, 0xa5, 0x9a) : QColor(0x60, 0x70, 0x60);
        case Tono::Literal: return oscura ? QColor(0xa5, 0xd6, 0xa7) : QColor(0x1b, 0x6e, 0x2a);
        case Tono::Referencia: break;
    }
    return oscura ? QColor(0xce, 0x93, 0xd8) : QColor(0x7b, 0x1f, 0xa2);
}

}  // namespace qor
