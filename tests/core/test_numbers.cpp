#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "core/exact_decimals.h"
#include "core/expect_error.h"
#include "core/numbers.h"
#include "core/run_time_error.h"

namespace {

const QString quarantaCifre(40, u'9');
const QString quattrocentoCifre(400, u'9');

struct Numerico {
    QString testo;
    double valore;
};

void PrintTo(const Numerico& caso, std::ostream* uscita) {
    *uscita << '"' << caso.testo.toStdString() << '"';
}

class TestoNumerico : public testing::TestWithParam<Numerico> {};
class TestoNonNumerico : public testing::TestWithParam<QString> {};
class TestaDiTesto : public testing::TestWithParam<Numerico> {};

}  // namespace

TEST_P(TestoNumerico, IsNumeric) {
    EXPECT_TRUE(isNumeric(GetParam().testo));
}

TEST_P(TestoNumerico, HasItsValueAsADouble) {
    EXPECT_EQ(numeroDouble(GetParam().testo), GetParam().valore);
}

INSTANTIATE_TEST_SUITE_P(
    Numeri, TestoNumerico,
    testing::Values(Numerico{"0", 0}, Numerico{"-0", 0}, Numerico{"+1", 1}, Numerico{"007", 7},
                    Numerico{"12,5", 12.5}, Numerico{"-12,5", -12.5}, Numerico{",5", 0.5},
                    Numerico{"-,5", -0.5}, Numerico{"5,", 5}, Numerico{"1.234,56", 1234.56},
                    Numerico{"1234,56", 1234.56}, Numerico{"1234.5", 12345}, Numerico{"1.2.3", 123},
                    Numerico{"1.234.567,89", 1234567.89}, Numerico{".5", 5}, Numerico{" 5 ", 5},
                    Numerico{"\t-5,25\t", -5.25}, Numerico{"2147483648", 2147483648.0},
                    Numerico{"9007199254740993", 9007199254740992.0},
                    Numerico{"9223372036854775808", 9223372036854775808.0}, Numerico{quarantaCifre, 1e40},
                    Numerico{"0," + QString(400, u'0') + "1", 0},
                    Numerico{"0," + QString(25, u'0') + "1", 1e-26}, Numerico{"1," + QString(400, u'0'), 1}));

TEST_P(TestoNonNumerico, IsNotNumeric) {
    EXPECT_FALSE(isNumeric(GetParam()));
}

TEST_P(TestoNonNumerico, AskedForItsValueIsATypeMismatch) {
    EXPECT_EQ(numeroErrore([] { numeroDouble(GetParam()); }), RunTimeError::TipoNonCorrispondente);
    EXPECT_EQ(numeroErrore([] { numeroSingle(GetParam()); }), RunTimeError::TipoNonCorrispondente);
    EXPECT_EQ(numeroErrore([] { numeroCurrency(GetParam()); }), RunTimeError::TipoNonCorrispondente);
}

TEST_P(TestoNonNumerico, GivesNoValueWhereThatIsAsked) {
    EXPECT_FALSE(seDouble(GetParam()).has_value());
    EXPECT_FALSE(seSingle(GetParam()).has_value());
    EXPECT_FALSE(seCurrency(GetParam()).has_value());
}

INSTANTIATE_TEST_SUITE_P(Testi, TestoNonNumerico,
                         testing::Values(QString(), QString(""), QString("  "), QString("-"), QString("+"),
                                         QString(","), QString("."), QString("-,"), QString("-."),
                                         QString("--5"), QString("5-"), QString("- 5"), QString("1 2"),
                                         QString("1,23,4"), QString("1,234.5"), QString("abc"),
                                         QString("12a"), QString("nan"), QString("inf"), QString("-inf"),
                                         QString("1e5"), QString("1E400"), QString("1d5"), QString("0x27"),
                                         QString("&H10"), QString("5%"), QString("5 €"), QString("(5)"),
                                         QString("1'234"), QString("5\n"), QString("5\u00a0"),
                                         QString("1\u00a0234"), QString("\u22125"), QString("\u0661\u0662"),
                                         QString("\uff11\uff12"), QString("5\u0301"), QString("\u200b5"),
                                         QString(QChar(0xd800)), QString("5") + QChar(0)));

TEST(Numbers, ANegativeZeroHasNoSign) {
    EXPECT_FALSE(std::signbit(numeroDouble(u"-0")));
}

TEST(Numbers, ADoubleBeyondItsRangeOverflows) {
    EXPECT_EQ(numeroErrore([] { numeroDouble(quattrocentoCifre); }), RunTimeError::Overflow);
}

