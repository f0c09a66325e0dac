#include <QLabel>

#include "core/clock.h"
#include "core/globals.h"
#include "counter_ui/journey.h"

// How many keys the hand presses for what a till does all day (docs/tasti.md). Each test does one of the
// tasks with the keyboard alone, counts, and looks at what the books hold.

namespace {

class Hand : public Percorso {
  protected:
    QString quantitaVenduta() const { return libri("SELECT QUANTITA + 0.0 FROM DettagliMovimento"); }
};

}  // namespace

TEST_F(Hand, ExactCashIsOneKeyAfterTheLastScan) {
    scansionaVite();
    comincia();
    batti(Qt::Key_F5);
    EXPECT_EQ(tastiBattuti(), 1);
    EXPECT_EQ(totale(), "12.2");
}

TEST_F(Hand, ExactCashWithTheTenderDialogueIsTwoKeys) {
    gMonitor = 1;
    scansionaVite();
    comincia();
    nelDialogo([&] { batti(Qt::Key_F5); }, [&] { batti(Qt::Key_F5); });
    EXPECT_EQ(tastiBattuti(), 2);
    EXPECT_EQ(totale(), "12.2");
}

TEST_F(Hand, CashWithChangeIsFiveKeys) {
    gMonitor = 1;
    scansionaVite();
    comincia();
    nelDialogo([&] { batti(Qt::Key_F5); },
               [&] {
                   batti("20", Qt::Key_Return);
                   EXPECT_EQ(mostrato("lblResto"), "7,80");
                   batti(Qt::Key_F5);
               });
    EXPECT_EQ(tastiBattuti(), 5);
    EXPECT_EQ(totale(), "12.2");
    EXPECT_EQ(vendita().lblUltimoResto.testo(), "7,80");
}

TEST_F(Hand, NamedCustomerOnCreditIsFiveKeys) {
    comincia();
    vendeAlConto(2, "7");
    batti(Qt::Key_F5);
    EXPECT_EQ(tastiBattuti(), 5);
    EXPECT_EQ(libri("SELECT FK_CONTROPARTITA FROM Movimenti").toInt(), rossi);
    EXPECT_EQ(negozio.conta("Movimenti", "FK_PNPAGAMENTO > 0"), 0);
}

TEST_F(Hand, NamedCustomerByPartOfTheNameIsFourKeysBesideItsLetters) {
    comincia();
    nelDialogo([&] { batti(Qt::Key_F8); },
               [&] {
                   batti("ross");
                   batti(Qt::Key_Down);
                   batti(Qt::Key_Return);
               });
    scansionaVite();
    batti(Qt::Key_F5);
    EXPECT_EQ(tastiBattuti(), 8);
    EXPECT_EQ(libri("SELECT FK_CONTROPARTITA FROM Movimenti").toInt(), rossi);
}

TEST_F(Hand, ReturnIsThreeKeys) {
    scansionaVite();
    comincia();
    batti(Qt::Key_F6, Qt::ShiftModifier);
    batti(Qt::Key_F5);
    EXPECT_EQ(tastiBattuti(), 3);
    EXPECT_EQ(quantitaVenduta(), "-1");
    EXPECT_EQ(totale(), "-12.2");
}

TEST_F(Hand, ParkingIsOneKeyAndRecallingThree) {
    vendeAlConto(2, "7");
    comincia();
    batti(Qt::Key_F5);
    ASSERT_EQ(gConti[1], nullptr);
    EXPECT_EQ(tastiBattuti(), 1);
    nelDialogo([&] { batti(Qt::Key_F11); },
               [&] {
                   batti(Qt::Key_Down);
                   batti(Qt::Key_Return);
               });
    EXPECT_EQ(tastiBattuti(), 4);
    ASSERT_NE(gConti[1], nullptr);
    EXPECT_EQ(vendita(1).lblMainDisplay.testo(), "12,20");
    EXPECT_EQ(vendita(1).cliente(), rossi);
    EXPECT_EQ(vendite(), 1);
}

TEST_F(Hand, PriceIsCorrectedByOneKeyItsDigitsAndEnter) {
    scansionaVite();
    comincia();
    batti(Qt::Key_F7);
    batti("8", Qt::Key_Return);
    EXPECT_EQ(tastiBattuti(), 3);
    batti(Qt::Key_F5);
    EXPECT_EQ(libri("SELECT PREZZONETTO + 0.0 FROM DettagliMovimento"), "8");
    EXPECT_EQ(totale(), "9.76");
}

TEST_F(Hand, QuantityIsItsDigitsAndEnter) {
    scansionaVite();
    comincia();
    batti("3", Qt::Key_Return);
    EXPECT_EQ(tastiBattuti(), 2);
    EXPECT_EQ(vendita().lblMainDisplay.testo(), "36,60");
    batti(Qt::Key_F5);
    EXPECT_EQ(quantitaVenduta(), "3");
}

TEST_F(Hand, HalfAWordFindsAProductInThreeKeysBesideItsLetters) {
    comincia();
    nelDialogo([&] { batti(Qt::Key_F3); },
               [&] {
                   batti("sta");
                   batti(Qt::Key_Down);
                   batti(Qt::Key_Return);
               });
    EXPECT_EQ(tastiBattuti(), 6);
    EXPECT_EQ(codici(), QStringList{"STAFFA"});
    batti(Qt::Key_F5);
    EXPECT_EQ(totale(), "3.05");
}

TEST_F(Hand, YesterdaysSaleByItsNumberIsTwoKeysAndEnter) {
    scansionaVite();
    batti(Qt::Key_F5);
    negozio.orologio.istante = negozio.orologio.istante.addDays(1);
    batti(Qt::Key_F2);
    ASSERT_EQ(vendita().rid(), -1);
    comincia();
    battiVaiA("1");
    EXPECT_EQ(tastiBattuti(), 4);
    EXPECT_EQ(vendita().txtProg.testo() + "/" + vendita().txtSottoProg.testo(), "0001/0001");
    EXPECT_EQ(vendita().txtData.testo(), "16/03/2026");
    EXPECT_EQ(codici(), QStringList{"VITE"});
    EXPECT_EQ(vendite(), 1);
}

TEST_F(Hand, FourCustomersAtOnceAreFourKeysEachAndTheSave) {
    comincia();
    scansionaVite();
    vendeAlConto(2, "7");
    vendeAlConto(3, "8");
    vendeAlConto(4, "9");
    for (int conto = 3; conto >= 0; --conto) {
        ASSERT_EQ(finestra->davanti(), &schermo(conto)) << "account " << conto + 1;
        batti(Qt::Key_F5);
    }
    EXPECT_EQ(tastiBattuti(), 16);
    EXPECT_EQ(negozio.righe("SELECT FK_CONTROPARTITA, TOTDOCUMENTO + 0.0 FROM Movimenti ORDER BY RID"),
              (QStringList{QString::number(verdi) + "|12.2", QString::number(bianchi) + "|12.2",
                           QString::number(rossi) + "|12.2", "1|12.2"}));
}
