#include "archivio/archive.h"
#include "archivio/verify_checks.h"
#include "core/numbers.h"

// Quantities are single precision, so sums of many may drift by a little.
void verificaGiacenze(Archivio& archivio, EsitoVerifica& esito) {
    // A load whose cost was changed after its first save counts its whole quantity again in the product's
    // stock, but not in the layers. When such a load has been deleted, only its number tells that it was.
    Recordset righe = archivio.leggi(
        "SELECT P.CODICE, P.GIACENZA, COALESCE(S.QUANTITA, 0) AS STRATI, CASE WHEN EXISTS (SELECT 1 "
        "FROM DettagliMovimento D JOIN Movimenti M ON D.FK_MOVIMENTO = M.RID "
        "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID JOIN Causali C ON TD.FK_CAUSALE = C.RID "
        "WHERE D.FK_PRODOTTO = P.RID AND C.TAGLIO > 0 AND M.FK_ORIGINE IS NULL "
        "AND M.FK_DESTINAZIONE IS NOT NULL) THEN 1 ELSE 0 END AS COSTOCAMBIATO, CASE WHEN EXISTS (SELECT 1 "
        "FROM Contatori K JOIN TipoDocumenti TD ON TD.NCONTATORE = K.FK_NUMERATORE JOIN Causali C ON "
        "TD.FK_CAUSALE = C.RID WHERE C.TAGLIO > 0 AND C.FK_MAGAZZINOORIG IS NULL AND C.FK_MAGAZZINODEST IS "
        "NOT NULL AND K.NUMERO > (SELECT COUNT(*) FROM Movimenti M JOIN TipoDocumenti T ON "
        "M.FK_TIPODOCUMENTO = T.RID WHERE T.NCONTATORE = K.FK_NUMERATORE AND M.ANNO = K.ANNO + 0)) THEN 1 "
        "ELSE 0 END AS CARICOCANCELLATO "
        "FROM Prodotti P LEFT JOIN (SELECT FK_PRODOTTO, SUM(QUANTITA) AS QUANTITA FROM DettagliProdotto "
        "GROUP BY FK_PRODOTTO) S ON S.FK_PRODOTTO = P.RID WHERE P.SETGIACENZA <> 0 "
        "AND ABS(COALESCE(P.GIACENZA, 0) - COALESCE(S.QUANTITA, 0)) > "
        "0.001 + ABS(COALESCE(P.GIACENZA, 0)) * 0.000001");
    for (; !righe.eof(); righe.moveNext()) {
        const QString differenza = QString("prodotto %1: giacenza %2, somma dei magazzini %3")
                                       .arg(righe.testo("CODICE"), testoNumero(righe.reale("GIACENZA")),
                                            testoNumero(righe.reale("STRATI")));
        if (righe.vero("COSTOCAMBIATO")) {
            esito.note << differenza + " (costo cambiato su un carico già salvato)";
        } else if (righe.vero("CARICOCANCELLATO")) {
            esito.note << differenza +
                              " (è stato cancellato un carico, il cui costo può essere stato cambiato)";
        } else {
            esito.errori << differenza;
        }
    }
}
