#include <atomic>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <QDir>
#include <QTextStream>

#include "archivio/backup_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/verify_archive.h"
#include "data/sqlite_connection.h"

namespace {

struct Esito {
    bool riuscito;
    QString testo;
};

Esito salva(const ArchivioInCartella& archivio, const QString& copia, bool sovrascrivi = false) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = salvaArchivio(archivio.percorso(), archivio.percorso(copia), sovrascrivi, esito);
    return {riuscito, testo};
}

Esito ripristina(const ArchivioInCartella& archivio, const QString& copia) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = ripristinaArchivio(archivio.percorso(copia), archivio.percorso(), false, esito);
    return {riuscito, testo};
}

QString messaDaParte(const ArchivioInCartella& archivio) {
    return archivio.file().filter("prova.db.prima-del-ripristino-").value(0);
}

}  // namespace

TEST(BackupArchive, CopyIsAnArchiveThatTillsOpen) {
    const ArchivioInCartella archivio;
    ASSERT_TRUE(salva(archivio, "copia.db").riuscito);
    ErroreServer errore;
    EXPECT_TRUE(SqliteConnection::apri(archivio.percorso("copia.db"), errore))
        << errore.descrizione.toStdString();
}

TEST(BackupArchive, CopyHoldsWhatIsStillInTheLog) {
    const ArchivioInCartella archivio;
    ErroreServer errore;
    const auto cassa = SqliteConnection::apri(archivio.percorso(), errore);
    archivio.aggiungiVendite();
    ASSERT_TRUE(salva(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.conta("copia.db", "DettagliMovimento"), 5);
}

TEST(BackupArchive, CopyIsOneMomentWhileTillsWrite) {
    const ArchivioInCartella archivio;
    std::atomic<bool> basta = false;
    std::atomic<int> scritte = 0;
    std::thread cassa([&] {
        ErroreServer errore;
        const auto connessione = SqliteConnection::apri(archivio.percorso(), errore);
        // Both rows of a pair, or none.
        while (!basta && connessione->inizia()) {
            connessione->eseguiNativo("INSERT INTO Gruppi (CODICE) VALUES ('A')");
            connessione->eseguiNativo("INSERT INTO Marche (CODICE, DESCRIZIONE) VALUES ('A', '" +
                                      QString("x").repeated(200) + "')");
            if (connessione->conferma()) ++scritte;
        }
    });
    while (scritte < 5)
        std::this_thread::yield();
    int buone = 0;
    for (int i = 0; i < 20; ++i) {
        const int prima = scritte;
        if (!salva(archivio, "copia.db", true).riuscito) break;
        const int gruppi = archivio.conta("copia.db", "Gruppi WHERE CODICE = 'A'");
        if (gruppi == archivio.conta("copia.db", "Marche WHERE CODICE = 'A'") && gruppi >= prima) ++buone;
    }
    basta = true;
    cassa.join();
    EXPECT_EQ(buone, 20);
    EXPECT_GT(scritte, 5);
}

TEST(BackupArchive, ExistingFileStaysUnlessToldOtherwise) {
    const ArchivioInCartella archivio;
    scriviFile(archivio.percorso("copia.db"), "altro");
    EXPECT_FALSE(salva(archivio, "copia.db").riuscito);
    EXPECT_EQ(contenuto(archivio.percorso("copia.db")), "altro");
}

TEST(BackupArchive, DamagedArchiveMakesNoCopy) {
    const ArchivioInCartella archivio;
    QByteArray byte = contenuto(archivio.percorso());
    byte.replace(byte.size() / 2 / 4096 * 4096, 4096, QByteArray(4096, '\x7f'));
    scriviFile(archivio.percorso(), byte);
    EXPECT_FALSE(salva(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.file(), QStringList{"prova.db"});
}

TEST(RestoreArchive, SavedStateIsBack) {
    const ArchivioInCartella archivio;
    salva(archivio, "copia.db");
    archivio.aggiungiVendite();
    ASSERT_TRUE(ripristina(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Movimenti"), "0");
}

TEST(RestoreArchive, ReplacedArchiveStaysBesideIt) {
    const ArchivioInCartella archivio;
    salva(archivio, "copia.db");
    archivio.aggiungiVendite();
    const Esito esito = ripristina(archivio, "copia.db");
    ASSERT_TRUE(esito.riuscito);
    const QString vecchio = messaDaParte(archivio);
    EXPECT_TRUE(esito.testo.contains(vecchio)) << esito.testo.toStdString();
    EXPECT_EQ(archivio.conta(vecchio, "Movimenti"), 2);
}

TEST(RestoreArchive, ArchiveOpenAtATillIsNotReplaced) {
    const ArchivioInCartella archivio;
    salva(archivio, "copia.db");
    archivio.aggiungiVendite();
    ErroreServer errore;
    const auto cassa = SqliteConnection::apri(archivio.percorso(), errore);
    const Esito esito = ripristina(archivio, "copia.db");
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("chiudere le casse")) << esito.testo.toStdString();
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Movimenti"), "2");
}

TEST(RestoreArchive, TillOfAnotherProcessIsNoticed) {
    const ArchivioInCartella archivio;
    salva(archivio, "copia.db");
    int pronta[2];
    int fine[2];
    ASSERT_EQ(pipe(pronta) + pipe(fine), 0);
    const pid_t figlio = fork();
    if (figlio == 0) {
        ErroreServer errore;
        const auto cassa = SqliteConnection::apri(archivio.percorso(), errore);
        char c = cassa ? 's' : 'n';
        if (write(pronta[1], &c, 1) == 1 && read(fine[0], &c, 1) == 1) _exit(0);
        _exit(1);
    }
    char c = 0;
    ASSERT_EQ(read(pronta[0], &c, 1), 1);
    EXPECT_EQ(c, 's');
    EXPECT_FALSE(ripristina(archivio, "copia.db").riuscito);
    EXPECT_EQ(write(fine[1], &c, 1), 1);
    waitpid(figlio, nullptr, 0);
    EXPECT_TRUE(ripristina(archivio, "copia.db").riuscito);
    for (const int canale : {pronta[0], pronta[1], fine[0], fine[1]})
        close(canale);
}

TEST(RestoreArchive, DamagedCopyChangesNothing) {
    const ArchivioInCartella archivio;
    const QByteArray prima = contenuto(archivio.percorso());
    QByteArray byte = prima;
    byte.replace(byte.size() / 2 / 4096 * 4096, 4096, QByteArray(4096, '\x7f'));
    scriviFile(archivio.percorso("copia.db"), byte);
    EXPECT_FALSE(ripristina(archivio, "copia.db").riuscito);
    EXPECT_TRUE(contenuto(archivio.percorso()) == prima);
}

TEST(RestoreArchive, FileThatIsNoArchiveChangesNothing) {
    const ArchivioInCartella archivio;
    scriviFile(archivio.percorso("copia.db"), "lettera a Babbo Natale");
    EXPECT_FALSE(ripristina(archivio, "copia.db").riuscito);
    EXPECT_EQ(archivio.file(), (QStringList{"copia.db", "prova.db"}));
}

TEST(RestoreArchive, MissingArchiveIsMade) {
    const ArchivioInCartella archivio;
    salva(archivio, "copia.db");
    QFile::remove(archivio.percorso());
    EXPECT_TRUE(ripristina(archivio, "copia.db").riuscito);
    EXPECT_TRUE(verificaArchivio(archivio.percorso()).errori.isEmpty());
}
