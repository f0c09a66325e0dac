#pragma once

#include <QColor>

// Ink that can be read on a colour: dark on a light one, white on a dark one.
inline QColor inchiostroSu(const QColor& fondo) {
    constexpr double soglia = 0.45;
    const double luce = 0.299 * fondo.redF() + 0.587 * fondo.greenF() + 0.114 * fondo.blueF();
    return luce > soglia ? QColor(0x10, 0x20, 0x2E) : QColor(Qt::white);
}
