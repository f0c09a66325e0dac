#include "data/gateway.h"

#include <algorithm>

#include "core/errors.h"
#include "data/connection_string.h"
#include "data/prepare_sql.h"
#include "data/server_drivers.h"
#include "data/stored_date.h"

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

const char* const testoTransazioneAnnullata = "La transazione è stata annullata dal server.";

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

bool cAdoSqlServer::apriSeServe() {
    return mInTransazione || Connect("N/D", timeoutConnessione, 0, false);
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

// ---- Transactions

bool cAdoSqlServer::beginTrasaction(const QString& sorgente) {
    if (!Connect("N/D", timeoutConnessione, 0, false)) return false;
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

void cAdoSqlServer::segnalaCommit(const QString& sorgente) {
    mCommitIgnoto = mErrore.classe == ErroreServer::Classe::EsitoIgnoto;
    if (mCommitIgnoto) {
        gErr.annotaErrore(comeErrore(mErrore), mNomeClasse, "commitTrasaction -> " + sorgente, {});
    } else {
        segnala("commitTrasaction", sorgente, {});
    }
}

bool cAdoSqlServer::commitTrasaction(const QString& sorgente) {
    return chiudiTransazione(true, sorgente);
}

bool cAdoSqlServer::rollbackTrasaction(const QString& sorgente) {
    return chiudiTransazione(false, sorgente);
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
    segnalaErrore(comeErrore(mErrore), mNomeClasse, operazione + " -> " + sorgente,
                  decodificaTestoSQL(dettagli));
}

void cAdoSqlServer::segnalaIntegrita(bool conSpiegazione) {
    QStringList righe{testoIntegrita};
    if (conSpiegazione) righe.append(testoIntegritaSpiegazione);
    righe << ""
          << "[Messaggio Originale]:" << mErrore.descrizione;
    gErr.mostraMessaggio(righe.join('\n'), OperatorPort::Icona::Informazione);
}

bool cAdoSqlServer::eseguiAdattata(const QString& sql, const QString& sorgente, const QString& operazione,
                                   const QString& dettagli, Recordset* righe) {
    if (!apriSeServe()) return false;
    if (esegui(sql, righe)) return true;
    segnala(operazione, sorgente, dettagli);
    return fallita();
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordset(QString& sql, const QString& sorgente,
                                                          int /*tipoCursore*/, int /*tipoBlocco*/,
                                                          int /*posizioneCursore*/) {
    adatta(sql);
    auto righe = std::make_unique<Recordset>();
    if (!eseguiAdattata(sql, sorgente, "getNewRecordset", "SQL=" + sql, righe.get())) return nullptr;
    return righe;
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordsetByCmd(const QString& testo,
                                                               const QString& sorgente) {
    QString sql = testo;
    adatta(sql);
    auto righe = std::make_unique<Recordset>();
    if (!eseguiAdattata(sql, sorgente, "getNewRecordsetByCmd", "CmdText=" + sql, righe.get())) return nullptr;
    return righe;
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordsetByCmd(const Comando& comando,
                                                               const QString& sorgente) {
    return getNewRecordsetByCmd(QString(comando.testo).remove("exec", Qt::CaseInsensitive).trimmed(),
                                sorgente);
}

bool cAdoSqlServer::executeSQL(QString& sql, const QString& sorgente) {
    adatta(sql);
    if (!apriSeServe()) return false;
    if (esegui(sql, nullptr)) {
        chiudiSeServe();
        return true;
    }
    if (mErrore.classe == ErroreServer::Classe::Integrita) {
        segnalaIntegrita(true);
    } else {
        segnala("executeSQL", sorgente, "SQL=" + sql);
    }
    return fallita();
}

int cAdoSqlServer::executeSQLWithRA(QString& sql, const QString& sorgente) {
    adatta(sql);
    if (!apriSeServe()) return -1;
    if (esegui(sql, nullptr)) {
        const int righe = mConn->righeModificate();
        chiudiSeServe();
        return righe;
    }
    if (mErrore.classe == ErroreServer::Classe::Integrita) {
        segnalaIntegrita(false);
    } else {
        segnala("executeSQLWithRA", sorgente, "SQL=" + sql);
    }
    fallita();
    return -1;
}

bool cAdoSqlServer::executeCmd(const Comando& comando, const QString& sorgente) {
    QString testo = comando.testo;
    if (!testo.startsWith("exec ", Qt::CaseInsensitive)) testo.prepend("exec ");
    mUltimoSQL = testo;
    if (!apriSeServe()) return false;
    mErrori.clear();
    if (esegui(testo, nullptr)) {
        chiudiSeServe();
        return true;
    }
    mErrori.clear();
    segnala("executeCmd", sorgente, "Cmd=" + testo);
    return fallita();
}

bool cAdoSqlServer::checkForErrors(const QString& sorgente) {
    if (mErrori.empty()) return false;
    segnalaErrore(comeErrore(mErrori.front()), mNomeClasse, "checkForErrors -> " + sorgente);
    mErrori.clear();
    return true;
}

int cAdoSqlServer::getIDByInsert(QString& sql, const QString& sorgente, const QString& campoID,
                                 const QString& tabella) {
    QString sql2;
    const auto dettagli = [&] {
        return QString("SQL1=%1\nServerTipo=%2\nSQL2=%3").arg(sql, QString::number(TipoServer), sql2);
    };
    if (sql.isEmpty()) {
        const RunTimeError errore(RunTimeError::ErroreApplicazione,
                                  "Testo del Comando SQL non impostato in getIDByInsert",
                                  "ORBLN::" + mNomeClasse);
        segnalaErrore(errore, mNomeClasse, "getIDByInsert -> " + sorgente, dettagli());
        return -1;
    }
    adatta(sql);
    if (!apriSeServe()) return -1;
    Recordset chiave;
    bool riuscita = true;
    if (TipoServer == SqlServer) {
        riuscita =
            esegui(QString("SET NOCOUNT ON @01 SELECT SCOPE_IDENTITY() SET NOCOUNT OFF").replace("@01", sql),
                   &chiave);
    } else if (TipoServer == Access || TipoServer == MySql) {
        sql2 = "SELECT MAX(" + campoID + ") FROM " + tabella;
        riuscita = esegui(sql, nullptr) && esegui(sql2, &chiave);
    }
    if (!riuscita) {
        segnala("getIDByInsert", sorgente, dettagli());
        fallita();
    }
    chiudiSeServe();
    return riuscita && !chiave.eof() ? chiave.campo(0).toInt() : -1;
}

QVariant cAdoSqlServer::primoValore(const QString& sql, const QString& sorgente) {
    QString testo = sql;
    const auto righe = getNewRecordset(testo, sorgente);
    if (!righe) return {};
    const QVariant valore = righe->eof() ? QVariant() : righe->campo(0);
    chiudiSeServe();
    return valore;
}

QVariant cAdoSqlServer::getValueBySQL(const QString& sql, const QString& sorgente) {
    return primoValore(sql, mNomeClasse + ".getValueBySQL -> " + sorgente);
}

QDateTime cAdoSqlServer::getDataOraServer(const QString& sorgente) {
    const char* const sql = TipoServer == SqlServer ? "SELECT GetDate()" : "SELECT Now()";
    const QVariant valore = primoValore(sql, mNomeClasse + ".getDataOraServer -> " + sorgente);
    if (valore.typeId() == QMetaType::QDateTime) return valore.toDateTime();
    return dataOraArchivio(valore.toString());
}

QVariant cAdoSqlServer::getStoredResult(const QString& testo, const QString& sorgente) {
    const auto righe = getNewRecordsetByCmd(testo, sorgente);
    if (!righe) return {};
    const QVariant valore = righe->eof() ? QVariant() : righe->campo(0);
    chiudiSeServe();
    return valore;
}

void cAdoSqlServer::setNewTable(const QString& rifForm, const QString& nome) {
    try {
        registraTabella(rifForm, nome);
    } catch (const std::exception&) {
        segnalaErrore(erroreInCorso(), mNomeClasse, "setNewTable", "Table=" + rifForm + "\nDesc=" + nome);
    }
}

// A statement that fails has been reported by its own operation.
void cAdoSqlServer::registraTabella(const QString& rifForm, const QString& nome) {
    const QString sorgente = mNomeClasse + ".setNewTable";
    const QVariant quante =
        getValueBySQL("SELECT COUNT(*) FROM ElencoTabelle WHERE RifForm = " + testoSQL(rifForm), sorgente);
    if (quante.isNull() || quante.toInt() != 0) return;
    const int tabella = getIDByInsert("INSERT INTO ElencoTabelle (RifForm, Nome) VALUES (" +
                                          testoSQL(rifForm) + ", " + testoSQL(nome) + ")",
                                      sorgente, "ID", "ElencoTabelle");
    if (tabella < 1) return;
    mErrore = {};
    const QVariant gruppo = getValueBySQL("SELECT RID FROM GRUPPOUTENTI WHERE AMMINISTRATORE=1", sorgente);
    if (mErrore.classe != ErroreServer::Classe::Nessuno) return;
    // Nobody is there to be given the rights.
    if (gruppo.isNull()) throw RunTimeError(RunTimeError::TipoNonCorrispondente);
    executeSQL(
        "INSERT INTO GRUPPOPERMESSI (FK_GRUPPOUTENTI, FK_TABELLE, VISUALIZZA, SCRIVI, ELIMINA, STAMPA) "
        "VALUES (" +
            gruppo.toString() + ", " + QString::number(tabella) + ", 1, 1, 1, 1)",
        sorgente);
}
