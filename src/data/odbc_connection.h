#pragma once

#include "data/connection_string.h"
#include "data/sql_connection.h"

// The string that opens an ODBC driver: FreeTDS, or the one that `dati` names. `secondiRisposta`: how long it
// waits for an answer, where `dati` does not say.
QString stringaOdbc(const DatiConnessione& dati, int secondiRisposta);

// A connection through an ODBC driver. What the server behind it wants to hear is said by its own class.
class OdbcConnection : public ConnessioneSql {
  public:
    // How long it waits for an answer where the connection string does not say, in seconds.
    static inline int secondiRisposta = 30;

  protected:
    OdbcConnection(const QString& luogo, DatiConnessione dati, int secondi, const int& attesaMassima);

    bool apriSessione() override;
    virtual bool preparaSessione() = 0;
    std::vector<TipoColonna> tipiColonne(const QSqlQuery& query) const override;
    ErroreServer erroreDi(const QSqlError& errore, const QSqlQuery* query) const override;
    bool pronta() override { return spedisci("SELECT 1"); }
    using ConnessioneSql::spedisci;

  private:
    const DatiConnessione mDati;
    const int mSecondi;
};
