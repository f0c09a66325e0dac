#include <algorithm>
#include <utility>

#include "archivio/column_value.h"
#include "archivio/row_writer.h"
#include "archivio/server_archive.h"
#include "data/prepare_sql.h"

namespace {

// SQL Server takes no more rows in one INSERT, and every server has a limit on the length of a statement
// (MariaDB 16 MB by default, older ones 1 MB).
constexpr int righeMassime = 1000;
constexpr qsizetype caratteriMassimi = 300000;
// A commit costs a write to the disk; a transaction costs memory.
constexpr int lottiPerTransazione = 20;

class ScrittoreServer final : public Scrittore {
  public:
    explicit ScrittoreServer(ArchivioServer& archivio) : mArchivio(archivio) {}

    void scarica() override {
        for (Lotto& lotto : mLotti)
            scarica(lotto);
        conferma();
    }

  protected:
    void scriviEsatti(const TabellaScritta& dove, const std::vector<QVariant>& esatti) override {
        Lotto& lotto = lottoPer(dove);
        lotto.valori += lotto.righe == 0 ? "(" : ", (";
        for (size_t i = 0; i < esatti.size(); ++i) {
            if (i > 0) lotto.valori += ", ";
            aggiungiLetterale(lotto.valori, mArchivio.tipoServer(), *dove.colonne[i], esatti[i]);
        }
        lotto.valori += ")";
        if (++lotto.righe >= righeMassime || lotto.valori.size() >= caratteriMassimi) scarica(lotto);
    }

  private:
    struct Lotto {
        const TabellaScritta* dove;
        QString valori;
        int righe = 0;
    };

    // In the order in which they were begun, which is that of the tables.
    Lotto& lottoPer(const TabellaScritta& dove) {
        const auto trovato =
            std::find_if(mLotti.rbegin(), mLotti.rend(), [&](const Lotto& l) { return l.dove == &dove; });
        return trovato != mLotti.rend() ? *trovato : mLotti.emplace_back(Lotto{&dove, {}, 0});
    }

    void scarica(Lotto& lotto) {
        if (lotto.righe == 0) return;
        const QString& tabella = lotto.dove->tabella->nome;
        if (mLottiScritti == 0) mArchivio.inizia();
        chiaviProprie(tabella);
        const QString valori = std::exchange(lotto.valori, {});
        lotto.righe = 0;
        mArchivio.esegui("INSERT INTO " + tabella + " (" + lotto.dove->elencoColonne() + ") VALUES " +
                         valori);
        if (++mLottiScritti >= lottiPerTransazione) conferma();
    }

    void conferma() {
        if (std::exchange(mLottiScritti, 0) > 0) mArchivio.conferma();
    }

    // SQL Server takes keys from us for one table at a time.
    void chiaviProprie(const QString& tabella) {
        if (mArchivio.tipoServer() != SqlServer || tabella == mConChiavi) return;
        if (!mConChiavi.isEmpty()) mArchivio.esegui("SET IDENTITY_INSERT " + mConChiavi + " OFF");
        mArchivio.esegui("SET IDENTITY_INSERT " + tabella + " ON");
        mConChiavi = tabella;
    }

    ArchivioServer& mArchivio;
    std::vector<Lotto> mLotti;
    QString mConChiavi;
    int mLottiScritti = 0;  // in the transaction under way
};

}  // namespace

std::unique_ptr<Scrittore> nuovoScrittore(ArchivioServer& archivio) {
    return std::make_unique<ScrittoreServer>(archivio);
}
