#include "core/run_time_error.h"
#include "counter/counter_shop.h"
#include "counter/keys.h"

namespace {

// A store whose disk is full.
class ImpostazioniGuaste final : public SettingsStore {
  public:
    explicit ImpostazioniGuaste(SettingsInMemory& vere) : mVere(vere) { impostaImpostazioni(this); }
    ~ImpostazioniGuaste() override { impostaImpostazioni(&mVere); }

    QString leggi(const QString& applicazione, const QString& sezione, const QString& chiave,
                  const QString& predefinito) override {
        return mVere.leggi(applicazione, sezione, chiave, predefinito);
    }
    void scriviTutte(const QString&, const std::vector<Voce>&) override {
        throw RunTimeError(RunTimeError::ErroreApplicazione, "disco pieno");
    }

  private:
    SettingsInMemory& mVere;
};

class Keys : public BancoDiProva {
  protected:
    // Three rows, the first one current.
    ContoDiProva& treRighe() {
        for (const char* codice : {"B", "C"}) {
            n.prodotto({.codice = codice, .listino1 = 1});
        }
        ContoDiProva& c = n.apriConto();
        for (const char* codice : {"A", "B", "C"}) {
            c.digita(codice);
            c.invio();
            c.tasto(Qt::Key_F6);
        }
        c.clicRiga(1);
        return c;
    }
    static int corrente(ContoDiProva& c) { return c.vendita().flxVB.corrente(); }
};

}  // namespace

TEST_F(Keys, F4TogglesTheWildcardTick) {
    ContoDiProva& c = n.apriConto();
    EXPECT_EQ(c.vendita().chkCodiceProdotto.valore(), 0);
    c.tasto(Qt::Key_F4);
    EXPECT_EQ(c.vendita().chkCodiceProdotto.valore(), 1);
    c.tasto(Qt::Key_F4);
    EXPECT_EQ(c.vendita().chkCodiceProdotto.valore(), 0);
}

TEST_F(Keys, ScannersPrefixIsTakenInAnyField) {
    ContoDiProva& c = n.apriConto();
    c.clic(c.vendita().txtQta);
    c.digita("9");
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Codice), "A");
    EXPECT_EQ(c.vendita().flxVB.cella(1, Colonna::Quantita), "1,00");
}

TEST_F(Keys, PrefixIsConsumed) {
    ContoDiProva& c = n.apriConto();
    EXPECT_TRUE(Form_KeyPress(c, gLaserChar[0]));
    EXPECT_FALSE(Form_KeyPress(c, u'x'));
    EXPECT_TRUE(c.vendita().mDaLaser);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtCodProdotto);
}

TEST_F(Keys, ShiftedFunctionKeyIsNotThePlainOne) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5, Qt::ShiftModifier);
    c.tasto(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_FALSE(c.eliminato);
}

TEST_F(Keys, ControlledFunctionKeyDoesNothing) {
    ContoDiProva& c = contoConVendita();
    for (const int tasto : {Qt::Key_F2, Qt::Key_F5, Qt::Key_F9, Qt::Key_F10}) {
        c.tasto(tasto, Qt::ControlModifier);
    }
    EXPECT_EQ(vendite(), 0);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(Keys, ShiftAndControlAreRemembered) {
    ContoDiProva& c = n.apriConto();
    Form_KeyDown(c, Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_TRUE(c.vendita().tastoShift);
    Form_KeyUp(c, Qt::Key_Shift, Qt::NoModifier);
    EXPECT_FALSE(c.vendita().tastoShift);
    Form_KeyDown(c, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_TRUE(c.vendita().tastoCtrl);
    Form_KeyUp(c, Qt::Key_Control, Qt::NoModifier);
    EXPECT_FALSE(c.vendita().tastoCtrl);
}

TEST_F(Keys, AnErrorAtAKeyThatComesUpIsIgnored) {
    ContoDiProva& c = n.apriConto();
    {
        const ImpostazioniGuaste guaste(n.impostazioni);
        c.tasto(Qt::Key_F4);
    }
    c.scansiona("8001");
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_TRUE(n.operatore.avvisi.empty());
}

TEST_F(Keys, AnErrorInACommandThatAKeyPressesIsReported) {
    ContoDiProva& c = contoConVendita();
    c.incassi.emplace_back([](Currency) -> EsitoIncasso { throw RunTimeError(RunTimeError::Overflow); });
    gMonitor = 1;
    n.operatore.attendiAvviso("frmMain.cmdComando_Click");
    c.tasto(Qt::Key_F5);
    EXPECT_EQ(vendite(), 0);
}

TEST_F(Keys, F3InAFieldWithoutASearchDoesNothing) {
    ContoDiProva& c = contoConVendita();
    c.clic(c.vendita().txtQta);
    c.tasto(Qt::Key_F3);
    EXPECT_TRUE(c.ricercheAperte.empty());
}

// ---- Cursor keys

TEST_F(Keys, CursorKeyIsConsumedAndStartsTheSteps) {
    ContoDiProva& c = treRighe();
    EXPECT_TRUE(Form_KeyDown(c, Qt::Key_Down, Qt::NoModifier));
    EXPECT_TRUE(c.timerAttivo(SchermoVendita::Timer::Tasti));
    EXPECT_EQ(c.intervallo(SchermoVendita::Timer::Tasti), 100);
    EXPECT_TRUE(Form_KeyUp(c, Qt::Key_Down, Qt::NoModifier));
    EXPECT_FALSE(c.timerAttivo(SchermoVendita::Timer::Tasti));
}

TEST_F(Keys, HeldCursorKeyStepsToTheLastRowAndNoFurther) {
    ContoDiProva& c = treRighe();
    Form_KeyDown(c, Qt::Key_Down, Qt::NoModifier);
    QList<int> righe;
    for (int i = 0; i < 4; ++i) {
        c.scade(SchermoVendita::Timer::Tasti);
        righe << corrente(c);
    }
    EXPECT_EQ(righe, QList<int>({2, 3, 3, 3}));
}

TEST_F(Keys, HeldCursorKeyStepsUpToTheFirstRow) {
    ContoDiProva& c = treRighe();
    c.clicRiga(3);
    Form_KeyDown(c, Qt::Key_Up, Qt::NoModifier);
    QList<int> righe;
    for (int i = 0; i < 4; ++i) {
        c.scade(SchermoVendita::Timer::Tasti);
        righe << corrente(c);
    }
    EXPECT_EQ(righe, QList<int>({2, 1, 1, 1}));
}

TEST_F(Keys, ShortTapMovesOneRow) {
    ContoDiProva& c = treRighe();
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(corrente(c), 2);
    c.tasto(Qt::Key_Up);
    EXPECT_EQ(corrente(c), 1);
}

TEST_F(Keys, StepLoadsTheRowIntoTheEditor) {
    ContoDiProva& c = treRighe();
    c.tasto(Qt::Key_Down);
    EXPECT_EQ(c.vendita().txtCodProdotto.testo(), "B");
    EXPECT_EQ(c.vendita().lblPos.testo(), "2");
}

TEST_F(Keys, CursorKeysOnAnEmptySaleDoNothing) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_Down);
    c.tasto(Qt::Key_Up);
    EXPECT_EQ(corrente(c), 0);
    EXPECT_EQ(c.vendita().flxVB.righe(), 1);
}

TEST_F(Keys, CtrlF11OpensTheOptionsAndNothingElse) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F11, Qt::ControlModifier);
    EXPECT_EQ(c.opzioniMostrate, 1);
    EXPECT_TRUE(c.ricercheAperte.empty());
    for (const int tasto : {Qt::Key_F2, Qt::Key_F8, Qt::Key_F10}) {
        c.tasto(tasto, Qt::ControlModifier);
    }
    EXPECT_FALSE(c.eliminato);
    EXPECT_FALSE(gConti[1]);
}

