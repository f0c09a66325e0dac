#include "core/errors.h"
#include "data/gateway.h"

namespace {

const char* const testoTransazioneAnnullata = "La transazione è stata annullata dal server.";

}  // namespace

bool cAdoSqlServer::beginTrasaction(const QString& sorgente) {
    if (!apri()) return false;
    const bool iniziata = mConn->inizia();
    if (mOperatore != nullptr) mOperatore->avvisoAttesa({});
    if (!iniziata) {
        mErrore = mConn->errore();
        disconnect();
        segnala("beginTrasaction", sorgente, {});
        return false;
    }
    mInTransazione = true;
    mTransazioneFallita = false;
    gErr.trattieniDialoghi();
    return true;
}

// A server that has given the transaction up would commit what comes now statement by statement.
bool cAdoSqlServer::transazioneViva() {
    if (mConn->inTransazione()) return true;
    mErrore = {ErroreServer::Classe::Conflitto, 0, testoTransazioneAnnullata, mNomeClasse};
    return false;
}

bool cAdoSqlServer::chiudiTransazione(bool conferma, const QString& sorgente) {
    if (!mInTransazione || mConn == nullptr) return false;
    bool riuscita = false;
    mCommitIgnoto = false;
    if (conferma && !mTransazioneFallita) {
        if (transazioneViva()) {
            riuscita = mConn->conferma();
            if (!riuscita) mErrore = mConn->errore();
        }
        if (!riuscita) segnalaCommit(sorgente);
    }
    if (!riuscita) {
        const bool annullata = mConn->annulla();
        riuscita = !conferma && annullata;
    }
    if (mOperatore != nullptr) mOperatore->avvisoAttesa({});
    mInTransazione = false;
    mTransazioneFallita = false;
    disconnect();
    gErr.rilasciaDialoghi();
    return riuscita;
}

bool cAdoSqlServer::commitTrasaction(const QString& sorgente) {
    return chiudiTransazione(true, sorgente);
}

bool cAdoSqlServer::rollbackTrasaction(const QString& sorgente) {
    return chiudiTransazione(false, sorgente);
}
