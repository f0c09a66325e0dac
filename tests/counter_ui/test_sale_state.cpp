#include <QLabel>

#include "core/globals.h"
#include "counter_screen.h"
#include "sale/recall.h"

// What the top bar says of a saved sale.

namespace {

class SaleState : public CounterScreen {
  protected:
    SaleState() { apri(); }
    // Sells to that customer, 1 for nobody in particular, and shows the saved sale again.
    void salvaERichiama(int cliente) {
        digita("VITE");
        tasto(Qt::Key_Return);
        tasto(Qt::Key_F5);
        negozio.sql("UPDATE Movimenti SET FK_CONTROPARTITA = " + QString::number(cliente));
        richiama();
    }
    void richiama() const {
        showVendita(vendita(), negozio.valore("SELECT RID FROM Movimenti").toInt(), -1, 1, -1);
    }
    void stampata() { negozio.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 00:00:00'"); }
    // The words of state that are in sight.
    QStringList detto() const {
        QStringList parole;
        for (const Campo* campo : {&vendita().pctChiusa, &vendita().pctSospesa}) {
            const auto& etichetta = widget<QLabel>(*campo);
            if (etichetta.isVisible()) parole << etichetta.text();
        }
        return parole;
    }
};

}  // namespace

TEST_F(SaleState, SaleBeingRungUpSaysNothing) {
    digita("VITE");
    tasto(Qt::Key_Return);
    EXPECT_EQ(detto(), QStringList{});
}

TEST_F(SaleState, NamedCustomersSaleIsSuspendedUntilPrinted) {
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    EXPECT_EQ(detto(), QStringList{"SOSPESA"});
    stampata();
    richiama();
    EXPECT_EQ(detto(), QStringList{});
}

TEST_F(SaleState, WalkInCustomersSaleIsNotSuspended) {
    salvaERichiama(gClientePredefinito);
    EXPECT_EQ(detto(), QStringList{});
}

TEST_F(SaleState, SaleOfAnotherDocumentIsNotSuspended) {
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    ++gTipoDocVb;
    richiama();
    EXPECT_EQ(detto(), QStringList{});
}

TEST_F(SaleState, SuspendedSaleThatIsChangedIsStillSuspended) {
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    digita("STAFFA");
    tasto(Qt::Key_Return);
    EXPECT_EQ(detto(), QStringList{"SOSPESA"});
    EXPECT_TRUE(widget("pctSave").isVisible());
}

TEST_F(SaleState, PrintedSaleIsClosedWhereTheShopLocksThem) {
    gLockVBEdit = 1;
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    stampata();
    richiama();
    EXPECT_EQ(detto(), QStringList{"CHIUSA"});
}

TEST_F(SaleState, SavedSaleThatIsNeverPrintedIsClosedWhereTheShopLocksThem) {
    gLockVBEdit = 1;
    vendita().documentoConStampa = false;
    vendita().pctPrint.visibile(false);
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    EXPECT_EQ(detto(), QStringList{"CHIUSA"});
}

TEST_F(SaleState, NewSaleSaysNothingAgain) {
    salvaERichiama(negozio.cliente(7, "ROSSI"));
    aspettaCheSenta();
    tasto(Qt::Key_F2);
    EXPECT_EQ(detto(), QStringList{});
}
