#pragma once

#include <memory>

#include <QElapsedTimer>
#include <QString>

#include "data/server_driver.h"
#include "data/sqlite_statements.h"

struct sqlite3;
struct sqlite3_stmt;

// The embedded archive: one SQLite file, in WAL mode with full synchronisation and foreign keys on, behind
// the Access dialect.
class SqliteConnection final : public Connessione {
  public:
    // How long a statement or a turn waits for other desks before it fails, in milliseconds.
    static inline int attesaMassima = 10000;
    // The mark of a file that is a shop's archive (SQLite's application_id).
    static constexpr int marchioArchivio = 0x426F7474;

    // What is said of an archive with other tables than those of schema::versione.
    static QString testoAltraVersione(const QString& percorso, int versione);

    // Opens an existing archive; a missing file, a folder, a read-only file, a file that is no archive, or
    // an archive of another version is an error, and is never created or overwritten.
    static std::unique_ptr<SqliteConnection> apri(const QString& percorso, ErroreServer& errore);
    static std::unique_ptr<SqliteConnection> apri(const QString& percorso, int /*secondi*/,
                                                  ErroreServer& errore) {
        return apri(percorso, errore);
    }
    // Makes a new, empty archive file. An existing one is an error.
    static std::unique_ptr<SqliteConnection> crea(const QString& percorso, ErroreServer& errore);
    ~SqliteConnection() override;

    bool esegui(const QString& sql, Recordset* righe) override;
    bool eseguiNativo(const QString& sql, Recordset* righe) override;
    bool eseguiNativo(const QString& sql) { return eseguiNativo(sql, nullptr); }
    int righeModificate() const override;
    bool inizia() override { return eseguiNativo("BEGIN IMMEDIATE"); }
    bool conferma() override { return eseguiNativo("COMMIT"); }
    bool annulla() override { return !inTransazione() || eseguiNativo("ROLLBACK"); }
    bool inTransazione() const override;
    const ErroreServer& errore() const override { return mErrore; }

    void impostaAttesa(AttesaServer attesa) { mAttesa = std::move(attesa); }
    sqlite3* nativa() const { return mDb; }
    // The archive's path in a connection string of the form "...;Data Source=<path>;...".
    static QString luogoDi(const QString& stringaConnessione);
    const QString& luogo() const { return mPercorso; }
    // The file at the path is still the one that this connection has open.
    bool ancoraValida() const;
    bool daTenere() { return annulla(); }

  private:
    SqliteConnection(sqlite3* db, QString percorso);
    static std::unique_ptr<SqliteConnection> apriFile(const QString& percorso, bool nuovo,
                                                      ErroreServer& errore);
    bool prepara(bool nuovo);
    bool contrassegna();
    bool leggiPragma(const char* nome, int& valore);
    bool verificaArchivio();
    void spiegaApertura();
    bool eseguiUnaVolta(const QByteArray& testo, Recordset* righe);
    bool percorri(sqlite3_stmt* istruzione, const ColonneSqlite& colonne, Recordset* righe);
    bool fallito(int codice);
    static int occupato(void* connessione, int tentativi);

    sqlite3* mDb;
    IstruzioniPronte mPronte;
    QString mPercorso;
    quint64 mDispositivo = 0;
    quint64 mInode = 0;
    AttesaServer mAttesa;
    QElapsedTimer mInizioAttesa;
    ErroreServer mErrore;
};
