#include "data/sqlserver_connection.h"

#include "data/sql_opening.h"
#include "data/sqlserver_sql.h"

namespace {

// Everything that a statement's meaning rests on is said here, not left to the server's or the login's
// settings. Waiting for a lock is short: the wait for another desk is tries under a notice.
const char* const sessione =
    "SET ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, ARITHABORT, CONCAT_NULL_YIELDS_NULL, QUOTED_IDENTIFIER, "
    "XACT_ABORT ON; SET NOCOUNT, IMPLICIT_TRANSACTIONS, NUMERIC_ROUNDABORT OFF; SET DATEFORMAT ymd; "
    "SET LOCK_TIMEOUT 1000; SET TEXTSIZE 2147483647; SET ROWCOUNT 0; "
    "SET TRANSACTION ISOLATION LEVEL READ COMMITTED";

const char* const turno =
    "IF @@TRANCOUNT = 0 BEGIN TRANSACTION; DECLARE @turno INT; EXEC @turno = sp_getapplock "
    "@Resource = N'Bottegon', @LockMode = 'Exclusive', @LockOwner = 'Transaction', @LockTimeout = 200; "
    "SELECT @turno";

// A driver that does not carry these would change texts without a word.
const char* const caratteriDiProva = "è€\U0001F600";

// What sp_getapplock answers: 0 and above the lock, these that another has it, anything else a fault.
constexpr int turnoScaduto = -1;
constexpr int turnoVittima = -3;
constexpr int guasto = -999;

}  // namespace

std::unique_ptr<SqlServerConnection> SqlServerConnection::apri(const QString& stringaConnessione, int secondi,
                                                               ErroreServer& errore) {
    return apriArchivioSql<SqlServerConnection>(stringaConnessione, secondi, errore);
}

bool SqlServerConnection::preparaSessione() {
    Recordset eco;
    const QString prova = caratteriDiProva;
    if (!spedisci(sessione) || !spedisci("SELECT N'" + prova + "'", &eco)) return false;
    if (!eco.eof() && eco.campo(0).toString() == prova) return true;
    return fallita({ErroreServer::Classe::Altro, 0,
                    "Il driver ODBC del server SQL Server non porta tutti i caratteri.", origine});
}

QString SqlServerConnection::traduci(const QString& sql) const {
    return traduciSqlServer(sql);
}

ConnessioneSql::Turno SqlServerConnection::prendiTurno() {
    Recordset esito;
    if (!spedisci(turno, &esito)) return Turno::Fallito;
    const int risposta = esito.eof() ? guasto : esito.campo(0).toInt();
    if (risposta >= 0) return Turno::Preso;
    if (risposta == turnoScaduto || risposta == turnoVittima) return Turno::Occupato;
    fallita({ErroreServer::Classe::Altro, risposta, "Il server SQL Server non dà il turno per salvare.",
             origine});
    return Turno::Fallito;
}

bool SqlServerConnection::chiudiTransazione(bool conferma) {
    return spedisci(conferma ? "COMMIT TRANSACTION" : "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION");
}

// A transaction that can only be rolled back still counts.
bool SqlServerConnection::verificaTransazione() {
    Recordset stato;
    if (!spedisci("SELECT @@TRANCOUNT, XACT_STATE()", &stato) || stato.eof()) return false;
    return stato.campo(0).toInt() > 0 && stato.campo(1).toInt() == 1;
}
