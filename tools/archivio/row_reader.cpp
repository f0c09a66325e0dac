#include "archivio/row_reader.h"

#include <algorithm>
#include <limits>

#include "archivio/archive.h"
#include "data/prepare_sql.h"

namespace {

constexpr int righePerPagina = 5000;

// What a server itself knows of the keys that it has given.
QString chiaviDate(int tipoServer, const QString& tabella) {
    switch (tipoServer) {
        case Access:
            return "SELECT seq FROM sqlite_sequence WHERE name = '" + tabella + "'";
        case MySql:
            return "SELECT COALESCE(AUTO_INCREMENT, 1) - 1 FROM INFORMATION_SCHEMA.TABLES "
                   "WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME = '" +
                   tabella + "'";
        default:
            return "SELECT CASE WHEN last_value IS NULL THEN 0 ELSE CAST(last_value AS INT) END "
                   "FROM sys.identity_columns WHERE object_id = OBJECT_ID(N'" +
                   tabella + "')";
    }
}

}  // namespace

LettoreTabella::LettoreTabella(Archivio& archivio, const schema::Tabella& tabella)
    : mArchivio(archivio), mTabella(tabella), mUltima(std::numeric_limits<qint64>::min()) {
    QStringList nomi;
    for (const schema::Colonna& c : tabella.colonne)
        nomi << c.nome;
    mColonne = nomi.join(", ");
}

Recordset LettoreTabella::pagina() {
    if (mFinita) return {};
    const QString& chiave = mTabella.colonne.front().nome;
    const bool prima = mUltima == std::numeric_limits<qint64>::min();
    const QString dopo = prima ? QString() : " WHERE " + chiave + " > " + QString::number(mUltima);
    Recordset righe = mArchivio.leggi(
        primeRighe("SELECT " + mColonne + " FROM " + mTabella.nome + dopo + " ORDER BY " + chiave,
                   righePerPagina, mArchivio.tipoServer()));
    mFinita = righe.righe() < righePerPagina;
    if (righe.eof()) return righe;
    righe.moveLast();
    mUltima = righe.campo(0).toLongLong();
    righe.moveFirst();
    return righe;
}

qint64 ultimaChiave(Archivio& archivio, const schema::Tabella& tabella) {
    const qint64 massima =
        archivio.numero("SELECT COALESCE(MAX(" + tabella.colonne.front().nome + "), 0) FROM " + tabella.nome);
    return std::max(massima, archivio.numero(chiaviDate(archivio.tipoServer(), tabella.nome)));
}

void impostaUltimaChiave(Archivio& archivio, const schema::Tabella& tabella, qint64 chiave) {
    if (chiave <= ultimaChiave(archivio, tabella)) return;
    const QString numero = QString::number(chiave);
    switch (archivio.tipoServer()) {
        case Access:
            archivio.esegui("DELETE FROM sqlite_sequence WHERE name = '" + tabella.nome + "'");
            archivio.esegui("INSERT INTO sqlite_sequence (name, seq) VALUES ('" + tabella.nome + "', " +
                            numero + ")");
            break;
        case MySql:
            archivio.esegui("ALTER TABLE " + tabella.nome +
                            " AUTO_INCREMENT = " + QString::number(chiave + 1));
            break;
        default:
            archivio.esegui("DBCC CHECKIDENT (N'" + tabella.nome + "', RESEED, " + numero + ")");
    }
}
