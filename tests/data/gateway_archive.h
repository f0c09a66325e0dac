#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/core_doubles.h"
#include "core/errors.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"
#include "doubles/archivio_di_prova.h"
#include "doubles/celle.h"

// An operator who also remembers the notice of waiting.
class OperatoreInAttesa final : public OperatoreRegistrato {
  public:
    void avvisoAttesa(const QString& testo) override {
        attesa = testo;
        if (!testo.isEmpty()) ++avvisiDiAttesa;
    }
    QString attesa;  // the notice that stands now
    int avvisiDiAttesa = 0;
};

// A gateway over a small archive of its own on the server in force: Prova, with Figli that refer to it. On a
// server they stand beside the tables of the shop.
class GatewayDiProva {
  public:
    GatewayDiProva() : orologio(QDateTime(QDate(2026, 3, 16), QTime(10, 30))) {
        if (archivioSuFile()) {
            creaArchivio(percorso());
            ado.TipoServer = Access;
            stringa =
                "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + percorso() + ";Persist Security Info=False";
        } else {
            usaServer();
        }
        gErr.imposta(mCartella.path(), &operatore);
        ado.impostaOperatore(&operatore);
        ado.impostaStringaConnessione([this] { return stringa; });
    }
    ~GatewayDiProva() {
        sondaIstruzioni() = {};
        if (ado.inTransazione()) ado.rollbackTrasaction("fine");
        gErr.imposta({}, nullptr);
    }
    GatewayDiProva(const GatewayDiProva&) = delete;
    GatewayDiProva& operator=(const GatewayDiProva&) = delete;

    static void creaArchivio(const QString& percorso) {
        ErroreServer errore;
        const auto nuova = SqliteConnection::crea(percorso, errore);
        ASSERT_TRUE(nuova) << errore.descrizione.toStdString();
        for (const QString& sql : tabelle(Access)) {
            ASSERT_TRUE(nuova->eseguiNativo(sql)) << nuova->errore().descrizione.toStdString();
        }
    }

    QString percorso(const QString& nome = "prova.mdb") const { return mCartella.filePath(nome); }
    QString cartella() const { return mCartella.path(); }

    // A connection to the file beside the gateway, as another desk has one.
    std::unique_ptr<SqliteConnection> altraCassa() const {
        ErroreServer errore;
        auto altra = SqliteConnection::apri(percorso(), errore);
        EXPECT_TRUE(altra) << errore.descrizione.toStdString();
        return altra;
    }
    // In words that every server knows, beside the gateway; "||" joins texts.
    Recordset esegui(const QString& sql) const {
        if (mServer) return mServer->esegui(sql);
        const auto altra = altraCassa();
        Recordset righe;
        EXPECT_TRUE(altra->eseguiNativo(sql, &righe)) << altra->errore().descrizione.toStdString();
        return righe;
    }
    // What is in the books, read beside the gateway.
    QString valore(const QString& query) const {
        const Recordset righe = esegui(query);
        return righe.eof() ? QString() : testoCella(righe.campo(0));
    }
    bool inserisci(const QString& codice) {
        return ado.executeSQL("INSERT INTO Prova (CODICE) VALUES (" + testoSQL(codice) + ")",
                              "prova.inserisci");
    }

    // What the report of a failed insert tells behind its statement.
    QString serverEChiave(const QString& tabella) const {
        const QString tipo = "ServerTipo=" + QString::number(ado.TipoServer) + "\nSQL2=";
        return ado.TipoServer == SqlServer ? tipo : tipo + "SELECT MAX(RID) FROM " + tabella;
    }

    QStringList registro() const {
        QFile file(mCartella.filePath("Err.log"));
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }

    OperatoreInAttesa operatore;
    OrologioFermo orologio;
    QString stringa;
    cAdoSqlServer ado;

  private:
    static QStringList tabelle(int tipoServer) {
        const bool mySql = tipoServer == MySql;
        const QString chiave =
            mySql ? "RID INT AUTO_INCREMENT PRIMARY KEY" : "RID INTEGER PRIMARY KEY AUTOINCREMENT";
        return {"CREATE TABLE Prova (" + chiave + ", CODICE VARCHAR(100) UNIQUE, DATI " +
                    (mySql ? "LONGTEXT" : "BLOB") + ", DATA DATETIME)",
                "CREATE TABLE Figli (" + chiave +
                    ", FK_PROVA INT, FOREIGN KEY (FK_PROVA) REFERENCES Prova (RID))"};
    }
    void usaServer() {
        mServer = nuovoArchivioDiProva(mCartella.path());
        for (const QString& sql : tabelle(mServer->tipoServer())) {
            mServer->esegui(sql);
        }
        ado.TipoServer = mServer->tipoServer();
        ado.impostaDriver(ado.TipoServer, mServer->driver());
        stringa = mServer->stringaConnessione();
    }

    QTemporaryDir mCartella;
    std::unique_ptr<ArchivioDiProva> mServer;  // none on a file
};

// An error that no server sent.
inline ErroreServer erroreFinto() {
    return {ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
}

// How many files this process has open.
inline int fileAperti() {
    return static_cast<int>(QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size());
}
