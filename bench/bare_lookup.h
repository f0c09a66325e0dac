#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

// One statement after another on the client library of the server in force, on a connection that is open
// already: what the server alone costs.
class ClienteNudo {
  public:
    virtual ~ClienteNudo() = default;
    // Runs it and reads all its cells as bytes; answers how many.
    virtual int leggi(const QByteArray& sql) = 0;
};

// `stringaConnessione`: of a MariaDB database; empty for the file `archivio`.
std::unique_ptr<ClienteNudo> nuovoClienteNudo(const QString& stringaConnessione, const QString& archivio);
