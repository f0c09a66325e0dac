#include "archivio/statement.h"
#include "archivio/verify_checks.h"

namespace {

// A number of 0 is what a document gets when its counter could not be written.
void verificaDocumenti(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db,
                 "SELECT COALESCE(TD.NCONTATORE, 0), M.ANNO, M.PROGRESSIVO, COUNT(*) FROM Movimenti M "
                 "LEFT JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
                 "GROUP BY COALESCE(TD.NCONTATORE, 0), M.ANNO, M.PROGRESSIVO HAVING COUNT(*) > 1 OR "
                 "M.PROGRESSIVO = 0");
    while (i.passo()) {
        const QString dove = QString("numeratore %1, anno %2").arg(i.intero(0)).arg(i.intero(1));
        if (i.intero(2) == 0) {
            esito.note << QString("%1: %2 documenti con numero 0 (contatore non scritto al salvataggio)")
                              .arg(dove)
                              .arg(i.intero(3));
        } else {
            esito.errori
                << QString("%1: numero %2 dato a %3 documenti").arg(dove).arg(i.intero(2)).arg(i.intero(3));
        }
    }
}

void verificaContatori(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db,
                 "SELECT TD.NCONTATORE, M.ANNO, MAX(M.PROGRESSIVO), C.NUMERO FROM Movimenti M "
                 "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
                 "LEFT JOIN Contatori C ON C.FK_NUMERATORE = TD.NCONTATORE AND C.ANNO = CAST(M.ANNO AS TEXT) "
                 "WHERE M.PROGRESSIVO > 0 GROUP BY TD.NCONTATORE, M.ANNO, C.NUMERO "
                 "HAVING C.NUMERO IS NULL OR C.NUMERO < MAX(M.PROGRESSIVO)");
    while (i.passo()) {
        const QString contatore = i.nullo(3) ? QString("manca") : "è a " + i.testo(3);
        esito.errori << QString(
                            "numeratore %1, anno %2: il contatore %3, ma l'ultimo documento ha il numero %4")
                            .arg(i.intero(0))
                            .arg(i.intero(1))
                            .arg(contatore)
                            .arg(i.intero(2));
    }
}

void verificaPosizioni(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db,
                 "SELECT FK_MOVIMENTO, EXTRAPROG, POS, COUNT(*) FROM DettagliMovimento "
                 "GROUP BY FK_MOVIMENTO, EXTRAPROG, POS HAVING COUNT(*) > 1");
    while (i.passo()) {
        esito.errori << QString("movimento %1, vendita %2: %3 righe alla posizione %4")
                            .arg(i.intero(0))
                            .arg(i.intero(1))
                            .arg(i.intero(3))
                            .arg(i.intero(2));
    }
}

void verificaRegistrazioni(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db,
                 "SELECT substr(DATA, 1, 4), PROGRESSIVO, COUNT(*) FROM PrimaNota "
                 "GROUP BY substr(DATA, 1, 4), PROGRESSIVO HAVING COUNT(*) > 1");
    while (i.passo()) {
        esito.errori << QString("prima nota, anno %1: numero %2 dato a %3 registrazioni")
                            .arg(i.testo(0))
                            .arg(i.intero(1))
                            .arg(i.intero(2));
    }
}

}  // namespace

void verificaNumeri(sqlite3* db, EsitoVerifica& esito) {
    verificaDocumenti(db, esito);
    verificaContatori(db, esito);
    verificaPosizioni(db, esito);
    verificaRegistrazioni(db, esito);
}