TEST(Numbers, ASingleBeyondItsRangeOverflows) {
    EXPECT_EQ(numeroErrore([] { numeroSingle(quarantaCifre); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { numeroSingle("-" + quarantaCifre); }), RunTimeError::Overflow);
}

TEST(Numbers, ASingleIsTheNearestOne) {
    EXPECT_EQ(numeroSingle(u"0,1"), 0.1F);
}

TEST(Numbers, ADoubleIsTheNearestOneOfItsDigits) {
    std::mt19937_64 caso(1);
    std::uniform_int_distribution<quint64> mantissa;
    for (int i = 0; i < 20000; ++i) {
        QString cifre = QString::number(mantissa(caso) >> (i % 60)) + QString::number(i);
        cifre.insert(cifre.size() - i % cifre.size(), u',');
        const std::string inglese = QString(cifre).replace(u',', u'.').toStdString();
        ASSERT_EQ(numeroDouble(cifre), std::strtod(inglese.c_str(), nullptr)) << inglese;
    }
}

TEST(Numbers, ACurrencyIsExactWhereADoubleIsNot) {
    EXPECT_EQ(numeroCurrency(u"922.337.203.685.477,5807").scalato(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(numeroCurrency(u"-922337203685477,5808").scalato(), std::numeric_limits<qint64>::min());
}

TEST(Numbers, ACurrencyTieGoesToTheEvenNeighbour) {
    EXPECT_EQ(numeroCurrency(u"0,00005").scalato(), 0);
    EXPECT_EQ(numeroCurrency(u"0,00015").scalato(), 2);
    EXPECT_EQ(numeroCurrency(u"0,00025").scalato(), 2);
    EXPECT_EQ(numeroCurrency(u"-0,00015").scalato(), -2);
}

TEST(Numbers, ADigitFarBehindBreaksTheTieOfACurrency) {
    EXPECT_EQ(numeroCurrency(u"0,000250001").scalato(), 3);
    EXPECT_EQ(numeroCurrency("0,00025" + QString(50, u'0') + "1").scalato(), 3);
    EXPECT_EQ(numeroCurrency("0,00025" + QString(50, u'0')).scalato(), 2);
}

TEST(Numbers, ACurrencyBeyondItsRangeOverflows) {
    for (const QString& testo :
         {QString("922337203685477,5808"), QString("-922337203685477,5809"), QString("922337203685477,58075"),
          QString("9223372036854775808"), QString("100000000000000000"), quarantaCifre, quattrocentoCifre,
          QString("1844674407370955,16159"), QString("1844674407370955,1615999999999")}) {
        EXPECT_EQ(numeroErrore([&testo] { numeroCurrency(testo); }), RunTimeError::Overflow)
            << testo.toStdString();
    }
}

TEST(Numbers, CurrenciesOfAnyLengthAgreeWithTheExactComputation) {
    std::mt19937_64 caso(42);
    std::uniform_int_distribution<qint64> mantissa(0, 999'999'999'999'999'999);
    std::uniform_int_distribution<int> zeri(0, 6);
    for (int i = 0; i < 30000; ++i) {
        const int decimali = i % 15;
        Intero128 valore = mantissa(caso);
        for (int d = 0; d < i % 17; ++d)
            valore /= 10;
        if (i % 3 == 0) valore = valore * 10 + 5;
        if (i % 2 == 0) valore = -valore;
        // Zeros at the end change nothing, and lengthen the text beyond 18 digits.
        const QString testo = conVirgola(valore, decimali) + QString(zeri(caso), u'0');
        const Intero128 atteso =
            decimali > 4 ? dividi(valore, diecialla(decimali - 4), true) : valore * diecialla(4 - decimali);
        const bool entra =
            atteso <= std::numeric_limits<qint64>::max() && atteso >= std::numeric_limits<qint64>::min();
        Currency letto;
        const int errore = numeroErrore([&] { letto = numeroCurrency(testo); });
        ASSERT_EQ(errore, entra ? 0 : RunTimeError::Overflow) << testo.toStdString();
        ASSERT_TRUE(!entra || Intero128{letto.scalato()} == atteso) << testo.toStdString();
    }
}

TEST(Numbers, ACurrencyTextReadsBackAsItself) {
    std::mt19937_64 caso(8);
    std::uniform_int_distribution<qint64> tutto(std::numeric_limits<qint64>::min(),
                                                std::numeric_limits<qint64>::max());
    for (int i = 0; i < 20000; ++i) {
        const Currency importo = Currency::daScalato(tutto(caso) >> (i % 60));
        ASSERT_EQ(numeroCurrency(importo.testo()), importo);
    }
}

TEST_P(TestaDiTesto, GivesTheNumberAtItsHead) {
    EXPECT_EQ(Val(GetParam().testo), GetParam().valore);
}

INSTANTIATE_TEST_SUITE_P(
    Teste, TestaDiTesto,
    testing::Values(Numerico{"", 0}, Numerico{"   ", 0}, Numerico{"abc", 0}, Numerico{"12", 12},
                    Numerico{"  12", 12}, Numerico{"-1", -1}, Numerico{"+1", 1}, Numerico{"12,5", 12},
                    Numerico{"12.5", 12.5}, Numerico{"1.234,56", 1.234}, Numerico{"1234.5", 1234.5},
                    Numerico{".5", 0.5}, Numerico{"-.5", -0.5}, Numerico{"5.", 5}, Numerico{"1.2.3", 1.2},
                    Numerico{"12abc", 12}, Numerico{"0007", 7}, Numerico{"-", 0}, Numerico{".", 0},
                    Numerico{"-0", 0}, Numerico{"--1", 0}, Numerico{"nan", 0}, Numerico{"inf", 0},
                    Numerico{"1e5", 1}, Numerico{"1e400", 1}, Numerico{"1,23,4", 1},
                    Numerico{"2147483648", 2147483648.0}, Numerico{"9007199254740993", 9007199254740992.0},
                    Numerico{"9223372036854775808x", 9223372036854775808.0},
                    Numerico{quarantaCifre + ".5,7", 1e40}, Numerico{"\u0661", 0}, Numerico{"\uff11", 0},
                    Numerico{"0x27", 0}));

TEST(Numbers, ValBeyondTheRangeOverflows) {
    EXPECT_EQ(numeroErrore([] { Val(quattrocentoCifre); }), RunTimeError::Overflow);
}

TEST(Numbers, ValAsAnIntegerRoundsTiesToEven) {
    EXPECT_EQ(valIntero(u"2.5"), 2);
    EXPECT_EQ(valIntero(u"3.5"), 4);
    EXPECT_EQ(valIntero(u"-2.5"), -2);
    EXPECT_EQ(valIntero(u"2.51"), 3);
}

TEST(Numbers, ValAsAnIntegerReachesTheEndsOfItsRange) {
    EXPECT_EQ(valIntero(u"2147483647"), 2147483647);
    EXPECT_EQ(valIntero(u"-2147483648"), std::numeric_limits<int>::min());
}

TEST(Numbers, ValAsAnIntegerOverflowsBeyondItsRange) {
    EXPECT_EQ(numeroErrore([] { valIntero(u"2147483648"); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { valIntero(u"2147483647.5"); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { valIntero(u"-2147483649"); }), RunTimeError::Overflow);
}

TEST(Numbers, TheTextOfADoubleHasFifteenDigits) {
    EXPECT_EQ(testoNumero(0.1), "0,1");
    EXPECT_EQ(testoNumero(-12.5), "-12,5");
    EXPECT_EQ(testoNumero(0.1 + 0.2), "0,3");
    EXPECT_EQ(testoNumero(1.0 / 3), "0,333333333333333");
    EXPECT_EQ(testoNumero(0.0), "0");
    EXPECT_EQ(testoNumero(-0.0), "0");
    EXPECT_EQ(testoNumero(1200.0), "1200");
}

TEST(Numbers, TheTextOfASingleHasSevenDigits) {
    EXPECT_EQ(testoNumero(0.1F), "0,1");
    EXPECT_EQ(testoNumero(1.0F / 3), "0,3333333");
    EXPECT_EQ(testoNumero(16777216.0F), "16777220");
}

TEST(Numbers, TheTextOfAnIntegerIsPlain) {
    EXPECT_EQ(testoNumero(-1234567), "-1234567");
    EXPECT_EQ(testoNumero(std::numeric_limits<qint64>::min()), "-9223372036854775808");
}

TEST(Numbers, AVeryLargeOrSmallNumberIsWrittenWithAPowerOfTen) {
    EXPECT_EQ(testoNumero(1e20), "1E+20");
    EXPECT_EQ(testoNumero(1e15), "1E+15");
    EXPECT_EQ(testoNumero(-1.5e-20), "-1,5E-20");
    EXPECT_EQ(testoNumero(1e300), "1E+300");
}

TEST(Numbers, NumbersBetweenAreWrittenInFull) {
    EXPECT_EQ(testoNumero(999999999999999.0), "999999999999999");
    EXPECT_EQ(testoNumero(1e-15), "0,000000000000001");
    EXPECT_EQ(testoNumero(0.00012345678F), "0,0001234568");
}

TEST(Numbers, WhatIsNotFiniteHasNoText) {
    EXPECT_EQ(numeroErrore([] { testoNumero(std::nan("")); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { testoNumero(HUGE_VALF); }), RunTimeError::Overflow);
}
