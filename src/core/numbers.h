#pragma once

#include <optional>

#include <QString>
#include <QStringView>

#include "core/currency.h"

// Numbers as Italian text: decimal comma, dots for thousands. The locale of the machine plays no part.

// The Italian numeric test: an optional sign, digits with dots for thousands, at most one comma, blanks
// around. Not numeric: an empty text, letters, "nan", "inf", "1e5", digits of other scripts.
bool isNumeric(QStringView testo);

// The value of a numeric text. Not numeric: RunTimeError 13; beyond the type's range: RunTimeError 6.
double numeroDouble(QStringView testo);
float numeroSingle(QStringView testo);
// Exact from the decimal digits, ties to even on the fifth decimal; never through a double.
Currency numeroCurrency(QStringView testo);

// As the three above in one pass, for cells that may hold no number: nothing when the text is not numeric.
std::optional<double> seDouble(QStringView testo);
std::optional<float> seSingle(QStringView testo);
std::optional<Currency> seCurrency(QStringView testo);

// The number at the head of a text, 0 if there is none. Blanks before it are skipped; the decimal sign
// is the point (so "12,5" gives 12); no exponents.
double Val(QStringView testo);
// Val as a 32-bit integer (fraction rounded, ties to even); beyond the range: RunTimeError 6.
int valIntero(QStringView testo);

// The plain Italian text of a number, without thousands: a double by its 15 significant decimal digits,
// a Single by its 7 ("0,1", "-12,5"); from 1E+15 on and below 1E-15 with a power of ten ("1E+20"), which is
// no numeric text any more. Not a finite number: RunTimeError 6.
QString testoNumero(double valore);
QString testoNumero(float valore);
QString testoNumero(qint64 valore);
inline QString testoNumero(int valore) {
    return testoNumero(static_cast<qint64>(valore));
}
