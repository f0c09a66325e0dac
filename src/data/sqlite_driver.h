#pragma once

#include <vector>

#include "data/sqlite_connection.h"

// Connections to embedded archives. A few are kept warm between operations; one whose file has been
// replaced meanwhile is closed and opened anew.
class SqliteDriver final : public ServerDriver {
  public:
    std::unique_ptr<Connessione> apri(const QString& stringaConnessione, int secondi,
                                      const AttesaServer& attesa, ErroreServer& errore) override;
    void restituisci(std::unique_ptr<Connessione> connessione) override;
    void chiudi() override { mCalde.clear(); }

  private:
    std::unique_ptr<SqliteConnection> prendiCalda(const QString& percorso);

    std::vector<std::unique_ptr<SqliteConnection>> mCalde;
};

// The archive's path in a connection string of the form "...;Data Source=<path>;...".
QString percorsoArchivio(const QString& stringaConnessione);
