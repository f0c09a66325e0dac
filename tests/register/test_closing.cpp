#include <QRegularExpression>

#include "register/shop_with_register.h"

// The till closes while the register has not printed everything.
class Closing : public NegozioConRegistratore {
  protected:
    using Risposta = OperatorPort::Risposta;
    void tace() {
        connetti();
        peer.risposta = [](const QByteArray&) { return QByteArray(); };
    }
    ContoDiProva& contoConVendita(int indice = 0) {
        ContoDiProva& c = n.apriConto(indice);
        if (indice > 0) {
            n.cliente(7, "ROSSI");
            c.digita("7");
            c.invio();
        }
        vendi(c, "A");
        return c;
    }
    void chiedeSeChiudere(const QString& quanti, Risposta risposta, std::function<void()> prima = {}) {
        n.operatore.attendiDomanda("Il registratore di cassa non ha finito di stampare: " + quanti +
                                       " in attesa.\nChiudere comunque?",
                                   risposta, std::move(prima));
    }
    void salvaAllaChiusura() {
        n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", Risposta::Si);
    }
};

TEST_F(Closing, ReceiptOfTheSaleThatTheClosingSavedIsPrintedWhileTheQuestionIsUp) {
    connetti();
    contoConVendita();
    salvaAllaChiusura();
    chiedeSeChiudere("1 scontrino", Risposta::Si, [this] {
        EXPECT_TRUE(diventa([this] { return finito() && peer.cornici().size() == 3; }));
    });
    EXPECT_TRUE(chiudiTuttiIConti());
    EXPECT_TRUE(n.terminato);
    EXPECT_EQ(n.registroErrori(), "");
}

TEST_F(Closing, RefusalLeavesTheSavedSaleOnTheScreen) {
    connetti();
    ContoDiProva& c = contoConVendita();
    salvaAllaChiusura();
    chiedeSeChiudere("1 scontrino", Risposta::No);
    c.tasto(Qt::Key_F10);
    EXPECT_FALSE(n.terminato);
    EXPECT_GT(c.vendita().rid(), 0);
    EXPECT_FALSE(c.vendita().venditaModificata);
    c.tasto(Qt::Key_F5);
    EXPECT_TRUE(diventa([this] { return finito(); }));
    EXPECT_EQ(peer.cornici().size(), 3);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
}

TEST_F(Closing, RefusalLeavesASaleThatWasNotToBeSavedAsItIs) {
    tace();
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    vendi(c, "B");
    n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", Risposta::No);
    chiedeSeChiudere("1 scontrino", Risposta::No);
    EXPECT_FALSE(chiudiTuttiIConti());
    EXPECT_TRUE(c.vendita().venditaModificata);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Closing, EnterKeepsTheProgramOpen) {
    tace();
    contoConVendita().tasto(Qt::Key_F5);
    chiedeSeChiudere("1 scontrino", Risposta::No);
    EXPECT_FALSE(chiudiTuttiIConti());
    EXPECT_EQ(n.operatore.visti.back().pulsanti.first(), "No");
}

TEST_F(Closing, SeveralReceiptsAreCounted) {
    tace();
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    vendi(c, "B");
    c.tasto(Qt::Key_F5);
    chiedeSeChiudere("2 scontrini", Risposta::Si);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.terminato);
}

TEST_F(Closing, LastAccountThatItsSaveClosesAsksToo) {
    tace();
    ContoDiProva& c = contoConVendita(1);
    chiedeSeChiudere("1 scontrino", Risposta::No);
    c.tasto(Qt::Key_F5);
    EXPECT_FALSE(n.terminato);
    EXPECT_GT(c.vendita().rid(), 0);
}

TEST_F(Closing, AccountThatIsNotTheLastClosesUnasked) {
    tace();
    n.apriConto(0);
    contoConVendita(1).tasto(Qt::Key_F5);
    EXPECT_EQ(gConti[1], nullptr);
    EXPECT_EQ(link.scontrini.inAttesa(), 1);
}

TEST_F(Closing, WhatTheRegisterHasPrintedOrNeverGetsAsksNothing) {
    connetti();
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    ASSERT_TRUE(diventa([this] { return finito() && peer.cornici().size() == 3; }));
    link.interrompi();
    c.tasto(Qt::Key_F2);
    vendi(c, "B");
    c.tasto(Qt::Key_F5);
    EXPECT_TRUE(chiudiTuttiIConti());
}

TEST_F(Closing, ReceiptThatALostLinkCutBehindItsLastCommandIsNotWaitedFor) {
    connetti();
    peer.risposta = [this](const QByteArray&) {
        if (peer.cornici().size() == 3) peer.riaggancia();
        return QByteArray("\6");
    };
    contoConVendita().tasto(Qt::Key_F5);
    ASSERT_TRUE(diventa([this] { return !link.statoConnessione(); }));
    EXPECT_EQ(link.scontrini.inAttesa(), 0);
    EXPECT_TRUE(chiudiTuttiIConti());
}

TEST_F(Closing, EndOfTheSessionAsksNothingAboutTheRegister) {
    tace();
    contoConVendita().tasto(Qt::Key_F5);
    EXPECT_TRUE(chiudiTuttiIConti(Chiusura::FineSessione));
    EXPECT_TRUE(n.terminato);
}

TEST_F(Closing, EndOfTheSessionWhileTheQuestionIsUpHoldsBehindTheAnswer) {
    tace();
    contoConVendita().tasto(Qt::Key_F5);
    chiedeSeChiudere("1 scontrino", Risposta::No,
                     [] { EXPECT_FALSE(chiudiTuttiIConti(Chiusura::FineSessione)); });
    EXPECT_TRUE(chiudiTuttiIConti());
    EXPECT_TRUE(n.terminato);
}

TEST_F(Closing, SalesWithoutAReceiptGoToTheErrorLogBeforeTheProgramEnds) {
    tace();
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    link.interrompi();
    n.orologio.istante = n.orologio.istante.addSecs(60);
    c.tasto(Qt::Key_F2);
    vendi(c, "B");
    c.tasto(Qt::Key_F5);
    QStringList righe;
    impostaChiudiApplicazione(
        [&] { righe = n.registroErrori().split(u'\n').filter(QRegularExpression("^(Avanz|Descr)")); });
    chiudiTuttiIConti(Chiusura::FineSessione);
    impostaChiudiApplicazione({});
    const QString titolo = "Descr. Vendita senza scontrino alla chiusura";
    EXPECT_EQ(righe,
              (QStringList{titolo, "Avanz. N° 0001/0001 del 16/03/2026, € 12,20: in attesa del registratore",
                           titolo, "Avanz. N° 0001/0002 del 16/03/2026, € 1,99: invio sospeso"}));
}
