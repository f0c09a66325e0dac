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

// A gateway over a small archive of its own: Prova, with Figli that refer to it.
class GatewayDiProva {
  public:
    GatewayDiProva() : orologio(QDateTime(QDate(2026, 3, 16), QTime(10, 30))) {
        creaArchivio(percorso());
        gErr.imposta(mCartella.path(), &operatore);
        ado.TipoServer = Access;
        ado.impostaOperatore(&operatore);
        ado.impostaStringaConnessione([this] { return stringa; });
        stringa =
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + percorso() + ";Persist Security Info=False";
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
        for (const char* sql :
             {"CREATE TABLE Prova (RID INTEGER PRIMARY KEY AUTOINCREMENT, CODICE TEXT UNIQUE, "
              "DATI BLOB, DATA DATETIME)",
              "CREATE TABLE Figli (RID INTEGER PRIMARY KEY, FK_PROVA INTEGER REFERENCES Prova(RID))"}) {
            ASSERT_TRUE(nuova->eseguiNativo(sql)) << nuova->errore().descrizione.toStdString();
        }
    }

    QString percorso(const QString& nome = "prova.mdb") const { return mCartella.filePath(nome); }
    QString cartella() const { return mCartella.path(); }

    // A connection beside the gateway, as another desk has one.
    std::unique_ptr<SqliteConnection> altraCassa() const {
        ErroreServer errore;
        auto altra = SqliteConnection::apri(percorso(), errore);
        EXPECT_TRUE(altra) << errore.descrizione.toStdString();
        return altra;
    }
    // What is in the books, read beside the gateway.
    QString valore(const QString& query) const {
        const auto altra = altraCassa();
        Recordset righe;
        EXPECT_TRUE(altra->eseguiNativo(query, &righe)) << altra->errore().descrizione.toStdString();
        return righe.eof() ? QString() : righe.campo(0).toString();
    }
    bool inserisci(const QString& codice) {
        return ado.executeSQL("INSERT INTO Prova (CODICE) VALUES (" + testoSQL(codice) + ")",
                              "prova.inserisci");
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
    QTemporaryDir mCartella;
};

// An error that no server sent.
inline ErroreServer erroreFinto() {
    return {ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
}

// How many files this process has open.
inline int fileAperti() {
    return static_cast<int>(QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size());
}
