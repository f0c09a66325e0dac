#include "core/globals.h"
#include "data/gateway.h"
#include "postings/expected_books.h"
#include "postings/stock.h"

// One row's effect on layers and total stock. Product 1 has four pieces at 6,00 and, later, six at 7,00 in
// warehouse 1, none in 2, and ten in all.

namespace {

struct Stock : testing::Test {
    Bottega n;

    // The answer; the layer that was moved goes to `mosso`.
    QString muovi(MovimentoMerce m) {
        m.idProdotto = 1;
        m.informazioni = "Prodotto [A - A]";
        const QString esito = aggiornaGiacenze(m, n.operatore);
        mosso = m.taglio;
        return esito;
    }
    // "warehouse/cost=quantity" of each layer, the oldest first; the product's figure last.
    QString merce() {
        QStringList tutti;
        for (const QString& strato :
             n.righe("SELECT FK_MAGAZZINO, TAGLIO, QUANTITA FROM DettagliProdotto ORDER BY RID")) {
            const QStringList celle = strato.split('|');
            tutti << celle[0] + "/" + celle[1] + "=" + celle[2];
        }
        return tutti.join(' ') + " : " + n.valore("SELECT GIACENZA FROM Prodotti WHERE RID = 1");
    }
    static Currency euro(double valore) { return Currency::daDouble(valore); }
    static constexpr Currency ignoto = Currency::daScalato(-10000);
    Currency mosso;
};

}  // namespace

// ---- Which layer

TEST_F(Stock, SaleTakesFromTheOldestLayerThatHasGoods) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=2 1/7=6 : 8");
    EXPECT_EQ(mosso, euro(6));
}

TEST_F(Stock, WholeRowComesFromOneLayerThoughItHoldsLess) {
    EXPECT_EQ(muovi({.quantita = 9, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=-5 1/7=6 : 1");
}

TEST_F(Stock, EmptyLayerIsPassedOver) {
    n.sql("UPDATE DettagliProdotto SET QUANTITA = 0 WHERE TAGLIO = 6");
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=0 1/7=4 : 8");
    EXPECT_EQ(mosso, euro(7));
}

// A transfer at the average leaves such a layer behind.
TEST_F(Stock, LayerOfAnUnknownCostIsPassedOverForAnEmptyOne) {
    n.sql("UPDATE DettagliProdotto SET QUANTITA = 0 WHERE TAGLIO = 6");
    n.sql("UPDATE DettagliProdotto SET TAGLIO = -1 WHERE TAGLIO = 7");
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=-2 1/-1=6 : 8");
    EXPECT_EQ(mosso, euro(6));
}

TEST_F(Stock, WithoutGoodsAnywhereItIsTheOldestLayer) {
    n.sql("UPDATE DettagliProdotto SET QUANTITA = -1");
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=-3 1/7=-1 : 8");
}

TEST_F(Stock, LayersOfOtherWarehousesAreNotLookedAt) {
    n.sql("UPDATE DettagliProdotto SET FK_MAGAZZINO = 2 WHERE TAGLIO = 6");
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "2/6=4 1/7=4 : 8");
}

TEST_F(Stock, KnownLayerIsNotChosenAgain) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(7), .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=4 : 8");
    EXPECT_EQ(mosso, euro(7));
}

TEST_F(Stock, KnownCostWithoutALayerMakesOneAndTakesItBelowZero) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(9.25), .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=6 1/9.25=-2 : 8");
}

TEST_F(Stock, CostOfZeroIsKnown) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = {}, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=6 1/0=-2 : 8");
}

// ---- Cost that cannot be told

TEST_F(Stock, WarehouseThatNeverHeldTheProductIsSaidAndNothingWritten) {
    const QStringList prima = libri(n);
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 2}),
              "Impossibile determinare il taglio.\nManca il riferimento al prezzo di costo del prodotto.\n\n"
              "Informazioni: \n - Prodotto [A - A]");
    EXPECT_EQ(libri(n), prima);
}

