#include "counter/commands.h"
#include "counter/counter_shop.h"

namespace {

class Commands : public BancoDiProva {};

}  // namespace

// ---- F2

TEST_F(Commands, NewSaleOverNothingAsksNothing) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().flxVB.righe(), 1);
}

TEST_F(Commands, NewSaleOnCancelKeepsTheSale) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Annulla);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_TRUE(c.vendita().pctSave.visibile());
}

TEST_F(Commands, NewSaleOnNoDropsTheSale) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
    EXPECT_FALSE(c.vendita().venditaModificata);
    EXPECT_EQ(vendite(), 0);
}

TEST_F(Commands, NewSaleOnYesSavesFirst) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Si);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}

TEST_F(Commands, NewSaleRemembersTheLastTotal) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    EXPECT_EQ(c.vendita().lblLastMainDisplay.testo(), "12,20");
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "0,00");
}

// ---- F5

TEST_F(Commands, BalanceCountsWhatIsSavedNoLonger) {
    ContoDiProva& c = contoConVendita();
    const Vendita& v = c.vendita();
    EXPECT_EQ(v.lblSaldo.testo(), "12,20");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(v.lblLastMainDisplay.testo(), "12,20");
    c.scansiona("8001");
    EXPECT_EQ(v.lblMainDisplay.testo(), "24,40");
    EXPECT_EQ(v.lblSaldo.testo(), "12,20");  // the journal has nothing open: it was paid
}

TEST_F(Commands, SaveOnTheFirstAccountStays) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "12,20");
}

TEST_F(Commands, SaveOnAFurtherAccountCloses) {
    n.apriConto(0);
    ContoDiProva& c = contoConCliente(2);
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 1);
    EXPECT_TRUE(c.eliminato);
    EXPECT_FALSE(gConti[2]);
    EXPECT_FALSE(n.terminato);
}

TEST_F(Commands, SaveOfTheOnlyFurtherAccountEndsTheProcess) {
    ContoDiProva& c = contoConCliente(1);
    c.tasto(Qt::Key_F5);
    EXPECT_TRUE(n.terminato);
}

TEST_F(Commands, FiveImpatientSavesBookOneSale) {
    ContoDiProva& c = contoConVendita();
    for (int i = 0; i < 5; ++i) {
        c.tasto(Qt::Key_F5);
    }
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(n.conta("DettagliMovimento"), 1);
}

TEST_F(Commands, SaveTakesTheQuantityStillBeingTyped) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("3");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT QUANTITA + 0.0 FROM DettagliMovimento"), "3");
    EXPECT_EQ(n.valore("SELECT TOTDOCUMENTO FROM Movimenti"), "36.6");
}

TEST_F(Commands, SaleOfTheOldYearIsShownAfterMidnight) {
    n.orologio.istante = QDateTime(QDate(2026, 12, 31), QTime(23, 59));
    ContoDiProva& c = contoConVendita();
    n.orologio.istante = QDateTime(QDate(2027, 1, 1), QTime(0, 1));
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(c.vendita().lblRID.testo(), n.valore("SELECT RID FROM Movimenti"));
    EXPECT_EQ(c.vendita().txtData.testo(), "31/12/2026");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

// ---- F6

TEST_F(Commands, NewRowEmptiesTheEditorAndWaitsForACode) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(c.vendita().txtCodProdotto.testo(), "");
    EXPECT_EQ(c.vendita().txtCodProdotto.tag(), "-1");
    EXPECT_EQ(c.vendita().lblPos.testo(), "-1");
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Commands, NewRowCommitsTheEditor) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.digita("2");
    c.tasto(Qt::Key_F6);
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "2,00");
}

// ---- F9

TEST_F(Commands, RemovedRowIsMarkedAndNotCounted) {
    ContoDiProva& c = contoConVendita();
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::Si);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(c.vendita().flxVB.gestione(1), RigaCancellata);
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "0,00");
}

TEST_F(Commands, RemovalIsAskedForAndMayBeRefused) {
    ContoDiProva& c = contoConVendita();
    n.operatore.attendiDomanda("Eliminare il prodotto [Vite]?", Risposta::No);
    c.tasto(Qt::Key_F9);
    EXPECT_NE(c.vendita().flxVB.gestione(1), RigaCancellata);
    EXPECT_EQ(c.vendita().lblMainDisplay.testo(), "12,20");
}

TEST_F(Commands, RemovalOnAnEmptySaleDoesNothing) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(c.vendita().flxVB.righe(), 1);
}

// ---- F10

TEST_F(Commands, CloseOnCancelKeepsTheScreen) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Annulla);
    c.tasto(Qt::Key_F10);
    EXPECT_FALSE(c.eliminato);
    EXPECT_FALSE(n.terminato);
}

TEST_F(Commands, CloseOnNoEndsWithoutASave) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::No);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.terminato);
    EXPECT_EQ(vendite(), 0);
}

