#pragma once

#include "postings/books.h"

// A shop in which a sale touches every book: stock in cost layers, product statistics, journal with VAT split
// off, collection, due dates, weight and packages, a kit.
struct BottegaCompleta {
    // The sale stands on account 0, unsaved: for the walk-in customer, or for one who pays at the counter but
    // by instalments, so that collection and schedule are both written.
    explicit BottegaCompleta(bool banco, int prezzoMedio = 0);

    ContoDiProva& conto() { return static_cast<ContoDiProva&>(*gConti[0]); }
    Vendita& vendita() { return conto().vendita(); }

    void salva() { conto().tasto(Qt::Key_F5); }
    // On the saved sale: one row changed, one taken away, one added.
    void ritocca();
    // Shift+F7, answered with Yes.
    void cancella();

    Negozio n;
};

// The tables that a sale writes, every key replaced by its place in the order of its table: a rollback leaves
// gaps in the keys of some servers.
QStringList libriSenzaChiavi(const Negozio& negozio);
