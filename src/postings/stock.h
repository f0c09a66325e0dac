#pragma once

#include <QString>

#include "core/currency.h"

class OperatorPort;

// One row's effect on the stock, kept per product in Prodotti.GIACENZA and per product, warehouse and cost
// in DettagliProdotto. A positive origin warehouse loses goods, a positive destination gains them; a return
// row has negative quantities and all of it reverses. -1 is a cost that is not known.
struct MovimentoMerce {
    float quantita = 0;
    float quantitaVecchia = 0;  // as the row was last saved
    Currency taglio = {};       // unit cost that names the layer; after the call, the one that was moved
    int idProdotto = -1;
    int azione = 0;  // 1 insertion, 2 change, 3 deletion
    int idOrigine = -1;
    int idDestinazione = -1;
    QString informazioni = {};  // names the row in a message
    Currency taglioVecchio =
        Currency::daScalato(-10000);  // the layer of the last save, when the cost changed
    int rigaEsclusa = -1;             // a DettagliMovimento row that the average leaves out

    bool trasferimento() const { return idOrigine > 0 && idDestinazione > 0; }
};

// Moves the stock, inside the caller's transaction: "OK"; "#err" when a statement failed, which the gateway
// has told; empty after an unforeseen error; any other text is for the operator. With gPrezzoMedio 1 a
// warehouse holds one row a product at its moving average, else one row a cost, the oldest first.
QString aggiornaGiacenze(MovimentoMerce& movimento, OperatorPort& operatore);
// Whether that answer is "OK"; a text for the operator is shown, after the transaction.
bool giacenzeAggiornate(const QString& esito);

// The product takes part in stock (Prodotti.SETGIACENZA).
bool getAggiornamentoGiacenzeByProdotto(int idProdotto);
