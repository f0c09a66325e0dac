#include "archivio/building_site.h"

#include <cstdio>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include "core/run_time_error.h"

namespace {

// The files that SQLite keeps beside an archive in use.
const char* const compagni[] = {"-wal", "-shm", "-journal"};
const char* const serratura = "/occupato";

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

QString inizioNome(const QFileInfo& destinazione) {
    return "." + destinazione.fileName() + ".nuovo-";
}

// Only folders with our lock in them are ours, and only those whose process is gone are left behind.
void togliAbbandonati(const QFileInfo& destinazione) {
    const QDir cartella(destinazione.absolutePath());
    const QDir::Filters filtri = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QFileInfo& vecchia : cartella.entryInfoList(filtri)) {
        if (!vecchia.fileName().startsWith(inizioNome(destinazione))) continue;
        const QString file = vecchia.absoluteFilePath() + serratura;
        if (!QFile::exists(file)) continue;
        QLockFile prova(file);
        prova.setStaleLockTime(0);
        if (!prova.tryLock(0)) continue;
        prova.unlock();
        QDir(vecchia.absoluteFilePath()).removeRecursively();
    }
}

void sulDisco(const QString& percorso) {
    const int file = ::open(QFile::encodeName(percorso).constData(), O_RDONLY | O_CLOEXEC);
    const bool scritto = file >= 0 && ::fsync(file) == 0;
    if (file >= 0) ::close(file);
    if (!scritto) rifiuta("impossibile scrivere \"" + percorso + "\" sul disco: " + qt_error_string());
}

}  // namespace

Cantiere::Cantiere(const QFileInfo& destinazione)
    : mCartella(destinazione.absolutePath() + "/" + inizioNome(destinazione) + "XXXXXX") {
    if (!mCartella.isValid()) rifiuta(mCartella.errorString());
    mOccupato = std::make_unique<QLockFile>(mCartella.path() + serratura);
    mOccupato->setStaleLockTime(0);
    mOccupato->tryLock(0);
    togliAbbandonati(destinazione);
}

void Cantiere::consegna(const QString& destinazione) const {
    sulDisco(percorso());
    for (const char* compagno : compagni)
        QFile::remove(destinazione + compagno);
    const QByteArray da = QFile::encodeName(percorso());
    if (std::rename(da.constData(), QFile::encodeName(destinazione).constData()) != 0)
        rifiuta("impossibile mettere l'archivio al suo posto: " + qt_error_string());
    sulDisco(QFileInfo(destinazione).absolutePath());
}

// An exclusive lock is given only when no other connection is open; in WAL mode an open one holds a lock even
// when idle.
bool archivioInUso(const QString& percorso) {
    if (!QFileInfo(percorso).isFile()) return false;
    sqlite3* db = nullptr;
    int esito = sqlite3_open_v2(percorso.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    for (const char* passo : {"PRAGMA locking_mode = EXCLUSIVE", "SELECT COUNT(*) FROM sqlite_master",
                              "BEGIN EXCLUSIVE", "ROLLBACK"}) {
        if (esito == SQLITE_OK) esito = sqlite3_exec(db, passo, nullptr, nullptr, nullptr);
    }
    sqlite3_close_v2(db);
    return (esito & 0xff) == SQLITE_BUSY;
}
