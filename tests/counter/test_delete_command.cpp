#include "counter/commands.h"
#include "counter/counter_shop.h"
#include "counter/keys.h"

// Shift+F7 and its button: a saved sale leaves the books.

namespace {

constexpr int comandoCancella = 4;

class DeleteCommand : public BancoDiProva {
  protected:
    // Account 0 with a sale in the books.
    ContoDiProva& contoConVenditaSalvata() {
        ContoDiProva& c = contoConVendita();
        c.tasto(Qt::Key_F5);
        EXPECT_EQ(vendite(), 1);
        return c;
    }
    // A customer's sale in the books, reopened on account 1 beside account 0.
    ContoDiProva& contoConVenditaRipresa() {
        n.apriConto(0);
        contoConCliente(1).tasto(Qt::Key_F5);
        EXPECT_TRUE(apriContoConVendita(n.valore("SELECT MAX(RID) FROM Movimenti").toInt()));
        return static_cast<ContoDiProva&>(*gConti[1]);
    }
    void risponde(Risposta risposta) {
        n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?", risposta);
    }
};

}  // namespace

TEST_F(DeleteCommand, TakesTheSaleOutOfTheBooks) {
    ContoDiProva& c = contoConVenditaSalvata();
    risponde(Risposta::Si);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_EQ(n.conta("DettagliMovimento"), 0);
    EXPECT_EQ(n.conta("PrimaNota"), 0);
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST_F(DeleteCommand, ANewSaleBeginsOnTheOnlyAccount) {
    ContoDiProva& c = contoConVenditaSalvata();
    risponde(Risposta::Si);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
    EXPECT_EQ(c.vendita().rid(), -1);
    EXPECT_EQ(c.vendita().txtProg.testo(), "(Auto)");
}

TEST_F(DeleteCommand, OnNoEverythingStays) {
    ContoDiProva& c = contoConVenditaSalvata();
    const QStringList prima = libri(n);
    risponde(Risposta::No);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(libri(n), prima);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(DeleteCommand, WithoutShiftNoKeyDeletes) {
    ContoDiProva& c = contoConVenditaSalvata();
    c.tasto(Qt::Key_F7);
    c.premiComando(comandoCancella);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(DeleteCommand, ItsButtonNeedsNoShift) {
    ContoDiProva& c = contoConVenditaSalvata();
    risponde(Risposta::Si);
    cmdComando_Click(c, comandoCancella);
    EXPECT_EQ(vendite(), 0);
}

TEST_F(DeleteCommand, ShiftMayComeUpBeforeTheKey) {
    ContoDiProva& c = contoConVenditaSalvata();
    risponde(Risposta::Si);
    Form_KeyDown(c, Qt::Key_Shift, Qt::ShiftModifier);
    Form_KeyDown(c, Qt::Key_F7, Qt::ShiftModifier);
    Form_KeyUp(c, Qt::Key_Shift, Qt::NoModifier);
    Form_KeyUp(c, Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_FALSE(c.vendita().tastoShift);
}

TEST_F(DeleteCommand, ASaleThatWasNeverSavedIsNotAskedAbout) {
    ContoDiProva& c = contoConVendita();
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
}

TEST_F(DeleteCommand, AnEmptyScreenUnderTheDaysHeaderIsNotAskedAbout) {
    ContoDiProva& c = contoConVenditaSalvata();
    c.tasto(Qt::Key_F2);
    ASSERT_GT(c.vendita().rid(), 0);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(DeleteCommand, AClosedSaleStays) {
    gLockVBEdit = 1;
    ContoDiProva& c = contoConVenditaSalvata();
    ASSERT_FALSE(c.vendita().cmdComando[comandoCancella].abilitato());
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 1);
}

// ---- With further accounts open

TEST_F(DeleteCommand, AFurtherAccountCloses) {
    ContoDiProva& c = contoConVenditaRipresa();
    risponde(Risposta::Si);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_TRUE(c.eliminato);
    EXPECT_FALSE(gConti[1]);
    EXPECT_TRUE(gConti[0]);
    EXPECT_FALSE(n.terminato);
}

TEST_F(DeleteCommand, TheFirstAccountClosesWhenAnotherIsOpen) {
    ContoDiProva& c = contoConVenditaSalvata();
    n.apriConto(1);
    risponde(Risposta::Si);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_FALSE(gConti[0]);
    EXPECT_FALSE(n.terminato);
}

TEST_F(DeleteCommand, AFurtherAccountAloneStaysWithANewSale) {
    ContoDiProva& c = contoConVenditaRipresa();
    gConti[0]->scarica();
    risponde(Risposta::Si);
    c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(vendite(), 0);
    EXPECT_FALSE(c.eliminato);
    EXPECT_EQ(c.vendita().flxVB.ultima(), 0);
}
