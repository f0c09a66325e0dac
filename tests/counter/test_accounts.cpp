#include "core/run_time_error.h"
#include "counter/commands.h"
#include "counter/counter_shop.h"

namespace {

class Accounts : public BancoDiProva {};

constexpr unsigned verde = 0x00FF00;
constexpr unsigned arancio = 0xFF8000;

}  // namespace

TEST_F(Accounts, FirstAccountStartsWithTheWalkInCustomer) {
    const Vendita& v = n.apriConto().vendita();
    EXPECT_EQ(v.cliente(), 1);
    EXPECT_EQ(v.lblDescCliente.testo(), "CLIENTE DEL BANCO");
    EXPECT_EQ(v.lblConto.testo(), "1");
    EXPECT_EQ(v.lblCassa.testo(), "255");
    EXPECT_EQ(v.txtData.testo(), "16/03/2026");
    EXPECT_EQ(v.txtProg.testo(), "(Auto)");
    EXPECT_EQ(v.lblTotConto.testo(), "0,00");
}

TEST_F(Accounts, FirstAccountWaitsForAProduct) {
    ContoDiProva& c = n.apriConto();
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
}

TEST_F(Accounts, FurtherAccountStartsWithoutACustomerAndWaitsForOne) {
    n.apriConto();
    for (int i = 1; i < contiMassimi; ++i) {
        ContoDiProva& c = n.apriConto(i);
        EXPECT_EQ(c.vendita().txtCodCliente.testo(), "");
        EXPECT_EQ(c.vendita().txtCodCliente.tag(), "-1");
        EXPECT_EQ(c.vendita().lblDescCliente.testo(), "");
        EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodCliente);
        EXPECT_EQ(c.vendita().lblConto.testo(), QString::number(i + 1));
    }
}

TEST_F(Accounts, OpenAccountIsOnlyShown) {
    ContoDiProva& c = contoConVendita();
    const int prima = c.mostrate;
    getConto(0, false);
    EXPECT_EQ(c.mostrate, prima + 1);
    EXPECT_EQ(gConti[0].get(), &c);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Accounts, OpenNamedAccountKeepsItsCustomerWhenShown) {
    n.apriConto();
    ContoDiProva& c = contoConCliente(1);
    getConto(1, true);
    EXPECT_EQ(c.vendita().txtCodCliente.testo(), "7");
}

TEST_F(Accounts, IndexOutOfTheArrayIsARangeError) {
    for (const int indice : {-1, 4, 99}) {
        try {
            getConto(indice, false);
            ADD_FAILURE() << indice;
        } catch (const RunTimeError& errore) {
            EXPECT_EQ(errore.numero(), RunTimeError::IndiceNonValido);
        }
    }
}

TEST_F(Accounts, EachAccountHasASaleOfItsOwn) {
    contoConVendita(0);
    n.apriConto(1);
    EXPECT_EQ(n.vendita(0).flxVB.ultima(), 1);
    EXPECT_EQ(n.vendita(1).flxVB.ultima(), 0);
}

TEST_F(Accounts, ProcessEndsOnlyWithTheLastAccountInAnyOrder) {
    const std::vector<std::vector<int>> ordini{{0, 1, 2, 3}, {3, 2, 1, 0}, {1, 3, 0, 2}};
    for (const auto& ordine : ordini) {
        Negozio altro;
        for (int i = 0; i < contiMassimi; ++i) {
            altro.apriConto(i);
        }
        for (const int indice : ordine) {
            EXPECT_FALSE(altro.terminato);
            gConti[static_cast<size_t>(indice)]->scarica();
            EXPECT_FALSE(gConti[static_cast<size_t>(indice)]);
        }
        EXPECT_TRUE(altro.terminato);
    }
}

TEST_F(Accounts, PlaceJustFreedIsFilledAgain) {
    n.apriConto(0);
    n.apriConto(1);
    gConti[0]->scarica();
    EXPECT_FALSE(n.terminato);
    cmdConto_Click(*gConti[1], 0);
    ASSERT_TRUE(gConti[0]);
    EXPECT_EQ(n.vendita(0).cliente(), 1);
}

TEST_F(Accounts, ClosedScreenIsMarked) {
    n.apriConto(0);
    ContoDiProva& c = n.apriConto(1);
    c.scarica();
    EXPECT_TRUE(c.vendita().inChiusura);
    EXPECT_TRUE(c.eliminato);
}

TEST_F(Accounts, ButtonsShowOpenFreeAndOwn) {
    ContoDiProva& c = n.apriConto(0);
    n.apriConto(2);
    EXPECT_TRUE(attivaConto(c));
    EXPECT_EQ(c.vendita().cmdConto[0].coloreFondo(), arancio);
    EXPECT_EQ(c.vendita().cmdConto[1].coloreFondo(), std::nullopt);
    EXPECT_EQ(c.vendita().cmdConto[2].coloreFondo(), verde);
    EXPECT_EQ(c.vendita().cmdConto[3].coloreFondo(), std::nullopt);
}

