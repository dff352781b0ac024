#include "base/qt/fixed_font.h"

#include <QApplication>
#include <QFontDatabase>

namespace qor {

QFont LetraFija() {
    QFont letra = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QFont delPrograma = QApplication::font();
    if (delPrograma.pointSizeF() > 0) {
        letra.setPointSizeF(delPrograma.pointSizeF());
    } else {
        letra.setPixelSize(delPrograma.pixelSize());
    }
    return letra;
}

}  // namespace qor
