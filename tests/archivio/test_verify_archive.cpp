#include <gtest/gtest.h>
#include <ostream>

#include "archivio/trial_archive.h"
#include "archivio/verify_archive.h"

namespace {

EsitoVerifica dopo(const QByteArray& danno) {
    const ArchivioInCartella archivio;
    archivio.aggiungiVendite();
    EXPECT_EQ(archivio.esegui(danno, false), SQLITE_OK);
    return verificaArchivio(archivio.percorso());
}

std::string testo(const EsitoVerifica& esito) {
    return esito.righe().join('\n').toStdString();
}

}  // namespace

TEST(VerifyArchive, DemoShopIsClean) {
    const ArchivioInCartella archivio;
    const EsitoVerifica esito = verificaArchivio(archivio.percorso());
    EXPECT_EQ(esito.righe(), QStringList{"Verifica: 0 errori, 0 note."}) << testo(esito);
}

TEST(VerifyArchive, SavedSalesAreClean) {
    const EsitoVerifica esito = dopo("");
    EXPECT_EQ(esito.righe(), QStringList{"Verifica: 0 errori, 0 note."}) << testo(esito);
}

TEST(VerifyArchive, SaleWithoutJournalIsNoError) {
    const EsitoVerifica esito = dopo("UPDATE Movimenti SET FK_PRIMANOTA = NULL, FK_PNPAGAMENTO = NULL");
    EXPECT_TRUE(esito.errori.isEmpty()) << testo(esito);
}

TEST(VerifyArchive, ArchiveIsNotChanged) {
    const ArchivioInCartella archivio;
    const QByteArray prima = contenuto(archivio.percorso());
    verificaArchivio(archivio.percorso());
    EXPECT_TRUE(contenuto(archivio.percorso()) == prima);
    EXPECT_EQ(archivio.file(), QStringList{"prova.db"});
}

TEST(VerifyArchive, FindingsAreSortedWithTheSummaryLast) {
    EsitoVerifica esito;
    esito.errori = {"zeta", "alfa"};
    esito.note = {"beta"};
    EXPECT_EQ(esito.righe(),
              (QStringList{"ERRORE: alfa", "ERRORE: zeta", "NOTA: beta", "Verifica: 2 errori, 1 note."}));
}

// One damage, and a piece of the one error that it must give.
struct Danno {
    const char* nome;
    const char* sql;
    const char* atteso;
};

void PrintTo(const Danno& danno, std::ostream* dove) {
    *dove << danno.nome;
}

class OgniDanno : public testing::TestWithParam<Danno> {};

TEST_P(OgniDanno, IsFoundAsAnError) {
    const EsitoVerifica esito = dopo(GetParam().sql);
    ASSERT_EQ(esito.errori.size(), 1) << testo(esito);
    EXPECT_TRUE(esito.errori.first().contains(GetParam().atteso)) << testo(esito);
}

