#pragma once

#include <QString>
#include <QTextStream>

// Prints the last saved sales, the latest one first: header, rows, totals and the journal. A sale is one
// sub-number of a document. False when the archive cannot be read; `esito` says why.
bool stampaVendite(const QString& nome, int ultime, QTextStream& esito);
