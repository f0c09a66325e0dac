#include "archivio/server_archive.h"

#include <optional>
#include <utility>

#include "core/run_time_error.h"
#include "data/archive_version.h"
#include "data/mysql_connection.h"
#include "data/prepare_sql.h"
#include "data/server_drivers.h"
#include "data/sqlserver_connection.h"

namespace {

constexpr int secondiApertura = 15;
// An index on a large table is one long answer.
constexpr int secondiRisposta = 3600;

[[noreturn]] void rifiuta(const ErroreServer& errore) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, errore.descrizione);
}

// While it lives, connections are opened that wait long for an answer.
class RisposteLunghe {
  public:
    ~RisposteLunghe() {
        MySqlConnection::secondiRisposta = mMySql;
        SqlServerConnection::secondiRisposta = mSqlServer;
    }
    RisposteLunghe() = default;
    RisposteLunghe(const RisposteLunghe&) = delete;
    RisposteLunghe& operator=(const RisposteLunghe&) = delete;

  private:
    int mMySql = std::exchange(MySqlConnection::secondiRisposta, secondiRisposta);
    int mSqlServer = std::exchange(SqlServerConnection::secondiRisposta, secondiRisposta);
};

}  // namespace

ArchivioServer::ArchivioServer(const NomeArchivio& nome, Stato stato)
    : Archivio(nome.tipoServer), mDriver(nuovoDriver(nome.tipoServer)) {
    if (!mDriver) rifiuta({{}, 0, "questo tipo di server non è disponibile", {}});
    const RisposteLunghe pazienza;
    std::optional<AperturaSenzaVerifica> libera;
    if (stato != Stato::Completo) libera.emplace();
    ErroreServer errore;
    mConnessione = stato == Stato::SenzaDatabase
                       ? apriServer(nome.tipoServer, nome.connessione, secondiApertura, errore)
                       : mDriver->apri(nome.connessione, secondiApertura, {}, errore);
    if (!mConnessione) rifiuta(errore);
    mSessione = sessione();
}

ArchivioServer::~ArchivioServer() = default;

qint64 ArchivioServer::sessione() {
    return numero(tipoServer() == MySql ? "SELECT CONNECTION_ID()" : "SELECT @@SPID");
}

Recordset ArchivioServer::leggi(const QString& sql) {
    Recordset righe;
    if (!mConnessione->eseguiNativo(sql, &righe)) rifiuta(mConnessione->errore());
    return righe;
}

void ArchivioServer::esegui(const QString& sql) {
    if (!mConnessione->eseguiNativo(sql, nullptr)) rifiuta(mConnessione->errore());
}

void ArchivioServer::fermaIlTempo() {
    if (tipoServer() != MySql) return;
    esegui("SET TRANSACTION ISOLATION LEVEL REPEATABLE READ");
    esegui("START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY");
}

// A connection replaced on the way has lost its snapshot, its settings and what was not committed.
void ArchivioServer::pretendiContinuita() {
    if (sessione() == mSessione) return;
    throw RunTimeError(RunTimeError::ErroreApplicazione,
                       "la connessione al server è caduta durante il lavoro");
}

void ArchivioServer::inizia() {
    if (!mConnessione->inizia()) rifiuta(mConnessione->errore());
    pretendiContinuita();
}

void ArchivioServer::conferma() {
    if (!mConnessione->conferma()) rifiuta(mConnessione->errore());
}
