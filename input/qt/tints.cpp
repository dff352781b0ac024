#include "input/qt/tints.h"

namespace qor {

QColor Mezcla(const QColor& fondo, const QColor& color, int porCiento) {
    const auto parte = [porCiento](int a, int b) { return (a * (100 - porCiento) + b * porCiento) / 100; };
    return {parte(fondo.red(), color.red()), parte(fondo.green(), color.green()), parte(fondo.blue(), color.blue())};
}

QColor FondoDe(const QPalette& paleta, bool aviso) {
    constexpr int toque = 28;
    return Mezcla(paleta.color(QPalette::Base), aviso ? QColor(0xed, 0xa1, 0x00) : QColor(0xe0, 0x30, 0x28), toque);
}

}  // namespace qor
