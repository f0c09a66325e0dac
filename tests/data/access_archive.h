#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QStringList>

#include "data/access_sql.h"
#include "data/prepare_sql.h"

// An archive in memory that speaks the dialect, for asking what a statement really answers.
class AccessArchive {
  public:
    AccessArchive() {
        if (sqlite3_open(":memory:", &mDb) != SQLITE_OK) throw std::runtime_error("no archive in memory");
        registraFunzioniAccess(mDb);
    }
    ~AccessArchive() { sqlite3_close(mDb); }
    AccessArchive(const AccessArchive&) = delete;
    AccessArchive& operator=(const AccessArchive&) = delete;

    // Runs text in SQLite's own words.
    void nativo(const QString& sql) {
        char* errore = nullptr;
        sqlite3_exec(mDb, sql.toUtf8().constData(), nullptr, nullptr, &errore);
        if (errore != nullptr) ADD_FAILURE() << errore << " in: " << sql.toStdString();
        sqlite3_free(errore);
    }

    // The rows of a statement in neutral words, cells parted by "|", "<null>" for a Null. A failed
    // statement gives one row with "errore: " and the reason.
    QStringList righe(const QString& sql) { return righeNative(traduciAccessSQL(preparaSQL(sql, Access))); }
    QString riga(const QString& sql) { return righe(sql).join(" / "); }

    QStringList righeNative(const QString& sql) {
        const QByteArray testo = sql.toUtf8();
        sqlite3_stmt* statement = nullptr;
        QStringList righe;
        int esito =
            sqlite3_prepare_v2(mDb, testo.constData(), static_cast<int>(testo.size()), &statement, nullptr);
        while (esito == SQLITE_OK || esito == SQLITE_ROW) {
            esito = sqlite3_step(statement);
            if (esito == SQLITE_ROW) righe << cella(statement);
        }
        if (esito != SQLITE_DONE) righe = {QString("errore: ") + sqlite3_errmsg(mDb)};
        sqlite3_finalize(statement);
        return righe;
    }

    sqlite3* nativa() { return mDb; }

  private:
    static QString cella(sqlite3_stmt* statement) {
        QStringList celle;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            celle << (testo == nullptr ? "<null>"
                                       : QString::fromUtf8(testo, sqlite3_column_bytes(statement, i)));
        }
        return celle.join('|');
    }

    sqlite3* mDb = nullptr;
};
