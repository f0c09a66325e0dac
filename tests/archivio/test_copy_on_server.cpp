#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTextStream>

#include "archivio/archive_dump.h"
#include "archivio/copy_archive.h"
#include "archivio/create_archive.h"
#include "archivio/trial_archive.h"
#include "archivio/trial_server.h"
#include "core/run_time_error.h"
#include "data/archive_version.h"
#include "data/prepare_sql.h"
#include "data/server_drivers.h"

namespace {

using enum ArchivioInCartella::Contenuto;

struct Esito {
    bool riuscito;
    QString testo;
};

Esito copia(const QString& da, const QString& a, bool sovrascrivi = false) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = copiaArchivio(da, a, sovrascrivi, esito);
    return {riuscito, testo};
}

// What a till that starts now would be told; empty when it may work.
QString rifiutoAllaCassa(const DatabaseDiProva& database) {
    const auto connessione = database.apri();
    const auto driver = nuovoDriver(MySql);
    ErroreServer errore;
    const auto cassa = driver->apri(database.stringa(), 5, {}, errore);
    return cassa ? QString() : errore.descrizione;
}

}  // namespace

TEST(CopyOnServer, ThereAndBackEveryRowIsTheSame) {
    const ArchivioInCartella archivio;
    const DatabaseDiProva database;
    archivio.aggiungiVendite();
    archivio.aggiungiDifficili();
    const Esito andata = copia(archivio.percorso(), database.nome());
    ASSERT_TRUE(andata.riuscito) << andata.testo.toStdString();
    const Esito ritorno = copia(database.nome(), archivio.percorso("ritorno.db"));
    ASSERT_TRUE(ritorno.riuscito) << ritorno.testo.toStdString();
    EXPECT_EQ(tutteLeRighe(database.nome()), tutteLeRighe(archivio.percorso()));
    EXPECT_EQ(tutteLeRighe(archivio.percorso("ritorno.db")), tutteLeRighe(archivio.percorso()));
}

TEST(CopyOnServer, FromServerToServer) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva prima;
    const DatabaseDiProva seconda;
    ASSERT_TRUE(copia(archivio.percorso(), prima.nome()).riuscito);
    ASSERT_TRUE(copia(prima.nome(), seconda.nome()).riuscito);
    EXPECT_EQ(tutteLeRighe(seconda.nome()), tutteLeRighe(archivio.percorso()));
}

TEST(CopyOnServer, MoneyThatNoFileKeepsIsNamed) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    database.esegui("UPDATE Anagrafiche SET FIDO = 922337203685477.5807 WHERE RID = 3");
    const Esito esito = copia(database.nome(), archivio.percorso("ritorno.db"));
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("Anagrafiche 3: FIDO: ")) << esito.testo.toStdString();
    EXPECT_TRUE(esito.testo.contains("922337203685477.5807")) << esito.testo.toStdString();
}

TEST(CopyOnServer, NextKeyIsAboveTheHighestEverGiven) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    archivio.esegui("INSERT INTO Gruppi (RID, CODICE) VALUES (500, 'A'); DELETE FROM Gruppi WHERE RID = 500");
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    database.esegui("INSERT INTO Gruppi (CODICE) VALUES ('B')");
    EXPECT_EQ(database.valore("SELECT MAX(RID) FROM Gruppi"), "501");
}

TEST(CopyOnServer, TargetWithAnArchiveStaysUnlessToldOtherwise) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    database.esegui("UPDATE Gruppi SET CODICE = 'MIO' WHERE RID = 1");
    const Esito esito = copia(archivio.percorso(), database.nome());
    EXPECT_TRUE(esito.testo.contains("contiene già un archivio")) << esito.testo.toStdString();
    EXPECT_EQ(database.valore("SELECT CODICE FROM Gruppi WHERE RID = 1"), "MIO");
}

TEST(CopyOnServer, OverwritingReplacesAllRows) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    database.esegui("INSERT INTO Gruppi (CODICE) VALUES ('MIO')");
    ASSERT_TRUE(copia(archivio.percorso(), database.nome(), true).riuscito);
    EXPECT_EQ(tutteLeRighe(database.nome()), tutteLeRighe(archivio.percorso()));
}

TEST(CopyOnServer, TablesOfOthersAreLeftAlone) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    database.esegui("CREATE TABLE Altrui (A INT)");
    ASSERT_TRUE(copia(archivio.percorso(), database.nome(), true).riuscito);
    EXPECT_EQ(database.valore("SELECT COUNT(*) FROM Altrui"), "0");
}

