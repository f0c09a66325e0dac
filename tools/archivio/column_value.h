#pragma once

#include <QString>
#include <QVariant>

#include "data/schema.h"

// Values on their way from one archive to another. In between each kind of column has one form: keys, whole
// numbers and flags are qlonglong, money is qlonglong in ten-thousandths, quantities are double, texts
// QString, dates and times QDateTime; a Null is a null QVariant.

// The value in that form, from whatever a recordset, a file or a program writes it as. Money is rounded to
// its four decimals, ties to even. What the column cannot keep exactly raises RunTimeError 13 with a text
// that names the column: too long, beyond its range, no number or date, a NUL or half a character.
QVariant valoreEsatto(const schema::Colonna& colonna, const QVariant& valore);

// That form as the embedded archive keeps it: Null, qlonglong, double or QString. Money beyond what a
// double holds exactly raises RunTimeError 13.
QVariant valoreFile(const schema::Colonna& colonna, const QVariant& esatto);

// That form as a literal in the words of a server, added to a statement.
void aggiungiLetterale(QString& sql, int tipoServer, const schema::Colonna& colonna, const QVariant& esatto);
