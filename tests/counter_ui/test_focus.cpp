#include <QApplication>
#include <QDialog>
#include <QMenu>

#include "counter_screen.h"

namespace {

// A quantity typed and not yet left: "7", which becomes "7,00" when it is.
class Focus : public CounterScreen {
  protected:
    Focus() {
        apri();
        vendita().txtQta.testo({});
        schermo().fuoco(vendita().txtQta);
        digita("7");
    }
};

TEST_F(Focus, LeavingAFieldFormatsIt) {
    schermo().fuoco(vendita().txtDescProdotto);
    EXPECT_EQ(vendita().txtQta.testo(), "7,00");
}

TEST_F(Focus, AMenuIsNoLostFocus) {
    QMenu menu(finestra.get());
    menu.addAction("Incolla");
    menu.popup({100, 100});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    EXPECT_EQ(vendita().txtQta.testo(), "7");
}

TEST_F(Focus, ABoxIsNoLostFocus) {
    QDialog riquadro(finestra.get());
    riquadro.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&riquadro));
    EXPECT_EQ(vendita().txtQta.testo(), "7");
}

TEST_F(Focus, WhenABoxClosesTheFieldGoesOnBeingTypedIn) {
    QDialog riquadro(finestra.get());
    riquadro.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&riquadro));
    riquadro.reject();
    ASSERT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
    ASSERT_TRUE(haFuoco(vendita().txtQta));
    digita("5");
    EXPECT_EQ(vendita().txtQta.testo(), "75");
}

TEST_F(Focus, AnotherAccountIsNoLostFocus) {
    getConto(1, true);
    EXPECT_EQ(vendita(0).txtQta.testo(), "7");
}

TEST_F(Focus, TheGridKnowsThatItHasTheFocus) {
    widget("flxVB").setFocus();
    EXPECT_TRUE(vendita().grigliaConFocus);
    schermo().fuoco(vendita().txtQta);
    EXPECT_FALSE(vendita().grigliaConFocus);
}

}  // namespace
