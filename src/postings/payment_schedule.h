#pragma once

#include <QDate>
#include <QString>

#include "core/currency.h"

// Deletes the due dates of a journal entry (Scadenze) and writes them anew by the terms of the payment
// (Pagamenti, DettagliPagamenti), inside the caller's transaction. Each instalment is its percentage of the
// whole amount: nothing is subtracted for the down payment, no remainder carried. `negative` turns the sign,
// for returns. False when a write failed, or when the terms tell more instalments than there are.
bool generaScadenzePagamento(int idPrimaNota, int idPagamento, Currency importo, QDate data, bool negative);
