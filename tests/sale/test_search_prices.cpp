#include "gesti.h"
#include "sale/price_tables.h"

namespace {

// Product "P", 10,00 and 8,00, VAT 22, of brand 1 and sale category 1; customer of band 1. Brand row: 1 to 9
// pieces 10+5; general row: 1 to 200 pieces 3. Category 9 holds net prices: 1 to 50 pieces 6,50.
struct SearchPrices : testing::Test {
    Negozio n;
    int id = 0;
    Currency netto = Currency::daIntero(77);
    Currency finale = Currency::daIntero(77);
    float giacenza = 77;

    void SetUp() override {
        n.sql("INSERT INTO FasceClienti (RID, CODICE, DESCRIZIONE) VALUES (1,'F','Fascia F')");
        n.sql("INSERT INTO CategorieSconti (RID, CODICE, DESCRIZIONE) VALUES (1,'C','C'),(9,'N','Netti')");
        n.sql(
            "INSERT INTO CatScVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_MARCA) VALUES "
            "(1,1,1,1),(2,1,1,NULL)");
        n.sql(
            "INSERT INTO CatScVenditeSconti (FK_CATSCVENDITE, RANGEMIN, RANGEMAX, SCONTO1, SCONTO2, SCONTO3) "
            "VALUES (1,1,9,10,5,0),(2,1,200,3,0,0)");
        id = n.prodotto({.codice = "P", .listino1 = 10, .giacenza = 12.5, .listino2 = 8});
        n.sql(QString("INSERT INTO CatScProdVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_PRODOTTO) VALUES "
                      "(1,9,1,%1)")
                  .arg(id));
        n.sql(
            "INSERT INTO CatScVenditaProd (FK_CATSCVENDITEPROD, RANGEMIN, RANGEMAX, PREZZO) VALUES "
            "(1,1,50,6.5)");
        gCatPrezziNetti = 9;
        categoria(1);
    }
    void categoria(int rid) { n.sql(QString("UPDATE Prodotti SET FK_CATSCOVEN = %1").arg(rid)); }
    QString per(int cliente, int magazzino = -1) {
        getDatiProdotto(cliente, id, magazzino, netto, finale, giacenza);
        return netto.testo();
    }
    void personale(int cliente, const char* prezzo) {
        n.sql(QString("INSERT INTO Listini (FK_ANAGRAFE, FK_PRODOTTO, PREZZO) VALUES (%1,%2,%3)")
                  .arg(cliente)
                  .arg(id)
                  .arg(prezzo));
    }
};

TEST_F(SearchPrices, PlainCustomerPaysTheList) {
    EXPECT_EQ(per(1), "10");
    EXPECT_EQ(finale.testo(), "12,2");
    EXPECT_EQ(giacenza, 12.5F);
}

TEST_F(SearchPrices, CustomersListDecides) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 2)), "8");
    EXPECT_EQ(finale.testo(), "9,76");
}

TEST_F(SearchPrices, EmptyListFallsBackToTheFirst) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 3)), "10");
}

TEST_F(SearchPrices, ListThatNoProductHasFallsBackToTheFirst) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 5)), "10");
}

TEST_F(SearchPrices, CustomersDiscountComesOff) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 1, 12.5)), "8,75");
}

TEST_F(SearchPrices, ProductsDiscountReplacesTheCustomers) {
    n.sql("UPDATE Prodotti SET SCONTO = 50");
    EXPECT_EQ(per(n.cliente(2, "DUE", 1, 12.5)), "5");
}

TEST_F(SearchPrices, PersonalPriceTakesNoDiscount) {
    const int cliente = n.cliente(2, "DUE", 1, 12.5, 1);
    personale(cliente, "7");
    EXPECT_EQ(per(cliente), "7");
    EXPECT_EQ(finale.testo(), "8,54");
}

