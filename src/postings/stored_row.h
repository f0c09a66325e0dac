#pragma once

#include <optional>
#include <set>

#include <QString>

// Inside a transaction: whether the statement that has just run found a row to act on.
bool rigaTrovata();

// Runs a statement about one row of DettagliMovimento that the screen shows as stored. False when it failed,
// and when another desk has taken the row away meanwhile, which the operator is told after the transaction.
bool eseguiSuRiga(const QString& sql, const QString& sorgente);

// Tells the operator, after the transaction, that the sale is no more as the screen has it.
void avvisaCambiata();

// Whether none of these rows of DettagliMovimento is there; nothing when they could not be read. A key that
// was once in the books is given to no other row: one that is not there any more was deleted.
std::optional<bool> righeSparite(const std::set<int>& righe, const QString& sorgente);

// For IN (...): the keys, or one that no row has.
QString elencoChiavi(const std::set<int>& chiavi);
