#pragma once

#include <QColor>
#include <QPalette>

namespace qor {

// The ground of a cell with an error or a hint: the palette's own, light or dark, with a touch of red or yellow.
QColor FondoDe(const QPalette& paleta, bool aviso);

// One colour with so many per cent of another one.
QColor Mezcla(const QColor& fondo, const QColor& color, int porCiento);

}  // namespace qor
