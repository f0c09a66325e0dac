#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTextStream>

#include "archivio/archive_dump.h"
#include "archivio/copy_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/verify_archive.h"
#include "data/sqlite_connection.h"

namespace {

struct Esito {
    bool riuscito;
    QString testo;
};

Esito copia(const ArchivioInCartella& archivio, const QString& a, bool sovrascrivi = false) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = copiaArchivio(archivio.percorso(), archivio.percorso(a), sovrascrivi, esito);
    return {riuscito, testo};
}

}  // namespace

TEST(CopyArchive, EveryRowIsTheSame) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    ASSERT_TRUE(copia(archivio, "copia.db").riuscito);
    EXPECT_EQ(tutteLeRighe(archivio.percorso("copia.db")), tutteLeRighe(archivio.percorso()));
}

TEST(CopyArchive, RowsOfEveryTableAreTold) {
    const ArchivioInCartella archivio;
    EXPECT_TRUE(copia(archivio, "copia.db").testo.contains("Prodotti                      2000 righe\n"));
}

TEST(CopyArchive, KeysOfDeletedRowsAreNotGivenAgain) {
    const ArchivioInCartella archivio;
    archivio.esegui("INSERT INTO Gruppi (RID, CODICE) VALUES (500, 'A'); DELETE FROM Gruppi WHERE RID = 500");
    ASSERT_TRUE(copia(archivio, "copia.db").riuscito);
    ErroreServer errore;
    const auto copiato = SqliteConnection::apri(archivio.percorso("copia.db"), errore);
    ASSERT_TRUE(copiato->eseguiNativo("INSERT INTO Gruppi (CODICE) VALUES ('B')"));
    EXPECT_EQ(archivio.conta("copia.db", "Gruppi WHERE RID = 501"), 1);
}

TEST(CopyArchive, ExistingTargetStaysUnlessToldOtherwise) {
    const ArchivioInCartella archivio;
    scriviFile(archivio.percorso("copia.db"), "altro");
    EXPECT_FALSE(copia(archivio, "copia.db").riuscito);
    EXPECT_EQ(contenuto(archivio.percorso("copia.db")), "altro");
}

TEST(CopyArchive, RowThatNoColumnKeepsIsNamedAndNothingIsMade) {
    const ArchivioInCartella archivio;
    archivio.esegui("UPDATE Gruppi SET CODICE = '" + QByteArray(60, 'x') + "' WHERE RID = 2");
    const Esito esito = copia(archivio, "copia.db");
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("Gruppi 2: CODICE: il testo ha 60 caratteri"))
        << esito.testo.toStdString();
    EXPECT_EQ(archivio.file(), QStringList{"prova.db"});
}

TEST(CopyArchive, ReferenceToNothingIsNamedAndNothingIsMade) {
    const ArchivioInCartella archivio;
    archivio.esegui("UPDATE Prodotti SET FK_MARCA = 9999 WHERE RID = 7", false);
    const Esito esito = copia(archivio, "copia.db");
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("Prodotti 7: si riferisce a un record di Marche"))
        << esito.testo.toStdString();
    EXPECT_EQ(archivio.file(), QStringList{"prova.db"});
}

// The process dies when all rows are in and the file is about to take its place.
TEST(CopyArchive, KilledCopyMakesNothingAndTheNextOneTidiesUp) {
    const ArchivioInCartella archivio(ArchivioInCartella::Contenuto::Poco);
    const pid_t figlio = fork();
    if (figlio == 0) {
        sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
            if (sql == "COMMIT") raise(SIGKILL);
            return std::nullopt;
        };
        copia(archivio, "copia.db");
        _exit(0);
    }
    int stato = 0;
    waitpid(figlio, &stato, 0);
    ASSERT_TRUE(WIFSIGNALED(stato));
    EXPECT_FALSE(archivio.file().contains("copia.db"));
    ASSERT_TRUE(copia(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.file(), (QStringList{"copia.db", "prova.db"}));
}

TEST(CopyArchive, TargetThatATillHasOpenIsNotReplaced) {
    const ArchivioInCartella archivio(ArchivioInCartella::Contenuto::Poco);
    ASSERT_TRUE(copia(archivio, "copia.db").riuscito);
    ErroreServer errore;
    const auto cassa = SqliteConnection::apri(archivio.percorso("copia.db"), errore);
    const Esito esito = copia(archivio, "copia.db", true);
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("chiudere le casse")) << esito.testo.toStdString();
}

TEST(CopyArchive, CopyHoldsWhatIsStillInTheLogOfATill) {
    const ArchivioInCartella archivio;
    ErroreServer errore;
    const auto cassa = SqliteConnection::apri(archivio.percorso(), errore);
    archivio.aggiungiVendite();
    ASSERT_TRUE(copia(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.conta("copia.db", "DettagliMovimento"), 5);
}
