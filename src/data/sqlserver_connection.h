#pragma once

#include "data/odbc_connection.h"
#include "data/prepare_sql.h"

// A database on a SQL Server. A desk's turn is an application lock that its transaction owns.
class SqlServerConnection : public OdbcConnection {
  public:
    // How long a statement or a turn waits for other desks before it fails, in milliseconds.
    static inline int attesaMassima = 10000;

    static constexpr int tipoServer = SqlServer;
    static constexpr const char* origine = "SQL Server";

    // `secondi`: to connect, where the connection string does not say.
    static std::unique_ptr<SqlServerConnection> apri(const QString& stringaConnessione, int secondi,
                                                     ErroreServer& errore);
    SqlServerConnection(const QString& luogo, DatiConnessione dati, int secondi)
        : OdbcConnection(luogo, std::move(dati), secondi, attesaMassima) {}

  protected:
    bool preparaSessione() override;
    QString traduci(const QString& sql) const override;
    Turno prendiTurno() override;
    // The turn's lock belongs to the transaction, so that one has begun with the first try.
    bool apriTransazione() override { return true; }
    bool chiudiTransazione(bool conferma) override;
    bool lasciaTurno() override { return true; }
    bool verificaTransazione() override;
    using ConnessioneSql::spedisci;
};
