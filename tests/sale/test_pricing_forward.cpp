#include <cmath>
#include <random>

#include "gesti.h"
#include "sale/line_pricing.h"

namespace {

struct PricingForward : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    // The editor's numbers as texts, and the forward computation without a commit.
    void calcola(const QString& listino, const QString& iva, const QString& qta, const QString& s1,
                 const QString& s2 = "0,00", const QString& s3 = "0,00") {
        v.txtPrezzoListino.testo(listino);
        v.lblValoraIva.testo(iva);
        v.txtQta.testo(qta);
        v.txtSconto1.testo(s1);
        v.txtSconto2.testo(s2);
        v.txtSconto3.testo(s3);
        ricalcolaPrezzi(v, false, false);
    }
};

TEST_F(PricingForward, WorkedExampleOfTheHiddenAmounts) {
    calcola("10,00", "22,00", "7,00", "10,00", "5,00");
    EXPECT_EQ(v.lblScNetto.testo(), "1,450000");
    EXPECT_EQ(v.lblTotPrezzoNetto.testo(), "59,850000");  // 8,55 x 7
    EXPECT_EQ(v.lblIvaProdotto.testo(), "1,881000");      // 8,55 x 0,22
    EXPECT_EQ(v.lblTotIVA.testo(), "13,167000");
    EXPECT_EQ(v.lblTotRiga.testo(), "73,017000");
}

TEST_F(PricingForward, NetPriceKeepsItsDecimalsInTheTag) {
    calcola("9,99", "22,00", "1,00", "33,33");  // 9,99 x 0,6667 = 6,660333
    EXPECT_EQ(v.txtPrezzoNetto.tag(), "6,6603");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "6,66");
    EXPECT_EQ(v.lblPrezzoNetto.testo(), "6,66");
    EXPECT_EQ(v.txtPrezzoListino.tag(), "6,66");
}

TEST_F(PricingForward, LargeDiscountPassesThroughASingle) {
    // 123456,79 x 0,6675 = 82407,407325; discount 41049,3827, as a Single 41049,3828125.
    calcola("123.456,79", "22,00", "1,00", "33,25");
    EXPECT_EQ(v.lblScNetto.testo(), "41.049,382700");
    EXPECT_EQ(v.txtPrezzoNetto.tag(), "82407,4072");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "82.407,41");
}

TEST_F(PricingForward, FinalPriceDoesNotPassThroughTheNetPrice) {
    // 0,01 x 0,5 = 0,005: net 0,01; with VAT 0,0061, shown 0,01. 100 pieces: 0,005 x 100 x 1,22 = 0,61.
    calcola("0,01", "22,00", "100,00", "50,00");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "0,01");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "0,01");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "0,61");
}

TEST_F(PricingForward, FullDiscountGivesZero) {
    calcola("10,00", "22,00", "3,00", "100,00");
    EXPECT_EQ(v.lblScNetto.testo(), "10,000000");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "0,00");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "0,00");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "0,00");
}

TEST_F(PricingForward, ZeroQuantityGivesAZeroRow) {
    calcola("10,00", "22,00", "0,00", "0,00");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "0,00");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "12,20");
}

TEST_F(PricingForward, NoVatLeavesTheNetPrice) {
    calcola("10,00", "0", "2,00", "0,00");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "10,00");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "20,00");
    EXPECT_EQ(v.lblTotIVA.testo(), "0,000000");
}

TEST_F(PricingForward, TextThatIsNoNumberReadsAsZero) {
    calcola("abc", "22,00", "2,00", "xyz");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "0,00");
    EXPECT_EQ(v.TxtPrezzoRiga.testo(), "0,00");
}

