#include "counter/keys.h"
#include "gesti.h"
#include "sale/grid.h"

namespace {

using Timer = SchermoVendita::Timer;

struct Grid : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        n.prodotto({.codice = "A", .listino1 = 10, .descrizione = "Ascia"});
        n.prodotto({.codice = "B", .listino1 = 20, .idIva = 2});
        n.prodotto({.codice = "C", .listino1 = 30});
    }
    void venditeDiTre() {
        for (const char* codice : {"A", "B", "C"}) {
            vendi(c, codice);
        }
    }
};

TEST_F(Grid, HeadingIsFixed) {
    EXPECT_EQ(
        FlexVB::intestazione(),
        "Key|   |Mar|Codice       |ID_PRODOTTO|Descrizione           |Id Iva|CodIva|Desc Iva|IVA  |Q.tà  "
        "|OldQuantità|ID_UM|U.M.|P.Listino|Sconto%  |Sc1|Sc2|Sc3|P.Netto|P.Netto Esteso|Importo "
        "|Gestione|RID|Taglio|IDDIstintaBase|ScNetto|TotPrNetto|IvaProd|TotIvaProd|IDVenditore|DescVenditore|"
        "Ora|"
        "ElencoSpeciale|BloccaPrezzo");
    EXPECT_EQ(FlexVB::titoli().size(), 35);
}

TEST_F(Grid, NineColumnsAreShown) {
    QList<int> mostrate;
    for (int colonna = 0; colonna < numeroColonne; ++colonna) {
        if (FlexVB::mostrata(static_cast<Colonna>(colonna), 0)) mostrate << colonna;
    }
    EXPECT_EQ(mostrate, (QList<int>{1, 2, 3, 5, 9, 10, 13, 15, 21}));
}

TEST_F(Grid, VatColumnIsHiddenUnderPricesWithVat) {
    EXPECT_TRUE(FlexVB::mostrata(Colonna::Iva, 0));
    EXPECT_FALSE(FlexVB::mostrata(Colonna::Iva, 1));
    EXPECT_FALSE(FlexVB::mostrata(Colonna::Iva, 2));
}

TEST_F(Grid, AmountsStandRight) {
    for (const Colonna colonna :
         {Colonna::Iva, Colonna::Quantita, Colonna::Um, Colonna::ScontoTesto, Colonna::Importo}) {
        EXPECT_TRUE(FlexVB::allineataADestra(colonna));
    }
    for (const Colonna colonna : {Colonna::Marca, Colonna::Codice, Colonna::Descrizione}) {
        EXPECT_FALSE(FlexVB::allineataADestra(colonna));
    }
}

TEST_F(Grid, EmptyCellReadsAsZero) {
    const int r = v.flxVB.aggiungi();
    EXPECT_EQ(v.flxVB.currency(r, Colonna::Importo), Currency());
    EXPECT_EQ(v.flxVB.single(r, Colonna::Quantita), 0.0F);
    EXPECT_EQ(v.flxVB.chiave(r, Colonna::Rid), 0);
    EXPECT_EQ(v.flxVB.gestione(r), 0);
}

TEST_F(Grid, EmptiedGridHasOnlyItsHeading) {
    venditeDiTre();
    c.clicRiga(2);
    svuotaGriglia(v);
    EXPECT_EQ(v.flxVB.righe(), 1);
    EXPECT_EQ(v.flxVB.selezionata(), 0);
}

TEST_F(Grid, RowOfReadyCellsComesAtTheEndAndIsHeardOfOnce) {
    venditeDiTre();
    int inseriti = 0;
    int cambiati = 0;
    QObject::connect(&v.flxVB, &FlexVB::rowsInserted, &v.flxVB, [&] { ++inseriti; });
    QObject::connect(&v.flxVB, &FlexVB::dataChanged, &v.flxVB, [&] { ++cambiati; });
    TestiRiga celle;
    celle[Colonna::Codice] = "D";
    celle[Colonna::Gestione] = "3";
    EXPECT_EQ(v.flxVB.aggiungi(celle), 4);
    EXPECT_EQ(v.flxVB.cella(4, Colonna::Codice), "D");
    EXPECT_FALSE(v.flxVB.viva(4));
    EXPECT_GT(v.flxVB.revisione(4), v.flxVB.revisione(3));
    EXPECT_EQ(inseriti, 1);
    EXPECT_EQ(cambiati, 0);
}

