#pragma once

#include <vector>

#include "doubles/negozio.h"

// A part of a kit of the test shop; a price of 0 means what the customer pays for the product.
struct ParteDistinta {
    int idProdotto = 0;
    double quantita = 1;
    double prezzo = 0;
    int idIva = 1;
};

// A kit with its product, VAT 22 %; answers the product's key.
inline int distinta(Negozio& n, const QString& codice, const std::vector<ParteDistinta>& parti,
                    const QString& barcode = {}) {
    const int id = n.prodotto({.codice = codice, .barcode = barcode, .descrizione = "Kit " + codice.mid(1)});
    n.sql("INSERT INTO DistintaBase (CODICE) VALUES ('" + codice + "')");
    int pos = 0;
    for (const ParteDistinta& p : parti) {
        const QString prodotto = QString::number(p.idProdotto);
        n.sql(QString("INSERT INTO DistintaBaseDettagli (FK_DISTINTABASE, FK_PRODOTTO, CODPRODOTTO, "
                      "DESCPRODOTTO, QUANTITA, PREZZO, PREZZONETTO, FK_IVA, VALOREIVA, FK_UM, POS) SELECT "
                      "(SELECT MAX(RID) FROM DistintaBase), P.RID, P.CODICE, P.DESCRIZIONE, %1, %2, %2, %3, "
                      "(SELECT VALORE FROM Iva WHERE RID = %3), 1, %4 FROM Prodotti P WHERE P.RID = ")
                  .arg(p.quantita)
                  .arg(p.prezzo)
                  .arg(p.idIva)
                  .arg(++pos) +
              prodotto);
    }
    return id;
}
