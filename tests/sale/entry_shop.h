#pragma once

#include "gesti.h"

// A counter with two products to enter: "A1", a hammer at 10,00, and "B1", pliers at 20,00.
struct NegozioDiIngresso : testing::Test {
    Negozio n;
    int idA = n.prodotto({.codice = "A1", .listino1 = 10, .barcode = "8001", .descrizione = "Martello"});
    int idB = n.prodotto({.codice = "B1", .listino1 = 20, .barcode = "8002", .descrizione = "Pinza"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void entra(const QString& codice) {
        c.digita(codice);
        c.invio();
    }
    // A cost layer in warehouse 1.
    void strato(int prodotto, double taglio, double quantita) {
        n.sql(QString("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES "
                      "(%1,1,%2,%3)")
                  .arg(prodotto)
                  .arg(taglio)
                  .arg(quantita));
    }
};