TEST_F(Grid, ClickLoadsTheRowIntoTheEditor) {
    venditeDiTre();
    c.clicRiga(2);
    EXPECT_EQ(v.txtCodProdotto.testo(), "B");
    EXPECT_EQ(v.txtCodProdotto.chiave(), v.flxVB.chiave(2, Colonna::IdProdotto));
    EXPECT_EQ(v.txtQta.testo(), "1,00");
    EXPECT_EQ(v.txtIVA.testo(), "10");
    EXPECT_EQ(v.lblValoraIva.testo(), "10,00");
    EXPECT_EQ(v.txtPrezzoListino.testo(), "20,00");
    EXPECT_EQ(v.lblPrezzoListino.testo(), "20,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "22,00");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "20,00");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "22,00");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "22,00");
    EXPECT_EQ(v.lblPos.testo(), "2");
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
}

TEST_F(Grid, LoadedRowDividesItsAmountByTheQuantity) {
    c.digita("A");
    c.invio();
    scrivi(c, v.txtQta, "3");
    scrivi(c, v.txtSconto1, "10");
    c.tasto(Qt::Key_F6);
    c.clicRiga(1);
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "32,94");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "10,98");
    EXPECT_EQ(v.txtSconto1.testo(), "10,00");
}

TEST_F(Grid, ReturnRowShowsItsAbsoluteQuantity) {
    c.digita("A");
    c.invio();
    rendi(c, "2");
    c.clicRiga(1);
    EXPECT_EQ(v.txtQta.testo(), "2,00");
    EXPECT_EQ(v.chkReso.valore(), 1);
}

TEST_F(Grid, OrdinaryRowTakesTheReturnTickBack) {
    c.digita("A");
    c.invio();
    rendi(c, "2");
    vendi(c, "B");
    c.clicRiga(1);
    c.clicRiga(2);
    EXPECT_EQ(v.chkReso.valore(), 0);
}

TEST_F(Grid, ReturnRowIsRed) {
    c.digita("A");
    c.invio();
    rendi(c, "2");
    vendi(c, "B");
    EXPECT_EQ(v.flxVB.coloreTesto(1), 0xFF0000);
    EXPECT_NE(v.flxVB.coloreTesto(2), 0xFF0000);
}

