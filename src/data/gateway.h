#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <QDateTime>
#include <QString>
#include <QVariant>

#include "core/operator_port.h"
#include "data/recordset.h"
#include "data/server_driver.h"

// A stored procedure or a text to be run as a command.
struct Comando {
    QString testo;
};

// The only door to the database. It holds no connection between operations: each one opens its own on a
// small stack and closes it when done; only inside a transaction do all statements share one. Below the
// stack the drivers keep warm connections, so that opening costs no handshake.
//
// `sql` arguments are in the neutral dialect and come back adapted. `sorgente` is the caller's module and
// procedure, joined by a point, for the error report. A failure is reported here, and answered as false,
// -1, nothing or an empty value; a caller only stops. Inside a transaction the first failure is also the
// last statement: until the rollback every further one fails at once, without a report of its own.
class cAdoSqlServer {
  public:
    cAdoSqlServer();
    ~cAdoSqlServer();
    cAdoSqlServer(const cAdoSqlServer&) = delete;
    cAdoSqlServer& operator=(const cAdoSqlServer&) = delete;

    // Where the connection string in force comes from; asked afresh at every Connect.
    void impostaStringaConnessione(std::function<QString()> stringa) { mStringa = std::move(stringa); }
    // Who sees the boxes and the notice of waiting.
    void impostaOperatore(OperatorPort* operatore) { mOperatore = operatore; }
    void impostaDriver(int tipoServer, std::unique_ptr<ServerDriver> driver);
    // Closes the warm connections of every server type.
    void chiudiConnessioniCalde();

    bool Connect(const QString& sorgente, int timeout, int numero, bool silenzioso);
    void disconnect();
    void setAppName(const QString& nome) { mAppName = nome; }
    void TerminateConnection();
    void setConnessione(std::unique_ptr<Connessione> connessione);

    bool beginTrasaction(const QString& sorgente);
    bool rollbackTrasaction(const QString& sorgente);
    bool commitTrasaction(const QString& sorgente);
    // After a commitTrasaction that failed: its answer was lost, and only a look at the rows on a new
    // connection tells whether they are there. It was logged; what to say is left to the caller.
    bool commitDiEsitoIgnoto() const { return mCommitIgnoto; }
    bool inTransazione() const { return mInTransazione; }
    // A statement of the transaction has failed, and was reported: only the rollback is left.
    bool transazioneFallita() const { return mInTransazione && mTransazioneFallita; }
    // Of the last operation; of no class when it went well.
    const ErroreServer& ultimoErrore() const { return mErrore; }
    // Whether it was reported, and stands in the log: a box about the integrity of the data leaves no trace.
    bool erroreAnnotato() const { return mErroreAnnotato; }

    QString getStrConnection() const { return mStrConnection; }
    QString getSQLSeparator() const;
    QString prepareSQL(const QString& sql);
    QString getPartSQLByTipoServer(const QString& parte);
    QString getPartSQLWithoutSP(const QString& parte);

    // The caller owns the rows and afterwards calls disconnect(); see Lettura.
    std::unique_ptr<Recordset> getNewRecordset(QString& sql, const QString& sorgente, int tipoCursore = 2,
                                               int tipoBlocco = 1, int posizioneCursore = 3);
    std::unique_ptr<Recordset> getNewRecordsetByCmd(const QString& testo, const QString& sorgente);
    std::unique_ptr<Recordset> getNewRecordsetByCmd(const Comando& comando, const QString& sorgente);
    bool executeSQL(QString& sql, const QString& sorgente);
    bool executeSQL(const QString& sql, const QString& sorgente) {
        QString testo = sql;
        return executeSQL(testo, sorgente);
    }
    // Rows affected; -1 on failure.
    int executeSQLWithRA(QString& sql, const QString& sorgente);
    int executeSQLWithRA(const QString& sql, const QString& sorgente) {
        QString testo = sql;
        return executeSQLWithRA(testo, sorgente);
    }
    bool executeCmd(const Comando& comando, const QString& sorgente);
    // True when the current connection held errors; the first is reported.
    bool checkForErrors(const QString& sorgente);
    // The new row's key; -1 when none.
    int getIDByInsert(QString& sql, const QString& sorgente, const QString& campoID, const QString& tabella);
    int getIDByInsert(const QString& sql, const QString& sorgente, const QString& campoID,
                      const QString& tabella) {
        QString testo = sql;
        return getIDByInsert(testo, sorgente, campoID, tabella);
    }
    QString getLastSQLCommand() const { return mUltimoSQL; }
    // The first column of the first row; null when there is no row.
    QVariant getValueBySQL(const QString& sql, const QString& sorgente);
    QDateTime getDataOraServer(const QString& sorgente);
    QVariant getStoredResult(const QString& testo, const QString& sorgente);

