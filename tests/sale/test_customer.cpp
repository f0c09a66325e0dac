#include "gesti.h"
#include "sale/customer.h"

namespace {

using Timer = SchermoVendita::Timer;

// The second account, without a customer yet; customer 7 is ROSSI.
struct Customer : testing::Test {
    Negozio n;
    int id = n.cliente(7, "ROSSI", 2, 12.5);
    ContoDiProva& till = n.apriConto();
    ContoDiProva& c = n.apriConto(1);
    Vendita& v = c.vendita();

    void digitaCliente(const QString& codice) {
        scrivi(c, v.txtCodCliente, codice);
        c.invio();
    }
    // A posting on the customers' account.
    void registra(const char* valuta, const char* dare, const char* avere) {
        n.sql(QString("INSERT INTO PrimaNota (PROGRESSIVO, DATA, DATAVALUTA, FK_ANAGRAFE) VALUES "
                      "(1,'2026-01-01','%1',%2)")
                  .arg(valuta)
                  .arg(id));
        n.sql(QString("INSERT INTO PrimaNotaDettagli (FK_PRIMANOTA, FK_CONTO, DARE, AVERE) SELECT "
                      "MAX(RID),1,%1,%2 FROM "
                      "PrimaNota")
                  .arg(dare, avere));
    }
};

TEST_F(Customer, SecondAccountStartsWithoutACustomer) {
    EXPECT_EQ(v.cliente(), -1);
    EXPECT_EQ(v.txtCodCliente.testo(), "");
    EXPECT_EQ(v.lblDescCliente.testo(), "");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodCliente);
}

TEST_F(Customer, NumberFindsTheCustomer) {
    digitaCliente("7");
    EXPECT_EQ(v.cliente(), id);
    EXPECT_EQ(v.txtCodCliente.testo(), "7");
    EXPECT_EQ(v.lblDescCliente.testo(), "ROSSI");
    EXPECT_EQ(v.lblDescCliente.tag(), "7");
    EXPECT_EQ(v.mScontoCliente, 12.5);
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(Customer, CodeWithALetterIsTheExtraCode) {
    n.sql("UPDATE Anagrafiche SET CODICEEXTRA = 'X7' WHERE NUMERO = 7");
    digitaCliente("X7");
    EXPECT_EQ(v.cliente(), id);
    EXPECT_EQ(v.txtCodCliente.testo(), "7");
}

TEST_F(Customer, NumberIsNeverLookedUpAsAnExtraCode) {
    n.sql("UPDATE Anagrafiche SET CODICEEXTRA = '99' WHERE NUMERO = 7");
    digitaCliente("99");
    EXPECT_EQ(v.cliente(), -1);
}

TEST_F(Customer, UnknownOneIsSaidForHalfASecond) {
    QString nome;
    n.operatore.durantePausa = [&] { nome = v.lblDescCliente.testo(); };
    digitaCliente("999");
    EXPECT_EQ(nome, "CLIENTE NON TROVATO!");
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
    EXPECT_EQ(v.txtCodCliente.testo(), "");
    EXPECT_EQ(v.cliente(), -1);
    EXPECT_EQ(v.lblDescCliente.tag(), "");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodCliente);
}

TEST_F(Customer, UnknownOneForgetsTheOneBefore) {
    n.sql("UPDATE Anagrafiche SET FIDO = 100, CTRLFIDO = 1 WHERE NUMERO = 7");
    digitaCliente("7");
    digitaCliente("999");
    EXPECT_EQ(v.lblFido.testo(), "0,00");
    EXPECT_EQ(v.lblFido.tag(), "0");
    EXPECT_EQ(v.lblSaldo.testo(), "0,00");
}

TEST_F(Customer, EmptyCodeWithoutAKeyIsNotFound) {
    c.clic(v.txtCodCliente);
    c.invio();
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
    EXPECT_EQ(v.cliente(), -1);
}

TEST_F(Customer, EnterOnTheShownCodeReadsTheBalanceAgain) {
    digitaCliente("7");
    registra("2026-01-01", "100", "0");
    c.clic(v.txtCodCliente);
    c.invio();
    EXPECT_EQ(v.cliente(), id);
    EXPECT_EQ(v.lblSaldo.testo(), "100,00");
}

