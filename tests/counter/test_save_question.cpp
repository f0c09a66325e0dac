#include "counter/counter_shop.h"
#include "counter/save_question.h"

namespace {

class SaveQuestion : public BancoDiProva {};

}  // namespace

TEST_F(SaveQuestion, UnchangedSaleIsNotAskedFor) {
    EXPECT_FALSE(chiediSalvataggio(n.apriConto()));
}

TEST_F(SaveQuestion, SaleThatMayNotBeChangedIsNotAskedFor) {
    ContoDiProva& c = contoConVendita();
    c.vendita().modificaConsentita = false;
    EXPECT_FALSE(chiediSalvataggio(c));
}

TEST_F(SaveQuestion, CancelStopsTheCaller) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Annulla);
    EXPECT_TRUE(chiediSalvataggio(c));
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_TRUE(c.vendita().venditaModificata);
}

TEST_F(SaveQuestion, NoLetsTheCallerGoOnWithoutASave) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::No);
    EXPECT_FALSE(chiediSalvataggio(c));
    EXPECT_EQ(vendite(), 0);
}

TEST_F(SaveQuestion, YesSavesAndRemembersTheTotal) {
    ContoDiProva& c = contoConVendita();
    rispondeAlSalvataggio(Risposta::Si);
    EXPECT_FALSE(chiediSalvataggio(c));
    EXPECT_EQ(vendite(), 1);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "12,20");
}

TEST_F(SaveQuestion, YesWithAFailedSaveStopsTheCaller) {
    ContoDiProva& c = contoConVendita();
    c.vendita().txtCodCliente.tag("-1");
    rispondeAlSalvataggio(Risposta::Si);
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Cliente] Obbligatorio.");
    EXPECT_TRUE(chiediSalvataggio(c));
    EXPECT_EQ(c.vendita().flxVB.ultima(), 1);
    EXPECT_EQ(c.vendita().lblUltimaVendita.testo(), "");
}