TEST_F(SearchPrices, PersonalPriceOfZeroIsNone) {
    const int cliente = n.cliente(2, "DUE", 2);
    personale(cliente, "0");
    EXPECT_EQ(per(cliente), "8");
}

TEST_F(SearchPrices, TablesServeACustomerWithoutADiscount) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 1, 0, 1)), "8,55");
    EXPECT_EQ(finale.testo(), "10,431");
}

TEST_F(SearchPrices, FixedDiscountKeepsTheTablesOut) {
    EXPECT_EQ(per(n.cliente(2, "DUE", 1, 1, 1)), "9,9");
}

TEST_F(SearchPrices, NetPriceOfTheTablesIsTheNetPrice) {
    categoria(9);
    EXPECT_EQ(per(n.cliente(2, "DUE", 1, 0, 1)), "6,5");
}

TEST_F(SearchPrices, WarehouseGivesTheStock) {
    n.sql("INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (2,'DEP','Deposito')");
    n.sql(QString("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, QUANTITA, TAGLIO) VALUES "
                  "(%1,2,4,1),(%1,2,3,2),(%1,1,5,1)")
              .arg(id));
    per(1, 2);
    EXPECT_EQ(giacenza, 7.0F);
}

TEST_F(SearchPrices, WarehouseWithoutTheProductHasNoStock) {
    per(1, 1);
    EXPECT_EQ(giacenza, 0.0F);
}

TEST_F(SearchPrices, UnknownProductHasNothing) {
    getDatiProdotto(1, 999, -1, netto, finale, giacenza);
    EXPECT_EQ(netto.testo(), "0");
    EXPECT_EQ(finale.testo(), "0");
    EXPECT_EQ(giacenza, 0.0F);
}

TEST_F(SearchPrices, CostAtMostSixStatements) {
    const int cliente = n.cliente(2, "DUE", 3, 0, 1);
    n.sql("UPDATE CatScVenditeSconti SET RANGEMIN = 5 WHERE FK_CATSCVENDITE = 1");
    per(cliente, 1);  // the connection is open from now on
    ContaIstruzioni conta;
    EXPECT_EQ(per(cliente, 1), "9,7");
    EXPECT_EQ(conta.istruzioni.size(), 6);
}

// ---- The discount tables for a caller without an editor

struct TableLookUp : SearchPrices {
    float s1 = 70, s2 = 71, s3 = 72;
    Currency prezzo = Currency::daIntero(73);
    void cerca(int categoria, int marca, int fascia, float quantita) {
        getScontiVendita(categoria, marca, fascia, quantita, id, s1, s2, s3, prezzo);
    }
};

TEST_F(TableLookUp, GivesTheBrandsDiscounts) {
    cerca(1, 1, 1, 9);
    EXPECT_EQ(s1, 10.0F);
    EXPECT_EQ(s2, 5.0F);
    EXPECT_EQ(s3, 0.0F);
    EXPECT_EQ(prezzo, Currency::daIntero(73));
}

TEST_F(TableLookUp, FallsBackToTheGeneralRow) {
    cerca(1, 1, 1, 10);
    EXPECT_EQ(s1, 3.0F);
}

TEST_F(TableLookUp, NoRangeIsNoDiscount) {
    cerca(1, 1, 1, 201);
    EXPECT_EQ(s1, 0.0F);
    EXPECT_EQ(s2, 0.0F);
    EXPECT_EQ(s3, 0.0F);
}

TEST_F(TableLookUp, NetPriceTakesTheDiscountsAway) {
    cerca(9, 1, 1, 50);
    EXPECT_EQ(prezzo.testo(), "6,5");
    EXPECT_EQ(s1, 0.0F);
}

TEST_F(TableLookUp, NetPriceThatIsNotThereLeavesEverything) {
    cerca(9, 1, 1, 51);
    EXPECT_EQ(prezzo, Currency::daIntero(73));
    EXPECT_EQ(s1, 70.0F);
}

}  // namespace
