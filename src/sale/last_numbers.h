#pragma once

#include <QDate>

struct Vendita;

// The numbers of sales in the books: who was last, and which header a new sale goes on with.

// A sale in the books; -1 each where there is none.
struct NumeroVendita {
    int progressivo = -1;
    int extraProg = -1;
};

// The header of that day, customer, document type and desk. Writes its key and journal entries to the
// sale and answers its PROGRESSIVO; -1 when there is none.
int getProgByDataForNewVendita(Vendita& v, QDate data, int idCliente);
// The last sale of that day on this desk, of the screen's document type.
NumeroVendita getProgByData(const Vendita& v, QDate data);
// The last EXTRAPROG of that number and year on this desk, of whatever document type; -1 when there is none.
int getSottoProgByProg(int progressivo, int anno);
