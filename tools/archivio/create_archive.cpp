#include "archivio/create_archive.h"

#include <cstdio>
#include <memory>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "archivio/default_options.h"
#include "archivio/demo_shop.h"
#include "archivio/statement.h"
#include "core/run_time_error.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/sqlite_connection.h"

namespace {

// The files that SQLite keeps beside an archive in use.
const char* const compagni[] = {"-wal", "-shm", "-journal"};

// A new folder beside the target, where the archive is made; it goes with all that is in it.
class Cantiere {
  public:
    explicit Cantiere(const QFileInfo& destinazione)
        : mCartella(destinazione.absolutePath() + "/." + destinazione.fileName() + ".nuovo-XXXXXX") {
        if (!mCartella.isValid())
            throw RunTimeError(RunTimeError::ErroreApplicazione, mCartella.errorString());
    }
    QString percorso() const { return mCartella.filePath("archivio"); }

    void consegna(const QString& destinazione) {
        for (const char* compagno : compagni)
            QFile::remove(destinazione + compagno);
        const QByteArray da = QFile::encodeName(percorso());
        if (std::rename(da.constData(), QFile::encodeName(destinazione).constData()) != 0) {
            throw RunTimeError(RunTimeError::ErroreApplicazione,
                               "impossibile mettere l'archivio al suo posto: " + qt_error_string());
        }
    }

  private:
    QTemporaryDir mCartella;
};

void pretendi(bool riuscito, const SqliteConnection& connessione) {
    if (!riuscito) throw RunTimeError(RunTimeError::ErroreApplicazione, connessione.errore().descrizione);
}

void riempi(SqliteConnection& connessione, const OpzioniCreazione& opzioni) {
    pretendi(connessione.inizia(), connessione);
    for (const QString& istruzione : schema::ddl(Access)) {
        pretendi(connessione.eseguiNativo(istruzione), connessione);
    }
    if (opzioni.demo) {
        riempiDemo(connessione.nativa(), opzioni.seme);
    } else {
        Scrittore scrittore(connessione.nativa());
        scriviOpzioni(scrittore, {});
    }
    pretendi(connessione.conferma(), connessione);
}

void costruisci(const QString& percorso, const OpzioniCreazione& opzioni) {
    Cantiere cantiere{QFileInfo(percorso)};
    ErroreServer errore;
    std::unique_ptr<SqliteConnection> connessione = SqliteConnection::crea(cantiere.percorso(), errore);
    if (!connessione) throw RunTimeError(RunTimeError::ErroreApplicazione, errore.descrizione);
    riempi(*connessione, opzioni);
    connessione.reset();
    cantiere.consegna(percorso);
}

}  // namespace

bool creaArchivio(const QString& percorso, const OpzioniCreazione& opzioni, QTextStream& esito) {
    const QFileInfo file(percorso);
    if (file.isDir()) {
        esito << "ERRORE: \"" << percorso << "\" è una cartella.\n";
        return false;
    }
    if (file.exists() && !opzioni.sovrascrivi) {
        esito << "ERRORE: il file \"" << percorso << "\" esiste già (--sovrascrivi per sostituirlo).\n";
        return false;
    }
    try {
        costruisci(percorso, opzioni);
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: archivio non creato: " << errore.descrizione() << "\n";
        return false;
    }
    esito << "Archivio creato: " << percorso << (opzioni.demo ? " (negozio dimostrativo)" : " (vuoto)")
          << "\n";
    return true;
}
