#include "counter/operator_entry.h"
#include "counter_shop.h"
#include "data/server_driver.h"

namespace {

// A shop with two operators: Marta with the code 1 and the badge 990001, Giulio with O'B and 990002.
class OperatorEntry : public BancoDiProva {
  protected:
    OperatorEntry() {
        n.sql("INSERT INTO Venditori (CODICE, DESCRIZIONE, CODICEEXTRA) VALUES ('1', 'Marta', '990001')");
        n.sql("INSERT INTO Venditori (CODICE, DESCRIZIONE, CODICEEXTRA) VALUES ('O''B', 'Giulio', '990002')");
    }
    int rid(const QString& nome) {
        return n.valore("SELECT RID FROM Venditori WHERE DESCRIZIONE = '" + nome + "'").toInt();
    }
    // The operator presses the button and enters these codes, one after the other.
    void entra(ContoDiProva& c, const QStringList& codici) {
        c.codiciVenditore.assign(codici.begin(), codici.end());
        c.premiOperatore();
        EXPECT_TRUE(c.codiciVenditore.empty()) << "codici non chiesti";
    }
};

TEST_F(OperatorEntry, TheOneWithThatCodeSellsFromNowOn) {
    ContoDiProva& c = n.apriConto();
    entra(c, {"1"});
    EXPECT_EQ(gIDVenditore, rid("Marta"));
    EXPECT_EQ(gDescVenditore, "Marta");
    EXPECT_EQ(c.vendita().lblVenditore.tag(), QString::number(rid("Marta")));
    EXPECT_EQ(c.vendita().lblVenditore.testo(), "Marta");
}

TEST_F(OperatorEntry, TheExtraCodeIsAsGoodAsTheCode) {
    entra(n.apriConto(), {"990002"});
    EXPECT_EQ(gDescVenditore, "Giulio");
}

TEST_F(OperatorEntry, AnApostropheInTheCodeIsALetterLikeAnyOther) {
    entra(n.apriConto(), {"O'B"});
    EXPECT_EQ(gDescVenditore, "Giulio");
}

TEST_F(OperatorEntry, ACodeThatLooksLikeSQLFindsNobody) {
    entra(n.apriConto(), {"' OR '1' = '1", "x¤ OR ¤1¤ = ¤1", "%", ""});
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(OperatorEntry, NothingEnteredLeavesTheOperatorAsItWas) {
    ContoDiProva& c = n.apriConto();
    entra(c, {"1"});
    entra(c, {""});
    EXPECT_EQ(gIDVenditore, rid("Marta"));
    EXPECT_EQ(c.vendita().lblVenditore.testo(), "Marta");
}

TEST_F(OperatorEntry, AnUnknownCodeLeavesTheOperatorAndIsAskedAgainWithTheReason) {
    ContoDiProva& c = n.apriConto();
    entra(c, {"1"});
    c.richiesteVenditore.clear();
    entra(c, {"77", ""});
    EXPECT_EQ(gIDVenditore, rid("Marta"));
    ASSERT_EQ(c.richiesteVenditore.size(), 2U);
    EXPECT_FALSE(c.richiesteVenditore[0].rifiutato);
    EXPECT_TRUE(c.richiesteVenditore[1].rifiutato);
    EXPECT_EQ(c.richiesteVenditore[1].codice, "77");
}

TEST_F(OperatorEntry, OneDialogueAnswersZeroOneOrTwo) {
    ContoDiProva& c = n.apriConto();
    QString codice;
    c.codiciVenditore = {"", "77", "1"};
    EXPECT_EQ(selectVenditore(c, {}, codice), EsitoVenditore{0});
    EXPECT_EQ(selectVenditore(c, {}, codice), EsitoVenditore{1});
    EXPECT_EQ(selectVenditore(c, {}, codice), EsitoVenditore{2});
}

TEST_F(OperatorEntry, ANameOf21CharactersIsShownWholeAndALongerOneIsCut) {
    const QString ventuno(21, u'a');
    n.sql("INSERT INTO Venditori (CODICE, DESCRIZIONE) VALUES ('21', '" + ventuno + "')");
    n.sql("INSERT INTO Venditori (CODICE, DESCRIZIONE) VALUES ('22', '" + ventuno + "b')");
    ContoDiProva& c = n.apriConto();
    entra(c, {"21"});
    EXPECT_EQ(c.vendita().lblVenditore.testo(), ventuno);
    entra(c, {"22"});
    EXPECT_EQ(c.vendita().lblVenditore.testo(), ventuno + "…");
    EXPECT_EQ(gDescVenditore, ventuno + "b");
}

TEST_F(OperatorEntry, RowsCarryTheOneWhoSoldThem) {
    n.prodotto({.codice = "B", .listino1 = 2, .barcode = "8002"});
    ContoDiProva& c = n.apriConto();
    entra(c, {"1"});
    c.scansiona("8001");
    entra(c, {"990002"});
    c.scansiona("8002");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::DescVenditore), "Marta");
    EXPECT_EQ(c.vendita().flxVB.cella(2, Colonna::DescVenditore), "Giulio");
    EXPECT_EQ(c.vendita().flxVB.chiave(2, Colonna::IdVenditore), rid("Giulio"));
}

