#include <gtest/gtest.h>

#include "archivio/command_line.h"
#include "archivio/trial_archive.h"

namespace {

int esegui(const QStringList& argomenti, QString* testo = nullptr) {
    QString scritto;
    QTextStream esito(&scritto);
    const int codice = eseguiComando(argomenti, esito);
    if (testo != nullptr) *testo = scritto;
    return codice;
}

}  // namespace

TEST(CommandLine, HelpIsItalianAndGood) {
    QString testo;
    EXPECT_EQ(esegui({"--aiuto"}, &testo), UscitaBuona);
    EXPECT_TRUE(testo.startsWith("Uso: bottegon-archivio COMANDO"));
}

class OgniUsoSbagliato : public testing::TestWithParam<std::string> {};

TEST_P(OgniUsoSbagliato, ShowsTheHelpAndAnswersTwo) {
    QString testo;
    EXPECT_EQ(esegui(QString::fromStdString(GetParam()).split(' '), &testo), UscitaUso);
    EXPECT_TRUE(testo.contains("Uso: bottegon-archivio COMANDO"));
}

INSTANTIATE_TEST_SUITE_P(CommandLine, OgniUsoSbagliato,
                         testing::Values("", "boh", "crea", "crea a.db b.db", "crea --boh a.db",
                                         "crea --demo", "crea --seme uno a.db", "verifica", "verifica ",
                                         "vendite a.db --ultime", "vendite a.db --ultime 0",
                                         "vendite a.db --ultime -1", "copia a.db", "copia a.db b.db c.db",
                                         "importa a.mdb", "salva a.db", "ripristina a.db", "collega",
                                         "crea --prodotti 300 a.db", "crea --righe 1 --clienti 30 a.db",
                                         "crea --demo --prodotti 300 --clienti 30 --righe 1 a.db",
                                         "crea --prodotti tre --clienti 30 --righe 1 a.db"));

TEST(CommandLine, CreationAndCheckOfADemoShop) {
    const ArchivioInCartella cartella;
    const QString percorso = cartella.percorso("negozio.db");
    EXPECT_EQ(esegui({"crea", "--demo", "--seme", "42", percorso}), UscitaBuona);
    EXPECT_EQ(esegui({"verifica", percorso}), UscitaBuona);
}

TEST(CommandLine, ExistingArchiveAnswersOne) {
    const ArchivioInCartella cartella;
    EXPECT_EQ(esegui({"crea", cartella.percorso()}), UscitaErrori);
}

TEST(CommandLine, DamageAnswersOne) {
    const ArchivioInCartella archivio;
    ASSERT_EQ(archivio.esegui("UPDATE Prodotti SET GIACENZA = -1 WHERE RID = 1"), SQLITE_OK);
    EXPECT_EQ(esegui({"verifica", archivio.percorso()}), UscitaErrori);
}

TEST(CommandLine, NotesAloneAnswerZero) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    ASSERT_EQ(archivio.esegui("UPDATE Movimenti SET PROGRESSIVO = 0 WHERE RID = 2"), SQLITE_OK);
    QString testo;
    EXPECT_EQ(esegui({"verifica", archivio.percorso()}, &testo), UscitaBuona);
    EXPECT_TRUE(testo.contains("NOTA: ")) << testo.toStdString();
}

TEST(CommandLine, SalesOfAMissingArchiveAnswerOne) {
    const ArchivioInCartella archivio;
    EXPECT_EQ(esegui({"vendite", archivio.percorso("manca.db"), "--ultime", "3"}), UscitaErrori);
}
