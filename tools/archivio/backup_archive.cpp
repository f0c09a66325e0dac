#include "archivio/backup_archive.h"

#include <cstdio>
#include <sqlite3.h>
#include <unistd.h>

#include <QDateTime>

#include "archivio/building_site.h"
#include "archivio/copy_archive.h"
#include "archivio/file_archive.h"
#include "archivio/progress.h"
#include "archivio/verify_archive.h"
#include "core/clock.h"
#include "core/run_time_error.h"

namespace {

constexpr int paginePerPasso = 2000;

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

// The source stands still while it is copied, so that a till's sale does not start the copy anew.
void copiaPagine(ArchivioFile& da, sqlite3* a) {
    da.fermaIlTempo();
    sqlite3_backup* copia = sqlite3_backup_init(a, "main", da.db(), "main");
    if (copia == nullptr) rifiuta(QString::fromUtf8(sqlite3_errmsg(a)));
    int esito = sqlite3_backup_step(copia, paginePerPasso);
    Avanzamento avanzamento(sqlite3_backup_pagecount(copia));
    while (esito == SQLITE_OK) {
        avanzamento.aggiungi(paginePerPasso, "copia");
        esito = sqlite3_backup_step(copia, paginePerPasso);
    }
    const int fine = sqlite3_backup_finish(copia);
    if (esito != SQLITE_DONE || fine != SQLITE_OK) rifiuta(QString::fromUtf8(sqlite3_errmsg(a)));
}

// A copy that was not read back is only a hope.
void pretendiIntegro(const QString& percorso) {
    ArchivioFile copia(percorso, ArchivioFile::Sguardo::Breve);
    const QStringList danni = danniFile(copia);
    if (!danni.isEmpty()) rifiuta(danni.join('\n'));
}

void copiaFile(const QString& da, const Cantiere& cantiere) {
    ArchivioFile origine(da, ArchivioFile::Sguardo::Lungo);
    sqlite3* copia = nullptr;
    const int aperta = sqlite3_open(cantiere.percorso().toUtf8().constData(), &copia);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> chiusura(copia, &sqlite3_close_v2);
    if (aperta != SQLITE_OK) rifiuta(QString::fromUtf8(sqlite3_errmsg(copia)));
    copiaPagine(origine, copia);
}

void salvaFile(const QString& da, const QString& a, bool sovrascrivi) {
    const QFileInfo file(a);
    if (file.isDir()) rifiuta("\"" + a + "\" è una cartella");
    if (file.exists() && !sovrascrivi)
        rifiuta("il file \"" + a + "\" esiste già (--sovrascrivi per sostituirlo)");
    if (archivioInUso(a)) rifiuta("il file \"" + a + "\" è un archivio aperto");
    const Cantiere cantiere(file);
    copiaFile(da, cantiere);
    pretendiIntegro(cantiere.percorso());
    cantiere.consegna(a);
}

// The old archive gets a second name, so that there is no moment without one in its place.
QString mettiDaParte(const QString& percorso) {
    if (!QFileInfo::exists(percorso)) return {};
    const QString vecchio =
        percorso + ".prima-del-ripristino-" + orologio().adesso().toString("yyyy-MM-dd-HHmmss");
    const QByteArray da = QFile::encodeName(percorso);
    const QByteArray a = QFile::encodeName(vecchio);
    if (QFileInfo::exists(vecchio) ||
        (::link(da.constData(), a.constData()) != 0 && std::rename(da.constData(), a.constData()) != 0))
        rifiuta("impossibile mettere da parte l'archivio di prima: " + qt_error_string());
    return vecchio;
}

QString ripristinaFile(const QString& copia, const QString& percorso) {
    if (QFileInfo(percorso).isDir()) rifiuta("\"" + percorso + "\" è una cartella");
    if (archivioInUso(percorso)) rifiuta("l'archivio \"" + percorso + "\" è aperto: chiudere le casse");
    const Cantiere cantiere{QFileInfo(percorso)};
    copiaFile(copia, cantiere);
    pretendiIntegro(cantiere.percorso());
    if (archivioInUso(percorso)) rifiuta("l'archivio \"" + percorso + "\" è aperto: chiudere le casse");
    const QString vecchio = mettiDaParte(percorso);
    cantiere.consegna(percorso);
    return vecchio;
}

}  // namespace

bool salvaArchivio(const QString& nome, const QString& copia, bool sovrascrivi, QTextStream& esito) {
    try {
        if (!NomeArchivio::indicaFile(nome)) return copiaArchivio(nome, copia, sovrascrivi, esito);
        salvaFile(nome, copia, sovrascrivi);
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: archivio non salvato: " << errore.descrizione() << "\n";
        return false;
    }
    esito << "Archivio salvato: " << copia << "\n";
    return true;
}

bool ripristinaArchivio(const QString& copia, const QString& nome, bool sovrascrivi, QTextStream& esito) {
    try {
        if (!NomeArchivio::indicaFile(nome)) return copiaArchivio(copia, nome, sovrascrivi, esito);
        const QString vecchio = ripristinaFile(copia, nome);
        esito << "Archivio ripristinato: " << nome << "\n";
        if (!vecchio.isEmpty()) esito << "L'archivio di prima è in " << vecchio << "\n";
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: archivio non ripristinato: " << errore.descrizione() << "\n";
        return false;
    }
    return true;
}
