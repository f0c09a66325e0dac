#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

#include "core/currency.h"

class OperatorPort;

// Conversions between what a screen shows, what a table holds and what a rule computes with. A bad value
// gives a neutral answer, never an error, unless told. A QVariant is a field of a recordset: null, a whole
// number, a double, a text, a date or a boolean.

// Every "." is removed and the rest, if numeric, answered as plain text; else "0". With `avvisa` a value
// that is not numeric is told to the operator (exclamation icon).
QString getValoreNumerico(const QString& valore, OperatorPort* avvisa = nullptr);

// The value, 0 when it is not numeric. Beyond the range of the type: RunTimeError 6.
Currency getValoreCurrency(QStringView testo);
Currency getValoreCurrency(const QVariant& valore);
inline Currency getValoreCurrency(const QString& testo) {
    return getValoreCurrency(QStringView(testo));
}
float getValoreSingle(QStringView testo);
float getValoreSingle(const QVariant& valore);
inline float getValoreSingle(const QString& testo) {
    return getValoreSingle(QStringView(testo));
}

// The amount as shown, with thousands and `decimali` decimals, half away from zero ("1.234,50"); null or
// not numeric: "0," and the zeros. With 0 decimals the comma stays ("12,").
QString formattaImporto(const QVariant& valore, int decimali);
QString formattaImporto(const QString& testo, int decimali);
QString formattaImporto(Currency valore, int decimali);
QString formattaImporto(double valore, int decimali);
QString formattaImporto(float valore, int decimali);
inline QString formattaImporto(int valore, int decimali) {
    return formattaImporto(Currency::daIntero(valore), decimali);
}

// A whole number with thousands; null or not numeric: empty.
QString formattaIntero(const QVariant& valore);

// The SQL text of an optional foreign key: the number, "Null" unless the text is numeric and above 0.
QString getIDOrNullStr(const QString& valore);
QString getIDOrNullStr(int valore);

// A tick box from a field: null 0, else the absolute value as a 16-bit whole number (true, -1, gives 1); 0
// when that cannot be had.
int getChekByBool(const QVariant& valore);
// A flag from a field: null false; a number by whether it is 0; another text by the number at its head
// with a "0" behind it; what cannot be converted: true.
bool getBoolByChek(const QVariant& valore);

// The last day of the month of `data`, or of `data` plus `giorni` days when that is not 0.
QDate getDataFineMese(QDate data, int giorni);

// The check of an Italian VAT number of 11 digits. A number whose check digit is 0 is refused. The caller
// tests the length.
bool checkPartitaIva(const QString& partitaIva);

// The check digit of the first 12 digits of an EAN-13 code; -1 when they are not 12 digits.
int getEAN13ChekDigit(const QString& dodiciCifre);
