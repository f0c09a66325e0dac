#include "gesti.h"
#include "sale/price_tables.h"

namespace {

// Customer 2 is of band 1; product "P" is of sale category 1, brand 1. Brand row: 1 to 9 pieces 10+5, 10 to
// 99 pieces 20. General row: 1 to 200 pieces 3.
struct DiscountTables : testing::Test {
    Negozio n;
    int prodotto = 0;
    int cliente = 0;

    void SetUp() override {
        n.sql(
            "INSERT INTO FasceClienti (RID, CODICE, DESCRIZIONE) VALUES (1,'F','Fascia F'),(2,'G','Fascia "
            "G')");
        n.sql(
            "INSERT INTO CategorieSconti (RID, CODICE, DESCRIZIONE) VALUES (1,'C','Cat C'),(9,'N','Netti')");
        n.sql(
            "INSERT INTO CatScVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_MARCA) VALUES "
            "(1,1,1,1),(2,1,1,NULL)");
        n.sql(
            "INSERT INTO CatScVenditeSconti (FK_CATSCVENDITE, RANGEMIN, RANGEMAX, SCONTO1, SCONTO2, SCONTO3) "
            "VALUES "
            "(1,1,9,10,5,0),(1,10,99,20,0,0),(2,1,200,3,0,0)");
        cliente = n.cliente(2, "DUE", 1, 0, 1);
        prodotto = n.prodotto({.codice = "P", .listino1 = 10});
        n.sql("UPDATE Prodotti SET FK_CATSCOVEN = 1");
    }
    ContoDiProva& conto() { return n.apriConto(1); }
    Vendita& entra() {
        n.apriConto();
        ContoDiProva& c = conto();
        scrivi(c, c.vendita().txtCodCliente, "2");
        c.invio();
        c.digita("P");
        c.invio();
        return c.vendita();
    }
    Vendita& entra(const QString& quantita) {
        Vendita& v = entra();
        scriviELascia(conto(), v.txtQta, quantita);
        return v;
    }
    static QString sconti(const Vendita& v) { return cella(v, 1, Colonna::ScontoTesto); }
};

TEST_F(DiscountTables, BrandRowAppliesAtEntry) {
    Vendita& v = entra();
    EXPECT_EQ(sconti(v), "10,00+5,00+0,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "8,55");
    EXPECT_EQ(v.txtSconto1.tag(), "10,00");
    EXPECT_FALSE(v.mScontoFisso);
    EXPECT_EQ(v.lblCatSconto.testo(), "Cat C");
}

TEST_F(DiscountTables, FirstOfTwoRangesThatOverlapCounts) {
    n.sql(
        "INSERT INTO CatScVenditeSconti (FK_CATSCVENDITE, RANGEMIN, RANGEMAX, SCONTO1, SCONTO2, SCONTO3) "
        "VALUES (1,5,20,33,0,0)");
    EXPECT_EQ(sconti(entra("5")), "10,00+5,00+0,00");
}

TEST_F(DiscountTables, UpperEndOfARangeIsInside) {
    EXPECT_EQ(sconti(entra("9")), "10,00+5,00+0,00");
}

TEST_F(DiscountTables, LowerEndOfARangeIsInside) {
    EXPECT_EQ(sconti(entra("10")), "20,00+0,00+0,00");
}

TEST_F(DiscountTables, QuantityRepricesTheWholeRow) {
    Vendita& v = entra("10");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "8,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "97,60");
    EXPECT_EQ(v.lblMainDisplay.testo(), "97,60");
}

TEST_F(DiscountTables, GapOfTheBrandRowFallsBackToTheGeneralOne) {
    EXPECT_EQ(sconti(entra("9,5")), "3,00+0,00+0,00");
}

TEST_F(DiscountTables, BeyondTheBrandRowTheGeneralOneHolds) {
    EXPECT_EQ(sconti(entra("150")), "3,00+0,00+0,00");
}

TEST_F(DiscountTables, NoRangeAtAllGivesNoDiscount) {
    EXPECT_EQ(sconti(entra("201")), "0,00+0,00+0,00");
}

TEST_F(DiscountTables, ProductWithoutABrandTakesTheGeneralRow) {
    n.sql("UPDATE Prodotti SET FK_MARCA = NULL");
    EXPECT_EQ(sconti(entra()), "3,00+0,00+0,00");
}

TEST_F(DiscountTables, OtherBandGetsNothing) {
    n.sql("UPDATE Anagrafiche SET FK_FASCIACLIENTE = 2");
    EXPECT_EQ(sconti(entra()), "0,00+0,00+0,00");
}

TEST_F(DiscountTables, CustomerWithoutABandGetsNothing) {
    n.sql("UPDATE Anagrafiche SET FK_FASCIACLIENTE = NULL");
    EXPECT_EQ(sconti(entra("10")), "0,00+0,00+0,00");
}

TEST_F(DiscountTables, ProductWithoutACategoryGetsNothing) {
    n.sql("UPDATE Prodotti SET FK_CATSCOVEN = NULL");
    EXPECT_EQ(sconti(entra("10")), "0,00+0,00+0,00");
}

TEST_F(DiscountTables, FixedDiscountKeepsTheTablesOutAtEveryQuantity) {
    n.sql("UPDATE Prodotti SET SCONTO = 7");
    EXPECT_EQ(sconti(entra("10")), "7,00+0,00+0,00");
}

TEST_F(DiscountTables, ImmediateDiscountOverridesTheTables) {
    n.apriConto();
    conto().vendita().cmdComando[16].tag("15");
    EXPECT_EQ(sconti(entra()), "15,00+0,00+0,00");
}

TEST_F(DiscountTables, ImmediateDiscountStaysOutWithoutABand) {
    n.sql("UPDATE Anagrafiche SET FK_FASCIACLIENTE = NULL");
    n.apriConto();
    conto().vendita().cmdComando[16].tag("15");
    EXPECT_EQ(sconti(entra()), "0,00+0,00+0,00");
}

TEST_F(DiscountTables, BandOfACustomer) {
    EXPECT_EQ(getFasciaCliente(cliente), 1);
    EXPECT_EQ(getFasciaCliente(1), 0);
    EXPECT_EQ(getFasciaCliente(-1), 0);
}

TEST_F(DiscountTables, LookUpWithoutABandChangesNothing) {
    n.apriConto();
    Vendita& v = n.vendita();
    v.txtSconto1.testo("4,00");
    EXPECT_FALSE(setScontiVendita(v, 1, 1, 1, 1.0F, prodotto));
    EXPECT_EQ(v.txtSconto1.testo(), "4,00");
}

TEST_F(DiscountTables, LookUpThatFindsNoRangeZeroesTheDiscounts) {
    n.apriConto();
    Vendita& v = n.vendita();
    v.txtSconto1.testo("4,00");
    EXPECT_TRUE(setScontiVendita(v, 1, 1, cliente, 500.0F, prodotto));
    EXPECT_EQ(v.txtSconto1.testo(), "0,00");
    EXPECT_EQ(v.txtSconto1.tag(), "0,00");
}

// ---- The category of net prices: 5 pieces or more of "P" cost 6,50

struct NetPriceTables : DiscountTables {
    void SetUp() override {
        DiscountTables::SetUp();
        gCatPrezziNetti = 9;
        n.sql("UPDATE Prodotti SET FK_CATSCOVEN = 9");
        n.sql(
            QString(
                "INSERT INTO CatScProdVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_PRODOTTO) VALUES (1,9,1,%1)")
                .arg(prodotto));
        n.sql(
            "INSERT INTO CatScVenditaProd (FK_CATSCVENDITEPROD, RANGEMIN, RANGEMAX, PREZZO) VALUES "
            "(1,5,50,6.5)");
    }
};

TEST_F(NetPriceTables, FoundPriceReplacesTheListPrice) {
    Vendita& v = entra("5");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "6,50");
    EXPECT_EQ(sconti(v), "0,00+0,00+0,00");
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "39,65");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "7,93");
    EXPECT_EQ(v.lblPrezzoListino.testo(), "6,50");
}

