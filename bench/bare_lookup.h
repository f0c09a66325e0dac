#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

// The same query for one key after another on the client library of the server in force, on a connection that
// is open already: what the server alone costs. MariaDB gets it as text; SQLite either keeps it prepared and
// binds the key, as the gateway's own driver does, or prepares each text that it is given.
class ClienteNudo {
  public:
    virtual ~ClienteNudo() = default;
    // Reads all cells as bytes; answers how many.
    virtual int cerca(int chiave) = 0;
};

enum class Preparata { UnaVolta, OgniVolta };

// `query` ends where the key stands. `stringaConnessione`: of a MariaDB database; empty for the file
// `archivio`.
std::unique_ptr<ClienteNudo> nuovoClienteNudo(const QString& stringaConnessione, const QString& archivio,
                                              const QByteArray& query, Preparata preparata);
