#pragma once

#include <QDate>
#include <QString>

struct Vendita;

// New numbers, given inside the transaction of a save: they return to the counter when it rolls back.

// The next number of a counter of Contatori in a year, from 1; 0 when it could not be written.
int getNewNumeratoreAnnuale(int idNumeratore, const QString& anno);
// The next EXTRAPROG under a PROGRESSIVO of this year and the screen's document type; 1 with no query for
// a progressive of 0 or less, and when the query failed, which ends the transaction by itself.
int getNewSottoProgressivo(const Vendita& v, int progressivo);

// The next PROGRESSIVO of the journal (PrimaNota) in the year of `data`, from 1; -1 when the query failed.
int getNewProgressivoPrimaNota(QDate data);