TEST_F(Keys, F10ClosesOnlyItsOwnScreen) {
    n.apriConto(0);
    ContoDiProva& c = n.apriConto(1);
    c.tasto(Qt::Key_F10);
    EXPECT_TRUE(c.eliminato);
    EXPECT_FALSE(gConti[1]);
    EXPECT_TRUE(gConti[0]);
}

TEST_F(Keys, AHeldKeyStepsWithTheTimerAloneAndNotOnceMoreAtItsRelease) {
    ContoDiProva& c = treRighe();
    Form_KeyDown(c, Qt::Key_Down, Qt::NoModifier);
    EXPECT_TRUE(c.scade(SchermoVendita::Timer::Tasti));
    Form_KeyUp(c, Qt::Key_Down, Qt::NoModifier);
    EXPECT_EQ(corrente(c), 2);
}

TEST_F(Keys, AKeyHeldWhileAnotherWindowComesUpStepsNoMore) {
    ContoDiProva& c = treRighe();
    Form_KeyDown(c, Qt::Key_Down, Qt::NoModifier);
    lasciaTasti(c);
    EXPECT_FALSE(c.timerAttivo(SchermoVendita::Timer::Tasti));
    EXPECT_EQ(corrente(c), 1);
}

TEST_F(Keys, EnterInTheCustomerBoxOfASavedSaleOffersANewAccount) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F5);
    c.clic(c.vendita().txtCodCliente);
    n.operatore.attendiDomanda("Il conto attuale è gia stato salvato.\nAprire un nuovo conto?", Risposta::Si);
    c.invio();
    EXPECT_NE(gConti[1], nullptr);
}

// ---- Commands that have Shift and a function key

TEST_F(Keys, ShiftF1ChangesThePayment) {
    ContoDiProva& c = n.apriConto();
    c.rispondeRicerca({});
    c.tasto(Qt::Key_F1, Qt::ShiftModifier);
    ASSERT_EQ(c.ricercheAperte.size(), 1U);
    EXPECT_TRUE(c.ricercheAperte[0].sql.contains("FROM Causali"));
}

TEST_F(Keys, ShiftF8CopiesTheSale) {
    ContoDiProva& c = n.apriConto();
    n.operatore.attendiMessaggio("Nessun prodotto venduto! Impossibile ricopiare la vendita.");
    c.tasto(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_TRUE(n.operatore.esaurito());
}

TEST_F(Keys, ShiftF11GivesADiscount) {
    ContoDiProva& c = n.apriConto();
    c.rispondeRicerca({});
    c.tasto(Qt::Key_F11, Qt::ShiftModifier);
    ASSERT_EQ(c.ricercheAperte.size(), 1U);
    EXPECT_TRUE(c.ricercheAperte[0].sql.contains("FROM ScontiImmediati"));
}

TEST_F(Keys, ShiftF2GoesToTheListPrice) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtPrezzoListino);
}

TEST_F(Keys, ShiftF9GoesToTheDiscounts) {
    ContoDiProva& c = n.apriConto();
    c.tasto(Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(c.fuocoSu(), &c.vendita().txtSconto1);
}