TEST_F(OperatorEntry, AServerThatFailsIsReportedAndNotAskedAgain) {
    ContoDiProva& c = n.apriConto();
    entra(c, {"1"});
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.contains("Venditori")) return std::nullopt;
        ErroreServer errore;
        errore.classe = ErroreServer::Classe::Altro;
        errore.codice = 1;
        errore.descrizione = "guasto";
        return errore;
    };
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain.selectVenditore");
    entra(c, {"990002"});
    sondaIstruzioni() = {};
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(OperatorEntry, WhatIsBeingTypedIsTakenBeforeTheDialogueOpens) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("3");
    entra(c, {""});
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "3,00");
}

TEST_F(OperatorEntry, ADisabledButtonAsksNothing) {
    ContoDiProva& c = n.apriConto();
    c.vendita().cmdOperatore.abilitato(false);
    c.premiOperatore();
    EXPECT_TRUE(c.richiesteVenditore.empty());
}

TEST_F(OperatorEntry, AnotherAccountShowsTheSameOperatorWhenItComesToTheFront) {
    ContoDiProva& primo = n.apriConto(0);
    ContoDiProva& secondo = n.apriConto(1);
    entra(secondo, {"1"});
    attivaConto(primo);
    EXPECT_EQ(primo.vendita().lblVenditore.testo(), "Marta");
    EXPECT_EQ(primo.vendita().lblVenditore.tag(), QString::number(rid("Marta")));
}

// ---- Where every sale needs an operator

class RequiredOperator : public OperatorEntry {
  protected:
    RequiredOperator() { gVenditoriObbligatori = 1; }
    // The screen may be gone again when it answers; the shop keeps it for the test to look at.
    ContoDiProva& apri(const QStringList& codici, int indice = 0) {
        ContoDiProva* aperto = nullptr;
        n.allaProssimaApertura = [&](ContoDiProva& c) {
            aperto = &c;
            c.codiciVenditore.assign(codici.begin(), codici.end());
        };
        getConto(indice, false);
        return *aperto;
    }
};

TEST_F(RequiredOperator, ANewScreenAsksOnceAndStays) {
    const ContoDiProva& c = apri({"1"});
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.richiesteVenditore.size(), 1U);
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(RequiredOperator, ANewScreenWithoutOneClosesItselfAgain) {
    const ContoDiProva& c = apri({""});
    EXPECT_TRUE(c.eliminato);
    EXPECT_EQ(c.richiesteVenditore.size(), 1U);
    EXPECT_FALSE(gConti[0]);
    EXPECT_TRUE(n.terminato);
}

TEST_F(RequiredOperator, AnotherAccountWithoutOneLeavesTheFirstOpen) {
    apri({"1"});
    gIDVenditore = -1;
    apri({""}, 1);
    EXPECT_TRUE(gConti[0]);
    EXPECT_FALSE(gConti[1]);
    EXPECT_FALSE(n.terminato);
}

TEST_F(RequiredOperator, WhoIsLoggedOnIsNotAskedAgain) {
    apri({"1"});
    EXPECT_TRUE(apri({}, 1).richiesteVenditore.empty());
}

TEST_F(RequiredOperator, AScreenThatShowsASavedSaleAsksToo) {
    gVenditoriObbligatori = 0;
    contoConCliente(1).tasto(Qt::Key_F5);
    ASSERT_EQ(vendite(), 1);
    gVenditoriObbligatori = 1;
    ContoDiProva* aperto = nullptr;
    n.allaProssimaApertura = [&](ContoDiProva& c) {
        aperto = &c;
        c.codiciVenditore = {""};
    };
    apriContoConVendita(n.valore("SELECT RID FROM Movimenti").toInt());
    ASSERT_NE(aperto, nullptr);
    EXPECT_EQ(aperto->richiesteVenditore.size(), 1U);
    EXPECT_TRUE(aperto->eliminato);
}

