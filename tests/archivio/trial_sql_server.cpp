#include "archivio/trial_sql_server.h"

#include <QFile>
#include <QRegularExpression>

#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/server_drivers.h"
#include "data/sqlite_connection.h"
#include "doubles/sql_server_finto.h"

namespace {

// What the stand-in answers in its own way to texts that begin like this: SQLite's words for them, none for
// what it has no need to do.
struct Equivalente {
    const char* inizio;
    const char* sqlite;
};
const Equivalente equivalenti[] = {
    {"SET ", ""},
    {"DBCC ", ""},
    {"CREATE DATABASE ", ""},
    {"CREATE INDEX ", ""},
    {"CREATE UNIQUE INDEX ", ""},
    {"SELECT @@SPID", "SELECT 55"},
    {"DECLARE @r INT; EXEC @r = sp_getapplock", "SELECT 0"},
    {"SELECT COUNT(*) FROM sys.databases", "SELECT 0"},
    {"SELECT TABLE_NAME, COLUMN_NAME FROM INFORMATION_SCHEMA",
     "SELECT M.name, C.name FROM sqlite_master M JOIN pragma_table_info(M.name) C WHERE M.type = 'table'"},
};

// The same table in the embedded archive's words.
QString tabellaSqlite(const QString& ddl) {
    static const QRegularExpression nome("^CREATE TABLE (\\w+)");
    const QString inizio = nome.match(ddl).captured(0) + " ";
    for (const QString& altra : schema::ddlTabelle(Access)) {
        if (altra.startsWith(inizio)) return altra;
    }
    return ddl;
}

QString inSqlite(const QString& sql) {
    for (const Equivalente& e : equivalenti) {
        if (sql.startsWith(e.inizio)) return e.sqlite;
    }
    static const QRegularExpression chiave(
        "sys\\.identity_columns WHERE object_id = OBJECT_ID\\(N'(\\w+)'\\)");
    const QString tabella = chiave.match(sql).captured(1);
    if (!tabella.isEmpty()) return "SELECT seq FROM sqlite_sequence WHERE name = '" + tabella + "'";
    if (sql.startsWith("ALTER TABLE "))
        return QString("PRAGMA foreign_keys = ") + (sql.contains("NOCHECK") ? "OFF" : "ON");
    return sql.startsWith("CREATE TABLE ") ? tabellaSqlite(sql) : sqliteDaTSql(sql);
}

class Finta final : public Connessione {
  public:
    explicit Finta(std::unique_ptr<SqliteConnection> archivio) : mArchivio(std::move(archivio)) {}

    bool esegui(const QString& sql, Recordset* righe) override { return eseguiNativo(sql, righe); }
    bool eseguiNativo(const QString& sql, Recordset* righe) override {
        raccogliTSql(sql);
        const QString tradotto = inSqlite(sql);
        return tradotto.isEmpty() || mArchivio->eseguiNativo(tradotto, righe);
    }
    int righeModificate() const override { return mArchivio->righeModificate(); }
    bool inizia() override { return mArchivio->inizia(); }
    bool conferma() override { return mArchivio->conferma(); }
    bool annulla() override { return mArchivio->annulla(); }
    bool inTransazione() const override { return mArchivio->inTransazione(); }
    const ErroreServer& errore() const override { return mArchivio->errore(); }

  private:
    std::unique_ptr<SqliteConnection> mArchivio;
};

class Driver final : public ServerDriver {
  public:
    explicit Driver(QString percorso) : mPercorso(std::move(percorso)) {}

    std::unique_ptr<Connessione> apri(const QString&, int, const AttesaServer&,
                                      ErroreServer& errore) override {
        auto archivio = QFile::exists(mPercorso) ? SqliteConnection::apri(mPercorso, errore)
                                                 : SqliteConnection::crea(mPercorso, errore);
        return archivio ? std::make_unique<Finta>(std::move(archivio)) : nullptr;
    }
    void restituisci(std::unique_ptr<Connessione>) override {}
    void chiudi() override {}

  private:
    QString mPercorso;
};

}  // namespace

SqlServerDegliAttrezzi::SqlServerDegliAttrezzi() {
    fabbricaDriver() = [percorso = mCartella.filePath("server.db")](int tipoServer) {
        return tipoServer == SqlServer ? std::make_unique<Driver>(percorso) : nullptr;
    };
}

SqlServerDegliAttrezzi::~SqlServerDegliAttrezzi() {
    fabbricaDriver() = {};
}
