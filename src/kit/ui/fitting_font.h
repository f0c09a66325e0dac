#pragma once

#include <QFont>

// The font, smaller where the text is wider than the place (pixels), but of no less than so many points.
QFont carattereAdatto(const QFont& intero, const QString& testo, int larghezza, qreal puntiMinimi);