TEST_F(PricingForward, GrossListPriceIsNotRecomputed) {
    v.txtPrezzoListinoLordo.testo("99,00");
    calcola("10,00", "22,00", "1,00", "0,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "99,00");
    EXPECT_EQ(v.lblPrezzoListinoLordo.testo(), "99,00");
}

TEST_F(PricingForward, FinalPriceAndRowTotalAreRememberedInTheirTags) {
    calcola("10,00", "22,00", "2,00", "0,00");
    EXPECT_EQ(v.txtPrezzoFinito.tag(), "12,20");
    EXPECT_EQ(v.TxtPrezzoRiga.tag(), "24,40");
    EXPECT_EQ(v.lblPrezzoListino.testo(), "10,00");
}

TEST_F(PricingForward, DecimalsFollowTheWorkstation) {
    gDecimaliDopo = 4;
    calcola("9,99", "22,00", "1,00", "33,33");
    EXPECT_EQ(v.txtPrezzoNetto.testo(), "6,6603");
    EXPECT_EQ(v.txtPrezzoListino.tag(), "6,6603");
    EXPECT_EQ(v.txtPrezzoFinito.testo(), "8,13");  // 8,12560626
}

TEST_F(PricingForward, NegativeDiscountBecomesAPlainPrice) {
    v.lblValoraIva.testo("22,00");
    v.txtPrezzoListino.testo("10,00");
    v.txtSconto1.testo("-10,00");
    applicaScontiRiga(v);
    EXPECT_EQ(v.txtPrezzoListino.testo(), "11,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "13,42");
    EXPECT_EQ(v.txtSconto1.testo(), "0,00");
    EXPECT_EQ(v.txtSconto1.tag(), "0,00");
}

TEST_F(PricingForward, PriceMadePlainKeepsTheHiddenAmounts) {
    calcola("10,00", "22,00", "1,00", "10,00");
    v.txtPrezzoNetto.testo("5,00");
    ricalcolaSconti(v);
    EXPECT_EQ(v.txtPrezzoListino.testo(), "5,00");
    EXPECT_EQ(v.lblPrezzoListino.testo(), "5,00");
    EXPECT_EQ(v.txtPrezzoListinoLordo.testo(), "6,10");
    EXPECT_EQ(v.txtSconto1.testo(), "0,00");
    EXPECT_EQ(v.lblIvaProdotto.testo(), "1,980000");  // of the 9,00 before
    EXPECT_EQ(v.lblScNetto.testo(), "1,000000");
}

TEST_F(PricingForward, NetPriceThatDropsItsDiscountsIsItsOwnReference) {
    calcola("10,00", "22,00", "1,00", "10,00", "5,00", "2,00");
    v.txtPrezzoNetto.testo("7,00");
    azzeraScontiDaNetto(v);
    EXPECT_EQ(v.txtPrezzoListino.testo(), "7,00");
    EXPECT_EQ(v.txtPrezzoListino.tag(), "7,00");
    for (const Campo* sconto : {&v.txtSconto1, &v.txtSconto2, &v.txtSconto3}) {
        EXPECT_EQ(sconto->testo(), "0,00");
    }
}

// An exact computation in whole numbers. All four inputs are in hundredths.
struct Esatto {
    __int128 listino, qta, iva, s1, s2, s3;

    __int128 fattori() const { return (10000 - s1) * (10000 - s2) * (10000 - s3); }  // over 10^12

    static __int128 diviso(__int128 valore, __int128 divisore) {
        return (valore + divisore / 2) / divisore;  // all are positive; exact halves are left out below
    }
    static bool meta(__int128 valore, __int128 divisore) { return 2 * (valore % divisore) == divisore; }

    // Net unit price in 1/10000: the discounted price is rounded there, the discount passes a Single.
    qint64 netto() const {
        const auto scontato = static_cast<qint64>(diviso(listino * 100 * fattori(), 1000000000000));
        const auto sconto = static_cast<qint64>(listino) * 100 - scontato;
        const double daSingle =
            static_cast<double>(static_cast<float>(static_cast<double>(sconto) / 10000.0));
        return static_cast<qint64>(listino) * 100 - static_cast<qint64>(std::llrint(daSingle * 10000.0));
    }
    // In cents: list x (1 + vat) x factors.
    qint64 finito() const {
        return static_cast<qint64>(diviso(listino * (10000 + iva) * fattori(), numeroFinito()));
    }
    static __int128 numeroFinito() { return static_cast<__int128>(10000) * 1000000000000; }
    // In cents: net x quantity x (1 + vat).
    qint64 riga() const { return static_cast<qint64>(diviso(netto() * qta * (10000 + iva), 100000000)); }
    bool incerto() const {
        return meta(listino * 100 * fattori(), 1000000000000) ||
               meta(listino * (10000 + iva) * fattori(), numeroFinito()) ||
               meta(netto() * qta * (10000 + iva), 100000000);
    }
};

QString importo(qint64 centesimi) {
    QString testo =
        QString::number(centesimi / 100) + "," + QString("%1").arg(centesimi % 100, 2, 10, QChar('0'));
    for (qsizetype i = testo.size() - 6; i > 0; i -= 3) {
        testo.insert(i, '.');
    }
    return testo;
}

TEST_F(PricingForward, AgreesWithAnExactComputation) {
    std::mt19937 caso(20260316);
    const auto tra = [&](int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso); };
    int provati = 0;
    for (int i = 0; i < 2000; ++i) {
        const int aliquote[] = {0, 400, 500, 1000, 2200};
        // Quarters are exact in a Single.
        const Esatto e{.listino = tra(1, 999999),
                       .qta = 25 * tra(1, 800),
                       .iva = aliquote[tra(0, 4)],
                       .s1 = 25 * tra(0, 399),
                       .s2 = 25 * tra(0, 399) * tra(0, 1),
                       .s3 = 25 * tra(0, 399) * tra(0, 1)};
        if (e.incerto()) continue;
        ++provati;
        const auto testo = [](__int128 valore) { return importo(static_cast<qint64>(valore)); };
        calcola(testo(e.listino), testo(e.iva), testo(e.qta), testo(e.s1), testo(e.s2), testo(e.s3));
        SCOPED_TRACE((testo(e.listino) + " x " + testo(e.qta) + " iva " + testo(e.iva) + " sc " +
                      testo(e.s1) + " " + testo(e.s2) + " " + testo(e.s3))
                         .toStdString());
        ASSERT_EQ(v.txtPrezzoNetto.tag(), Currency::daScalato(e.netto()).testo());
        ASSERT_EQ(v.txtPrezzoFinito.testo(), importo(e.finito()));
        ASSERT_EQ(v.TxtPrezzoRiga.testo(), importo(e.riga()));
    }
    EXPECT_GT(provati, 1500);
}

}  // namespace
