#include "counter/fields.h"
#include "gesti.h"
#include "sale/returns.h"

namespace {

class Returns : public testing::Test {
  protected:
    Returns() { n.prodotto({.codice = "A", .listino1 = 10, .barcode = "8001"}); }

    ContoDiProva& contoConRiga() {
        ContoDiProva& c = n.apriConto();
        c.scansiona("8001");
        return c;
    }
    static QString quantita(ContoDiProva& c) { return c.vendita().flxVB.cella(1, Colonna::Quantita); }

    Negozio n;
};

}  // namespace

TEST_F(Returns, ShiftAndF6TurnTheRowIntoAReturn) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(quantita(c), "-1,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Importo), "-12,20");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "-12,20");
}

TEST_F(Returns, TogglingTwiceBringsTheRowBack) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(quantita(c), "1,00");
}

TEST_F(Returns, AReturnIsRed) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(c.vendita().flxVB.coloreTesto(1), 0xFF0000);
}

TEST_F(Returns, TheTickWithAnEmptyQuantityChangesOnlyItself) {
    ContoDiProva& c = contoConRiga();
    c.vendita().txtQta.testo({});
    spuntaCambiata(c, c.vendita().chkReso, 1);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(quantita(c), "1,00");
}

TEST_F(Returns, AnExhaustedProductCannotBeUnticked) {
    n.sql("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = 0");
    gSottoScorta = 1;
    gBloccaSottoScorta = true;
    ContoDiProva& c = n.apriConto();
    n.operatore.attendiDomanda(
        "Impossibile scaricare il prodotto [A].\nLa scorta di [0,00] è inferiore al limite consentito.\n"
        "Si desidera effettuare il reso?",
        OperatorPort::Risposta::Si);
    c.scansiona("8001");
    ASSERT_EQ(c.vendita().chkReso.valore(), 1);
    n.operatore.attendiMessaggio(
        "Impossibile modificare l'operazione! Per il prodotto selezionato Il Reso è l'unica operazione "
        "consentita.",
        OperatorPort::Icona::Critica);
    spuntaCambiata(c, c.vendita().chkReso, 0);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
}

TEST_F(Returns, AReturnLowersTheTotalAndNotThePieces) {
    n.prodotto({.codice = "B", .listino1 = 100});
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    c.tasto(Qt::Key_F6);
    c.digita("B");
    c.invio();
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "109,80");
    EXPECT_EQ(c.vendita().lblTOtQta.testo(), "1,00");
    EXPECT_EQ(c.vendita().lblTotRighe.testo(), "2");
}
