#include <QAbstractButton>

#include "core/globals.h"
#include "counter_screen.h"

// The deletion of a saved sale on the real screen.

namespace {

class DeleteSale : public CounterScreen {
  protected:
    DeleteSale() {
        negozio.prodotto({.codice = "PRIMO", .listino1 = 10, .barcode = "8009000000012"});
        apri();
        digita("$8009000000012");
        tasto(Qt::Key_Return);
        tasto(Qt::Key_F5);
        EXPECT_EQ(negozio.conta("Movimenti"), 1);
        aspettaCheSenta();
    }
    void rispondeSi() {
        negozio.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?",
                                         OperatorPort::Risposta::Si);
    }
    QAbstractButton& bottone() { return widget<QAbstractButton>("cmdComando_4"); }
};

TEST_F(DeleteSale, ShiftF7TakesItOutOfTheBooks) {
    rispondeSi();
    tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(negozio.conta("Movimenti"), 0);
    EXPECT_EQ(vendita().flxVB.ultima(), 0);
    EXPECT_TRUE(haFuoco(vendita().txtCodProdotto));
}

TEST_F(DeleteSale, AClickTakesItOutOfTheBooks) {
    rispondeSi();
    QTest::mouseClick(&bottone(), Qt::LeftButton);
    EXPECT_EQ(negozio.conta("Movimenti"), 0);
}

TEST_F(DeleteSale, F7AloneDoesNothing) {
    tasto(Qt::Key_F7);
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
}

TEST_F(DeleteSale, TheButtonOfAClosedSaleIsOff) {
    EXPECT_TRUE(bottone().isEnabled());
    gLockVBEdit = 1;
    tasto(Qt::Key_F2);
    digita("$8009000000012");
    tasto(Qt::Key_Return);
    tasto(Qt::Key_F5);
    EXPECT_FALSE(bottone().isEnabled());
}

}  // namespace
