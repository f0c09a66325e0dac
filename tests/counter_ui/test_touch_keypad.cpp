#include <QPushButton>

#include "core/globals.h"
#include "counter_screen.h"

namespace {

class TouchKeypad : public CounterScreen {
  protected:
    TouchKeypad() {
        apri();
        digita("VITE");
        tasto(Qt::Key_Return);
    }
    void premi(const char* nome) const { QTest::mouseClick(&widget(nome), Qt::LeftButton); }
    // The key of the shown keypad with that caption.
    void premiTasto(const QString& didascalia) const {
        for (auto* pulsante : finestra->davanti()->findChildren<QPushButton*>()) {
            if (pulsante->text() == didascalia && pulsante->isVisible())
                return QTest::mouseClick(pulsante, Qt::LeftButton);
        }
        FAIL() << qPrintable(didascalia);
    }
};

}  // namespace

TEST_F(TouchKeypad, StaysOutOfSightUntilItIsWanted) {
    EXPECT_FALSE(widget("tasto_0").isVisible());
    premi("cmdTasti");
    EXPECT_TRUE(widget("tasto_0").isVisible());
    premi("cmdDati");
    EXPECT_FALSE(widget("tasto_0").isVisible());
}

TEST_F(TouchKeypad, WritesTheQuantityByFinger) {
    premi("cmdTasti");
    clic(vendita().txtQta);
    premiTasto("C");
    premiTasto("3");
    EXPECT_TRUE(haFuoco(vendita().txtQta));
    premiTasto("INVIO");
    QTest::mouseClick(&widget("cmdComando_15"), Qt::LeftButton);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
}

TEST_F(TouchKeypad, WritesACodeByFinger) {
    negozio.prodotto({.codice = "77", .listino1 = 2});
    premi("cmdTasti");
    QTest::mouseClick(&widget("cmdComando_15"), Qt::LeftButton);
    premiTasto("7");
    premiTasto("7");
    premiTasto("INVIO");
    ASSERT_EQ(vendita().flxVB.ultima(), 2);
    EXPECT_EQ(vendita().flxVB.cella(2, Colonna::Codice), "77");
}

TEST_F(TouchKeypad, CodeByFingerBeginsTheNextSaleToo) {
    negozio.impostazioni.scrivi("prgBottegonClientVB", "Client", "NuovaVenditaDopoSalva", "1");
    negozio.prodotto({.codice = "77", .listino1 = 2});
    tasto(Qt::Key_F5);
    premi("cmdTasti");
    clic(vendita().txtCodProdotto);
    premiTasto("7");
    premiTasto("7");
    premiTasto("INVIO");
    EXPECT_EQ(vendita().txtSottoProg.testo(), "(Auto)");
    ASSERT_EQ(vendita().flxVB.ultima(), 1);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Codice), "77");
}

TEST_F(TouchKeypad, PaymentReasonAsksForTheCashAccount) {
    gContoCassa = -1;
    negozio.operatore.attendiMessaggio(
        "Per visualizzare l'incasso giornaliero è necessario impostare il conto della Cassa nelle opzioni "
        "(CTRL+F11)",
        OperatorPort::Icona::Informazione);
    QTest::mouseDClick(&widget(vendita().lblDescPagamento), Qt::LeftButton);
}
