#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

// The same query for one key after another on the client library of the server in force, on a connection that
// is open already: what the server alone costs. It is prepared as the gateway's own driver prepares it: kept
// and bound on SQLite, sent as text to MariaDB.
class ClienteNudo {
  public:
    virtual ~ClienteNudo() = default;
    // Reads all cells as bytes; answers how many.
    virtual int cerca(int chiave) = 0;
};

// `query` ends where the key stands. `stringaConnessione`: of a MariaDB database; empty for the file
// `archivio`.
std::unique_ptr<ClienteNudo> nuovoClienteNudo(const QString& stringaConnessione, const QString& archivio,
                                              const QByteArray& query);
