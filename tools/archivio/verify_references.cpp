#include "archivio/statement.h"
#include "archivio/verify_checks.h"

namespace {

void verificaChiavi(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db, "PRAGMA foreign_key_check");
    while (i.passo()) {
        esito.errori << QString("%1 %2: si riferisce a un record di %3 che non esiste")
                            .arg(i.testo(0))
                            .arg(i.intero(1))
                            .arg(i.testo(2));
    }
}

void verificaComponenti(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db,
                 "SELECT F.RID, F.CODPRODOTTO FROM DettagliMovimento F WHERE F.IK_DETTAGLIOMOVIMENTO > 0 AND "
                 "NOT EXISTS (SELECT 1 FROM DettagliMovimento T WHERE T.RID = F.IK_DETTAGLIOMOVIMENTO "
                 "AND T.FK_MOVIMENTO = F.FK_MOVIMENTO)");
    while (i.passo()) {
        esito.errori << QString("riga %1: il componente %2 è senza la testa della sua distinta")
                            .arg(i.intero(0))
                            .arg(i.testo(1));
    }
}

}  // namespace

void verificaRiferimenti(sqlite3* db, EsitoVerifica& esito) {
    verificaChiavi(db, esito);
    verificaComponenti(db, esito);
}
