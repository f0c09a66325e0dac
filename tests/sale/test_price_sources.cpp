#include "gesti.h"
#include "sale/price_tables.h"

namespace {

struct PriceSources : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10, .listino2 = 8});
    bool daListino = false;

    void personale(int cliente, const char* prezzo) {
        n.sql(QString("INSERT INTO Listini (FK_ANAGRAFE, FK_PRODOTTO, PREZZO) VALUES (%1,%2,%3)")
                  .arg(cliente)
                  .arg(id)
                  .arg(prezzo));
    }
    QString prezzo(int cliente, bool conSconto = false) {
        daListino = false;
        return getPrezzoVendita(cliente, id, daListino, conSconto).testo();
    }
};

TEST_F(PriceSources, CustomersListDecides) {
    EXPECT_EQ(prezzo(n.cliente(2, "DUE", 2)), "8");
    EXPECT_FALSE(daListino);
}

TEST_F(PriceSources, EmptyListFallsBackToTheFirst) {
    EXPECT_EQ(prezzo(n.cliente(2, "DUE", 3)), "10");
}

TEST_F(PriceSources, NegativePriceOfAListFallsBackToTheFirst) {
    n.sql("UPDATE Prodotti SET LISTINO3 = -1");
    EXPECT_EQ(prezzo(n.cliente(2, "DUE", 3)), "10");
}

TEST_F(PriceSources, ListBelowOneIsTheFirst) {
    EXPECT_EQ(prezzo(n.cliente(2, "DUE", 0)), "10");
}

TEST_F(PriceSources, SaleWithoutACustomerTakesTheFirstList) {
    EXPECT_EQ(prezzo(-1), "10");
}

TEST_F(PriceSources, MissingListNumberIsTheFirst) {
    const int cliente = n.cliente(2, "DUE", 2);
    n.sql("UPDATE Anagrafiche SET LISTINO = NULL WHERE NUMERO = 2");
    EXPECT_EQ(prezzo(cliente), "10");
}

TEST_F(PriceSources, PersonalPriceBeatsTheLists) {
    const int cliente = n.cliente(2, "DUE", 2);
    personale(cliente, "7.5");
    EXPECT_EQ(prezzo(cliente), "7,5");
    EXPECT_TRUE(daListino);
}

TEST_F(PriceSources, PersonalPriceOfAnotherCustomerDoesNotCount) {
    const int due = n.cliente(2, "DUE", 2);
    personale(n.cliente(3, "TRE"), "7.5");
    EXPECT_EQ(prezzo(due), "8");
}

TEST_F(PriceSources, PersonalPriceOfZeroIsNone) {
    const int cliente = n.cliente(2, "DUE", 2);
    personale(cliente, "0");
    EXPECT_EQ(prezzo(cliente), "8");
    EXPECT_TRUE(daListino);
}

TEST_F(PriceSources, CustomersDiscountComesOffWhenAskedFor) {
    const int cliente = n.cliente(2, "DUE", 2, 12.5);
    EXPECT_EQ(prezzo(cliente, true), "7");
    EXPECT_EQ(prezzo(cliente, false), "8");
}

TEST_F(PriceSources, PersonalPriceNeverTakesTheDiscount) {
    const int cliente = n.cliente(2, "DUE", 2, 12.5);
    personale(cliente, "6");
    EXPECT_EQ(prezzo(cliente, true), "6");
}

TEST_F(PriceSources, NoPriceAnywhereIsZero) {
    n.sql("UPDATE Prodotti SET LISTINO1 = NULL, LISTINO2 = NULL");
    EXPECT_EQ(prezzo(n.cliente(2, "DUE", 2)), "0");
}

TEST_F(PriceSources, FourDecimalsAreKept) {
    n.sql("UPDATE Prodotti SET LISTINO1 = 0.1235");
    EXPECT_EQ(prezzo(1), "0,1235");
}

// ---- Fixed discounts of the entry

struct FixedDiscounts : testing::Test {
    Negozio n;
    // A named customer on the second account, and the product "P".
    Vendita& entra(double scontoProdotto, double scontoCliente) {
        n.cliente(2, "DUE", 1, scontoCliente);
        n.prodotto({.codice = "P", .listino1 = 10, .sconto = scontoProdotto});
        n.apriConto();
        ContoDiProva& c = n.apriConto(1);
        scrivi(c, c.vendita().txtCodCliente, "2");
        c.invio();
        c.digita("P");
        c.invio();
        return c.vendita();
    }
};

TEST_F(FixedDiscounts, ProductsDiscountWinsOverTheCustomers) {
    Vendita& v = entra(15, 30);
    EXPECT_EQ(v.txtSconto1.testo(), "15,00");
    EXPECT_EQ(v.txtSconto1.tag(), "15,00");
    EXPECT_TRUE(v.mScontoFisso);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "10,37");
}

TEST_F(FixedDiscounts, CustomersDiscountServesWhenTheProductHasNone) {
    Vendita& v = entra(0, 30);
    EXPECT_EQ(v.txtSconto1.testo(), "30,00");
    EXPECT_EQ(v.txtSconto2.testo(), "0,00");
    EXPECT_TRUE(v.mScontoFisso);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "8,54");
}

TEST_F(FixedDiscounts, NoDiscountLeavesTheRowFree) {
    Vendita& v = entra(0, 0);
    EXPECT_FALSE(v.mScontoFisso);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

}  // namespace
