#include "counter/counter_shop.h"

namespace {

class PaymentStep : public BancoDiProva {
  protected:
    PaymentStep() { gMonitor = 1; }

    void incassaCon(ContoDiProva& c, std::function<EsitoIncasso(Currency)> risposta) {
        c.incassi.push_back(std::move(risposta));
    }
    // A for another product, which comes back.
    ContoDiProva& contoConCambio(double listinoReso) {
        n.prodotto({.codice = "B", .listino1 = listinoReso, .barcode = "8002"});
        ContoDiProva& c = contoConVendita();
        c.scansiona("8002");
        c.tasto(Qt::Key_F6, Qt::ShiftModifier);
        return c;
    }
    static EsitoIncasso intatto(Currency totale) { return {totale, {}}; }
    static std::function<EsitoIncasso(Currency)> nuovoTotale(double totale) {
        return [totale](Currency) { return EsitoIncasso{Currency::daDouble(totale), {}}; };
    }
};

}  // namespace

TEST_F(PaymentStep, SavingAPaidSaleShowsTheTotalOfTheDisplay) {
    ContoDiProva& c = contoConVendita();
    Currency mostrato;
    incassaCon(c, [&](Currency totale) {
        mostrato = totale;
        EXPECT_TRUE(gModaleAperta);
        EXPECT_EQ(vendite(), 0);
        return intatto(totale);
    });
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(mostrato, Currency::daDouble(12.2));
    EXPECT_EQ(vendite(), 1);
    EXPECT_FALSE(gModaleAperta);
}

TEST_F(PaymentStep, SwitchedOffItDoesNotComeUp) {
    gMonitor = 0;
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(PaymentStep, SaleOnCreditIsSavedWithoutIt) {
    n.apriConto(0);
    ContoDiProva& c = contoConCliente(1);
    ASSERT_EQ(c.vendita().chkPagato.valore(), 0);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(PaymentStep, QuestionAnsweredYesShowsItForASaleOnCreditToo) {
    n.apriConto(0);
    ContoDiProva& c = contoConCliente(1);
    rispondeAlSalvataggio(Risposta::Si);
    int mostrati = 0;
    incassaCon(c, [&](Currency totale) {
        ++mostrati;
        return intatto(totale);
    });
    c.tasto(Qt::Key_F10);
    EXPECT_EQ(mostrati, 1);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(PaymentStep, ChangeStaysBesideTheLastTotal) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, [](Currency totale) { return EsitoIncasso{totale, "7,80"}; });
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "12,20");
    EXPECT_EQ(c.vendita().lblUltimoResto.testo(), "7,80");
}

TEST_F(PaymentStep, NextSaleWithoutTenderShowsNoChangeOfTheOneBefore) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, [](Currency totale) { return EsitoIncasso{totale, "7,80"}; });
    c.tasto(Qt::Key_F5);
    gMonitor = 0;
    c.tasto(Qt::Key_F2);
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblUltimoResto.testo(), "");
}

TEST_F(PaymentStep, LoweredTotalIsADiscountOnTheRows) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, nuovoTotale(6.10));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT SCONTO + 0.0 FROM DettagliMovimento"), "50");
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "6.1");
}

TEST_F(PaymentStep, DisplayOfAChangedTotalIsZeroUntilItIsRebuilt) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, nuovoTotale(6.10));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "0,00");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "6,10");
}

TEST_F(PaymentStep, EmptiedTotalGivesEverythingAway) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, nuovoTotale(0));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT SCONTO + 0.0 FROM DettagliMovimento"), "100");
}

TEST_F(PaymentStep, RegisteredSaleAsksBeforeItsTotalIsChanged) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, intatto);
    c.tasto(Qt::Key_F5);
    c.scansiona("8001");
    incassaCon(c, nuovoTotale(10));
    n.operatore.attendiDomanda(
        "Questa vendita è già registrata: con il totale cambiato tutte le sue righe verrebbero registrate "
        "un'altra volta.\nUsare comunque il nuovo totale?",
        Risposta::No);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("DettagliMovimento", "SCONTO > 0"), 0);
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "24.4");
}