INSTANTIATE_TEST_SUITE_P(
    VerifyArchive, OgniDanno,
    testing::Values(
        Danno{"HeaderTotal", "UPDATE Movimenti SET TOTDOCUMENTO = 51, TOTIMPONIBILE = 41.9844 WHERE RID = 2",
              "documento VB 2/2026: totale 51"},
        Danno{"HeaderVat", "UPDATE Movimenti SET TOTIMPOSTA = 9, TOTIMPONIBILE = 41 WHERE RID = 2",
              "imposta 9 in testata"},
        Danno{"HeaderNet", "UPDATE Movimenti SET TOTIMPONIBILE = 40 WHERE RID = 2", "imponibile 40"},
        Danno{"RowAmount", "UPDATE DettagliMovimento SET TOTALERIGA = 60 WHERE RID = 5",
              "60 e 9,0156 dalle righe"},
        Danno{"RowVat", "UPDATE DettagliMovimento SET TOTALEIVA = 9 WHERE RID = 5", "50 e 9 dalle righe"},
        Danno{"HeaderWithoutRows", "DELETE FROM DettagliMovimento WHERE FK_MOVIMENTO = 2",
              "0 e 0 dalle righe"},
        Danno{"KitHeadWithMoney", "UPDATE DettagliMovimento SET PREZZO = 3 WHERE RID = 4",
              "la testa di distinta %BAGNO"},
        Danno{"ProductStock", "UPDATE Prodotti SET GIACENZA = GIACENZA + 1 WHERE RID = 1",
              "prodotto VITI440: giacenza 121, somma dei magazzini 120"},
        Danno{"LayerLost", "DELETE FROM DettagliProdotto WHERE FK_PRODOTTO = 2", "prodotto MART500"},
        Danno{"UnbalancedEntry",
              "UPDATE PrimaNotaDettagli SET DARE = 26.46 WHERE FK_PRIMANOTA = 2 AND FK_CONTO = 1",
              "prima nota 2/2026: dare 26,46, avere 26,47"},
        Danno{"EntryWithoutLines", "DELETE FROM PrimaNotaDettagli WHERE FK_PRIMANOTA = 2",
              "prima nota 2/2026: nessuna riga"},
        Danno{"RowWithoutHeader",
              "INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, POS) VALUES (900, 1, 1)",
              "si riferisce a un record di Movimenti che non esiste"},
        Danno{"RowWithoutProduct",
              "DELETE FROM Prodotti WHERE RID = 100; DELETE FROM DettagliProdotto WHERE FK_PRODOTTO = "
              "100; DELETE FROM CatScProdVendita WHERE FK_PRODOTTO = 100; UPDATE DettagliMovimento SET "
              "FK_PRODOTTO = 100 WHERE RID = 3",
              "si riferisce a un record di Prodotti che non esiste"},
        Danno{"ComponentWithoutHead", "DELETE FROM DettagliMovimento WHERE RID = 4",
              "il componente RUBLAV è senza la testa"},
        Danno{"ComponentOfAnotherSale",
              "UPDATE DettagliMovimento SET IK_DETTAGLIOMOVIMENTO = 1 WHERE RID = 5",
              "il componente RUBLAV è senza la testa"},
        Danno{"DocumentNumberTwice", "UPDATE Movimenti SET PROGRESSIVO = 1 WHERE RID = 2",
              "numero 1 dato a 2 documenti"},
        Danno{"PositionTwice", "UPDATE DettagliMovimento SET POS = 1 WHERE RID = 2",
              "2 righe alla posizione 1"},
        Danno{"JournalNumberTwice", "UPDATE PrimaNota SET PROGRESSIVO = 1 WHERE RID = 2",
              "numero 1 dato a 2 registrazioni"},
        Danno{"CounterBehind", "UPDATE Contatori SET NUMERO = 1",
              "il contatore è a 1, ma l'ultimo documento ha il numero 2"},
        Danno{"CounterMissing", "DELETE FROM Contatori", "il contatore manca"},
        Danno{"TableMissing", "DROP TABLE Scadenze", "mancano: Scadenze"},
        Danno{"ColumnMissing", "ALTER TABLE Venditori RENAME COLUMN CODICEEXTRA TO ALTRO",
              "mancano: Venditori.CODICEEXTRA"}),
    [](const auto& info) { return std::string(info.param.nome); });

// A difference that the rules make by themselves, and the cause that the note must name.
class OgniNota : public testing::TestWithParam<Danno> {};

TEST_P(OgniNota, IsNoErrorAndNamesItsCause) {
    const EsitoVerifica esito = dopo(GetParam().sql);
    EXPECT_TRUE(esito.errori.isEmpty()) << testo(esito);
    ASSERT_EQ(esito.note.size(), 1) << testo(esito);
    EXPECT_TRUE(esito.note.first().contains(GetParam().atteso)) << testo(esito);
}

INSTANTIATE_TEST_SUITE_P(
    VerifyArchive, OgniNota,
    testing::Values(
        Danno{"FirstOfTwoSalesDeleted",
              "DELETE FROM DettagliMovimento WHERE FK_MOVIMENTO = 1 AND EXTRAPROG = 1",
              "una delle vendite del documento è stata cancellata"},
        Danno{"LastOfTwoSalesDeleted",
              "DELETE FROM DettagliMovimento WHERE FK_MOVIMENTO = 1 AND EXTRAPROG = 2;"
              "UPDATE PrimaNota SET IMPORTO = 22.48; DELETE FROM PrimaNotaDettagli;"
              "INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, DARE, AVERE) VALUES (1, 3, 22.48, 0), "
              "(1, 5, 0, 22.48), "
              "(2, 1, 22.48, 0), (2, 3, 0, 22.48)",
              "una delle vendite del documento è stata cancellata"},
        Danno{"CausalWithOneAccount",
              "UPDATE Causali SET FK_CONTOAVERE1 = NULL WHERE RID = 2; DELETE FROM PrimaNotaDettagli WHERE "
              "AVERE = 26.47",
              "la causale ha conti da una sola parte"},
        Danno{"ReturnWithVat",
              "UPDATE PrimaNota SET IMPORTO = -12.2 WHERE RID = 1; DELETE FROM PrimaNotaDettagli WHERE "
              "FK_PRIMANOTA = 1;"
              "INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, DARE, AVERE) VALUES (1, 3, -12.2, 0), "
              "(1, 5, 0, -12.2), "
              "(1, 6, 0, -2.2)",
              "l'imposta negativa non viene scorporata"},
        Danno{"CostChangedOnALoad",
              "INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (4, '2026', 1);"
              "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_DESTINAZIONE) VALUES (1, "
              "2026, "
              "'2026-11-21 00:00:00', 5, 1);"
              "INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO) VALUES (3, 1, 1, 1);"
              "UPDATE Prodotti SET GIACENZA = GIACENZA + 5 WHERE RID = 1",
              "costo cambiato su un carico"},
        Danno{"LoadDeleted",
              "INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (4, '2026', 1);"
              "UPDATE Prodotti SET GIACENZA = GIACENZA + 5 WHERE RID = 1",
              "è stato cancellato un carico"},
        Danno{
            "SubNumberOfTheNewYear",
            "UPDATE DettagliMovimento SET EXTRAPROG = 1, ORA = '2027-01-01 00:05:00' WHERE FK_MOVIMENTO = 1 "
            "AND EXTRAPROG = 2",
            "salvata in un anno diverso"},
        Danno{"CausalWithoutTheFirstAccount",
              "UPDATE Causali SET FK_CONTOAVERE1 = NULL, FK_CONTOAVERE2 = 6 WHERE RID = 2; DELETE FROM "
              "PrimaNotaDettagli WHERE AVERE = 26.47",
              "manca il primo conto"},
        Danno{"NumberZero", "UPDATE Movimenti SET PROGRESSIVO = 0 WHERE RID = 2", "contatore non scritto"}),
    [](const auto& info) { return std::string(info.param.nome); });

