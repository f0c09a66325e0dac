#pragma once

#include <optional>

#include <QElapsedTimer>
#include <QSqlDatabase>

#include "data/server_driver.h"
#include "data/sql_values.h"

class QSqlError;

// A connection to a server through QtSql, and what all servers have in common: a dead connection is replaced
// without a word outside a transaction, a wait for another desk is short tries under a notice, and a commit
// whose answer was lost is told apart. What differs is answered by the server's own class.
class ConnessioneSql : public Connessione {
  public:
    ~ConnessioneSql() override;
    ConnessioneSql(const ConnessioneSql&) = delete;
    ConnessioneSql& operator=(const ConnessioneSql&) = delete;

    // Opens it for the first time.
    bool connetti();

    bool esegui(const QString& sql, Recordset* righe) override { return eseguiNativo(traduci(sql), righe); }
    bool eseguiNativo(const QString& sql, Recordset* righe) override;
    int righeModificate() const override { return mRigheModificate; }

    bool inizia() override;
    bool conferma() override;
    bool annulla() override;
    bool inTransazione() const override {
        return mTransazione == Transazione::Aperta && serverInTransazione();
    }
    const ErroreServer& errore() const override { return mErrore; }

    void impostaAttesa(AttesaServer attesa) { mAttesa = std::move(attesa); }
    // The connection string that it was opened with.
    const QString& luogo() const { return mLuogo; }
    static QString luogoDi(const QString& stringaConnessione) { return stringaConnessione; }
    // False when the server has closed it; the server itself is asked only after a rest.
    bool ancoraValida();
    bool daTenere();

  protected:
    // `attesaMassima`: how long it waits for other desks, in milliseconds.
    ConnessioneSql(const QString& pluginQt, QString luogo, const int& attesaMassima);
    // The server frees what a closed connection held.
    void chiudi();
    const QSqlDatabase& database() const { return *mDatabase; }
    QSqlDatabase& database() { return *mDatabase; }

    // Opens the closed database and makes the session ready.
    virtual bool apriSessione() = 0;
    virtual QString traduci(const QString& sql) const = 0;
    // `query`: the one that failed; nullptr when it was the opening.
    virtual ErroreServer erroreDi(const QSqlError& errore, const QSqlQuery* query) const = 0;
    virtual std::vector<TipoColonna> tipiColonne(const QSqlQuery& query) const = 0;
    // A word with the server, to know that it is there.
    virtual bool pronta() = 0;

    enum class Turno { Preso, Occupato, Fallito };
    // One short try.
    virtual Turno prendiTurno() = 0;
    // Begins the transaction of a turn that is taken.
    virtual bool apriTransazione() = 0;
    virtual bool chiudiTransazione(bool conferma) = 0;
    // After the transaction.
    virtual bool lasciaTurno() = 0;
    // What the server said last; it may roll back by itself.
    virtual bool serverInTransazione() const { return true; }
    // Asks the server.
    virtual bool verificaTransazione() = 0;
    // Of a statement that failed in a transaction by waiting for a lock: the server has undone all of it, and
    // the transaction stands as it was.
    virtual bool attesaSenzaTraccia() { return false; }

    // Sends one text and takes its rows.
    virtual bool spedisci(const QString& sql, Recordset* righe);
    bool spedisci(const QString& sql) { return spedisci(sql, nullptr); }
    bool fallita(ErroreServer errore);

  private:
    // Perduta: a statement has failed or the server has ended it, and nothing more may run until the caller
    // has rolled back.
    enum class Transazione { Nessuna, Aperta, Perduta };

    bool riapri();
    bool assicura();
    bool pazienta(const QElapsedTimer& inizio) const;
    bool siPuoRipetere(bool lettura, const QElapsedTimer& inizio);
    bool siPuoRipetereDentro();
    bool leggiRisultati(QSqlQuery& query, Recordset* righe);

    const QString mLuogo;
    const int& mAttesaMassima;
    std::optional<QSqlDatabase> mDatabase;  // until the process ends
    AttesaServer mAttesa;
    QElapsedTimer mUltimaRisposta;
    bool mProvata = false;  // has answered since it was taken
    Transazione mTransazione = Transazione::Nessuna;
    int mRigheModificate = 0;
    ErroreServer mErrore;
};
