#include <QTableView>

#include "core/globals.h"
#include "counter/ui/command_button.h"
#include "counter_screen.h"
#include "kit_ui/modal.h"

// The price boxes as the workstation shows them, and the immediate discount's key.

namespace {

class PriceLayout : public CounterScreen, public testing::WithParamInterface<int> {
  protected:
    PriceLayout() {
        gPrezzoType = GetParam();
        apri();
    }
    Campo& scelto() const {
        Vendita& v = vendita();
        Campo* prezzi[] = {&v.txtPrezzoNetto, &v.txtPrezzoFinito, &v.TxtPrezzoRiga};
        return *prezzi[GetParam()];
    }
};

TEST_P(PriceLayout, OnePriceStandsAtTheEndOfTheRow) {
    Vendita& v = vendita();
    for (const Campo* prezzo : {&v.txtPrezzoNetto, &v.txtPrezzoFinito, &v.TxtPrezzoRiga}) {
        EXPECT_EQ(widget(*prezzo).isVisible(), prezzo == &scelto()) << prezzo->nome().toStdString();
    }
    const char* didascalie[] = {"P.NET", "P.FIN", "P.TOT"};
    EXPECT_EQ(widget<PulsanteComando>("cmdConto_12").text(), didascalie[GetParam()]);
}

TEST_P(PriceLayout, TheKeyLeadsToIt) {
    QTest::mouseClick(&widget("cmdConto_12"), Qt::LeftButton);
    EXPECT_TRUE(haFuoco(scelto()));
}

TEST_P(PriceLayout, EnterInItEndsTheRow) {
    digita("$8001234567890");
    tasto(Qt::Key_Return);
    clic(scelto());
    digita("6,10");
    tasto(Qt::Key_Return);
    EXPECT_EQ(vendita().lblPos.testo(), "-1");
    EXPECT_TRUE(haFuoco(vendita().txtCodProdotto));
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Importo), GetParam() == 0 ? "7,44" : "6,10");
}

TEST_P(PriceLayout, TheVatColumnIsThereForNetPricesOnly) {
    auto* griglia = schermo().findChild<QTableView*>("flxVB");
    ASSERT_NE(griglia, nullptr);
    EXPECT_EQ(griglia->isColumnHidden(static_cast<int>(Colonna::Iva)), GetParam() > 0);
}

INSTANTIATE_TEST_SUITE_P(PrezzoType, PriceLayout, testing::Values(0, 1, 2));

class GrossListPrice : public CounterScreen, public testing::WithParamInterface<int> {
  protected:
    GrossListPrice() {
        gPrezzoListinoLordo = GetParam();
        apri();
    }
};

TEST_P(GrossListPrice, TakesThePlaceOfTheNetOne) {
    const Vendita& v = vendita();
    EXPECT_EQ(widget(v.txtPrezzoListino).isVisible(), GetParam() == 0);
    EXPECT_EQ(widget(v.txtPrezzoListinoLordo).isVisible(), GetParam() != 0);
}

TEST_P(GrossListPrice, TheKeyLeadsToTheOneInSight) {
    QTest::mouseClick(&widget("cmdConto_9"), Qt::LeftButton);
    EXPECT_TRUE(haFuoco(GetParam() == 0 ? vendita().txtPrezzoListino : vendita().txtPrezzoListinoLordo));
}

INSTANTIATE_TEST_SUITE_P(PrezzoListinoLordo, GrossListPrice, testing::Values(0, 1));

class ImmediateDiscountKey : public CounterScreen {
  protected:
    ImmediateDiscountKey() {
        negozio.sql(
            "INSERT INTO ScontiImmediati (RID, CODICE, DESCRIZIONE, VALORE) VALUES (1,'S10','Dieci per "
            "cento',10),(2,'S20','Venti per cento',20)");
        apri();
        digita("$8001234567890");
        tasto(Qt::Key_Return);
    }
    void premi() const { QTest::mouseClick(&widget("cmdComando_16"), Qt::LeftButton); }
};

TEST_F(ImmediateDiscountKey, PutsTheChosenOneOnEveryRow) {
    quandoModale(
        [](QWidget* ricerca) { QTest::keyClick(trova<QTableView>(ricerca, "flxRicerca"), Qt::Key_Return); });
    premi();
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Sconto1), "10");
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "10,98");
    EXPECT_EQ(widget<PulsanteComando>("cmdComando_16").text(), "S10");
    finestra->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
    EXPECT_TRUE(haFuoco(vendita().txtCodProdotto));
}

TEST_F(ImmediateDiscountKey, EscapeLeavesTheRows) {
    quandoModale([](QWidget* ricerca) { QTest::keyClick(ricerca, Qt::Key_Escape); });
    premi();
    EXPECT_EQ(vendita().flxVB.cella(1, Colonna::Sconto1), "0,00");
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "12,20");
}

}  // namespace
