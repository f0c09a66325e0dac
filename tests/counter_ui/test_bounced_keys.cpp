#include "core/globals.h"
#include "counter_ui/window_shop.h"
#include "data/server_driver.h"

namespace {

class BouncedKeys : public WindowShop {
  protected:
    BouncedKeys() { apriFinestra(); }
    // The first account has a VITE; a second one is in front, with one for a customer of its own.
    void vendeAllaSecondaCliente() {
        vendeUnaVite();
        negozio.cliente(7, "ROSSI");
        QTest::mouseClick(&widget("cmdConto_1"), Qt::LeftButton);
        digita("7");
        tasto(Qt::Key_Return);
        vendeUnaVite();
    }
    // Saves and so closes the second account.
    void salvaLaSeconda() {
        tasto(Qt::Key_F5);
        ASSERT_EQ(gConti[1], nullptr);
    }
    void avvisa() { porta.messaggio("Carta finita", OperatorPort::Icona::Critica, "Registratore"); }
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
    vendeAllaSecondaCliente();
    salvaLaSeconda();
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

// ---- Typed while a save ran or an account closed

TEST_F(BouncedKeys, DigitsTypedWhileASaveRanReachNoField) {
    vendeUnaVite();
    arriva("77");
    tasto(Qt::Key_F5);
    ASSERT_EQ(negozio.conta("Movimenti"), 1);
    aspettaCheSenta();
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "");
    EXPECT_EQ(vendita().txtQta.testo(), "1,00");
    EXPECT_FALSE(vendita().venditaModificata);
}

// Its second half alone would be another product.
TEST_F(BouncedKeys, CodeThatBeganWhileASaveRanIsDroppedWhole) {
    vendeUnaVite();
    arriva("STA");
    tasto(Qt::Key_F5);
    arriva("VITE\r");
    aspettaCheSenta();
    EXPECT_EQ(codici(), QStringList("VITE"));
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "");
    digita("77");
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "77");
}

TEST_F(BouncedKeys, BoxThatComesUpWhileTheKeysOfASaveAreDroppedIsHeard) {
    vendeUnaVite();
    sondaIstruzioni() = [this](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "COMMIT") QTimer::singleShot(0, finestra.get(), [this] { avvisa(); });
        return std::nullopt;
    };
    bool sentito = false;
    conRiquadro([&](QWidget& riquadro) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        sentito = !riquadro.isVisible();
        riquadro.close();
    });
    tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    EXPECT_TRUE(QTest::qWaitFor([&] { return sentito; }));
    EXPECT_EQ(negozio.conta("Movimenti"), 1);
}

TEST_F(BouncedKeys, DigitsTypedRightAfterASaveAreHeard) {
    vendeUnaVite();
    tasto(Qt::Key_F5);
    schermo().fuoco(vendita().txtCodProdotto);
    digita("77");
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "77");
}

TEST_F(BouncedKeys, QuantityTypedWhileAnAccountClosedIsNotTheNextOnes) {
    vendeAllaSecondaCliente();
    arriva("3\r");
    salvaLaSeconda();
    arriva("4\r");
    aspettaCheSenta();
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(vendita().txtCodProdotto.testo(), "VITE");
}

TEST_F(BouncedKeys, AccountKeyOnAClosedAccountOpensNone) {
    vendeAllaSecondaCliente();
    salvaLaSeconda();
    tasto(Qt::Key_3, Qt::AltModifier);
    aspettaCheSenta();
    EXPECT_EQ(gConti[2], nullptr);
    EXPECT_EQ(finestra->davanti(), &schermo(0));
}

TEST_F(BouncedKeys, ClickOnAClosedAccountIsNotTheNextOnes) {
    vendeAllaSecondaCliente();
    salvaLaSeconda();
    for (const Campo* campo : {&vendita().cmdConto[2], &vendita().txtSconto1}) {
        const QWidget& premuto = widget(*campo);
        QTest::mouseClick(finestra->windowHandle(), Qt::LeftButton, {},
                          premuto.mapTo(finestra.get(), premuto.rect().center()));
    }
    EXPECT_EQ(gConti[2], nullptr);
    EXPECT_FALSE(haFuoco(vendita().txtSconto1));
}

TEST_F(BouncedKeys, KeysAreHeardAgainAMomentAfterAnAccountHasClosed) {
    vendeAllaSecondaCliente();
    salvaLaSeconda();
    aspettaCheSenta();
    schermo().fuoco(vendita().txtQta);
    digita("3");
    tasto(Qt::Key_Return);
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "36,60");
}

// ---- Scans are entered, and whole

TEST_F(BouncedKeys, ScanWhileASaveRanIsEntered) {
    vendeUnaVite();
    arriva("$STAFFA\r");
    tasto(Qt::Key_F5);
    aspettaCodici({"VITE", "STAFFA"});
}

TEST_F(BouncedKeys, ScanWhileAnAccountClosedIsEntered) {
    vendeAllaSecondaCliente();
    arriva("$STAFFA\r");
    salvaLaSeconda();
    aspettaCodici({"VITE", "STAFFA"});
}

TEST_F(BouncedKeys, ScanThatBeganWhileASaveRanIsEnteredWhole) {
    vendeUnaVite();
    arriva("$STA");
    tasto(Qt::Key_F5);
    arriva("FFA\r");
    aspettaCodici({"VITE", "STAFFA"});
}

TEST_F(BouncedKeys, ScanWithoutPrefixThatBeganWhileASaveRanIsEnteredWhole) {
    vendeUnaVite();
    arriva("80099");
    tasto(Qt::Key_F5);
    arriva("99999999\r");
    aspettaCodici({"VITE", "CHIODO"});
}
