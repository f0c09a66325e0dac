#include "counter/counter_shop.h"

namespace {

class Navigation : public BancoDiProva {
  protected:
    // On account 0 sales 1/1 and 1/2 of the 16th and 2/1 of the 17th, today.
    Navigation() : c(contoConVendita()) {
        c.tasto(Qt::Key_F5);
        c.tasto(Qt::Key_F2);
        salvaUna();
        n.orologio.istante = QDateTime(QDate(2026, 3, 17), QTime(9, 0));
        c.tasto(Qt::Key_F2);
        salvaUna();
    }
    void salvaUna() {
        c.scansiona("8001");
        c.tasto(Qt::Key_F5);
    }
    void indietro() { c.tasto(Qt::Key_Left, Qt::ShiftModifier); }
    void avanti() { c.tasto(Qt::Key_Right, Qt::ShiftModifier); }
    QString mostrata() { return c.vendita().txtProg.testo() + "/" + c.vendita().txtSottoProg.testo(); }

    ContoDiProva& c;
};

}  // namespace

TEST_F(Navigation, BackWalksNumbersAndSubNumbersDown) {
    EXPECT_EQ(mostrata(), "0002/0001");
    indietro();
    EXPECT_EQ(mostrata(), "0001/0002");
    indietro();
    EXPECT_EQ(mostrata(), "0001/0001");
}

TEST_F(Navigation, BackFromTheFirstStays) {
    indietro();
    indietro();
    indietro();
    EXPECT_EQ(mostrata(), "0001/0001");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Navigation, ForwardWalksUp) {
    indietro();
    indietro();
    avanti();
    EXPECT_EQ(mostrata(), "0001/0002");
    avanti();
    EXPECT_EQ(mostrata(), "0002/0001");
}

TEST_F(Navigation, ForwardFromTheLastOpensANewSale) {
    avanti();
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
    EXPECT_EQ(c.vendita().txtSottoProg.testo(), "(Auto)");
}

TEST_F(Navigation, NewSaleWithoutNumberGoesBackToTheLastOfTheYear) {
    n.orologio.istante = QDateTime(QDate(2026, 3, 18), QTime(9, 0));
    c.tasto(Qt::Key_F2);
    ASSERT_EQ(c.vendita().txtProg.testo(), "(Auto)");
    indietro();
    EXPECT_EQ(mostrata(), "0002/0001");
}

TEST_F(Navigation, SalesOfAnotherDeskArePassedOver) {
    n.sql("UPDATE Movimenti SET ID_CASSA = 9 WHERE PROGRESSIVO = 1");
    indietro();
    EXPECT_EQ(mostrata(), "0002/0001");
}

TEST_F(Navigation, SalesOfAnotherYearArePassedOver) {
    n.sql("UPDATE Movimenti SET DATA = '2025-03-16' WHERE PROGRESSIVO = 1");
    indietro();
    EXPECT_EQ(mostrata(), "0002/0001");
}

TEST_F(Navigation, UnsavedSaleIsAskedAboutFirst) {
    c.scansiona("8001");
    rispondeAlSalvataggio(Risposta::Annulla);
    indietro();
    EXPECT_EQ(mostrata(), "0002/0001");
    EXPECT_TRUE(c.vendita().venditaModificata);
}
