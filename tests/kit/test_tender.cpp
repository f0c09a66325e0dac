#include <gtest/gtest.h>

#include "kit/tender.h"

namespace {

constexpr unsigned verde = 0x00C000;
constexpr unsigned rosso = 0xFF0000;

class Tender : public testing::Test {
  protected:
    void paga(const QString& importo) {
        m.txtPagato.testo(importo);
        EXPECT_EQ(m.tasto(m.pagato, u'\r'), std::nullopt);
    }

    MonitorResto m{Currency::daDouble(12.2)};
};

}  // namespace

TEST_F(Tender, ShowsTheAmountDue) {
    EXPECT_EQ(m.txtTotale.testo(), "12,20");
    EXPECT_EQ(m.lblResto.testo(), "");
}

TEST_F(Tender, ChangeIsWhatWasGivenTooMuchAndGreen) {
    paga("20");
    EXPECT_EQ(m.lblResto.testo(), "7,80");
    EXPECT_EQ(m.lblResto.coloreTesto(), verde);
    EXPECT_EQ(m.txtPagato.testo(), "20,00");
}

TEST_F(Tender, TooLittleIsRed) {
    paga("10");
    EXPECT_EQ(m.lblResto.testo(), "-2,20");
    EXPECT_EQ(m.lblResto.coloreTesto(), rosso);
}

TEST_F(Tender, ExactMoneyIsZeroAndGreen) {
    paga("12,20");
    EXPECT_EQ(m.lblResto.testo(), "0,00");
    EXPECT_EQ(m.lblResto.coloreTesto(), verde);
}

TEST_F(Tender, NothingGivenCountsAsZero) {
    paga("");
    EXPECT_EQ(m.txtPagato.testo(), "0");
    EXPECT_EQ(m.lblResto.testo(), "-12,20");
    EXPECT_EQ(m.lblResto.coloreTesto(), rosso);
}

TEST_F(Tender, ChangeWaitsForEnter) {
    m.txtPagato.testo("20");
    EXPECT_EQ(m.tasto(m.pagato, u'0'), u'0');
    EXPECT_EQ(m.lblResto.testo(), "");
}

TEST_F(Tender, EnterInTheTotalShowsTheChangeToo) {
    m.txtPagato.testo("20");
    m.txtTotale.testo("10");
    m.tasto(m.totale, u'\r');
    EXPECT_EQ(m.txtTotale.testo(), "10,00");
    EXPECT_EQ(m.lblResto.testo(), "10,00");
}

TEST_F(Tender, EndsWithTheTotalInTheBox) {
    m.txtTotale.testo("11,5");
    EXPECT_EQ(m.esito().totale, Currency::daDouble(11.5));
}

TEST_F(Tender, EmptiedTotalIsZero) {
    m.txtTotale.testo("");
    EXPECT_EQ(m.esito().totale, Currency());
    EXPECT_EQ(m.txtTotale.testo(), "0,00");
}

TEST_F(Tender, LettersDoNotEnterTheBoxes) {
    EXPECT_EQ(m.tasto(m.pagato, u'x'), std::nullopt);
    EXPECT_EQ(m.tasto(m.totale, u'x'), std::nullopt);
}
