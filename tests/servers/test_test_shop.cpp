#include <gtest/gtest.h>

#include "core/clock.h"
#include "data/gateway.h"
#include "data/schema.h"
#include "doubles/child_process.h"
#include "doubles/negozio.h"

// The shop that the other tests rest on: whatever one test does, the next finds it as new.

namespace {

QStringList comeNuovo() {
    return libri(Negozio());
}

// The key that the next row of each table gets.
QStringList prossimeChiavi(const Negozio& n) {
    return n.righe(
        "SELECT TABLE_NAME, AUTO_INCREMENT FROM information_schema.TABLES WHERE TABLE_SCHEMA = "
        "DATABASE() ORDER BY TABLE_NAME");
}

TEST(TestShop, IsAsNewAfterRowsWereInsertedChangedAndDeleted) {
    const QStringList nuovo = comeNuovo();
    {
        Negozio n;
        n.prodotto({.codice = "A", .listino1 = 10});
        n.cliente(7, "ROSSI");
        n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
        n.sql("DELETE FROM PianoConti WHERE RID = 4");
        n.sql("DELETE FROM Opzioni");
        EXPECT_NE(libri(n), nuovo);
    }
    EXPECT_EQ(comeNuovo(), nuovo);
}

TEST(TestShop, GivesTheSameKeysToEveryTest) {
    const QStringList chiavi = prossimeChiavi(Negozio());
    {
        Negozio n;
        n.prodotto({.codice = "A", .listino1 = 10});
        n.sql("INSERT INTO Anagrafiche (RID, NUMERO) VALUES (500, 9)");
        n.sql("DELETE FROM Prodotti");
    }
    EXPECT_EQ(prossimeChiavi(Negozio()), chiavi);
}

TEST(TestShop, ForgetsARowThatCameAndWent) {
    for (int volta = 0; volta < 2; ++volta) {
        Negozio n;
        EXPECT_EQ(n.prodotto({.codice = "A", .listino1 = 10}), 1);
        n.sql("DELETE FROM Prodotti");
    }
}

TEST(TestShop, ForgetsATransactionThatWasRolledBack) {
    {
        Negozio n;
        ASSERT_TRUE(gAdo.beginTrasaction("prova"));
        ASSERT_EQ(
            gAdo.getIDByInsert("INSERT INTO Prodotti (CODICE) VALUES ('X')", "prova", "RID", "Prodotti"), 1);
        gAdo.rollbackTrasaction("prova");
    }
    Negozio n;
    EXPECT_EQ(n.prodotto({.codice = "A", .listino1 = 10}), 1);
}

TEST(TestShop, ForgetsWhatAnotherProcessWrote) {
    {
        Negozio n;
        gAdo.chiudiConnessioniCalde();
        ASSERT_EQ(inUnFiglio([] {
                      return gAdo.executeSQL("INSERT INTO Prodotti (CODICE) VALUES ('X')", "prova") ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(n.conta("Prodotti"), 1);
    }
    Negozio n;
    EXPECT_EQ(n.conta("Prodotti"), 0);
}

TEST(TestShop, ServersTimeIsTheTestsClock) {
    Negozio n;
    n.orologio.istante = QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58));
    EXPECT_EQ(gAdo.getDataOraServer("prova").toString("yyyy-MM-dd HH:mm:ss"), "2024-02-29 23:59:58");
}

TEST(TestShop, ChecksTheBooks) {
    Negozio n;
    EXPECT_EQ(n.verifica(), QStringList());
    n.sql(
        "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, TOTDOCUMENTO) VALUES "
        "(1, 2026, '2026-03-16', 1, 5)");
    EXPECT_NE(n.verifica(), QStringList());
}

}  // namespace
