#include "data/gateway.h"

#include <algorithm>

#include "core/errors.h"
#include "data/connection_string.h"
#include "data/prepare_sql.h"
#include "data/server_drivers.h"

cAdoSqlServer gAdo;

namespace {

// Every connection is asked for with this time-out, in seconds.
constexpr int timeoutConnessione = 60;
// A wait for another desk shorter than this is not worth a notice.
constexpr int attesaSenzaAvviso = 500;

const char* const testoAttesa = "Un'altra cassa sta salvando...";

const char* const testoIntegrita =
    "L'operazione non può essere completata nel rispetto dell'integrità dei dati.";
const char* const testoIntegritaSpiegazione =
    "E' probabile che si sta tentando di eliminare un record che risulta vincolato ai dati di una o più "
    "tabelle.";

RunTimeError comeErrore(const ErroreServer& errore) {
    return RunTimeError(errore.codice, errore.descrizione, errore.origine);
}

}  // namespace

cAdoSqlServer::cAdoSqlServer() {
    for (const int tipo : {SqlServer, Access, MySql})
        impostaDriver(tipo, nuovoDriver(tipo));
}

cAdoSqlServer::~cAdoSqlServer() = default;

void cAdoSqlServer::impostaDriver(int tipoServer, std::unique_ptr<ServerDriver> driver) {
    mDriver[tipoServer] = std::move(driver);
}

void cAdoSqlServer::chiudiConnessioniCalde() {
    for (auto& [tipo, driver] : mDriver) {
        driver->chiudi();
    }
}

// ---- The stack of connections

AttesaServer cAdoSqlServer::attesa() const {
    return [this](int millisecondi) {
        if (mOperatore != nullptr && millisecondi >= attesaSenzaAvviso) mOperatore->avvisoAttesa(testoAttesa);
    };
}

bool cAdoSqlServer::Connect(const QString& sorgente, int timeout, int /*numero*/, bool silenzioso) {
    mErrori.clear();
    const QString stringa = mStringa ? mStringa() : QString();
    const auto driver = mDriver.find(TipoServer);
    if (driver == mDriver.end()) {
        mErrore = {ErroreServer::Classe::Altro, 0, QString("Tipo di server non gestito: %1").arg(TipoServer),
                   mNomeClasse};
    } else if (auto nuova = driver->second->apri(stringa, timeout, attesa(), mErrore)) {
        mConn = nuova.get();
        mConnessioni.push_back({std::move(nuova), driver->second.get()});
        return true;
    }
    if (mOperatore != nullptr) mOperatore->avvisoAttesa({});
    if (!silenzioso) {
        segnalaErrore(comeErrore(mErrore), mNomeClasse, "Connect -> " + sorgente,
                      "sStrConnection=" + mascheraPassword(stringa));
    }
    return false;
}

void cAdoSqlServer::restituisci(Voce& voce) {
    if (!voce.connessione) return;
    if (mConn == voce.connessione.get()) mConn = nullptr;
    voce.driver->restituisci(std::move(voce.connessione));
}

// An entry that a failure left stands above the connection of the caller that has now done: the newest
// connection goes back, wherever its entry stands.
void cAdoSqlServer::disconnect() {
    if (mConnessioni.empty() || mInTransazione) return;
    const auto aperta = [](const Voce& voce) { return voce.connessione != nullptr; };
    const auto ultima = std::find_if(mConnessioni.rbegin(), mConnessioni.rend(), aperta);
    if (ultima != mConnessioni.rend()) restituisci(*ultima);
    mConnessioni.pop_back();
    const auto precedente = std::find_if(mConnessioni.rbegin(), mConnessioni.rend(), aperta);
    mConn = precedente == mConnessioni.rend() ? nullptr : precedente->connessione.get();
}

bool cAdoSqlServer::apri() {
    return Connect("N/D", timeoutConnessione, 0, false);
}

bool cAdoSqlServer::apriSeServe() {
    return mInTransazione || apri();
}

