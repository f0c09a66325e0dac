#pragma once

#include "exact_numbers.h"

// The rows of a sale that a discount over all of them rewrites, and their totals, computed a second time.

struct RigaGriglia {
    Decimale iva;      // column Iva
    Decimale qta;      // Quantita
    Decimale listino;  // PrezzoListino
    Decimale sconti[3];
    Decimale importo;  // Importo, at most four decimals
    bool viva = true;
};

// Columns as they must be left.
struct RigaScontata {
    QString scontoTesto;
    Decimale sconto;  // the one that stays
    QString prezzoNetto;
    QString prezzoNettoEsteso;
    QString importo;
    QString scNetto;
    QString totPrNetto;
    QString ivaProd;
    QString totIvaProd;
};

// A percentage `aggiunto` on what a percentage `vecchio` left; both are Single, and so is the result.
Binario scontoSommato(Binario vecchio, Binario aggiunto);
// A further discount over the sale.
RigaScontata dopoPagamento(const RigaGriglia& riga, Decimale sconto);
// The immediate discount in place of the row's own.
RigaScontata conImmediato(const RigaGriglia& riga, Decimale sconto, int decimaliDopo);

struct Totali {
    Decimale importo{0, 4};
    Decimale netto{0, 4};
    Decimale lordo{0, 4};
    Binario qta;
    int righe = 0;

    // A row's share; deleted ones have none.
    void aggiungi(const RigaGriglia& riga);
};