TEST_F(RequiredOperator, EveryNewSaleAsksAgainWhereTheShopSaysSo) {
    gVenditoriBlocco = 1;
    ContoDiProva& c = apri({"1"});
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    ASSERT_EQ(vendite(), 1);
    c.codiciVenditore = {"990002"};
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(gDescVenditore, "Giulio");
    EXPECT_EQ(c.vendita().lblVenditore.testo(), "Giulio");
}

TEST_F(RequiredOperator, WithoutThatRuleTheOperatorStaysAfterASave) {
    ContoDiProva& c = apri({"1"});
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(gDescVenditore, "Marta");
    EXPECT_EQ(c.richiesteVenditore.size(), 1U);
}

// ---- The badge

class Badge : public OperatorEntry {
  protected:
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(Badge, AScannedOneChangesTheOperatorWithoutADialogue) {
    c.scansiona("V1");
    EXPECT_EQ(gDescVenditore, "Marta");
    EXPECT_TRUE(c.richiesteVenditore.empty());
}

TEST_F(Badge, ItsExtraCodeDoesToo) {
    c.scansiona("V990002");
    EXPECT_EQ(gDescVenditore, "Giulio");
}

TEST_F(Badge, ItLeavesNoKeyBehind) {
    c.scansiona("V990002");
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_FALSE(v.mDaLaser);
    EXPECT_EQ(v.flxVB.ultima(), 0);
    c.scansiona("8001");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Codice), "A");
}

TEST_F(Badge, AScanInTheMiddleOfASaleKeepsItsRows) {
    c.scansiona("8001");
    c.scansiona("V1");
    c.scansiona("8001");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "2,00");
    EXPECT_EQ(v.flxVB.ultima(), 1);
}

TEST_F(Badge, OneThatNobodyHasAsksForTheCode) {
    c.codiciVenditore = {"1"};
    c.scansiona("V555");
    ASSERT_EQ(c.richiesteVenditore.size(), 1U);
    EXPECT_EQ(c.richiesteVenditore[0].codice, "555");
    EXPECT_TRUE(c.richiesteVenditore[0].rifiutato);
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(Badge, ItsMarkAloneOpensTheDialogueAfterAMoment) {
    c.codiciVenditore = {"1"};
    c.digita("$V");
    EXPECT_TRUE(c.richiesteVenditore.empty());
    EXPECT_TRUE(c.scade(SchermoVendita::Timer::Badge));
    EXPECT_EQ(gDescVenditore, "Marta");
    EXPECT_FALSE(c.timerAttivo(SchermoVendita::Timer::Badge));
}

TEST_F(Badge, ItsMarkAndEnterOpenTheDialogueToo) {
    c.codiciVenditore = {"1"};
    c.scansiona("V");
    EXPECT_EQ(gDescVenditore, "Marta");
}

TEST_F(Badge, ACodeWithoutEnterStandsInTheDialogue) {
    c.codiciVenditore = {"990001"};
    c.digita("$V9900");
    c.scade(SchermoVendita::Timer::Badge);
    ASSERT_EQ(c.richiesteVenditore.size(), 1U);
    EXPECT_EQ(c.richiesteVenditore[0].codice, "9900");
    EXPECT_FALSE(c.richiesteVenditore[0].rifiutato);
}

TEST_F(Badge, TheNextScanEndsOneWithoutEnter) {
    c.digita("$V990001");
    c.scansiona("8001");
    EXPECT_EQ(gDescVenditore, "Marta");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::DescVenditore), "Marta");
}

TEST_F(Badge, ItsMarkInsideACodeIsALetterOfIt) {
    n.prodotto({.codice = "8V1", .listino1 = 3});
    c.scansiona("8V1");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Codice), "8V1");
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(Badge, ItsMarkTypedWithoutThePrefixIsALetter) {
    n.prodotto({.codice = "V1", .listino1 = 3});
    c.clic(v.txtCodProdotto);
    c.digita("V1");
    c.invio();
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Codice), "V1");
    EXPECT_EQ(gIDVenditore, -1);
}

TEST_F(Badge, WithoutTheOptionNoScanIsOne) {
    gVenditoreChar.clear();
    n.prodotto({.codice = "V1", .listino1 = 3});
    c.scansiona("V1");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Codice), "V1");
}

}  // namespace
