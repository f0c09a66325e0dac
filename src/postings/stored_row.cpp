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

std::optional<bool> righeSparite(const std::set<int>& righe, const QString& sorgente) {
    if (righe.empty()) return true;
    const Lettura lettura(
        "SELECT COUNT(RID) FROM DettagliMovimento WHERE RID IN (" + elencoChiavi(righe) + ")", sorgente);
    if (!lettura.trovata()) return std::nullopt;
    return lettura->campo(0).toInt() == 0;
}

QString elencoChiavi(const std::set<int>& chiavi) {
    if (chiavi.empty()) return "0";
    QStringList elenco;
    for (const int chiave : chiavi)
        elenco << QString::number(chiave);
    return elenco.join(", ");
}