void cAdoSqlServer::chiudiSeServe() {
    if (!mInTransazione) disconnect();
}

// A failed operation leaves its entry on the stack; the connection itself goes back to the driver, so that
// an entry that nobody takes away again holds nothing.
bool cAdoSqlServer::fallita() {
    if (mInTransazione) {
        mTransazioneFallita = true;
    } else if (!mConnessioni.empty()) {
        restituisci(mConnessioni.back());
    }
    return false;
}

void cAdoSqlServer::TerminateConnection() {
    if (mInTransazione) rollbackTrasaction(mNomeClasse + ".TerminateConnection");
    if (!mConnessioni.empty()) restituisci(mConnessioni.back());
    mConn = nullptr;
}

void cAdoSqlServer::setConnessione(std::unique_ptr<Connessione> connessione) {
    mAdottata = std::move(connessione);
    mConn = mAdottata.get();
}

int cAdoSqlServer::ConnectionState() const {
    if (mConn != nullptr) return 1;
    return mConnessioni.empty() ? -1 : 0;
}

// ---- The dialect

QString cAdoSqlServer::getSQLSeparator() const {
    return ::getSQLSeparator();
}

QString cAdoSqlServer::prepareSQL(const QString& sql) {
    try {
        return preparaSQL(sql, TipoServer);
    } catch (const RunTimeError& errore) {
        segnalaErrore(errore, mNomeClasse, "prepareSQL");
        return {};
    }
}

QString cAdoSqlServer::getPartSQLByTipoServer(const QString& parte) {
    return parteSQLPerTipoServer(parte, TipoServer);
}

QString cAdoSqlServer::getPartSQLWithoutSP(const QString& parte) {
    return ::getPartSQLWithoutSP(parte);
}

QString cAdoSqlServer::adatta(QString& sql) {
    sql = prepareSQL(sql);
    mUltimoSQL = sql;
    return sql;
}

// ---- Statements

bool cAdoSqlServer::esegui(const QString& sql, Recordset* righe) {
    if (mInTransazione && mTransazioneFallita) {
        mErrore = {};  // told when it happened
        return false;
    }
    if (mConn == nullptr) {
        mErrore = {ErroreServer::Classe::ConnessionePersa, 0, "Nessuna connessione aperta.", mNomeClasse};
        return false;
    }
    if (mInTransazione && !transazioneViva()) {
        mErrori.push_back(mErrore);
        return false;
    }
    const bool riuscita = mConn->esegui(sql, righe);
    if (mOperatore != nullptr && !mInTransazione) mOperatore->avvisoAttesa({});
    if (!riuscita) {
        mErrore = mConn->errore();
        mErrori.push_back(mErrore);
    }
    return riuscita;
}

void cAdoSqlServer::segnala(const QString& operazione, const QString& sorgente, const QString& dettagli) {
    if (mErrore.classe == ErroreServer::Classe::Nessuno) return;
    mErroreAnnotato = true;
    segnalaErrore(comeErrore(mErrore), mNomeClasse, operazione + " -> " + sorgente,
                  decodificaTestoSQL(dettagli));
}

void cAdoSqlServer::segnalaCommit(const QString& sorgente) {
    mCommitIgnoto = mErrore.classe == ErroreServer::Classe::EsitoIgnoto;
    if (mCommitIgnoto) {
        gErr.annotaErrore(comeErrore(mErrore), mNomeClasse, "commitTrasaction -> " + sorgente, {});
    } else {
        segnala("commitTrasaction", sorgente, {});
    }
}

void cAdoSqlServer::segnalaIntegrita(bool conSpiegazione) {
    QStringList righe{testoIntegrita};
    if (conSpiegazione) righe.append(testoIntegritaSpiegazione);
    righe << ""
          << "[Messaggio Originale]:" << mErrore.descrizione;
    mErroreAnnotato = false;
    gErr.mostraMessaggio(righe.join('\n'), OperatorPort::Icona::Informazione);
}