TEST_F(Grid, EditedRowChangesInPlace) {
    venditeDiTre();
    c.clicRiga(2);
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(codiciVivi(v), (QStringList{"A", "B", "C"}));
    EXPECT_EQ(cella(v, 2, Colonna::Quantita), "4,00");
    EXPECT_EQ(cella(v, 2, Colonna::Importo), "88,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "136,80");  // 12,20 + 88,00 + 36,60
}

TEST_F(Grid, EditedSavedRowIsMarkedAsChanged) {
    venditeDiTre();
    v.flxVB.scrivi(2, Colonna::Rid, "77");
    v.flxVB.scrivi(2, Colonna::Gestione, "0");
    c.clicRiga(2);
    scrivi(c, v.txtQta, "4");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(v.flxVB.gestione(2), RigaModificata);
    EXPECT_EQ(cella(v, 2, Colonna::Rid), "77");
}

TEST_F(Grid, OnlyTheCurrentRowIsPainted) {
    venditeDiTre();
    c.clicRiga(1);
    c.clicRiga(3);
    EXPECT_EQ(v.flxVB.selezionata(), 3);
    EXPECT_EQ(v.flxVB.corrente(), 3);
    EXPECT_FALSE(v.selezioneInCorso);
}

TEST_F(Grid, PaintingHoldsWhileTheGridIsBeingRedrawn) {
    venditeDiTre();
    c.clicRiga(1);
    v.ridisegnoGriglia = true;
    v.flxVB.corrente(3);
    selectGridRow(v);
    EXPECT_EQ(v.flxVB.selezionata(), 1);
}

TEST_F(Grid, RowMadeCurrentComesIntoView) {
    venditeDiTre();
    selFlexRow(v, 2);
    EXPECT_EQ(c.rigaMostrata, 2);
    EXPECT_EQ(v.flxVB.corrente(), 2);
    EXPECT_EQ(v.flxVB.selezionata(), 2);
}

TEST_F(Grid, RowChangeDuringASelectionIsIgnored) {
    venditeDiTre();
    v.selezioneInCorso = true;
    flxVB_RowColChange(v, 1);
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
}

TEST_F(Grid, ComponentOfAKitIsPaintedButNotLoaded) {
    venditeDiTre();
    v.flxVB.scrivi(2, Colonna::IdDistintaBase, "1*");
    c.clicRiga(1);
    c.clicRiga(2);
    EXPECT_EQ(v.flxVB.selezionata(), 2);
    EXPECT_EQ(v.txtCodProdotto.testo(), "A");
    EXPECT_EQ(v.lblPos.testo(), "1");
}

TEST_F(Grid, ClickThatChangedTheRowLoadsItOnce) {
    venditeDiTre();
    flxVB_RowColChange(v, 1);
    EXPECT_TRUE(v.rigaGiaCaricata);
    v.txtDescProdotto.testo("segno");
    flxVB_Click(v, 1);
    EXPECT_EQ(v.txtDescProdotto.testo(), "segno");
    EXPECT_FALSE(v.rigaGiaCaricata);
}

TEST_F(Grid, SecondClickLoadsTheRowAgain) {
    venditeDiTre();
    c.clicRiga(1);
    v.txtDescProdotto.testo("segno");
    flxVB_Click(v, 1);
    EXPECT_EQ(v.txtDescProdotto.testo(), "Ascia");
}

TEST_F(Grid, ClickOutsideTheRowsIsIgnored) {
    venditeDiTre();
    c.clicRiga(1);
    for (const int riga : {0, 4, -1}) {
        c.clicRiga(riga);
        EXPECT_EQ(v.txtCodProdotto.testo(), "A") << riga;
    }
}

TEST_F(Grid, LoadedRowTellsWhenAndByWhomItWasSold) {
    venditeDiTre();
    v.flxVB.scrivi(1, Colonna::DescVenditore, "MARIO");
    v.flxVB.scrivi(1, Colonna::Ora, "16/03/2026 09:15:00");
    c.clicRiga(1);
    EXPECT_EQ(v.lblOperatoreScreen.testo(), "MARIO");
    EXPECT_TRUE(v.lblOra.testo().startsWith("Vendita del 16/03/2026 Ora: 09"))
        << v.lblOra.testo().toStdString();
}

TEST_F(Grid, ClosedSaleShowsOnlyWhenAndByWhom) {
    venditeDiTre();
    v.flxVB.scrivi(1, Colonna::DescVenditore, "MARIO");
    v.modificaConsentita = false;
    c.clicRiga(1);
    EXPECT_EQ(v.lblOperatoreScreen.testo(), "MARIO");
    EXPECT_EQ(v.txtCodProdotto.testo(), "");
    EXPECT_EQ(v.lblPos.testo(), "-1");
}

// ---- Stepping

TEST_F(Grid, SteppingThroughRowsAsksTheServerNothing) {
    venditeDiTre();
    ContaIstruzioni conta;
    for (const int riga : {1, 2, 3, 2}) {
        c.clicRiga(riga);
    }
    EXPECT_EQ(conta.istruzioni, QStringList{});
}

TEST_F(Grid, LoadedRowIsLookedUpAfterTheDelay) {
    venditeDiTre();
    gRitardoGriglia = 700;
    c.clicRiga(1);
    ASSERT_TRUE(c.timerAttivo(Timer::Griglia));
    EXPECT_EQ(c.intervallo(Timer::Griglia), 700);
    n.sql("UPDATE Prodotti SET UBICAZIONE = 'SCAF' || CODICE");
    c.scade(Timer::Griglia);
    EXPECT_EQ(v.lblUbicazione.testo(), "SCAFA");
}

TEST_F(Grid, ANegativeDelayCountsAsNone) {
    venditeDiTre();
    gRitardoGriglia = -5;
    c.clicRiga(1);
    ASSERT_TRUE(c.timerAttivo(Timer::Griglia));
    EXPECT_EQ(c.intervallo(Timer::Griglia), 0);
    n.sql("UPDATE Prodotti SET UBICAZIONE = 'SCAF' || CODICE");
    c.scade(Timer::Griglia);
    EXPECT_EQ(v.lblUbicazione.testo(), "SCAFA");
}

TEST_F(Grid, LookUpHappensOnce) {
    venditeDiTre();
    c.clicRiga(1);
    c.scade(Timer::Griglia);
    EXPECT_FALSE(c.timerAttivo(Timer::Griglia));
}

TEST_F(Grid, HeldKeyRunsTheTimerUntilItComesUp) {
    venditeDiTre();
    EXPECT_TRUE(Form_KeyDown(c, Qt::Key_Up, Qt::NoModifier));
    EXPECT_EQ(v.direzioneTasti, 1);
    ASSERT_TRUE(c.timerAttivo(Timer::Tasti));
    EXPECT_EQ(c.intervallo(Timer::Tasti), 100);
    EXPECT_TRUE(Form_KeyUp(c, Qt::Key_Up, Qt::NoModifier));
    EXPECT_FALSE(c.timerAttivo(Timer::Tasti));
}

TEST_F(Grid, TimerStepsDownToTheLastRow) {
    venditeDiTre();
    c.clicRiga(1);
    v.direzioneTasti = 2;
    TimerKeys_Timer(v);
    EXPECT_EQ(v.txtCodProdotto.testo(), "B");
    TimerKeys_Timer(v);
    TimerKeys_Timer(v);
    EXPECT_EQ(v.txtCodProdotto.testo(), "C");
    EXPECT_EQ(v.flxVB.selezionata(), 3);
    EXPECT_EQ(c.rigaMostrata, 3);
}

TEST_F(Grid, TimerStepsUpToTheFirstRow) {
    venditeDiTre();
    c.clicRiga(2);
    v.direzioneTasti = 1;
    TimerKeys_Timer(v);
    TimerKeys_Timer(v);
    EXPECT_EQ(v.txtCodProdotto.testo(), "A");
    EXPECT_EQ(v.flxVB.selezionata(), 1);
}

TEST_F(Grid, TimerDoesNothingOnAnEmptySale) {
    for (const int direzione : {1, 2}) {
        v.direzioneTasti = direzione;
        TimerKeys_Timer(v);
    }
    EXPECT_EQ(v.flxVB.selezionata(), 0);
    EXPECT_EQ(v.txtCodProdotto.chiave(), -1);
}

TEST_F(Grid, TapMovesOneRow) {
    venditeDiTre();
    c.clicRiga(1);
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(v.txtCodProdotto.testo(), "B");
    c.tasto(Qt::Key_Up);
    EXPECT_EQ(v.txtCodProdotto.testo(), "A");
}

TEST_F(Grid, SteppingPassesOverDeletedRows) {
    venditeDiTre();
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [B]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    c.clicRiga(1);
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(v.txtCodProdotto.testo(), "C");
    c.tasto(Qt::Key_Up);
    EXPECT_EQ(v.txtCodProdotto.testo(), "A");
}

TEST_F(Grid, DeletedLastRowIsNotReachedByStepping) {
    venditeDiTre();
    c.clicRiga(3);
    n.operatore.attendiDomanda("Eliminare il prodotto [C]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    c.clicRiga(2);
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(v.txtCodProdotto.testo(), "B");
}

TEST_F(Grid, StepLooksTheRowUpAfterANewDelay) {
    venditeDiTre();
    c.clicRiga(1);
    c.scade(Timer::Griglia);
    c.tasto(Qt::Key_Down);
    EXPECT_TRUE(c.timerAttivo(Timer::Griglia));
}

}  // namespace
