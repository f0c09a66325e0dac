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

TEST_F(Returns, NoPiecesKeepTheRowAsItIs) {
    ContoDiProva& c = contoConRiga();
    scrivi(c, c.vendita().txtQta, "0");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Quantità] Obbligatorio",
                                 OperatorPort::Icona::Esclamazione);
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(c.vendita().txtQta.testo(), "0,00");
    EXPECT_EQ(quantita(c), "1,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "12,20");
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

// ---- A return recalled from the grid shows its pieces without their sign

TEST_F(Returns, ARecalledReturnThatIsUntickedIsSoldAtOnce) {
    ContoDiProva& c = contoConRiga();
    rendi(c, "3");
    c.clicRiga(1);
    ASSERT_EQ(c.vendita().txtQta.testo(), "3,00");
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(quantita(c), "3,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "36,60");
}

TEST_F(Returns, ARecalledRowThatIsTickedIsAReturnAtOnce) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    spuntaCambiata(c, c.vendita().chkReso, 1);
    EXPECT_EQ(quantita(c), "-1,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "-12,20");
}

// ---- The list prices of a return are positive

TEST_F(Returns, AListPriceIsTakenWithoutItsSign) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    incolla(c, c.vendita().txtPrezzoListino, "-5");
    EXPECT_EQ(c.vendita().txtPrezzoListino.testo(), "5,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Importo), "-6,10");
}

TEST_F(Returns, AGrossListPriceIsTakenWithoutItsSign) {
    gPrezzoListinoLordo = 1;
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    incolla(c, c.vendita().txtPrezzoListinoLordo, "-6,10");
    EXPECT_EQ(c.vendita().txtPrezzoListinoLordo.testo(), "6,10");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Importo), "-6,10");
}

TEST_F(Returns, APositiveListPriceKeepsItsDecimals) {
    gDecimaliDopo = 4;
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    scriviELascia(c, c.vendita().txtPrezzoListino, "5,1234");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::PrezzoListino), "5,1234");
}

TEST_F(Returns, AListPriceOfASaleMayBeNegative) {
    ContoDiProva& c = contoConRiga();
    incolla(c, c.vendita().txtPrezzoListino, "-5");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::PrezzoListino), "-5,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Importo), "-6,10");
}

// ---- What the stock forces

class StockReturns : public Returns {
  protected:
    void SetUp() override {
        gSottoScorta = 1;
        gBloccaSottoScorta = true;
    }
    void giacenza(int pezzi) {
        n.sql(QString("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = %1").arg(pezzi));
    }
    void attendiRifiuto() {
        n.operatore.attendiMessaggio(
            "Impossibile modificare l'operazione! Per il prodotto selezionato Il Reso è l'unica operazione "
            "consentita.",
            OperatorPort::Icona::Critica);
    }
    void attendiTroppi(const QString& giacenza, const QString& quantita) {
        n.operatore.attendiMessaggio(
            "Impossibile scaricare la quantità desiderata per il prodotto [A].\nLa scorta di [" + giacenza +
                "] è inferiore alla quantità [" + quantita + "] scelta!",
            OperatorPort::Icona::Critica);
    }
    // The shelf is empty, and the operator takes the product as a return.
    ContoDiProva& contoConReso() {
        giacenza(0);
        accettaReso();
        return contoConRiga();
    }
    void accettaReso() {
        n.operatore.attendiDomanda(
            "Impossibile scaricare il prodotto [A].\nLa scorta di [0,00] è inferiore al limite consentito.\n"
            "Si desidera effettuare il reso?",
            OperatorPort::Risposta::Si);
    }
};

TEST_F(StockReturns, AnExhaustedProductCannotBeUnticked) {
    ContoDiProva& c = contoConReso();
    ASSERT_EQ(c.vendita().chkReso.valore(), 1);
    attendiRifiuto();
    spuntaCambiata(c, c.vendita().chkReso, 0);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(quantita(c), "-1,00");
}

TEST_F(StockReturns, AnExhaustedProductCannotBeUntickedByItsKeyEither) {
    ContoDiProva& c = contoConReso();
    attendiRifiuto();
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(quantita(c), "-1,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "-12,20");
}

TEST_F(StockReturns, TheTickGoesWithTheRowThatIsCleared) {
    ContoDiProva& c = contoConReso();
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(c.vendita().chkReso.valore(), 0);
}

TEST_F(StockReturns, UntickingMoreThanTheStockLeavesAReturn) {
    giacenza(1);
    ContoDiProva& c = contoConRiga();
    c.vendita().chkReso.valore(1);
    scriviELascia(c, c.vendita().txtQta, "5");
    ASSERT_EQ(quantita(c), "-5,00");
    attendiTroppi("1,00", "5,00");
    spuntaCambiata(c, c.vendita().chkReso, 0);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(c.vendita().txtQta.testo(), "-5,00");
    EXPECT_EQ(quantita(c), "-5,00");
}

TEST_F(StockReturns, UntickingARecalledReturnIsHeldAgainstTheStock) {
    giacenza(1);
    ContoDiProva& c = contoConRiga();
    rendi(c, "5");
    c.clicRiga(1);
    attendiTroppi("1,00", "5,00");
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(quantita(c), "-5,00");
}

TEST_F(StockReturns, ATotalTypedAfterARefusedUntickingIsStillThatOfAReturn) {
    gPrezzoType = 2;
    giacenza(1);
    ContoDiProva& c = contoConRiga();
    c.vendita().chkReso.valore(1);
    scriviELascia(c, c.vendita().txtQta, "2");
    attendiTroppi("1,00", "2,00");
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    scrivi(c, c.vendita().TxtPrezzoRiga, "12,20");
    c.invio();
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::PrezzoListino), "5,00");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Importo), "-12,20");
}

TEST_F(StockReturns, AQuantityTypedAfterABareUntickingGoesBackToAReturn) {
    giacenza(1);
    ContoDiProva& c = contoConRiga();
    rendi(c, "5");
    c.clicRiga(1);
    c.vendita().txtQta.testo({});
    c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    ASSERT_EQ(c.vendita().chkReso.valore(), 0);
    attendiTroppi("1,00", "3,00");
    scriviELascia(c, c.vendita().txtQta, "3");
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(quantita(c), "-5,00");
}

TEST_F(StockReturns, AnAcceptedReturnTurnsTheRowThatWasThere) {
    ContoDiProva& c = contoConRiga();
    c.tasto(Qt::Key_F6);
    giacenza(0);
    accettaReso();
    c.digita("A");
    c.invio();
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
    EXPECT_EQ(quantita(c), "-1,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "-12,20");
}

TEST_F(StockReturns, AScannedReturnGrowsTheOneThatWasThere) {
    ContoDiProva& c = contoConReso();
    accettaReso();
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().txtQta.testo(), "-2,00");
    EXPECT_EQ(quantita(c), "-2,00");
    EXPECT_EQ(c.vendita().chkReso.valore(), 1);
}

}  // namespace
