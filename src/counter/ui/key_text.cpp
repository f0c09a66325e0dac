#include "counter/ui/key_text.h"

#include <QElapsedTimer>
#include <QKeyEvent>

std::optional<QChar> carattereDelTasto(const QKeyEvent& tasto) {
    if (tasto.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
    // Some scanners end a code with a line feed.
    if (tasto.key() == Qt::Key_Return || tasto.key() == Qt::Key_Enter || tasto.text() == "\n") return u'\r';
    if (tasto.key() == Qt::Key_Tab) return u'\t';
    const QString testo = tasto.text();
    return testo.size() == 1 && testo[0].isPrint() ? std::optional(testo[0]) : std::nullopt;
}

qint64 istanteDelTasto(const QKeyEvent& tasto) {
    if (tasto.timestamp() > 0) return static_cast<qint64>(tasto.timestamp());
    static QElapsedTimer inizio;
    if (!inizio.isValid()) inizio.start();
    return inizio.elapsed();
}
