#include "archivio/new_file.h"

#include "archivio/building_site.h"
#include "archivio/file_archive.h"
#include "core/run_time_error.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"

namespace {

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

// Nobody sees the file before it is whole, so nothing has to survive a crash before that.
const char* const inFretta[] = {"PRAGMA journal_mode = OFF", "PRAGMA synchronous = OFF",
                                "PRAGMA foreign_keys = OFF", "PRAGMA cache_size = -100000"};

class FileNuovo final : public NuovoArchivio {
  public:
    explicit FileNuovo(const QString& percorso) : mPercorso(percorso), mCantiere(QFileInfo(percorso)) {
        ErroreServer errore;
        auto connessione = SqliteConnection::crea(mCantiere.percorso(), errore);
        if (!connessione) rifiuta(errore.descrizione);
        mArchivio = std::make_unique<ArchivioFile>(std::move(connessione));
        for (const char* pragma : inFretta)
            mArchivio->esegui(pragma);
        mArchivio->esegui("BEGIN IMMEDIATE");
        esegui(schema::ddlTabelle(Access));
        mScrittore = nuovoScrittore(*mArchivio);
    }

    Archivio& archivio() override { return *mArchivio; }
    Scrittore& scrittore() override { return *mScrittore; }

  protected:
    // One index at a time over all rows is much faster than all indexes row by row.
    void completa() override { esegui(schema::ddlIndici(Access)); }

    void mettiInForza() override {
        mScrittore.reset();
        mArchivio->esegui("COMMIT");
        mArchivio->esegui("PRAGMA journal_mode = WAL");
        mArchivio.reset();
        mCantiere.consegna(mPercorso);
    }

  private:
    void esegui(const QStringList& istruzioni) {
        for (const QString& sql : istruzioni)
            mArchivio->esegui(sql);
    }

    QString mPercorso;
    Cantiere mCantiere;
    std::unique_ptr<ArchivioFile> mArchivio;
    std::unique_ptr<Scrittore> mScrittore;
};

}  // namespace

std::unique_ptr<NuovoArchivio> nuovoFile(const QString& percorso, bool sovrascrivi) {
    const QFileInfo file(percorso);
    if (file.isDir()) rifiuta("\"" + percorso + "\" è una cartella");
    if (file.exists() && !sovrascrivi)
        rifiuta("il file \"" + percorso + "\" esiste già (--sovrascrivi per sostituirlo)");
    if (archivioInUso(percorso)) rifiuta("l'archivio \"" + percorso + "\" è aperto: chiudere le casse");
    return std::make_unique<FileNuovo>(percorso);
}
