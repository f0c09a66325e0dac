#pragma once

#include <QDate>

struct Vendita;

// The numbers of sales in the books: who was last, and which header a new sale goes on with.

// The header of that day, customer, document type and desk. Writes its key and journal entries to the
// sale and answers its PROGRESSIVO; -1 when there is none.
int getProgByDataForNewVendita(Vendita& v, QDate data, int idCliente);
