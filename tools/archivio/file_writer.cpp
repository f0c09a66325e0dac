#include "archivio/column_value.h"
#include "archivio/file_archive.h"
#include "archivio/row_writer.h"
#include "archivio/statement.h"

namespace {

class ScrittoreFile final : public Scrittore {
  public:
    explicit ScrittoreFile(sqlite3* db) : mDb(db) {}

  protected:
    void scriviEsatti(const TabellaScritta& dove, const std::vector<QVariant>& esatti) override {
        mValori.clear();
        for (size_t i = 0; i < esatti.size(); ++i)
            mValori.push_back(valoreFile(*dove.colonne[i], esatti[i]));
        Istruzione& istruzione = preparata(dove);
        istruzione.lega(mValori);
        istruzione.passo();
    }

  private:
    Istruzione& preparata(const TabellaScritta& dove) {
        std::unique_ptr<Istruzione>& istruzione = mPreparate[&dove];
        if (!istruzione) {
            QString segni = QString("?, ").repeated(static_cast<qsizetype>(dove.colonne.size()));
            segni.chop(2);
            istruzione =
                std::make_unique<Istruzione>(mDb, "INSERT INTO " + dove.tabella->nome + " (" +
                                                      dove.elencoColonne() + ") VALUES (" + segni + ")");
        }
        return *istruzione;
    }

    sqlite3* mDb;
    std::map<const TabellaScritta*, std::unique_ptr<Istruzione>> mPreparate;
    std::vector<QVariant> mValori;
};

}  // namespace

std::unique_ptr<Scrittore> nuovoScrittore(ArchivioFile& archivio) {
    return std::make_unique<ScrittoreFile>(archivio.db());
}