namespace {

// The one error that a file gives which is no archive; the file must stay as it is.
QString rifiuto(const QByteArray& byte) {
    const ArchivioInCartella cartella;
    scriviFile(cartella.percorso(), byte);
    const EsitoVerifica esito = verificaArchivio(cartella.percorso());
    EXPECT_TRUE(contenuto(cartella.percorso()) == byte);
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
    EXPECT_EQ(esito.errori.size(), 1) << testo(esito);
    return esito.errori.value(0);
}

}  // namespace

TEST(VerifyArchive, TextFileIsRefused) {
    EXPECT_TRUE(rifiuto("questo non è un archivio\n").contains("non è un archivio"));
}

TEST(VerifyArchive, LongGarbageIsRefused) {
    EXPECT_TRUE(rifiuto(QByteArray(40000, '\x5a')).contains("non è un archivio"));
}

TEST(VerifyArchive, EmptyFileIsRefused) {
    EXPECT_TRUE(rifiuto("").contains("non è un archivio di Bottegon"));
}

TEST(VerifyArchive, HalfAnArchiveIsRefused) {
    const ArchivioInCartella archivio;
    const QByteArray tutto = contenuto(archivio.percorso());
    EXPECT_FALSE(rifiuto(tutto.left(tutto.size() / 2)).isEmpty());
}

TEST(VerifyArchive, DatabaseOfAnotherProgramIsRefused) {
    const ArchivioInCartella archivio;
    ASSERT_EQ(archivio.esegui("PRAGMA application_id = 4711", false), SQLITE_OK);
    const EsitoVerifica esito = verificaArchivio(archivio.percorso());
    ASSERT_EQ(esito.errori.size(), 1);
    EXPECT_TRUE(esito.errori.first().contains("non è un archivio di Bottegon"));
}

TEST(VerifyArchive, ArchiveOfAnotherVersionIsRefused) {
    const ArchivioInCartella archivio;
    ASSERT_EQ(archivio.esegui("PRAGMA user_version = 4711", false), SQLITE_OK);
    const EsitoVerifica esito = verificaArchivio(archivio.percorso());
    ASSERT_EQ(esito.errori.size(), 1);
    EXPECT_TRUE(esito.errori.first().contains("è di un'altra versione (4711)"));
}

TEST(VerifyArchive, OverwrittenPageIsFound) {
    const ArchivioInCartella archivio;
    QByteArray byte = contenuto(archivio.percorso());
    byte.replace(byte.size() / 2 / 4096 * 4096, 4096, QByteArray(4096, '\x7f'));
    scriviFile(archivio.percorso(), byte);
    EXPECT_FALSE(verificaArchivio(archivio.percorso()).errori.isEmpty());
}

TEST(VerifyArchive, MissingFileIsRefusedAndNotMade) {
    const ArchivioInCartella archivio;
    const EsitoVerifica esito = verificaArchivio(archivio.percorso("manca.db"));
    ASSERT_EQ(esito.errori.size(), 1);
    EXPECT_TRUE(esito.errori.first().contains("non esiste"));
    EXPECT_EQ(archivio.file(), QStringList{"prova.db"});
}

TEST(VerifyArchive, FolderIsRefused) {
    const ArchivioInCartella archivio;
    EXPECT_TRUE(verificaArchivio(archivio.percorso("")).errori.value(0).contains("non è un file"));
}
