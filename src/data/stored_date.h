#pragma once

#include <QDateTime>
#include <QString>

// Dates of the embedded archive are texts "YYYY-MM-DD HH:MM:SS", also those without a time of day
// ("2013-01-31 00:00:00"). They have no time zone: the clock on the shop's wall.

QString dataArchivio(const QDateTime& data);

// The day of a stored date; an invalid one for every other text.
QDate giornoArchivio(QStringView testo);
QDate giornoArchivio(QLatin1StringView testo);
// A stored date, or the day alone; invalid for every other text.
QDateTime dataOraArchivio(QStringView testo);

// So many digits from a position, as a number; -1 when one of them is none. For fixed forms.
template <class Testo>
int cifre(Testo testo, qsizetype da, qsizetype quante) {
    if (da + quante > testo.size()) return -1;
    int valore = 0;
    for (qsizetype i = da; i < da + quante; ++i) {
        const char16_t c = QChar(testo[i]).unicode();
        if (c < u'0' || c > u'9') return -1;
        valore = valore * 10 + (c - u'0');
    }
    return valore;
}
