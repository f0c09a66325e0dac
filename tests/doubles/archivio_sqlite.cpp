#include "doubles/archivio_sqlite.h"

#include <gtest/gtest.h>

#include <QFile>

#include "archivio/verify_archive.h"
#include "data/prepare_sql.h"
#include "data/sqlite_driver.h"
#include "doubles/archivio_modello.h"

ArchivioSqlite::ArchivioSqlite(const QString& cartella) : mPercorso(percorso(cartella)) {
    EXPECT_TRUE(QFile::copy(archivioModello(), mPercorso));
}

int ArchivioSqlite::tipoServer() const {
    return Access;
}

QString ArchivioSqlite::stringaConnessione() const {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + mPercorso + ";Persist Security Info=False";
}

std::unique_ptr<ServerDriver> ArchivioSqlite::driver() const {
    return std::make_unique<SqliteDriver>();
}

Recordset ArchivioSqlite::esegui(const QString& sql) {
    ErroreServer errore;
    const auto connessione = SqliteConnection::apri(mPercorso, errore);
    Recordset righe;
    if (!connessione) {
        ADD_FAILURE() << errore.descrizione.toStdString();
    } else if (!connessione->eseguiNativo(sql, &righe)) {
        ADD_FAILURE() << connessione->errore().descrizione.toStdString() << "\n" << sql.toStdString();
    }
    return righe;
}

QStringList ArchivioSqlite::verifica() {
    return verificaArchivio(mPercorso).errori;
}
