#include "archivio/archive.h"
#include "archivio/verify_checks.h"

namespace {

// A number of 0 is what a document gets when its counter could not be written.
void verificaDocumenti(Archivio& archivio, EsitoVerifica& esito) {
    Recordset r = archivio.leggi(
        "SELECT COALESCE(TD.NCONTATORE, 0) AS NUMERATORE, M.ANNO, "
        "M.PROGRESSIVO, COUNT(*) AS QUANTI "
        "FROM Movimenti M LEFT JOIN TipoDocumenti TD ON "
        "M.FK_TIPODOCUMENTO = TD.RID "
        "GROUP BY COALESCE(TD.NCONTATORE, 0), M.ANNO, "
        "M.PROGRESSIVO HAVING COUNT(*) > 1 OR M.PROGRESSIVO = "
        "0");
    for (; !r.eof(); r.moveNext()) {
        const QString dove = "numeratore " + r.testo("NUMERATORE") + ", anno " + r.testo("ANNO");
        if (r.intero("PROGRESSIVO") == 0) {
            esito.note << dove + ": " + r.testo("QUANTI") +
                              " documenti con numero 0 (contatore non scritto al "
                              "salvataggio)";
        } else {
            esito.errori << dove + ": numero " + r.testo("PROGRESSIVO") + " dato a " + r.testo("QUANTI") +
                                " documenti";
        }
    }
}

void verificaContatori(Archivio& archivio, EsitoVerifica& esito) {
    Recordset r = archivio.leggi(
        "SELECT TD.NCONTATORE, M.ANNO, MAX(M.PROGRESSIVO) AS ULTIMO, C.NUMERO "
        "FROM Movimenti M "
        "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
        "LEFT JOIN Contatori C ON C.FK_NUMERATORE = TD.NCONTATORE AND C.ANNO + 0 "
        "= M.ANNO "
        "WHERE M.PROGRESSIVO > 0 GROUP BY TD.NCONTATORE, M.ANNO, C.NUMERO "
        "HAVING C.NUMERO IS NULL OR C.NUMERO < MAX(M.PROGRESSIVO)");
    for (; !r.eof(); r.moveNext()) {
        const QString contatore = r.campo("NUMERO").isNull() ? QString("manca") : "è a " + r.testo("NUMERO");
        esito.errori << QString(
                            "numeratore %1, anno %2: il contatore %3, ma "
                            "l'ultimo documento ha il numero %4")
                            .arg(r.testo("NCONTATORE"), r.testo("ANNO"), contatore, r.testo("ULTIMO"));
    }
}

// The sub-number of a sale is looked for under the year of the day on which it is saved. A sale that goes on
// under a header of another year may so get the number of one that is there, and its rows the same places.
void verificaPosizioni(Archivio& archivio, EsitoVerifica& esito) {
    Recordset r = archivio.leggi(
        "SELECT D.FK_MOVIMENTO, D.EXTRAPROG, D.POS, D.QUANTE, M.ANNO, (SELECT MAX(YEAR(X.ORA)) FROM "
        "DettagliMovimento X WHERE X.FK_MOVIMENTO = D.FK_MOVIMENTO AND X.EXTRAPROG = D.EXTRAPROG AND "
        "X.POS = D.POS) AS SALVATA FROM (SELECT FK_MOVIMENTO, EXTRAPROG, POS, COUNT(*) AS QUANTE FROM "
        "DettagliMovimento GROUP BY FK_MOVIMENTO, EXTRAPROG, POS HAVING COUNT(*) > 1) D "
        "JOIN Movimenti M ON D.FK_MOVIMENTO = M.RID");
    for (; !r.eof(); r.moveNext()) {
        const QString doppia =
            QString("movimento %1, vendita %2: %3 righe alla posizione %4")
                .arg(r.testo("FK_MOVIMENTO"), r.testo("EXTRAPROG"), r.testo("QUANTE"), r.testo("POS"));
        if (!r.campo("SALVATA").isNull() && r.intero("SALVATA") != r.intero("ANNO")) {
            esito.note << doppia + " (vendita salvata in un anno diverso da quello del documento)";
        } else {
            esito.errori << doppia;
        }
    }
}

void verificaRegistrazioni(Archivio& archivio, EsitoVerifica& esito) {
    Recordset r = archivio.leggi(
        "SELECT YEAR(DATA) AS ANNO, PROGRESSIVO, COUNT(*) AS "
        "QUANTE FROM PrimaNota "
        "GROUP BY YEAR(DATA), PROGRESSIVO HAVING COUNT(*) > 1");
    for (; !r.eof(); r.moveNext()) {
        esito.errori << QString("prima nota, anno %1: numero %2 dato a %3 registrazioni")
                            .arg(r.testo("ANNO"), r.testo("PROGRESSIVO"), r.testo("QUANTE"));
    }
}

}  // namespace

void verificaNumeri(Archivio& archivio, EsitoVerifica& esito) {
    verificaDocumenti(archivio, esito);
    verificaContatori(archivio, esito);
    verificaPosizioni(archivio, esito);
    verificaRegistrazioni(archivio, esito);
}
