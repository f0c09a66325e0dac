#include <gtest/gtest.h>

#include "doubles/negozio.h"

// The worked example of the shop: list 10,00, VAT 22, discounts 10, 5 and 0, quantity 7.
TEST(LinePricing, FinalPriceAndRowTotalMayDifferByACent) {
    Negozio n;
    n.prodotto({.codice = "A", .listino1 = 10});
    ContoDiProva& c = n.apriConto();
    c.digita("A");
    c.invio();
    Vendita& v = c.vendita();
    ASSERT_EQ(v.flxVB.righe(), 2);
    c.clic(v.txtQta);
    c.digita("7");
    c.clic(v.txtSconto1);
    c.digita("10");
    c.clic(v.txtSconto2);
    c.digita("5");
    c.clic(v.txtSconto3);
    EXPECT_EQ(v.lblScNetto.testo(), "1,450000");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "8,55");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "10,43");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "73,02");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Importo), "73,02");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::ScontoTesto), "10,00+5,00+0,00");
}
