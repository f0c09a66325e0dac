#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include "counter_screen.h"

namespace {

class Keys : public CounterScreen {
  protected:
    Keys() { apri(); }

    void rilascia(Qt::Key tasto, bool ripetuto) const {
        QKeyEvent evento(QEvent::KeyRelease, tasto, Qt::NoModifier, {}, ripetuto);
        QApplication::sendEvent(QApplication::focusWidget(), &evento);
    }
};

TEST_F(Keys, AScannedCodeBecomesARow) {
    digita("$8001234567890");
    tasto(Qt::Key_Return);
    ASSERT_EQ(vendita().flxVB.ultima(), 1);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Descrizione), "Vite 4x40");
}

TEST_F(Keys, TheTotalOfARowIsOnTheDisplay) {
    digita("VITE");
    tasto(Qt::Key_Return);
    EXPECT_EQ(widget<QLabel>(vendita().lblMainDisplay).text(), "12,20");
}

TEST_F(Keys, TheScannersPrefixIsSeenByTheScreenBeforeAnyField) {
    vendita().txtQta.testo("3");
    schermo().fuoco(vendita().txtQta);
    digita("$STAFFA");
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "STAFFA");
}

TEST_F(Keys, EnterInAFieldMovesOn) {
    schermo().fuoco(vendita().txtSconto1);
    tasto(Qt::Key_Return);
    EXPECT_TRUE(haFuoco(vendita().txtSconto2));
}

TEST_F(Keys, TabWalksTheFieldsAndNoButton) {
    schermo().fuoco(vendita().txtCodProdotto);
    tasto(Qt::Key_Tab);
    EXPECT_TRUE(haFuoco(vendita().txtDescProdotto));
    tasto(Qt::Key_Tab);
    EXPECT_TRUE(haFuoco(vendita().txtQta));
}

TEST_F(Keys, AFieldRefusesWhatIsNotOfItsType) {
    vendita().txtQta.testo({});
    schermo().fuoco(vendita().txtQta);
    digita("1a2");
    EXPECT_EQ(vendita().txtQta.testo(), "12");
}

TEST_F(Keys, AFunctionKeyPressesItsCommandWhenItComesUp) {
    digita("ABC");
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_F6);
    ASSERT_EQ(vendita().txtCodProdotto.testo(), "ABC");
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_F6);
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "");
}

TEST_F(Keys, ShiftLetGoBeforeTheFunctionKeyStillCounts) {
    digita("VITE");
    tasto(Qt::Key_Return);
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_F6, Qt::NoModifier);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "-1,00");
}

TEST_F(Keys, AReleaseThatTheKeyboardRepeatsIsDropped) {
    digita("ABC");
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_F6);
    rilascia(Qt::Key_F6, true);
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "ABC");
}

TEST_F(Keys, AReleaseWhosePressAnotherWindowSawIsIgnored) {
    digita("ABC");
    rilascia(Qt::Key_F6, false);
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "ABC");
}

TEST_F(Keys, AltAndTheLetterReachAField) {
    schermo().fuoco(vendita().txtCodProdotto);
    tasto(Qt::Key_Q, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return haFuoco(vendita().txtQta); }));
}

TEST_F(Keys, ACommandByMouseEndsTheFieldBeingTypedIn) {
    digita("VITE");
    tasto(Qt::Key_Return);
    schermo().fuoco(vendita().txtQta);
    digita("3");
    QTest::mouseClick(&widget("cmdComando_15"), Qt::LeftButton);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
}

}  // namespace
