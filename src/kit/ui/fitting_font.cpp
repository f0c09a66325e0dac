#include "kit/ui/fitting_font.h"

#include <algorithm>

#include <QFontMetrics>

QFont carattereAdatto(const QFont& intero, const QString& testo, int larghezza, qreal puntiMinimi) {
    QFont adatto = intero;
    while (QFontMetrics(adatto).horizontalAdvance(testo) > larghezza && adatto.pointSizeF() > puntiMinimi) {
        adatto.setPointSizeF(std::max(puntiMinimi, adatto.pointSizeF() - 0.5));
    }
    return adatto;
}