TEST(CopyOnServer, FailedCopyLeavesADatabaseThatNoTillOpens) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    archivio.esegui("UPDATE Prodotti SET FK_MARCA = 9999 WHERE RID = 3", false);
    ASSERT_FALSE(copia(archivio.percorso(), database.nome()).riuscito);
    EXPECT_EQ(database.valore(leggiMarchio()), QString::number(versioneIncompleta));
    EXPECT_TRUE(rifiutoAllaCassa(database).contains("incompleto"))
        << rifiutoAllaCassa(database).toStdString();
}

TEST(CopyOnServer, CompleteCopyIsOpenedByATill) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    ASSERT_TRUE(copia(archivio.percorso(), database.nome()).riuscito);
    EXPECT_EQ(rifiutoAllaCassa(database), "");
}

// The process dies when a part of the rows is in for good.
TEST(CopyOnServer, KilledCopyCanBeRunAgain) {
    const ArchivioInCartella archivio;
    const DatabaseDiProva database;
    const pid_t figlio = fork();
    if (figlio == 0) {
        bool inParte = false;
        sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
            if (inParte && sql.startsWith("INSERT ")) raise(SIGKILL);
            inParte |= sql == "COMMIT";
            return std::nullopt;
        };
        copia(archivio.percorso(), database.nome());
        _exit(0);
    }
    int stato = 0;
    waitpid(figlio, &stato, 0);
    ASSERT_TRUE(WIFSIGNALED(stato));
    EXPECT_GT(database.valore("SELECT COUNT(*) FROM Marche").toInt(), 0);
    EXPECT_TRUE(rifiutoAllaCassa(database).contains("incompleto"))
        << rifiutoAllaCassa(database).toStdString();
    const Esito esito = copia(archivio.percorso(), database.nome());
    EXPECT_TRUE(esito.riuscito) << esito.testo.toStdString();
    EXPECT_EQ(tutteLeRighe(database.nome()), tutteLeRighe(archivio.percorso()));
}

TEST(CopyOnServer, ConnectionKilledOnTheWayFailsTheCopy) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    bool uccisa = false;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (uccisa || !sql.startsWith("INSERT INTO DistintaBase ")) return std::nullopt;
        uccisa = true;
        Recordset vivi = database.apri()->leggi("SELECT ID FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB = '" +
                                                database.database() + "' AND ID <> CONNECTION_ID()");
        for (; !vivi.eof(); vivi.moveNext())
            database.esegui("KILL " + vivi.testo("ID"));
        return std::nullopt;
    };
    const Esito esito = copia(archivio.percorso(), database.nome());
    sondaIstruzioni() = {};
    EXPECT_TRUE(uccisa);
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(rifiutoAllaCassa(database).contains("incompleto"))
        << rifiutoAllaCassa(database).toStdString();
}

TEST(CopyOnServer, SecondCopyToTheSamePlaceIsRefused) {
    const ArchivioInCartella archivio(Poco);
    const DatabaseDiProva database;
    QString seconda;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (!seconda.isNull() || !sql.startsWith("INSERT INTO Prodotti ")) return std::nullopt;
        seconda = "";
        seconda = copia(archivio.percorso(), database.nome(), true).testo;
        return std::nullopt;
    };
    const Esito prima = copia(archivio.percorso(), database.nome());
    sondaIstruzioni() = {};
    EXPECT_TRUE(seconda.contains("un altro bottegon-archivio")) << seconda.toStdString();
    EXPECT_TRUE(prima.riuscito) << prima.testo.toStdString();
}

TEST(CreateOnServer, EmptyArchiveHasItsOptionsAndOpensAtTheTill) {
    const DatabaseDiProva database;
    QString testo;
    QTextStream esito(&testo);
    ASSERT_TRUE(creaArchivio(database.nome(), {}, esito)) << testo.toStdString();
    EXPECT_EQ(database.valore("SELECT COUNT(*) FROM Opzioni"), "28");
    EXPECT_EQ(rifiutoAllaCassa(database), "");
}

TEST(CreateOnServer, DemoShopIsTheOneOfAFile) {
    const ArchivioInCartella archivio;
    const DatabaseDiProva database;
    QString testo;
    QTextStream esito(&testo);
    ASSERT_TRUE(creaArchivio(database.nome(), {true, 1, false}, esito)) << testo.toStdString();
    EXPECT_EQ(tutteLeRighe(database.nome()), tutteLeRighe(archivio.percorso()));
}

TEST(CreateOnServer, WrongPasswordIsSaidWithoutShowingIt) {
    QString testo;
    QTextStream esito(&testo);
    const QString nome = QString(DatabaseDiProva().nome()).replace("Pwd=prova", "Pwd=sbagliata");
    EXPECT_FALSE(creaArchivio(nome, {}, esito));
    EXPECT_FALSE(testo.contains("sbagliata")) << testo.toStdString();
}
