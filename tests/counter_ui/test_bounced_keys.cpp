#include "core/globals.h"
#include "counter_screen.h"

namespace {

class BouncedKeys : public CounterScreen {
  protected:
    BouncedKeys() { apri(); }
    void vendeUnaVite() const {
        digita("VITE");
        tasto(Qt::Key_Return);
    }
};

}  // namespace

TEST_F(BouncedKeys, CommandRightAfterASaveIsNotHeard) {
    vendeUnaVite();
    tasto(Qt::Key_F5);
    ASSERT_EQ(negozio.conta("Movimenti"), 1);
    tasto(Qt::Key_F2);
    EXPECT_EQ(vendita().flxVB.ultima(), 1);
    aspettaCheSenta();
    tasto(Qt::Key_F2);
    EXPECT_EQ(vendita().flxVB.ultima(), 0);
}

TEST_F(BouncedKeys, BounceOnAClosedAccountDoesNotSaveTheNextOne) {
    vendeUnaVite();
    negozio.cliente(7, "ROSSI");
    QTest::mouseClick(&widget("cmdConto_1"), Qt::LeftButton);
    digita("7");
    tasto(Qt::Key_Return);
    vendeUnaVite();
    tasto(Qt::Key_F5);
    ASSERT_EQ(gConti[1], nullptr);
    tasto(Qt::Key_F5);
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
    EXPECT_TRUE(vendita(0).venditaModificata);
}

TEST_F(BouncedKeys, ScanRightAfterASaveIsKept) {
    vendeUnaVite();
    tasto(Qt::Key_F5);
    digita(gLaserChar + "8001234567890");
    tasto(Qt::Key_Return);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
}