TEST_F(Commands, CloseOnYesSavesAndEnds) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Si);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(n.terminato);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(Commands, CloseWithAFailedSaveKeepsTheScreen) {
    ContoDiProva& c = contoConVendita();
    c.vendita().txtCodCliente.tag("-1");
    rispondeAlSalvataggio(Risposta::Si);
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Cliente] Obbligatorio.");
    c.tasto(Qt::Key_F10);
    EXPECT_FALSE(c.eliminato);
    EXPECT_FALSE(n.terminato);
}

// ---- Disabled and foreign buttons

TEST_F(Commands, DisabledButtonDisablesItsKey) {
    ContoDiProva& c = contoConVendita();
    const std::vector<std::pair<int, int>> coppie{
        {0, Qt::Key_F2}, {9, Qt::Key_F5}, {15, Qt::Key_F6}, {6, Qt::Key_F9}, {7, Qt::Key_F10}};
    for (const auto& [comando, tasto] : coppie) {
        c.vendita().cmdComando[static_cast<size_t>(comando)].abilitato(false);
        c.tasto(tasto);
    }
    EXPECT_EQ(vendite(), 0);
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.vendita().txtCodProdotto.testo(), "A");
}

TEST_F(Commands, RemovalOnAClosedSaleDoesNothing) {
    gLockVBEdit = 1;
    n.sql("UPDATE TipoDocumenti SET NonStampareVB = 0");
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    n.sql("UPDATE Movimenti SET DATASTAMPA = '2026-03-16 00:00:00'");
    gConti[0]->scarica();
    ContoDiProva& altro = n.apriConto();
    startMe(altro, 0, n.valore("SELECT RID FROM Movimenti").toInt(), 0);
    ASSERT_FALSE(altro.vendita().modificaConsentita);
    altro.tasto(Qt::Key_F9);
    altro.tasto(Qt::Key_F5);
    EXPECT_EQ(altro.vendita().flxVB.gestione(1), RigaInvariata);
}

TEST_F(Commands, IndexBeyondTheButtonsDoesNothing) {
    ContoDiProva& c = contoConVendita();
    for (const int indice : {-1, 20, 1000}) {
        cmdComando_Click(c, indice);
        cmdConto_Click(c, indice);
    }
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(vendite(), 0);
}

// ---- Field buttons

TEST_F(Commands, FieldButtonsGoToTheirFields) {
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
    const std::vector<std::pair<int, Campo*>> coppie{
        {4, &v.txtData}, {8, &v.txtQta}, {9, &v.txtPrezzoListino}, {11, &v.txtSconto1}};
    for (const auto& [bottone, campo] : coppie) {
        cmdConto_Click(c, bottone);
        EXPECT_EQ(c.fuocoSu(), campo) << campo->nome().toStdString();
    }
}

TEST_F(Commands, AccountButtonOfTheFrontScreenOnlyShowsIt) {
    ContoDiProva& c = contoConVendita();
    const int prima = c.mostrate;
    cmdConto_Click(c, 0);
    EXPECT_EQ(c.mostrate, prima + 1);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Commands, AccountButtonOpensAFreePlace) {
    ContoDiProva& c = n.apriConto();
    cmdConto_Click(c, 2);
    ASSERT_TRUE(gConti[2]);
    EXPECT_EQ(n.vendita(2).txtCodCliente.tag(), "-1");
}

// ---- Commands that are still to come

TEST_F(Commands, ACommandThatIsNotThereYetLeavesTheRowInTheEditor) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtPrezzoNetto);
    c.tasto(Qt::Key_F12);
    EXPECT_EQ(c.vendita().txtCodProdotto.testo(), "A");
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtPrezzoNetto);
}

// ---- Numbers

TEST_F(Commands, ADocumentNumberAbove999StaysWhatItIs) {
    n.sql("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, NOTE) VALUES (1, '2026', 1233, 'n/d')");
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.clic(c.vendita().txtProg);
    c.clic(c.vendita().txtCodProdotto);
    c.tasto(Qt::Key_F2);
    c.scansiona("8001");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(n.valore("SELECT group_concat(PROGRESSIVO) FROM Movimenti"), "1234");
}

TEST_F(Commands, NobodyTypesADocumentNumber) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtProg);
    c.digita("77");
    EXPECT_EQ(c.vendita().txtProg.testo(), "(Auto)");
}

TEST_F(Commands, WalkingThroughASavedSaleWithMoreDecimalsChangesNothing) {
    gDecimaliDopo = 3;
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.clicRiga(1);
    for (Campo* campo : {&c.vendita().txtQta, &c.vendita().txtSconto1, &c.vendita().txtSconto2}) {
        c.clic(*campo);
    }
    EXPECT_FALSE(c.vendita().venditaModificata);
}
