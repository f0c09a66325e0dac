#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "core/currency.h"
#include "core/exact_decimals.h"
#include "core/expect_error.h"
#include "core/run_time_error.h"

namespace {

constexpr qint64 massimo = std::numeric_limits<qint64>::max();
constexpr qint64 minimo = std::numeric_limits<qint64>::min();
constexpr double infinito = std::numeric_limits<double>::infinity();

qint64 scalato(double valore) {
    return Currency::daDouble(valore).scalato();
}

}  // namespace

TEST(Currency, StartsAtZero) {
    EXPECT_EQ(Currency().scalato(), 0);
}

TEST(Currency, HoldsFourDecimalsOfAFloatingValue) {
    EXPECT_EQ(scalato(10.4310), 104310);
}

TEST(Currency, RoundsAnExactTieDownToTheEvenNeighbour) {
    EXPECT_EQ(scalato(0.03125), 312);
}

TEST(Currency, RoundsAnExactTieUpToTheEvenNeighbour) {
    EXPECT_EQ(scalato(0.09375), 938);
}

TEST(Currency, RoundsANegativeTieToTheEvenNeighbour) {
    EXPECT_EQ(scalato(-0.09375), -938);
}

TEST(Currency, RoundsByTheBinaryValueNotByItsShownDigits) {
    // 0.00015 is a little less than its text says, 0.00025 a little more.
    EXPECT_EQ(scalato(0.00015), 1);
    EXPECT_EQ(scalato(0.00025), 3);
}

TEST(Currency, LosesWhatIsFarBelowItsUnit) {
    EXPECT_EQ(scalato(5e-324), 0);
    EXPECT_EQ(scalato(-1e-20), 0);
}

TEST(Currency, TakesASingleByItsOwnValue) {
    EXPECT_EQ(Currency::daSingle(0.1F).scalato(), 1000);
}

TEST(Currency, ConvertsLikeTheExactExpansionOverAllMagnitudes) {
    std::mt19937_64 caso(20130131);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> esponente(-20, 49);
    for (int i = 0; i < 20000; ++i) {
        const double valore = std::ldexp(mantissa(caso), esponente(caso));
        ASSERT_EQ(Intero128{scalato(valore)}, scalatoEsatto(valore)) << valore;
    }
}

TEST(Currency, ConvertsExactTiesLikeTheExactExpansion) {
    std::mt19937_64 caso(7);
    std::uniform_int_distribution<qint64> trentaduesimi(-100'000'000, 100'000'000);
    for (int i = 0; i < 20000; ++i) {
        // An odd number of 1/32 ends in 0,00005 times an odd number: always a tie.
        const double valore = static_cast<double>(2 * trentaduesimi(caso) + 1) / 32;
        ASSERT_EQ(Intero128{scalato(valore)}, scalatoEsatto(valore)) << valore;
    }
}

TEST(Currency, RefusesWhatIsNoNumber) {
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(std::nan("")); }), RunTimeError::Overflow);
}

TEST(Currency, RefusesTheInfinities) {
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(infinito); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(-infinito); }), RunTimeError::Overflow);
}

TEST(Currency, TakesTheDoublesAtTheEndsOfItsRange) {
    EXPECT_EQ(scalato(922337203685477.5), 9223372036854775000);
    EXPECT_EQ(scalato(-922337203685477.5), -9223372036854775000);
}

TEST(Currency, RefusesTheFirstDoublesBeyondItsRange) {
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(922337203685477.625); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(-922337203685477.625); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Currency::daDouble(1e300); }), RunTimeError::Overflow);
}

TEST(Currency, TakesWholeNumbersToTheEndsOfItsRange) {
    EXPECT_EQ(Currency::daIntero(922337203685477).scalato(), 9223372036854770000);
    EXPECT_EQ(Currency::daIntero(-922337203685477).scalato(), -9223372036854770000);
}

TEST(Currency, RefusesWholeNumbersBeyondItsRange) {
    EXPECT_EQ(numeroErrore([] { Currency::daIntero(922337203685478); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Currency::daIntero(-922337203685478); }), RunTimeError::Overflow);
}

TEST(Currency, AdditionOverflows) {
    EXPECT_EQ(numeroErrore([] { (void)(Currency::daScalato(massimo) + Currency::daScalato(1)); }),
              RunTimeError::Overflow);
}

TEST(Currency, SubtractionOverflows) {
    EXPECT_EQ(numeroErrore([] { (void)(Currency::daScalato(minimo) - Currency::daScalato(1)); }),
              RunTimeError::Overflow);
}

TEST(Currency, AFailedAdditionLeavesTheAmountAsItWas) {
    Currency totale = Currency::daScalato(massimo);
    (void)numeroErrore([&totale] { totale += Currency::daScalato(1); });
    EXPECT_EQ(totale.scalato(), massimo);
}

TEST(Currency, NegationOfTheLowestAmountOverflows) {
    EXPECT_EQ(numeroErrore([] { (void)-Currency::daScalato(minimo); }), RunTimeError::Overflow);
}

TEST(Currency, AbsoluteValueOfTheLowestAmountOverflows) {
    EXPECT_EQ(numeroErrore([] { (void)Currency::daScalato(minimo).assoluto(); }), RunTimeError::Overflow);
}

TEST(Currency, AbsoluteValueDropsTheSign) {
    EXPECT_EQ(Currency::daScalato(-15000).assoluto(), Currency::daScalato(15000));
}

TEST(Currency, SumsLikeWideIntegersOrOverflows) {
    std::mt19937_64 caso(99);
    std::uniform_int_distribution<qint64> importo(minimo, massimo);
    int oltre = 0;
    for (int i = 0; i < 20000; ++i) {
        const qint64 a = importo(caso);
        const qint64 b = importo(caso);
        const Intero128 atteso = Intero128{a} + b;
        qint64 somma = 0;
        const int errore =
            numeroErrore([&] { somma = (Currency::daScalato(a) + Currency::daScalato(b)).scalato(); });
        if (atteso > massimo || atteso < minimo) {
            ++oltre;
            ASSERT_EQ(errore, RunTimeError::Overflow);
        } else {
            ASSERT_EQ(Intero128{somma}, atteso);
        }
    }
    EXPECT_GT(oltre, 1000);
}

TEST(Currency, ComparesByAmount) {
    EXPECT_LT(Currency::daScalato(-1), Currency());
}

TEST(Currency, TextHasNoSuperfluousZeros) {
    EXPECT_EQ(Currency::daScalato(85500).testo(), "8,55");
    EXPECT_EQ(Currency::daScalato(120000).testo(), "12");
    EXPECT_EQ(Currency::daScalato(12340000).testo(), "1234");
    EXPECT_EQ(Currency().testo(), "0");
}

TEST(Currency, TextOfASmallNegativeAmountKeepsItsSign) {
    EXPECT_EQ(Currency::daScalato(-1).testo(), "-0,0001");
}

TEST(Currency, TextIsExactAtTheEndsOfTheRange) {
    EXPECT_EQ(Currency::daScalato(massimo).testo(), "922337203685477,5807");
    EXPECT_EQ(Currency::daScalato(minimo).testo(), "-922337203685477,5808");
}
