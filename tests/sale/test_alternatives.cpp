#include "gesti.h"
#include "sale/alternatives.h"

namespace {

// Products A, B, C; A and B stand in for each other, and C for A.
class Alternatives : public testing::Test {
  protected:
    Alternatives() {
        for (const char* codice : {"A", "B", "C"}) {
            n.prodotto({.codice = codice, .listino1 = 10, .giacenza = 3});
        }
        n.sql("INSERT INTO ProdottiAlternativi (FK_PRODOTTO1, FK_PRODOTTO2) VALUES (1, 2), (3, 1)");
    }

    QStringList codici(ContoDiProva& c) {
        QStringList elenco;
        for (const auto& voce : c.vendita().lswAlternativi.voci()) {
            elenco << voce.codice + " " + voce.giacenza;
        }
        return elenco;
    }
    ContoDiProva& contoConA() {
        ContoDiProva& c = n.apriConto();
        c.digita("A");
        c.invio();
        return c;
    }

    Negozio n;
};

}  // namespace

TEST_F(Alternatives, APairCountsInBothDirections) {
    EXPECT_EQ(codici(contoConA()), QStringList({"B 3,00", "C 3,00"}));
}

TEST_F(Alternatives, APairStoredTwiceShowsOnce) {
    n.sql("INSERT INTO ProdottiAlternativi (FK_PRODOTTO1, FK_PRODOTTO2) VALUES (2, 1)");
    EXPECT_EQ(codici(contoConA()), QStringList({"B 3,00", "C 3,00"}));
}

TEST_F(Alternatives, TheChosenOneIsEntered) {
    ContoDiProva& c = contoConA();
    lswAlternativi_DblClick(c.vendita(), 1);
    EXPECT_EQ(c.vendita().flxVB.cella(2, Colonna::Codice), "C");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "24,40");
}

TEST_F(Alternatives, AClearedEditorHasNone) {
    ContoDiProva& c = contoConA();
    c.tasto(Qt::Key_F6);
    EXPECT_TRUE(codici(c).isEmpty());
}

TEST_F(Alternatives, ASelectedRowShowsThemWhenItsTimerFires) {
    ContoDiProva& c = contoConA();
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    ASSERT_TRUE(codici(c).isEmpty());
    c.scade(SchermoVendita::Timer::Griglia);
    EXPECT_EQ(codici(c), QStringList({"B 3,00", "C 3,00"}));
}

TEST_F(Alternatives, TheStockOfOneWarehouseIsShownWhenTheDeskAsksForIt) {
    n.sql("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (2, 1, 5, 7)");
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    EXPECT_EQ(codici(contoConA()), QStringList({"B 7,00", "C 0,00"}));
}

TEST_F(Alternatives, TheStockOfAllCostLayersIsOne) {
    n.sql(
        "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES (2, 1, 5, 0), "
        "(2, 1, 6, 7), (2, 1, 7, 1.5)");
    gGiacenzaMagazzino = 1;
    gIDMagazzino = 1;
    EXPECT_EQ(codici(contoConA()), QStringList({"B 8,50", "C 0,00"}));
}
