#include "archivio/file_archive.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <QUrl>

#include "archivio/statement.h"
#include "core/run_time_error.h"
#include "data/access_sql.h"
#include "data/prepare_sql.h"
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

void pretendiFile(const QString& percorso) {
    const QFileInfo file(percorso);
    if (!file.exists()) rifiuta("il file \"" + percorso + "\" non esiste");
    if (!file.isFile()) rifiuta("\"" + percorso + "\" non è un file");
}

}  // namespace

ArchivioFile::ArchivioFile(const QString& percorso, Sguardo sguardo) : Archivio(Access) {
    pretendiFile(percorso);
    if (sguardo == Sguardo::Lungo) {
        ErroreServer errore;
        mConnessione = SqliteConnection::apri(percorso, errore);
        if (mConnessione) {
            mDb = mConnessione->nativa();
            return;
        }
        if (errore.classe != ErroreServer::Classe::SolaLettura) rifiuta(errore.descrizione);
    }
    try {
        apriSolaLettura(percorso);
    } catch (...) {
        sqlite3_close_v2(mDb);
        throw;
    }
}

ArchivioFile::ArchivioFile(std::unique_ptr<SqliteConnection> connessione)
    : Archivio(Access), mConnessione(std::move(connessione)), mDb(mConnessione->nativa()) {}

ArchivioFile::~ArchivioFile() {
    if (!mConnessione) sqlite3_close_v2(mDb);
}

qint64 ArchivioFile::pragma(const char* nome, const QString& percorso) {
    try {
        return numero(QString("PRAGMA ") + nome);
    } catch (const RunTimeError& errore) {
        rifiuta("il file \"" + percorso + "\" non è un archivio o è danneggiato: " + errore.descrizione());
    }
}

void ArchivioFile::apriSolaLettura(const QString& percorso) {
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

Recordset ArchivioFile::leggi(const QString& sql) {
    Istruzione istruzione(mDb, sql);
    std::vector<QVariant> celle;
    const int campi = istruzione.campi();
    while (istruzione.passo()) {
        for (int i = 0; i < campi; ++i)
            celle.push_back(istruzione.valore(i));
    }
    return Recordset(istruzione.nomi(), std::move(celle));
}

void ArchivioFile::esegui(const QString& sql) {
    if (mConnessione) {
        if (!mConnessione->eseguiNativo(sql)) rifiuta(mConnessione->errore().descrizione);
    } else {
        Istruzione(mDb, sql).passo();
    }
}

// The state is taken by the first read of the transaction.
void ArchivioFile::fermaIlTempo() {
    esegui("BEGIN");
    numero("SELECT COUNT(*) FROM sqlite_master");
}
