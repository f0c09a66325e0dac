#include <functional>
#include <gtest/gtest.h>
#include <optional>

#include <QDir>
#include <QTextStream>

#include "archivio/create_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/verify_archive.h"
#include "data/sqlite_connection.h"

namespace {

struct Esito {
    bool riuscito;
    QString testo;
};

Esito crea(const QString& percorso, const OpzioniCreazione& opzioni = {}) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = creaArchivio(percorso, opzioni, esito);
    return {riuscito, testo};
}

OpzioniCreazione sovrascrivendo() {
    OpzioniCreazione opzioni;
    opzioni.sovrascrivi = true;
    return opzioni;
}

}  // namespace

TEST(CreateArchive, EmptyArchiveHasEveryOption) {
    const ArchivioInCartella cartella;
    ASSERT_TRUE(crea(cartella.percorso(), sovrascrivendo()).riuscito);
    EXPECT_EQ(cartella.valore("SELECT COUNT(*) FROM Opzioni"), "28");
}

TEST(CreateArchive, EmptyArchiveHasNoProducts) {
    const ArchivioInCartella cartella;
    ASSERT_TRUE(crea(cartella.percorso(), sovrascrivendo()).riuscito);
    EXPECT_EQ(cartella.valore("SELECT COUNT(*) FROM Prodotti"), "0");
}

TEST(CreateArchive, EmptyArchiveOpensAtTheTill) {
    const ArchivioInCartella cartella;
    ASSERT_TRUE(crea(cartella.percorso("vuoto.db")).riuscito);
    ErroreServer errore;
    EXPECT_TRUE(SqliteConnection::apri(cartella.percorso("vuoto.db"), errore))
        << errore.descrizione.toStdString();
}

TEST(CreateArchive, ExistingFileIsRefused) {
    const ArchivioInCartella cartella;
    const Esito esito = crea(cartella.percorso());
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("esiste già")) << esito.testo.toStdString();
}

TEST(CreateArchive, RefusalLeavesTheFileAsItWas) {
    const ArchivioInCartella cartella;
    const QByteArray prima = contenuto(cartella.percorso());
    crea(cartella.percorso());
    EXPECT_TRUE(contenuto(cartella.percorso()) == prima);
}

TEST(CreateArchive, OverwritingRemovesTheLogOfTheOldArchive) {
    const ArchivioInCartella cartella;
    scriviFile(cartella.percorso() + "-wal", "vecchio");
    scriviFile(cartella.percorso() + "-shm", "vecchio");
    ASSERT_TRUE(crea(cartella.percorso(), sovrascrivendo()).riuscito);
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
}

TEST(CreateArchive, NothingElseIsLeftInTheFolder) {
    const ArchivioInCartella cartella;
    ASSERT_TRUE(crea(cartella.percorso("nuovo.db")).riuscito);
    EXPECT_EQ(cartella.file(), (QStringList{"nuovo.db", "prova.db"}));
}

TEST(CreateArchive, FilesOfOthersBesideItStayAsTheyWere) {
    const ArchivioInCartella cartella;
    const QStringList altrui{".a.db.nuovo", "a.db.nuovo", "a.db.nuovo-wal"};
    for (const QString& nome : altrui) {
        scriviFile(cartella.percorso(nome), "di un altro");
    }
    ASSERT_TRUE(crea(cartella.percorso("a.db")).riuscito);
    for (const QString& nome : altrui) {
        EXPECT_EQ(contenuto(cartella.percorso(nome)), "di un altro") << nome.toStdString();
    }
}

TEST(CreateArchive, FolderIsRefused) {
    const ArchivioInCartella cartella;
    QDir(cartella.percorso("")).mkdir("dentro");
    EXPECT_FALSE(crea(cartella.percorso("dentro"), sovrascrivendo()).riuscito);
}

TEST(CreateArchive, MissingFolderIsAnError) {
    const ArchivioInCartella cartella;
    EXPECT_FALSE(crea(cartella.percorso("manca/a.db")).riuscito);
}

namespace {

// While it lives, the statements that it chooses fail as on a full disk.
class DiscoPieno {
  public:
    explicit DiscoPieno(std::function<bool(const QString&)> fallisce) {
        sondaIstruzioni() = [fallisce =
                                 std::move(fallisce)](const QString& sql) -> std::optional<ErroreServer> {
            if (!fallisce(sql)) return std::nullopt;
            ErroreServer pieno;
            pieno.classe = ErroreServer::Classe::DiscoPieno;
            pieno.descrizione = "disco pieno";
            return pieno;
        };
    }
    ~DiscoPieno() { sondaIstruzioni() = {}; }
};

void controllaFallimento(std::function<bool(const QString&)> fallisce) {
    const ArchivioInCartella cartella;
    const QByteArray prima = contenuto(cartella.percorso());
    {
        const DiscoPieno guasto(std::move(fallisce));
        const Esito esito = crea(cartella.percorso(), {true, 1, true});
        EXPECT_FALSE(esito.riuscito);
        EXPECT_TRUE(esito.testo.contains("disco pieno")) << esito.testo.toStdString();
    }
    EXPECT_TRUE(contenuto(cartella.percorso()) == prima);
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
}

class CreazioneInterrotta : public testing::TestWithParam<int> {};

}  // namespace

TEST_P(CreazioneInterrotta, LeavesTheOldArchiveAlone) {
    int istruzioni = 0;
    controllaFallimento([&](const QString&) { return ++istruzioni == GetParam(); });
}

INSTANTIATE_TEST_SUITE_P(CreateArchive, CreazioneInterrotta, testing::Values(1, 2, 5, 20, 60, 100));

TEST(CreateArchive, FailedCommitLeavesTheOldArchiveAlone) {
    controllaFallimento([](const QString& sql) { return sql == "COMMIT"; });
}
