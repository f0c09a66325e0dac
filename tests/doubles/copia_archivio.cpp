#include "doubles/copia_archivio.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "archivio/verify_archive.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/sqlite_connection.h"
#include "doubles/celle.h"

namespace {

// The insertion of all rows at once; an empty text for none.
QString inserimento(const QString& tabella, Recordset righe) {
    QStringList valori;
    for (; !righe.eof(); righe.moveNext()) {
        QStringList celle;
        for (int i = 0; i < righe.campi(); ++i) {
            celle << letterale(righe.campo(i));
        }
        valori << "(" + celle.join(',') + ")";
    }
    if (valori.isEmpty()) return {};
    return "INSERT INTO " + tabella + " (" + righe.colonne().join(',') + ") VALUES " + valori.join(',');
}

void esegui(SqliteConnection& archivio, const QString& sql, Recordset* righe = nullptr) {
    EXPECT_TRUE(archivio.eseguiNativo(sql, righe)) << archivio.errore().descrizione.toStdString() << "\n"
                                                   << sql.toStdString();
}

}  // namespace

std::map<QString, QString> inserimenti(const QString& percorso) {
    ErroreServer errore;
    const auto archivio = SqliteConnection::apri(percorso, errore);
    std::map<QString, QString> tutti;
    for (const schema::Tabella& tabella : schema::tabelle()) {
        Recordset righe;
        esegui(*archivio, "SELECT * FROM " + tabella.nome, &righe);
        const QString sql = inserimento(tabella.nome, righe);
        if (!sql.isEmpty()) tutti[tabella.nome] = sql;
    }
    return tutti;
}

QStringList verificaCopia(const std::function<Recordset(const QString& sql)>& interroga) {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("copia.mdb");
    ErroreServer errore;
    auto copia = SqliteConnection::crea(percorso, errore);
    if (!copia) return {errore.descrizione};
    // Whether keys point somewhere is for the check to say.
    esegui(*copia, "PRAGMA foreign_keys = OFF");
    esegui(*copia, "BEGIN");
    for (const QString& istruzione : schema::ddl(Access)) {
        esegui(*copia, istruzione);
    }
    for (const schema::Tabella& tabella : schema::tabelle()) {
        const QString sql = inserimento(tabella.nome, interroga("SELECT * FROM " + tabella.nome));
        if (!sql.isEmpty()) esegui(*copia, sql);
    }
    esegui(*copia, "COMMIT");
    copia.reset();
    return verificaArchivio(percorso).errori;
}