TEST_F(NetPriceTables, QuantityOutsideKeepsListPriceAndDiscounts) {
    Vendita& v = entra();
    scrivi(conto(), v.txtSconto1, "4");
    scriviELascia(conto(), v.txtQta, "3");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "10,00");
    EXPECT_EQ(sconti(v), "4,00+0,00+0,00");
}

TEST_F(NetPriceTables, FoundPriceDropsTheDiscounts) {
    Vendita& v = entra();
    scrivi(conto(), v.txtSconto1, "4");
    scriviELascia(conto(), v.txtQta, "5");
    EXPECT_EQ(sconti(v), "0,00+0,00+0,00");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoNetto), "6,50");
}

// ---- Purchase: category 1, supplier 3 or 4; brand row of supplier 3 is 10+10, the general one of supplier 4
// is 5

struct PurchaseTables : DiscountTables {
    int fornitore = 0;
    int altro = 0;
    void SetUp() override {
        DiscountTables::SetUp();
        fornitore = n.cliente(30, "FORN");
        altro = n.cliente(40, "ALTRO");
        n.sql("UPDATE Prodotti SET FK_CATSCOACQ = 1, PREZZOACQUISTO = 100");
        n.sql(QString("INSERT INTO CatScAcquisto (RID, FK_CATEGORIA, FK_FORNITORE, FK_MARCA) VALUES "
                      "(1,1,%1,1),(2,1,%2,"
                      "NULL)")
                  .arg(fornitore)
                  .arg(altro));
        n.sql(
            "INSERT INTO CatScAcquistoSconti (FK_CATSCACQUISTO, RANGEMIN, RANGEMAX, SCONTO1, SCONTO2, "
            "SCONTO3) VALUES "
            "(1,1,10,10,10,0),(2,1,100,5,0,0)");
    }
    QString costo(float quantita, int idFornitore) const {
        return getPrezzoNettoAcquisto(prodotto, quantita, idFornitore).testo();
    }
};

TEST_F(PurchaseTables, BrandRowOfTheSupplier) {
    EXPECT_EQ(costo(1, fornitore), "81");
}

TEST_F(PurchaseTables, AnySupplierTakesTheBrandRow) {
    EXPECT_EQ(costo(10, -1), "81");
}

TEST_F(PurchaseTables, BeyondTheBrandRowTheGeneralOneHolds) {
    EXPECT_EQ(costo(11, -1), "95");
}

TEST_F(PurchaseTables, GeneralRowOfTheSupplier) {
    EXPECT_EQ(costo(1, altro), "95");
}

TEST_F(PurchaseTables, NothingFoundIsThePlainPrice) {
    EXPECT_EQ(costo(101, -1), "100");
}

TEST_F(PurchaseTables, ProductWithoutAPurchaseCategoryHasNoCost) {
    n.sql("UPDATE Prodotti SET FK_CATSCOACQ = NULL");
    EXPECT_EQ(costo(1, -1), "0");
}

}  // namespace
