#pragma once

#include "data/connection_string.h"
#include "data/prepare_sql.h"
#include "data/sql_connection.h"

// A database on a MariaDB or MySQL server: utf8mb4, strict, one statement a text, and texts as they stand (a
// backslash is a character). A desk's turn is a named lock of the server, and a serializable transaction.
class MySqlConnection final : public ConnessioneSql {
  public:
    // How long a statement or a turn waits for other desks before it fails, in milliseconds.
    static inline int attesaMassima = 10000;
    // How long it waits for an answer where the connection string does not say, in seconds.
    static inline int secondiRisposta = 30;

    static constexpr int tipoServer = MySql;
    static constexpr const char* origine = "MySQL";

    // `secondi`: to connect, where the connection string does not say.
    static std::unique_ptr<MySqlConnection> apri(const QString& stringaConnessione, int secondi,
                                                 ErroreServer& errore);
    MySqlConnection(const QString& luogo, DatiConnessione dati, int secondi);

  protected:
    bool apriSessione() override;
    QString traduci(const QString& sql) const override;
    ErroreServer erroreDi(const QSqlError& errore, const QSqlQuery* query) const override;
    std::vector<TipoColonna> tipiColonne(const QSqlQuery& query) const override;
    bool pronta() override;
    Turno prendiTurno() override;
    bool apriTransazione() override { return spedisci("START TRANSACTION"); }
    bool chiudiTransazione(bool conferma) override { return spedisci(conferma ? "COMMIT" : "ROLLBACK"); }
    bool lasciaTurno() override { return spedisci("DO RELEASE_LOCK('" + mNomeTurno + "')"); }
    bool serverInTransazione() const override;
    bool verificaTransazione() override;
    // InnoDB undoes the one statement that has waited, where it is not told to undo the transaction.
    bool attesaSenzaTraccia() override { return errore().codice == attesaScaduta; }
    using ConnessioneSql::spedisci;

  private:
    // ER_LOCK_WAIT_TIMEOUT.
    static constexpr int attesaScaduta = 1205;

    bool preparaSessione();
    bool controllaCifratura();

    const DatiConnessione mDati;
    const int mSecondi;
    QString mNomeTurno;
    bool mNomiEsatti = false;  // the server tells the case of table names apart
};
