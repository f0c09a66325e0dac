#include <QApplication>
#include <QPushButton>
#include <QTableView>

#include "counter_ui/counter_screen.h"
#include "kit_ui/modal.h"

namespace {

class WindowSearches : public CounterScreen {
  protected:
    // Does that in the search once it has the keys.
    void quandoSiApre(std::function<void(QWidget*)> gesto) {
        quandoModale([gesto = std::move(gesto)](QWidget* ricerca) {
            EXPECT_EQ(ricerca->objectName(), "frmRicerca");
            ASSERT_TRUE(QTest::qWaitFor([&] { return ricerca->isAncestorOf(QApplication::focusWidget()); }));
            gesto(ricerca);
            if (ricerca->isVisible()) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        });
    }
    static QString codicePrimaRiga(QWidget* ricerca) {
        return ricerca->findChild<QTableView*>("flxRicerca")->model()->index(0, 2).data().toString();
    }
};

TEST_F(WindowSearches, AProductIsFoundByTypingAndSoldByEnter) {
    apri();
    clic(vendita().txtCodProdotto);
    quandoSiApre([&](QWidget* ricerca) {
        digita("vite");
        EXPECT_TRUE(QTest::qWaitFor([&] { return codicePrimaRiga(ricerca) == "VITE"; }, 3000));
        tasto(Qt::Key_Down);
        tasto(Qt::Key_Return);
    });
    tasto(Qt::Key_F3);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Codice), "VITE");
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "12,20");
}

TEST_F(WindowSearches, AfterACancelledSearchTheNextScanIsSold) {
    apri();
    quandoSiApre([&](QWidget*) { tasto(Qt::Key_Escape); });
    clic(vendita().cmdConto[7]);
    finestra->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
    EXPECT_TRUE(haFuoco(vendita().txtCodProdotto));
    digita("$8001234567890");
    tasto(Qt::Key_Return);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Codice), "VITE");
}

TEST_F(WindowSearches, AQuantityBeingTypedIsKeptWhenTheSearchIsOpened) {
    apri();
    digita("$8001234567890");
    tasto(Qt::Key_Return);
    ASSERT_TRUE(haFuoco(vendita().txtQta));
    digita("3");
    quandoSiApre([&](QWidget*) { tasto(Qt::Key_Escape); });
    clic(vendita().cmdConto[7]);
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "36,60");
}

TEST_F(WindowSearches, ACustomerChosenOnAnotherAccountIsItsCustomer) {
    const int rossi = negozio.cliente(7, "ROSSI");
    apri();
    quandoSiApre([&](QWidget*) {
        digita("rossi");
        tasto(Qt::Key_Return);
        tasto(Qt::Key_Down);
        tasto(Qt::Key_Return);
    });
    tasto(Qt::Key_F8);
    ASSERT_TRUE(gConti[1]);
    EXPECT_EQ(vendita(1).cliente(), rossi);
    EXPECT_EQ(finestra->davanti(), &schermo(1));
}

}  // namespace
