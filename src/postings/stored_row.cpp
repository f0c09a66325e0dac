#include "postings/stored_row.h"

#include <QStringList>

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
    avvisaCambiata();
    return false;
}

void avvisaCambiata() {
    gErr.mostraMessaggio(testoCambiata, OperatorPort::Icona::Esclamazione);
}

QString elencoChiavi(const std::set<int>& chiavi) {
    if (chiavi.empty()) return "0";
    QStringList elenco;
    for (const int chiave : chiavi)
        elenco << QString::number(chiave);
    return elenco.join(", ");
}
