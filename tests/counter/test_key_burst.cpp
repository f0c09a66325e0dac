#include "counter/key_burst.h"
#include "counter/keys.h"
#include "counter_shop.h"

namespace {

constexpr auto ean = "8001234567890";

// A scanner that sends no prefix.
class KeyBurst : public BancoDiProva {
  protected:
    KeyBurst() {
        n.prodotto({.codice = "B", .listino1 = 2, .barcode = ean});
        n.prodotto({.codice = "C", .listino1 = 2, .barcode = "80012345"});
        n.prodotto({.codice = "D", .listino1 = 2, .barcode = "80012345678901"});
        c.scansiona("8001");
    }
    QStringList codici() const {
        QStringList testi;
        for (int r = 1; r <= v.flxVB.ultima(); ++r)
            testi << v.flxVB.cella(r, Colonna::Codice);
        return testi;
    }

    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

TEST_F(KeyBurst, InTheQuantityIsAScan) {
    c.clic(v.txtQta);
    c.raffica(ean);
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1,00");
    EXPECT_EQ(v.lblMainDisplay.testo(), "14,64");
}

TEST_F(KeyBurst, InEveryNumberFieldIsAScan) {
    for (Campo* campo : {&v.txtQta, &v.txtPrezzoListino, &v.txtSconto1, &v.txtSconto2, &v.txtSconto3,
                         &v.txtPrezzoNetto, &v.txtData}) {
        c.clic(*campo);
        const QString prima = campo->testo();
        c.raffica(ean);
        ASSERT_EQ(codici(), (QStringList{"A", "B"})) << campo->nome().toStdString();
        EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1,00");
        EXPECT_EQ(v.flxVB.cella(1, Colonna::Importo), "12,20");
        c.clicRiga(1);
        EXPECT_EQ(campo->testo(), prima) << campo->nome().toStdString();
    }
}

TEST_F(KeyBurst, OfEightOrFourteenKeysIsAScan) {
    c.clic(v.txtQta);
    c.raffica("80012345");
    c.clic(v.txtQta);
    c.raffica("80012345678901");
    EXPECT_EQ(codici(), (QStringList{"A", "C", "D"}));
}

TEST_F(KeyBurst, OfSevenOrFifteenKeysIsAQuantity) {
    c.clic(v.txtQta);
    c.raffica("1234567");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1.234.567,00");
    c.clic(v.txtQta);
    c.raffica("000000000000012");
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "12,00");
    EXPECT_EQ(codici(), QStringList{"A"});
}

TEST_F(KeyBurst, OfAHandIsAQuantity) {
    c.clic(v.txtQta);
    c.raffica("10000000", 60);
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "10.000.000,00");
    EXPECT_EQ(codici(), QStringList{"A"});
}

TEST_F(KeyBurst, KeepsTheQuantityTypedBeforeIt) {
    c.clic(v.txtQta);
    c.digita("3");
    c.raffica(ean);
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "3,00");
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
}

TEST_F(KeyBurst, RepeatedCountsOnceMoreEachTime) {
    for (int i = 0; i < 3; ++i)
        c.raffica(ean);
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
    EXPECT_EQ(v.flxVB.cella(2, Colonna::Quantita), "3,00");
}

TEST_F(KeyBurst, WithLettersIsAScan) {
    n.prodotto({.codice = "AB-12345/C", .listino1 = 1});
    c.clic(v.txtSconto1);
    c.raffica("AB-12345/C");
    EXPECT_EQ(codici(), (QStringList{"A", "AB-12345/C"}));
}

TEST_F(KeyBurst, InALockedPriceIsAScan) {
    v.txtPrezzoListino.bloccato(true);
    c.clic(v.txtPrezzoListino);
    c.raffica(ean);
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
}

TEST_F(KeyBurst, WithoutEnterIsAScanAfterAWhile) {
    c.clic(v.txtQta);
    c.raffica(ean, 1, false);
    ASSERT_TRUE(c.scade(SchermoVendita::Timer::Raffica));
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1,00");
}

TEST_F(KeyBurst, TwoWithoutEnterAreTwoScans) {
    c.clic(v.txtQta);
    c.raffica(ean, 1, false);
    c.raffica("80012345", 1, false);
    c.scade(SchermoVendita::Timer::Raffica);
    EXPECT_EQ(codici(), (QStringList{"A", "B", "C"}));
}

TEST_F(KeyBurst, IsNoQuantityEvenWhenTheFieldIsLeftAtOnce) {
    c.clic(v.txtQta);
    c.raffica(ean, 1, false);
    c.clic(v.txtSconto1);
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1,00");
    c.scade(SchermoVendita::Timer::Raffica);
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
}

TEST_F(KeyBurst, OfAnUnknownCodeSaysSoAndTouchesNoRow) {
    c.clic(v.txtQta);
    c.raffica("9999999999999");
    EXPECT_EQ(n.operatore.pause, std::vector<int>{500});
    EXPECT_EQ(v.flxVB.cella(1, Colonna::Quantita), "1,00");
    EXPECT_EQ(codici(), QStringList{"A"});
}

TEST_F(KeyBurst, InATextIsTyped) {
    c.clic(v.txtDescProdotto);
    c.raffica(ean, 1, false);
    EXPECT_TRUE(v.txtDescProdotto.testo().contains(ean));
    EXPECT_FALSE(c.timerAttivo(SchermoVendita::Timer::Raffica));
}

TEST_F(KeyBurst, BehindThePrefixIsTheScanThatItIs) {
    c.clic(v.txtQta);
    c.raffica(gLaserChar + ean);
    EXPECT_EQ(codici(), (QStringList{"A", "B"}));
    EXPECT_EQ(v.flxVB.cella(2, Colonna::Quantita), "1,00");
}

TEST_F(KeyBurst, IsAQuantityWhereTheDeskSaysSo) {
    n.impostazioni.scrivi("prgBottegonClientVB", "Client", "ScansioniSenzaPrefisso", "0");
    ContoDiProva& altro = n.apriConto(1);
    altro.scansiona("8001");
    altro.clic(altro.vendita().txtQta);
    altro.raffica("10000000");
    EXPECT_EQ(altro.vendita().flxVB.cella(1, Colonna::Quantita), "10.000.000,00");
}

}  // namespace
