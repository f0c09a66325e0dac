#pragma once

#include "data/server_driver.h"

// T-SQL out of traduciSqlServer in SQLite's words, so that the embedded archive can answer it. Knows what
// the statements of the program hold, and no more.
QString sqliteDaTSql(const QString& sql);

// Adds a statement to what is collected.
void raccogliTSql(const QString& sql);

// A SQL Server that is an embedded archive: it takes the very text that the ODBC driver would be handed,
// and runs it on the SQLite file of the connection string. With the environment variable
// BOTTEGON_RACCOLTA_TSQL, the path of a file, each different statement is appended there, one JSON text a
// line, behind the statements that make the empty database.
class SqlServerFinto final : public ServerDriver {
  public:
    // `archivio` opens the embedded archive.
    explicit SqlServerFinto(std::unique_ptr<ServerDriver> archivio);

    std::unique_ptr<Connessione> apri(const QString& stringaConnessione, int secondi,
                                      const AttesaServer& attesa, ErroreServer& errore) override;
    void restituisci(std::unique_ptr<Connessione> connessione) override;
    void chiudi() override { mArchivio->chiudi(); }

  private:
    std::unique_ptr<ServerDriver> mArchivio;
};