TEST_F(Accounts, ActivationBehindADialogueOfTheSystemLeavesTheFocus) {
    ContoDiProva& c = n.apriConto(0);
    gModaleAperta = true;
    EXPECT_FALSE(attivaConto(c));
}

TEST_F(Accounts, DeskWithoutSettingsHasItsDefaultNumber) {
    EXPECT_EQ(gIDCassa, 255);
}

TEST_F(Accounts, WildcardTickComesFromTheSettings) {
    n.impostazioni.valori[{"prgBottegonClientVB", "Options", "ChkLike_Prodotto"}] = "1";
    EXPECT_EQ(n.apriConto().vendita().chkCodiceProdotto.valore(), 1);
}

TEST_F(Accounts, RegisterLampShowsOnlyWithARegister) {
    EXPECT_FALSE(n.apriConto(0).vendita().lblRegCassa.visibile());
    gRegCassa = "Prova";
    EXPECT_TRUE(n.apriConto(1).vendita().lblRegCassa.visibile());
}

TEST_F(Accounts, StartWithASaleShowsIt) {
    contoConVendita().tasto(Qt::Key_F5);
    const int rid = n.vendita().rid();
    gConti[0]->scarica();
    n.terminato = false;
    ContoDiProva& c = n.apriConto(0);
    startMe(c, 0, rid, 0);
    EXPECT_EQ(c.vendita().rid(), rid);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Accounts, NoHourglassIsLeft) {
    n.apriConto(0);
    EXPECT_EQ(n.operatore.clessidre, 0);
}

// ---- All accounts full

TEST_F(Accounts, FifthAccountIsRefused) {
    for (int i = 0; i < contiMassimi; ++i) {
        n.apriConto(i);
    }
    n.operatore.attendiMessaggio("Nessun conto disponibile!\nChiudere prima un conto e riprovare.",
                                 OperatorPort::Icona::Critica);
    EXPECT_FALSE(gConti[0]->apriNuovoConto({}));
}

TEST_F(Accounts, NewAccountTakesTheLowestFreePlace) {
    n.apriConto(0);
    n.apriConto(1);
    n.apriConto(2);
    gConti[1]->scarica();
    EXPECT_TRUE(gConti[0]->apriNuovoConto({}));
    EXPECT_TRUE(gConti[1]);
    EXPECT_FALSE(gConti[3]);
}

TEST_F(Accounts, NewAccountForACustomerHasIt) {
    const int rossi = n.cliente(7, "ROSSI");
    n.apriConto(0);
    EXPECT_TRUE(gConti[0]->apriNuovoConto("7"));
    EXPECT_EQ(n.vendita(1).cliente(), rossi);
}

// ---- Leaving the program

TEST_F(Accounts, LeavingAsksForEveryUnsavedSaleFrontFirst) {
    contoConVendita(0);
    contoConCliente(1);
    rispondeAlSalvataggio(Risposta::No);
    n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", Risposta::Si,
                               [&] { EXPECT_FALSE(gConti[0]); });
    EXPECT_TRUE(chiudiTuttiIConti());
    EXPECT_TRUE(n.terminato);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(Accounts, LeavingStopsAtTheFirstCancel) {
    contoConVendita(0);
    contoConCliente(1);
    rispondeAlSalvataggio(Risposta::No);
    rispondeAlSalvataggio(Risposta::Annulla);
    EXPECT_FALSE(chiudiTuttiIConti());
    EXPECT_FALSE(n.terminato);
    EXPECT_EQ(n.vendita(1).flxVB.ultima(), 1);
}

TEST_F(Accounts, LeavingWithNothingToSaveAsksNothing) {
    n.apriConto(0);
    n.apriConto(1);
    EXPECT_TRUE(chiudiTuttiIConti());
    EXPECT_TRUE(n.terminato);
}

TEST_F(Accounts, ClosingAllEndsTheFieldThatIsBeingTypedIn) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("5");
    rispondeAlSalvataggio(Risposta::Si);
    EXPECT_TRUE(chiudiTuttiIConti());
    EXPECT_EQ(n.valore("SELECT QUANTITA FROM DettagliMovimento"), "5");
}

TEST_F(Accounts, ClosingAllAgainWhileTheQuestionIsUpIsNoAnswer) {
    contoConVendita();
    bool dentro = true;
    n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", Risposta::Annulla,
                               [&] { dentro = chiudiTuttiIConti(); });
    EXPECT_FALSE(chiudiTuttiIConti());
    EXPECT_FALSE(dentro);
    EXPECT_FALSE(n.terminato);
}

TEST_F(Accounts, NoNewAccountOnAnotherDayWhenTheShopForbidsIt) {
    ContoDiProva& c = n.apriConto();
    gVenditeGiorniDiversi = 1;
    gBloccaVenditeGiorniDiversi = true;
    n.orologio.istante = n.orologio.istante.addDays(1);
    n.operatore.attendiMessaggio(
        "Attenzione, la Data della Vendita corrente è diversa dalla Data attuale.\nImpossibile continuare!",
        OperatorPort::Icona::Critica);
    EXPECT_EQ(c.apriNuovoConto({}), nullptr);
    EXPECT_EQ(gConti[1], nullptr);
}
