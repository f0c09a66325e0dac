#include "archivio/statement.h"
#include "archivio/verify_checks.h"
#include "core/numbers.h"

// Quantities are single precision, so sums of many may drift by a little.
void verificaGiacenze(sqlite3* db, EsitoVerifica& esito) {
    // A load whose cost was changed after its first save counts its whole quantity again in the product's
    // stock, but not in the layers.
    Istruzione i(
        db,
        "SELECT P.RID, P.CODICE, P.GIACENZA, TOTAL(DP.QUANTITA), EXISTS (SELECT 1 "
        "FROM DettagliMovimento D JOIN Movimenti M ON D.FK_MOVIMENTO = M.RID "
        "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID JOIN Causali C ON TD.FK_CAUSALE = C.RID "
        "WHERE D.FK_PRODOTTO = P.RID AND C.TAGLIO > 0 AND M.FK_ORIGINE IS NULL "
        "AND M.FK_DESTINAZIONE IS NOT NULL) "
        "FROM Prodotti P LEFT JOIN DettagliProdotto DP ON DP.FK_PRODOTTO = P.RID WHERE P.SETGIACENZA <> 0 "
        "GROUP BY P.RID HAVING ABS(P.GIACENZA - TOTAL(DP.QUANTITA)) > 0.001 + ABS(P.GIACENZA) * 0.000001");
    while (i.passo()) {
        const QString differenza = QString("prodotto %1: giacenza %2, somma dei magazzini %3")
                                       .arg(i.testo(1), testoNumero(i.reale(2)), testoNumero(i.reale(3)));
        if (i.intero(4) != 0) {
            esito.note << differenza + " (costo cambiato su un carico già salvato)";
        } else {
            esito.errori << differenza;
        }
    }
}