    // Literals of the neutral dialect; a value that is not a date gives "Null", a server type outside 0
    // to 2 an empty text. A negative type means the one in force.
    QString getSQLDate(const QVariant& valore, int tipoServer = -1) const;
    QString getSQLDateTime(const QVariant& valore, int tipoServer = -1) const;
    QString getSQLTime(const QVariant& valore, int tipoServer = -1) const;

    // ElencoTabelle: a screen's table that is not there yet, with all rights for the administrators' group.
    void setNewTable(const QString& rifForm, const QString& nome);

    Connessione* getActiveConnection() const { return mConn; }
    static Comando getNewCmd() { return {}; }
    // 1 open, 0 closed, -1 when there is none.
    int ConnectionState() const;
    int getConnectionCount() const { return static_cast<int>(mConnessioni.size()); }

    int TipoCursore = 2;  // cursor location: 2 server side, 3 client side
    int TipoServer = 0;   // 0 SQL Server, 1 Access, 2 MySQL

  private:
    struct Voce {
        std::unique_ptr<Connessione> connessione;  // empty once a failure gave it back
        ServerDriver* driver = nullptr;
    };

    bool esegui(const QString& sql, Recordset* righe);
    std::unique_ptr<Recordset> leggi(QString& sql, const QString& sorgente, const char* operazione,
                                     const char* nomeTesto);
    bool apri();
    bool apriSeServe();
    void chiudiSeServe();
    void restituisci(Voce& voce);
    bool fallita();
    void segnala(const QString& operazione, const QString& sorgente, const QString& dettagli);
    void segnalaIntegrita(bool conSpiegazione);
    void registraTabella(const QString& rifForm, const QString& nome);
    void segnalaCommit(const QString& sorgente);
    bool chiudiTransazione(bool conferma, const QString& sorgente);
    bool transazioneViva();
    QVariant primoValore(const QString& sql, const QString& sorgente);
    QVariant primoValore(std::unique_ptr<Recordset> righe);
    QString adatta(QString& sql);
    AttesaServer attesa() const;

    Connessione* mConn = nullptr;  // the most recently opened one
    std::vector<Voce> mConnessioni;
    std::vector<ErroreServer> mErrori;  // of the current connection
    const QString mNomeClasse = "cAdoSqlServer";
    QString mUltimoSQL;
    QString mStrConnection;
    QString mAppName;
    bool mErroreAnnotato = false;
    bool mInTransazione = false;
    bool mTransazioneFallita = false;
    bool mCommitIgnoto = false;

    ErroreServer mErrore;  // of the last operation
    std::function<QString()> mStringa;
    OperatorPort* mOperatore = nullptr;
    std::map<int, std::unique_ptr<ServerDriver>> mDriver;
    std::unique_ptr<Connessione> mAdottata;
};

// The one gateway of the process.
extern cAdoSqlServer gAdo;

// Number literals: a decimal point, no thousands; not numeric: "Null", or "0".
QString getSqlNumber(const QVariant& valore);
QString getSqlNumber(const QString& testo);
QString getSqlNumber(Currency valore);
QString getSqlNumber(float valore);
QString getSqlNumberOrZero(const QString& testo);

// The rows of one query, closed and disconnected when they go out of scope. False when it failed.
class Lettura {
  public:
    Lettura(QString sql, const QString& sorgente) : mRighe(gAdo.getNewRecordset(sql, sorgente)) {}
    ~Lettura() {
        if (mRighe) gAdo.disconnect();
    }
    Lettura(const Lettura&) = delete;
    Lettura& operator=(const Lettura&) = delete;

    explicit operator bool() const { return mRighe != nullptr; }
    bool trovata() const { return mRighe && !mRighe->eof(); }
    Recordset& operator*() const { return *mRighe; }
    Recordset* operator->() const { return mRighe.get(); }

  private:
    std::unique_ptr<Recordset> mRighe;
};
