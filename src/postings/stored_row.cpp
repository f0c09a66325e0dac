#include "postings/stored_row.h"

#include "core/errors.h"
#include "data/gateway.h"

namespace {

const char* const testoCambiata =
    "La vendita non è più nell'archivio come la si vede: un'altra cassa l'ha cambiata o cancellata.\n"
    "Richiamarla e ripetere l'operazione.";

}  // namespace

bool rigaTrovata() {
    return gAdo.getActiveConnection()->righeModificate() > 0;
}

bool eseguiSuRiga(const QString& sql, const QString& sorgente) {
    if (!gAdo.executeSQL(sql, sorgente)) return false;
    if (rigaTrovata()) return true;
    gErr.mostraMessaggio(testoCambiata, OperatorPort::Icona::Esclamazione);
    return false;
}