TEST_F(Stock, LoadWithoutACostIsSaid) {
    EXPECT_TRUE(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idDestinazione = 1})
                    .startsWith("Impossibile determinare il taglio.\n"));
}

TEST_F(Stock, WithoutAnyWarehouseAnUnknownCostIsSaidToo) {
    EXPECT_TRUE(muovi({.quantita = 2, .taglio = ignoto, .azione = 1})
                    .startsWith("Impossibile determinare il taglio."));
}

TEST_F(Stock, WithoutAnyWarehouseNothingMoves) {
    const QStringList prima = libri(n);
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(6), .azione = 1}), "OK");
    EXPECT_EQ(libri(n), prima);
}

TEST_F(Stock, ActionThatIsNoneIsSaid) {
    for (const int azione : {0, 4, -1}) {
        EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(6), .azione = azione, .idOrigine = 1}),
                  "Azione (Inserimento/Modifica/Cancellazione) non impostata!\n\nInformazioni:\n"
                  " - Prodotto [A - A]");
    }
    EXPECT_EQ(merce(), "1/6=4 1/7=6 : 10");
}

// ---- Changes and deletions at the origin

TEST_F(Stock, ChangeTakesTheDifference) {
    EXPECT_EQ(muovi({.quantita = 5, .quantitaVecchia = 2, .taglio = euro(6), .azione = 2, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/6=1 1/7=6 : 7");
}

TEST_F(Stock, ChangeToLessGivesBack) {
    EXPECT_EQ(muovi({.quantita = 1, .quantitaVecchia = 3, .taglio = euro(6), .azione = 2, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/6=6 1/7=6 : 12");
}

TEST_F(Stock, ChangeWithoutADifferenceStillWrites) {
    QStringList scritture;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql.startsWith("UPDATE ")) scritture << sql.section(' ', 1, 1);
        return std::nullopt;
    };
    EXPECT_EQ(muovi({.quantita = 3, .quantitaVecchia = 3, .taglio = euro(6), .azione = 2, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(scritture, (QStringList{"DettagliProdotto", "Prodotti"}));
    EXPECT_EQ(merce(), "1/6=4 1/7=6 : 10");
}

TEST_F(Stock, DeletionGivesTheSavedQuantityBack) {
    EXPECT_EQ(muovi({.quantita = 9, .quantitaVecchia = 2, .taglio = euro(7), .azione = 3, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=8 : 12");
}

TEST_F(Stock, ReturnAddsToTheOrigin) {
    EXPECT_EQ(muovi({.quantita = -2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=6 1/7=6 : 12");
}

TEST_F(Stock, OldLayerIsNotUndoneAtTheOrigin) {
    EXPECT_EQ(muovi({.quantita = 3,
                     .quantitaVecchia = 2,
                     .taglio = euro(7),
                     .azione = 2,
                     .idOrigine = 1,
                     .taglioVecchio = euro(6)}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=5 : 9");
}

TEST_F(Stock, QuantitiesAreOfSinglePrecision) {
    EXPECT_EQ(muovi({.quantita = 0.1F, .taglio = euro(6), .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=3.9 1/7=6 : 9.9");
}

// ---- Loads

TEST_F(Stock, LoadAddsToItsLayer) {
    EXPECT_EQ(muovi({.quantita = 5, .taglio = euro(7), .azione = 1, .idDestinazione = 1}), "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=11 : 15");
}

TEST_F(Stock, LoadAtANewCostMakesItsLayer) {
    EXPECT_EQ(muovi({.quantita = 5, .taglio = euro(7.5), .azione = 1, .idDestinazione = 2}), "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=6 2/7.5=5 : 15");
}

TEST_F(Stock, DeletedLoadIsTakenOff) {
    EXPECT_EQ(
        muovi({.quantita = 5, .quantitaVecchia = 5, .taglio = euro(7), .azione = 3, .idDestinazione = 1}),
        "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=1 : 5");
}

// The total counts the whole quantity once more: that is how the layers' rule reaches it.
TEST_F(Stock, ChangedCostOfALoadUndoesTheOldLayerAndLoadsTheNewWhole) {
    EXPECT_EQ(muovi({.quantita = 5,
                     .quantitaVecchia = 3,
                     .taglio = euro(8),
                     .azione = 2,
                     .idDestinazione = 1,
                     .taglioVecchio = euro(7)}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=3 1/8=5 : 15");
}

// A changed cost counts as a load of the whole row, whatever became of the row.
TEST_F(Stock, DeletedLoadOfAChangedCostStillLoadsTheNew) {
    EXPECT_EQ(muovi({.quantita = 5,
                     .quantitaVecchia = 3,
                     .taglio = euro(8),
                     .azione = 3,
                     .idDestinazione = 1,
                     .taglioVecchio = euro(7)}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=3 1/8=5 : 15");
}

TEST_F(Stock, OldLayerThatIsNotThereIsMadeToBeUndone) {
    EXPECT_EQ(muovi({.quantita = 5,
                     .quantitaVecchia = 3,
                     .taglio = euro(7),
                     .azione = 2,
                     .idDestinazione = 2,
                     .taglioVecchio = euro(4)}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=6 2/4=-3 2/7=5 : 15");
}

TEST_F(Stock, SameCostOfALoadMovesTheDifference) {
    EXPECT_EQ(muovi({.quantita = 5,
                     .quantitaVecchia = 3,
                     .taglio = euro(7),
                     .azione = 2,
                     .idDestinazione = 1,
                     .taglioVecchio = euro(7)}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=8 : 12");
}

TEST_F(Stock, OldCostOfZeroIsNotUndone) {
    EXPECT_EQ(muovi({.quantita = 5,
                     .quantitaVecchia = 3,
                     .taglio = euro(7),
                     .azione = 2,
                     .idDestinazione = 1,
                     .taglioVecchio = {}}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=8 : 12");
}

// ---- Transfers

TEST_F(Stock, TransferMovesBothEndsAndLeavesTheTotal) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1, .idDestinazione = 2}),
              "OK");
    EXPECT_EQ(merce(), "1/6=2 1/7=6 2/6=2 : 10");
    EXPECT_EQ(mosso, euro(6));
}

TEST_F(Stock, DeletedTransferBringsTheGoodsBack) {
    muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1, .idDestinazione = 2});
    EXPECT_EQ(muovi({.quantita = 2,
                     .quantitaVecchia = 2,
                     .taglio = euro(6),
                     .azione = 3,
                     .idOrigine = 1,
                     .idDestinazione = 2}),
              "OK");
    EXPECT_EQ(merce(), "1/6=4 1/7=6 2/6=0 : 10");
}

// ---- Within a save

TEST_F(Stock, TwoRowsOfOneTransactionSeeEachOther) {
    ASSERT_TRUE(gAdo.beginTrasaction("prova"));
    muovi({.quantita = 4, .taglio = ignoto, .azione = 1, .idOrigine = 1});
    muovi({.quantita = 1, .taglio = ignoto, .azione = 1, .idOrigine = 1});
    ASSERT_TRUE(gAdo.commitTrasaction("prova"));
    EXPECT_EQ(merce(), "1/6=0 1/7=5 : 5");
}

TEST_F(Stock, FailingStatementIsTheGatewaysToTell) {
    int prove = 0;
    for (int numero = 1; numero < 20; ++numero) {
        const RegistroAvvisi avvisi;
        int viste = 0;
        sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
            if (!sql.contains("Prodott") || ++viste != numero) return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
        };
        ASSERT_TRUE(gAdo.beginTrasaction("prova"));
        const QString esito = muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1});
        sondaIstruzioni() = {};
        gAdo.rollbackTrasaction("prova");
        if (viste < numero) break;
        ++prove;
        EXPECT_EQ(esito, "#err") << numero;
        EXPECT_EQ(avvisi.moduli.size(), 1) << numero;
    }
    EXPECT_EQ(prove, 5);  // layer, total and quantity read, two writes
}

TEST_F(Stock, ProductTakesPartWhenItSaysSo) {
    EXPECT_TRUE(getAggiornamentoGiacenzeByProdotto(1));
    EXPECT_FALSE(getAggiornamentoGiacenzeByProdotto(2));
    EXPECT_FALSE(getAggiornamentoGiacenzeByProdotto(99));
}

// ---- One row a warehouse, at its moving average

namespace {

// The ten pieces stand in one row at 6,50; the product was last bought at 5,50.
struct AverageStock : Stock {
    AverageStock() {
        gPrezzoMedio = 1;
        gMesiPrezzoMedio = 12;
        n.sql("DELETE FROM DettagliProdotto WHERE TAGLIO = 7");
        n.sql("UPDATE DettagliProdotto SET QUANTITA = 10, TAGLIO = 6.5");
        n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 5.5 WHERE RID = 1");
    }
};

}  // namespace

TEST_F(AverageStock, SaleTakesFromTheOneRowAndValuesItAnew) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/5.5=8 : 8");
    EXPECT_EQ(mosso, euro(5.5));
}

TEST_F(AverageStock, CostOfTheRowChoosesNoLayer) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(3), .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/5.5=8 : 8");
}

TEST_F(AverageStock, WarehouseThatNeverHeldTheProductGetsARow) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 2}), "OK");
    EXPECT_EQ(merce(), "1/6.5=10 2/5.5=-2 : 8");
}

TEST_F(AverageStock, ProductNeverBoughtIsWorthNothing) {
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 0 WHERE RID = 1");
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 1}), "OK");
    EXPECT_EQ(merce(), "1/0=8 : 8");
    EXPECT_EQ(mosso, Currency());
}

TEST_F(AverageStock, ChangeAndDeletionMoveTheDifference) {
    EXPECT_EQ(muovi({.quantita = 5, .quantitaVecchia = 2, .taglio = euro(6), .azione = 2, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/5.5=7 : 7");
    EXPECT_EQ(muovi({.quantita = 5, .quantitaVecchia = 5, .taglio = euro(6), .azione = 3, .idOrigine = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/5.5=12 : 12");
}

// Nothing was loaded in the window: the master data's price comes before the load's own.
TEST_F(AverageStock, FirstLoadIsValuedAtThePurchasePrice) {
    EXPECT_EQ(muovi({.quantita = 5, .taglio = euro(8), .azione = 1, .idDestinazione = 1}), "OK");
    EXPECT_EQ(merce(), "1/5.5=15 : 15");
    EXPECT_EQ(mosso, euro(5.5));
}

TEST_F(AverageStock, LoadLeavesOutTheRowItIsToldOf) {
    EXPECT_EQ(muovi({.quantita = 5, .taglio = euro(8), .azione = 1, .idDestinazione = 1, .rigaEsclusa = 3}),
              "OK");
    EXPECT_EQ(merce(), "1/8=15 : 15");
}

TEST_F(AverageStock, TransferCarriesItsCostToBothEnds) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(6.5), .azione = 1, .idOrigine = 1, .idDestinazione = 2}),
              "OK");
    EXPECT_EQ(merce(), "1/6.5=8 2/6.5=2 : 10");
    EXPECT_EQ(mosso, euro(6.5));
}

TEST_F(AverageStock, TransferOfAnUnknownCostLeavesItUnknownAtBothEnds) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = ignoto, .azione = 1, .idOrigine = 2, .idDestinazione = 1}),
              "OK");
    EXPECT_EQ(merce(), "1/-1=12 2/-1=-2 : 10");
}

TEST_F(AverageStock, ActionThatIsNoneIsSaid) {
    EXPECT_EQ(muovi({.quantita = 2, .taglio = euro(6), .azione = 0, .idOrigine = 1}),
              "Azione (Inserimento/Modifica/Cancellazione) non impostata!\n\nInformazioni:\n"
              " - Prodotto [A - A]");
}
