#include <QApplication>
#include <QPushButton>

#include "counter_screen.h"
#include "data/gateway.h"

namespace {

class Accounts : public CounterScreen {
  protected:
    Accounts() { apri(); }

    QRgb colore(int conto) const {
        auto& pulsante = widget<QPushButton>(vendita().cmdConto[static_cast<size_t>(conto)].nome());
        return pulsante.grab().toImage().pixel(pulsante.width() / 2, 5);
    }
    void premiConto(int conto) const {
        QTest::mouseClick(&widget("cmdConto_" + QString::number(conto)), Qt::LeftButton);
    }
    void vendeUnaVite() const {
        digita("VITE");
        tasto(Qt::Key_Return);
    }
};

TEST_F(Accounts, TheScreensOwnAccountIsOrange) {
    EXPECT_EQ(colore(0), 0xFFFF8000u);
}

TEST_F(Accounts, AnotherOpenAccountIsGreen) {
    premiConto(1);
    EXPECT_EQ(colore(0), 0xFF00FF00u);
    EXPECT_EQ(colore(1), 0xFFFF8000u);
}

TEST_F(Accounts, AFreeAccountHasTheButtonsOwnColour) {
    EXPECT_NE(colore(2), 0xFF00FF00u);
    EXPECT_NE(colore(2), 0xFFFF8000u);
}

TEST_F(Accounts, AnAccountButtonShowsThatAccountInTheSameWindow) {
    premiConto(2);
    EXPECT_EQ(finestra->davanti(), &schermo(2));
    premiConto(0);
    EXPECT_EQ(finestra->davanti(), &schermo(0));
}

TEST_F(Accounts, ANewAccountWaitsForItsCustomer) {
    premiConto(1);
    EXPECT_TRUE(haFuoco(vendita(1).txtCodCliente));
    EXPECT_EQ(vendita(1).txtCodCliente.testo(), "");
}

TEST_F(Accounts, AnAccountThatClosesGivesItsPlaceToAnother) {
    premiConto(1);
    tasto(Qt::Key_F10);
    EXPECT_EQ(gConti[1], nullptr);
    EXPECT_EQ(finestra->davanti(), &schermo(0));
    EXPECT_NE(colore(1), 0xFF00FF00u);
}

TEST_F(Accounts, AClosedScreenDiesAfterItsOwnEvent) {
    premiConto(1);
    const QPointer<frmMain> chiuso = &schermo(1);
    tasto(Qt::Key_F10);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(chiuso.isNull());
}

TEST_F(Accounts, TheCloseBoxKeepsTheWindowWhenTheOperatorStays) {
    vendeUnaVite();
    negozio.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?",
                                     OperatorPort::Risposta::Annulla);
    EXPECT_FALSE(finestra->close());
    EXPECT_TRUE(finestra->isVisible());
    EXPECT_EQ(vendita().flxVB.ultima(), 1);
}

TEST_F(Accounts, TheCloseBoxClosesEveryAccount) {
    premiConto(1);
    EXPECT_TRUE(finestra->close());
    EXPECT_EQ(gConti[0], nullptr);
    EXPECT_EQ(gConti[1], nullptr);
    EXPECT_TRUE(negozio.terminato);
}

TEST_F(Accounts, TimersHoldWhileATransactionIsOpen) {
    ASSERT_TRUE(gAdo.beginTrasaction("test"));
    const bool prima = vendita().pctFido.visibile();
    schermo().avviaTimer(SchermoVendita::Timer::Fido, 0);
    for (int i = 0; i < 20; ++i) {
        QApplication::processEvents();
    }
    EXPECT_EQ(vendita().pctFido.visibile(), prima);
    gAdo.rollbackTrasaction("test");
    EXPECT_TRUE(QTest::qWaitFor([&] { return vendita().pctFido.visibile() != prima; }));
}

}  // namespace