TEST_F(PaymentStep, RefusedSaveBehindAChangedTotalShowsTheSalesOwnAgain) {
    ContoDiProva& c = contoConVendita();
    incassaCon(c, nuovoTotale(10));
    const QString cliente = c.vendita().txtCodCliente.tag();
    c.vendita().txtCodCliente.tag("0");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Cliente] Obbligatorio.");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.conta("Movimenti"), 0);
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "10,00");
    c.vendita().txtCodCliente.tag(cliente);
    Currency mostrato;
    incassaCon(c, [&](Currency totale) {
        mostrato = totale;
        return intatto(totale);
    });
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(mostrato, Currency::daIntero(10));
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "10");
}

TEST_F(PaymentStep, TotalOfAnEvenExchangeCannotBeChangedAndTheTenderComesUpAgain) {
    ContoDiProva& c = contoConCambio(10);
    ASSERT_EQ(c.vendita().lblMainDisplay.testo(), "0,00");
    incassaCon(c, [](Currency) { return EsitoIncasso{Currency::daIntero(5), "15,00"}; });
    n.operatore.attendiMessaggio(
        "Il totale di questa vendita è 0,00 e qui non si può cambiare.\n"
        "Per incassare un altro importo correggere le righe della vendita.");
    Currency mostrato = Currency::daIntero(-1);
    incassaCon(c, [&](Currency totale) {
        mostrato = totale;
        return intatto(totale);
    });
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(mostrato, Currency());
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO + 0.0 FROM Movimenti"), "0");
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "0,00");
    EXPECT_EQ(c.vendita().lblUltimoResto.testo(), "");
}

TEST_F(PaymentStep, TotalThatNoRowCanHoldLeavesTheOldOneOnTheDisplay) {
    ContoDiProva& c = contoConCambio(9.99);
    const QString totale = c.vendita().lblMainDisplay.testo();
    ASSERT_EQ(totale, "0,01");
    incassaCon(c, nuovoTotale(9e14));
    n.operatore.attendiAvviso("frmMain.cmdComando_Click");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), totale);
    EXPECT_EQ(vendite(), 0);
    incassaCon(c, intatto);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), totale);
}

// ---- The print question

namespace {

class PrintQuestion : public PaymentStep {
  protected:
    // F5 on a paid sale of account 1; what came, in order.
    QStringList salva(ContoDiProva& c) {
        QStringList passi;
        c.vendita().chkPagato.valore(1);
        incassaCon(c, [&passi](Currency totale) {
            passi << "incasso";
            return intatto(totale);
        });
        c.quandoStampa = [&](bool simula) {
            EXPECT_EQ(vendite(), 0);
            passi << (simula ? "simulata" : "chiesta");
        };
        c.tasto(Qt::Key_F5);
        EXPECT_EQ(vendite(), 1);
        return passi;
    }
    ContoDiProva& nominata() {
        n.apriConto(0);
        return contoConCliente(1);
    }
};

}  // namespace

TEST_F(PrintQuestion, ComesBetweenTheTenderAndTheSave) {
    gStampa = 1;
    EXPECT_EQ(salva(nominata()), (QStringList{"incasso", "chiesta"}));
}

TEST_F(PrintQuestion, PrintingMayBeTakenAsDone) {
    gSimulaStampa = 1;
    EXPECT_EQ(salva(nominata()), (QStringList{"incasso", "simulata"}));
}

TEST_F(PrintQuestion, IsNotAskedWhereTheWorkstationDoesNotWantIt) {
    EXPECT_EQ(salva(nominata()), QStringList{"incasso"});
}

TEST_F(PrintQuestion, IsNotAskedForTheWalkInCustomer) {
    gStampa = 1;
    gSimulaStampa = 1;
    EXPECT_EQ(salva(contoConVendita()), QStringList{"incasso"});
}

TEST_F(PrintQuestion, WithoutAnyoneToAskItNothingHappens) {
    gStampa = 1;
    ContoDiProva& c = nominata();
    c.vendita().chkPagato.valore(0);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
}