TEST_F(Customer, RowsKeepTheirPricesWhenTheCustomerChanges) {
    n.prodotto({.codice = "P", .listino1 = 10, .listino2 = 8});
    digitaCliente("7");
    vendi(c, "P");
    n.cliente(8, "BIANCHI", 1);
    digitaCliente("8");
    EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), "8,00");
}

TEST_F(Customer, SaleThatChangesHandsIsModified) {
    n.prodotto({.codice = "P", .listino1 = 10});
    digitaCliente("7");
    vendi(c, "P");
    n.cliente(8, "BIANCHI");
    v.venditaModificata = false;
    digitaCliente("8");
    EXPECT_TRUE(v.venditaModificata);
}

TEST_F(Customer, SameCustomerReadAgainIsNoChange) {
    n.prodotto({.codice = "P", .listino1 = 10});
    digitaCliente("7");
    vendi(c, "P");
    v.venditaModificata = false;
    c.clic(v.txtCodCliente);
    c.invio();
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(Customer, SaleWithoutRowsIsNotModifiedByItsCustomer) {
    digitaCliente("7");
    EXPECT_FALSE(v.venditaModificata);
}

// ---- The till belongs to the walk-in customer

TEST_F(Customer, TillOffersANewAccountForAnother) {
    n.operatore.attendiDomanda(
        "Non è possibile utilizzare il CONTO1 per clienti diversi da quello "
        "predefinito.\nAprire un nuovo conto?",
        OperatorPort::Risposta::Si);
    scrivi(till, till.vendita().txtCodCliente, "7");
    till.invio();
    ASSERT_TRUE(gConti[2]);
    EXPECT_EQ(gConti[2]->vendita().cliente(), id);
    EXPECT_EQ(till.vendita().cliente(), 1);
    EXPECT_EQ(till.vendita().txtCodCliente.testo(), "1");
}

TEST_F(Customer, TillTakesTheCustomerOnNo) {
    n.operatore.attendiDomanda(
        "Non è possibile utilizzare il CONTO1 per clienti diversi da quello "
        "predefinito.\nAprire un nuovo conto?",
        OperatorPort::Risposta::No);
    scrivi(till, till.vendita().txtCodCliente, "7");
    till.invio();
    EXPECT_FALSE(gConti[2]);
    EXPECT_EQ(till.vendita().cliente(), id);
    EXPECT_EQ(till.vendita().txtCodCliente.testo(), "7");
}

TEST_F(Customer, SavedSaleOffersANewAccount) {
    digitaCliente("7");
    v.txtProg.testo("0005");
    n.cliente(8, "BIANCHI");
    n.operatore.attendiDomanda("Il conto attuale è gia stato salvato.\nAprire un nuovo conto?",
                               OperatorPort::Risposta::Si);
    digitaCliente("8");
    ASSERT_TRUE(gConti[2]);
    EXPECT_EQ(gConti[2]->vendita().cliente(), -1);
    EXPECT_EQ(v.txtCodCliente.testo(), "7");
    EXPECT_EQ(v.cliente(), id);
}

// ---- Balance and credit limit

TEST_F(Customer, BalanceIsTheJournals) {
    registra("2026-01-01", "100", "0");
    registra("2026-02-01", "0", "30.5");
    EXPECT_EQ(getSaldoCliente(id).testo(), "69,5");
    digitaCliente("7");
    EXPECT_EQ(v.lblSaldo.testo(), "69,50");
    EXPECT_EQ(v.lblSaldo.tag(), "69,50");
}

TEST_F(Customer, OtherAccountsAreNotPartOfTheBalance) {
    registra("2026-01-01", "100", "0");
    n.sql("UPDATE PrimaNotaDettagli SET FK_CONTO = 3");
    EXPECT_EQ(getSaldoCliente(id).testo(), "0");
}

TEST_F(Customer, WithoutPostingsTheBalanceIsZero) {
    EXPECT_EQ(getSaldoCliente(id).testo(), "0");
}

TEST_F(Customer, LaterPostingsCountUnlessTheLimitIsToday) {
    registra("2026-03-16", "100", "0");
    registra("2026-03-17", "50", "0");
    EXPECT_EQ(getSaldoCliente(id).testo(), "150");
    gFidoAllaData = 1;
    EXPECT_EQ(getSaldoCliente(id).testo(), "100");
}

struct CreditLimit : Customer {
    void SetUp() override {
        n.prodotto({.codice = "P", .listino1 = 100});
        n.sql("UPDATE Anagrafiche SET SCONTO = 0");
    }
    // The limit, and a sale of 122,00.
    void conFido(const char* fido, const char* controllo) {
        n.sql(
            QString("UPDATE Anagrafiche SET FIDO = %1, CTRLFIDO = %2 WHERE NUMERO = 7").arg(fido, controllo));
        digitaCliente("7");
        vendi(c, "P");
    }
};

TEST_F(CreditLimit, AtTheLimitNothingBlinks) {
    conFido("122", "1");
    EXPECT_EQ(v.lblSaldo.testo(), "122,00");
    EXPECT_FALSE(c.timerAttivo(Timer::Fido));
    EXPECT_FALSE(v.pctFido.visibile());
}

TEST_F(CreditLimit, OneCentAboveItBlinks) {
    conFido("121.99", "1");
    EXPECT_TRUE(c.timerAttivo(Timer::Fido));
}

TEST_F(CreditLimit, SaleThatWasDroppedBeforeIsNotTakenOffTheBalance) {
    conFido("121.99", "1");
    n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", OperatorPort::Risposta::No);
    c.tasto(Qt::Key_F2);
    digitaCliente("7");
    vendi(c, "P");
    EXPECT_EQ(v.lblSaldo.testo(), "122,00");
    EXPECT_TRUE(c.timerAttivo(Timer::Fido));
}

TEST_F(CreditLimit, UnwatchedLimitNeverBlinks) {
    conFido("1", "0");
    EXPECT_FALSE(c.timerAttivo(Timer::Fido));
}

TEST_F(CreditLimit, BackUnderTheLimitItStops) {
    conFido("121.99", "1");
    c.clicRiga(1);
    n.operatore.attendiDomanda("Eliminare il prodotto [P]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    EXPECT_FALSE(c.timerAttivo(Timer::Fido));
    EXPECT_FALSE(v.pctFido.visibile());
}

TEST_F(Customer, FlaggedCustomerLights) {
    n.sql("UPDATE Anagrafiche SET SEGNALA = 1 WHERE NUMERO = 7");
    digitaCliente("7");
    EXPECT_TRUE(c.timerAttivo(Timer::Segnala));
    EXPECT_TRUE(v.pctSegnala.visibile());
}

TEST_F(Customer, OrdinaryCustomerDoesNotLight) {
    digitaCliente("7");
    EXPECT_FALSE(c.timerAttivo(Timer::Segnala));
}

// ---- The paid tick

TEST_F(Customer, WalkInCustomerHasAlwaysPaid) {
    const Vendita& banco = till.vendita();
    EXPECT_EQ(banco.chkPagato.valore(), 1);
    EXPECT_FALSE(banco.chkPagato.abilitato());
    EXPECT_FALSE(banco.cmdComando[13].abilitato());
}

TEST_F(Customer, NamedCustomersTickFollowsTheShop) {
    gPagatoAltriClienti = 0;
    digitaCliente("7");
    EXPECT_EQ(v.chkPagato.valore(), 0);
    EXPECT_TRUE(v.chkPagato.abilitato());
    EXPECT_TRUE(v.cmdComando[13].abilitato());
    gPagatoAltriClienti = 1;
    impostaPagatoCliente(v, false);
    EXPECT_EQ(v.chkPagato.valore(), 1);
}

TEST_F(Customer, TickThatIsKeptStays) {
    digitaCliente("7");
    v.chkPagato.valore(1);
    impostaPagatoCliente(v, true);
    EXPECT_EQ(v.chkPagato.valore(), 1);
}

TEST_F(Customer, SavedSalesTickIsItsPayment) {
    digitaCliente("7");
    v.lblRID.testo("3");
    v.idPNPagamento = 9;
    impostaPagatoCliente(v, false);
    EXPECT_EQ(v.chkPagato.valore(), 1);
    EXPECT_FALSE(v.chkPagato.abilitato());
    v.idPNPagamento = -1;
    impostaPagatoCliente(v, false);
    EXPECT_EQ(v.chkPagato.valore(), 0);
}

// ---- A document that waits for its print

struct WaitingDocument : Customer {
    void SetUp() override {
        n.sql(QString("INSERT INTO Movimenti (RID, PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, "
                      "FK_CONTROPARTITA, ID_CASSA) "
                      "VALUES (40,12,2026,'2026-03-10',1,%1,255)")
                  .arg(id));
    }
    // Enter on the customer behind a row that was rung up first.
    void digitaDopoUnaRiga(ContoDiProva& conto) {
        n.prodotto({.codice = "P", .listino1 = 100});
        conto.clic(conto.vendita().txtCodProdotto);
        vendi(conto, "P");
        n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
        n.operatore.attendiDomanda(righePerse, perseComunque);
        scrivi(conto, conto.vendita().txtCodCliente, "7");
        conto.invio();
    }
    OperatorPort::Risposta perseComunque = OperatorPort::Risposta::No;
    const QString righePerse =
        "Le righe già battute non sono state salvate e andrebbero perse.\n"
        "Mostrare comunque il documento esistente?";
    const QString domanda =
        "Attenzione per il cliente selezionato [ROSSI], \nesiste già un documento non ancora "
        "stampato.\nContinuare con quello esistente?";
};

TEST_F(WaitingDocument, YesShowsIt) {
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    digitaCliente("7");
    EXPECT_EQ(v.rid(), 40);
    EXPECT_EQ(v.txtProg.testo(), "0012");
}

TEST_F(WaitingDocument, NoStartsAnother) {
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::No);
    digitaCliente("7");
    EXPECT_EQ(v.rid(), -1);
    EXPECT_EQ(v.cliente(), id);
}

TEST_F(WaitingDocument, RowsRungUpBeforeTheCustomerStayOnNo) {
    digitaDopoUnaRiga(c);
    EXPECT_EQ(v.rid(), -1);
    EXPECT_EQ(v.cliente(), id);
    EXPECT_EQ(cella(v, 1, Colonna::Codice), "P");
    EXPECT_TRUE(v.venditaModificata);
}

TEST_F(WaitingDocument, RowsRungUpBeforeTheCustomerGoOnYes) {
    perseComunque = OperatorPort::Risposta::Si;
    digitaDopoUnaRiga(c);
    EXPECT_EQ(v.rid(), 40);
    EXPECT_EQ(v.flxVB.ultima(), 0);
    EXPECT_FALSE(v.venditaModificata);
}

TEST_F(WaitingDocument, RowsThatWereAllTakenAwayAreNothingToLose) {
    n.prodotto({.codice = "P", .listino1 = 100});
    c.clic(v.txtCodProdotto);
    vendi(c, "P");
    n.operatore.attendiDomanda("Eliminare il prodotto [P]?", OperatorPort::Risposta::Si);
    c.clicRiga(1);
    c.tasto(Qt::Key_F9);
    ASSERT_EQ(v.flxVB.ultima(), 1);
    ASSERT_TRUE(v.venditaModificata);
    n.operatore.attendiDomanda(domanda, OperatorPort::Risposta::Si);
    scrivi(c, v.txtCodCliente, "7");
    c.invio();
    EXPECT_EQ(v.rid(), 40);
    EXPECT_TRUE(n.operatore.esaurito());
}

TEST_F(WaitingDocument, RowsOfTheTillStayToo) {
    const QString contoUno =
        "Non è possibile utilizzare il CONTO1 per clienti diversi da quello predefinito.\n"
        "Aprire un nuovo conto?";
    n.operatore.attendiDomanda(contoUno, OperatorPort::Risposta::No);
    digitaDopoUnaRiga(till);
    EXPECT_EQ(till.vendita().rid(), -1);
    EXPECT_EQ(till.vendita().cliente(), id);
    EXPECT_EQ(cella(till.vendita(), 1, Colonna::Codice), "P");
}

TEST_F(WaitingDocument, PrintedOneIsNotOffered) {
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-11'");
    digitaCliente("7");
    EXPECT_EQ(v.rid(), -1);
}

TEST_F(WaitingDocument, AnotherDesksIsNotOffered) {
    n.sql("UPDATE Movimenti SET ID_CASSA = 3");
    digitaCliente("7");
    EXPECT_EQ(v.rid(), -1);
}

}  // namespace
