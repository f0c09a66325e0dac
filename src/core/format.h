#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include "core/currency.h"

// Format of a number by a pattern of "0", "#", "," and ".", written with the Italian separators:
// "0" a digit that is always shown, "#" one shown when it is there, "," between digit places: groups of
// three with dots, ".": the decimal comma, kept even when no decimals follow ("###,##0." gives "12,").
// Rounding is half away from zero on the decimal digits of the value: 15 significant ones of a double,
// 7 of a Single, all of a Currency (2,675 gives "2,68", 1,005 gives "1,01"). A result of zero has no sign.
// Not a finite number: RunTimeError 6; another character in the pattern: RunTimeError 5.
QString Format(double valore, QStringView modello);
QString Format(float valore, QStringView modello);
QString Format(Currency valore, QStringView modello);
QString Format(qint64 valore, QStringView modello);
inline QString Format(int valore, QStringView modello) {
    return Format(static_cast<qint64>(valore), modello);
}

// As Format by "###,##0." with so many "0" behind it (none below 1), which is how every amount is shown.
QString formatoMigliaia(double valore, int decimali);
QString formatoMigliaia(float valore, int decimali);
QString formatoMigliaia(Currency valore, int decimali);

// Format of a date by a pattern, letter case without meaning: DD MM YYYY YY D M, HH hh Hh (hours 0 to 23),
// Nn (minutes; also MM right behind hours), Ss. Everything else stands for itself. "/" and ":" are
// written as they are, whatever the machine's locale. An invalid date gives an empty text.
QString Format(const QDateTime& valore, QStringView modello);
QString Format(QDate valore, QStringView modello);
