#include "archivio/read_only_archive.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include "archivio/statement.h"
#include "core/run_time_error.h"
#include "data/access_sql.h"
#include "data/schema.h"
#include "data/sqlite_connection.h"

namespace {

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

// Without a log beside it nobody has the archive open, and reading it must not make one. With a log the
// last sales may be only there.
QByteArray indirizzo(const QString& percorso) {
    QUrl url = QUrl::fromLocalFile(QFileInfo(percorso).absoluteFilePath());
    url.setQuery(QFileInfo::exists(percorso + "-wal") ? "mode=ro" : "mode=ro&immutable=1");
    return url.toEncoded();
}

QSet<QString> colonneDi(sqlite3* db, const QString& tabella) {
    QSet<QString> nomi;
    Istruzione colonne(db, "SELECT name FROM pragma_table_info(?)");
    colonne.lega({tabella});
    while (colonne.passo())
        nomi.insert(colonne.testo(0).toUpper());
    return nomi;
}

}  // namespace

ArchivioLetto::ArchivioLetto(const QString& percorso) {
    const QFileInfo file(percorso);
    if (!file.exists()) rifiuta("il file \"" + percorso + "\" non esiste");
    if (!file.isFile()) rifiuta("\"" + percorso + "\" non è un file");
    try {
        apri(percorso);
        controllaTabelle();
    } catch (...) {
        sqlite3_close_v2(mDb);
        throw;
    }
}

ArchivioLetto::~ArchivioLetto() {
    sqlite3_close_v2(mDb);
}

qint64 ArchivioLetto::pragma(const char* nome, const QString& percorso) {
    try {
        Istruzione lettura(mDb, QString("PRAGMA ") + nome);
        return lettura.passo() ? lettura.intero(0) : 0;
    } catch (const RunTimeError& errore) {
        rifiuta("il file \"" + percorso + "\" non è un archivio o è danneggiato: " + errore.descrizione());
    }
}

void ArchivioLetto::apri(const QString& percorso) {
    const int opzioni = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE;
    if (sqlite3_open_v2(indirizzo(percorso).constData(), &mDb, opzioni, nullptr) != SQLITE_OK) {
        rifiuta("il file \"" + percorso + "\" non si può aprire: " + QString::fromUtf8(sqlite3_errmsg(mDb)));
    }
    registraFunzioniAccess(mDb);
    if (pragma("application_id", percorso) != SqliteConnection::marchioArchivio) {
        rifiuta("il file \"" + percorso + "\" non è un archivio di Bottegon");
    }
    const int versione = static_cast<int>(pragma("user_version", percorso));
    if (versione != schema::versione) rifiuta(SqliteConnection::testoAltraVersione(percorso, versione));
}

void ArchivioLetto::controllaTabelle() {
    QStringList mancanti;
    for (const schema::Tabella& t : schema::tabelle()) {
        const QSet<QString> presenti = colonneDi(mDb, t.nome);
        if (presenti.isEmpty()) mancanti << t.nome;
        for (const schema::Colonna& c : t.colonne) {
            if (!presenti.isEmpty() && !presenti.contains(c.nome.toUpper()))
                mancanti << t.nome + "." + c.nome;
        }
    }
    if (!mancanti.isEmpty()) rifiuta("all'archivio mancano: " + mancanti.join(", "));
}
