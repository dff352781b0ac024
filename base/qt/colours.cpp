#include "base/qt/colours.h"

#include <QApplication>
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

void DistinguirTextosDeEspera() {
    QPalette nueva = QApplication::palette();
    bool cambia = false;
    for (const auto grupo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QColor color = nueva.color(grupo, QPalette::Text);
        color.setAlphaF(0.5F);
        cambia = cambia || nueva.color(grupo, QPalette::PlaceholderText) != color;
        nueva.setColor(grupo, QPalette::PlaceholderText, color);
    }
    if (cambia) QApplication::setPalette(nueva);
}

}  // namespace qor
