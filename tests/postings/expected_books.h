#pragma once

#include <QStringList>

#include "postings/books.h"

// The books that a sale touches, as a test writes them down beforehand: a row a text, cells parted by "|",
// in the order of the keys. Days are "2026-03-16"; a Null and an empty text are both empty.
struct LibriAttesi {
    // RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_ORIGINE, FK_DESTINAZIONE, FK_CONTROPARTITA,
    // FK_PAGAMENTO, ID_CASSA, USAPREZZIIVA, TOTIMPONIBILE, TOTIMPOSTA, TOTDOCUMENTO, FK_PRIMANOTA,
    // FK_PNPAGAMENTO, PESOCONS, COLLICONS; every other column that may be must be Null.
    QStringList movimenti = {};
    // RID, FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO, CODPRODOTTO, DESCPRODOTTO, QUANTITA, PREZZO, SCONTO,
    // SCONTO2, SCONTO3, SCONTONETTO, PREZZONETTO, TOTPREZZONETTO, FK_IVA, VALOREIVA, IVA, TOTALEIVA,
    // TOTALERIGA, FK_UM, TAGLIO, IK_DETTAGLIOMOVIMENTO, FK_VENDITORE, ORA.
    QStringList dettagli = {};
    // CODICE, GIACENZA, DATAULTIMOSCARICO, PREZZOULTIMOSCARICO of the products that take part in stock.
    QStringList prodotti = {};
    // FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA, the oldest layer first.
    QStringList strati = {};
    // RID, PROGRESSIVO, DATA, DATAVALUTA, FK_CAUSALE, FK_ANAGRAFE, DESCRIZIONE, RIFERIMENTI, NUMDOCUMENTO,
    // IMPORTO, CODICEPARTITA, FK_PAGAMENTO, FK_CENTROCOSTO.
    QStringList primaNota = {};
    // FK_PRIMANOTA, FK_CONTO, DARE, AVERE.
    QStringList righePrimaNota = {};
    // FK_PRIMANOTA, FK_MOVIMENTO, DATA, IMPORTO.
    QStringList scadenze = {};
    // FK_NUMERATORE, ANNO, NUMERO, NOTE.
    QStringList contatori = {};
};

LibriAttesi leggiLibri(const Negozio& n);
// Compares them table by table.
void confrontaLibri(const Negozio& n, const LibriAttesi& attesi);

// A shop whose books have something to tell. Accounts: 1 customers, 2 cash, 3 sales, 4 VAT. The sale's causal
// debits 1 and credits 3 and 4, the collection's debits 2 and credits 1. Warehouse 1 is the shop, 2 the
// store.
//
// Product 1 "A": 10,00 at 22 %, ten in stock, bought at 6,00 (four) and then at 7,00 (six); 2 "B" Biscotti:
// 5,00 at 10 %, outside stock; 3 "C" Caffè: 2,50 at 4 %, 10 % off, outside stock. Customer 2 is ROSSI,
// number 7. Payments: 9 half at 30 and half at 60 days, 10 a fifth at once and two fifths at 30 and 60, 11 as
// 9 at the end of the month, 12 as 11 by direct remittance. Document types: 1 counter sale, 5 "FT" with
// counter 2, 6 "DT" a transfer from 1 to 2 with counter 3.
class Bottega : public Negozio {
  public:
    Bottega();

    // ROSSI's terms from now on; below 1: none.
    void termini(int idPagamento);
    // She has those terms, and the open sale becomes hers.
    void intesta(Vendita& v, int pagato, int idPagamento);
    // From now on the counter sells by document type 7, which loads warehouse 1 (causal 4).
    void vendePerCarico(Vendita& v);
    // Causal 8 collects cards.
    void causaleCarte();
};

// A sale on the screen of such a shop.
struct ContoInBottega : testing::Test {
    Bottega n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void vendiESalva(const QString& codice, const QString& quantita = {});
    // A further sale of the day under the same header.
    void nuovaVendita();
    bool cancella();
};

// Saves and shows the saved sale, as the counter does after F5.
bool salvaERilegge(Vendita& v);
