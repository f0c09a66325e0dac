#pragma once

#include <QDate>

#include "core/currency.h"

struct Vendita;

// A saved document on its way into the accounts.
struct DocumentoContabile {
    int idMovimento;
    int progressivo;
    QDate data;
    Currency totale;
    Currency imposta;
    bool trasferimento;
    bool conversione;
};

// Whether the save posts the document, and whether it posts its collection.
bool siRegistra(const Vendita& v, bool trasferimento);
bool siIncassa(const Vendita& v, bool trasferimento, bool conversione);

// Posts the document's journal entry, the collection's, and the payment schedule, as causal and payment ask,
// and links both entries to the header (Movimenti.FK_PrimaNota, FK_PNPagamento). False: roll back.
bool registraContabilita(Vendita& v, const DocumentoContabile& documento);
