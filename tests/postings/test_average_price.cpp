#include "core/globals.h"
#include "postings/average_price.h"
#include "postings/expected_books.h"

// What goods cost on the average of a window of twelve months. Today is 16/03/2026.

namespace {

struct AveragePrice : testing::Test {
    AveragePrice() {
        gPrezzoMedio = 1;
        gMesiPrezzoMedio = 12;
        for (const auto& [tipo, origine, destinazione] :
             {std::tuple{21, 2, 3}, std::tuple{22, 3, 3}, std::tuple{23, 1, 3}, std::tuple{24, 3, 1}}) {
            n.sql(QString("INSERT INTO Causali (RID, CODICE, ORIGINE, DESTINAZIONE) VALUES (%1,'X',%2,%3)")
                      .arg(tipo)
                      .arg(origine)
                      .arg(destinazione));
            n.sql(
                QString("INSERT INTO TipoDocumenti (RID, CODICE, FK_CAUSALE) VALUES (%1,'X',%1)").arg(tipo));
        }
        n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 5.5 WHERE RID = 1");
    }
    struct Carico {
        double quantita;
        double prezzo;
        QString data = "2026-03-01";
        int tipo = 21;  // 21 from a supplier, 22 from a warehouse, 23 from a customer, 24 to a customer
        int magazzino = 1;
        int prodotto = 1;
    };
    void carica(const Carico& c) {
        n.sql(QString(
                  "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_DESTINAZIONE) VALUES "
                  "(1,2026,'%1 00:00:00',%2,%3)")
                  .arg(c.data)
                  .arg(c.tipo)
                  .arg(c.magazzino));
        n.sql(QString("INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO, QUANTITA, "
                      "PREZZONETTO) SELECT MAX(RID),1,1,%1,%2,%3 FROM Movimenti")
                  .arg(c.prodotto)
                  .arg(c.quantita)
                  .arg(c.prezzo));
    }
    // As the origin of a sale asks, unless told more.
    QString media(double quantita = -1, double prezzo = -1, int rigaEsclusa = -1, int prodotto = 1) {
        return getPrezzoMedioProdotto(prodotto, 1, static_cast<float>(quantita), Currency::daDouble(prezzo),
                                      rigaEsclusa, n.operatore)
            .testo();
    }
    Bottega n;
};

}  // namespace

// ---- What counts

TEST_F(AveragePrice, IsWeightedByQuantity) {
    carica({10, 4});
    carica({30, 6});
    EXPECT_EQ(media(), "5,5");
}

TEST_F(AveragePrice, SignsAreTakenOff) {
    carica({-10, 4});
    carica({30, -6});
    EXPECT_EQ(media(), "5,5");
}

TEST_F(AveragePrice, IsHeldToFourDecimals) {
    carica({1, 1});
    carica({2, 2});
    EXPECT_EQ(media(), "1,6667");
}

TEST_F(AveragePrice, FirstDayOfTheWindowCounts) {
    carica({10, 4, "2025-03-16"});
    carica({10, 6});
    EXPECT_EQ(media(), "5");
}

TEST_F(AveragePrice, DayBeforeTheWindowDoesNot) {
    carica({10, 4, "2025-03-15"});
    carica({10, 6});
    EXPECT_EQ(media(), "6");
}

TEST_F(AveragePrice, WindowHasTheMonthsThatTheOptionTells) {
    gMesiPrezzoMedio = 2;
    carica({10, 4, "2026-01-15"});
    carica({10, 8, "2026-01-16"});
    EXPECT_EQ(media(), "8");
}

TEST_F(AveragePrice, LoadsFromAnotherWarehouseCount) {
    carica({10, 4});
    carica({10, 6, "2026-03-01", 22});
    EXPECT_EQ(media(), "5");
}

TEST_F(AveragePrice, GoodsFromOrToCustomersDoNot) {
    carica({10, 4});
    carica({10, 60, "2026-03-01", 23});
    carica({10, 60, "2026-03-01", 24});
    EXPECT_EQ(media(), "4");
}

TEST_F(AveragePrice, OtherWarehousesAndProductsDoNot) {
    carica({10, 4});
    carica({10, 60, "2026-03-01", 21, 2});
    carica({10, 60, "2026-03-01", 21, 1, 2});
    EXPECT_EQ(media(), "4");
}

// ---- The row that is being saved

TEST_F(AveragePrice, RowInHandIsAdded) {
    carica({10, 4});
    EXPECT_EQ(media(10, 8), "6");
}

TEST_F(AveragePrice, RowOfNothingForNothingIsAddedToo) {
    carica({10, 4});
    EXPECT_EQ(media(10, 0), "2");
    EXPECT_EQ(media(0, 8), "4");
}

TEST_F(AveragePrice, MinusOneOfEitherAddsNothing) {
    carica({10, 4});
    EXPECT_EQ(media(-1, 8), "4");
    EXPECT_EQ(media(10, -1), "4");
    EXPECT_EQ(media(-5, 8), "4");
}

TEST_F(AveragePrice, ExcludedRowIsLeftOut) {
    carica({10, 4});
    carica({10, 6});
    EXPECT_EQ(media(-1, -1, 2), "4");
    EXPECT_EQ(media(-1, -1, 1), "6");
}

// ---- Without an average

TEST_F(AveragePrice, OutsideTheWindowTheLastLoadTells) {
    carica({10, 4, "2024-06-01"});
    carica({10, 3, "2024-05-01"});
    EXPECT_EQ(media(), "3");
}

TEST_F(AveragePrice, RowInHandIsNotAddedToNothing) {
    carica({10, 4, "2024-06-01"});
    EXPECT_EQ(media(10, 8), "4");
}

TEST_F(AveragePrice, WithAnExcludedRowThePriceInHandTells) {
    carica({10, 4});
    EXPECT_EQ(media(10, 8, 1), "8");
    EXPECT_EQ(media(10, 8, 1, 2), "8");
}

TEST_F(AveragePrice, ExcludedRowOfZeroLooksForNoLastLoad) {
    carica({10, 4, "2024-06-01"});
    EXPECT_EQ(media(10, 8, 0), "8");
}

TEST_F(AveragePrice, WithoutAPriceInHandThePurchasePriceTells) {
    carica({10, 4});
    EXPECT_EQ(media(10, 0, 1), "5,5");
    EXPECT_EQ(media(10, -1, 1), "5,5");
}

TEST_F(AveragePrice, WithoutAnyLoadThePurchasePriceTells) {
    EXPECT_EQ(media(), "5,5");
    EXPECT_EQ(media(10, 8), "5,5");
}

TEST_F(AveragePrice, LoadsWithoutAPriceFallBackToTheLastOneThatIsNotCheckedEither) {
    carica({10, 0});
    EXPECT_EQ(media(), "5,5");
}

TEST_F(AveragePrice, LoadsOfNoPiecesFallBackToTheLastPrice) {
    carica({0, 4});
    EXPECT_EQ(media(), "4");
}

TEST_F(AveragePrice, UnknownProductHasNone) {
    EXPECT_EQ(media(-1, -1, -1, 99), "-1");
}

// ---- The screen

TEST_F(AveragePrice, ScreenIsLetPaintOnceACall) {
    carica({10, 4});
    media();
    EXPECT_EQ(n.operatore.pause, std::vector<int>{15});
    media(-1, -1, -1, 2);
    EXPECT_EQ(n.operatore.pause, (std::vector<int>{15, 15}));
}
