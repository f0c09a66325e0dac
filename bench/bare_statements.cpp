#include "bare_statements.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "data/sqlite_connection.h"

IstruzioniNude::IstruzioniNude(const QString& archivio) {
    ErroreServer errore;
    mConnessione = SqliteConnection::apri(archivio, errore);
    if (!mConnessione) qFatal("%s", qPrintable(errore.descrizione));
}

IstruzioniNude::~IstruzioniNude() = default;

void IstruzioniNude::esegui(const std::vector<QByteArray>& istruzioni) {
    sqlite3* db = mConnessione->nativa();
    for (const QByteArray& sql : istruzioni) {
        sqlite3_stmt* istruzione = nullptr;
        sqlite3_prepare_v2(db, sql.constData(), static_cast<int>(sql.size()), &istruzione, nullptr);
        int esito = SQLITE_DONE;
        while ((esito = sqlite3_step(istruzione)) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(istruzione); ++i) {
                benchmark::DoNotOptimize(sqlite3_column_text(istruzione, i));
            }
        }
        sqlite3_finalize(istruzione);
        // One that fails costs nothing: the comparison would be worth as much.
        if (esito != SQLITE_DONE) qFatal("%s\n%s", sqlite3_errmsg(db), sql.constData());
    }
}

std::vector<QByteArray> IstruzioniNude::inUtf8(const QStringList& istruzioni) {
    std::vector<QByteArray> testi;
    for (const QString& sql : istruzioni) {
        testi.push_back(sql.toUtf8());
    }
    return testi;
}
