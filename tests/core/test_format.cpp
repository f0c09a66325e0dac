#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "core/exact_decimals.h"
#include "core/expect_error.h"
#include "core/format.h"
#include "core/run_time_error.h"

namespace {

const QDateTime istante(QDate(2013, 1, 5), QTime(9, 7, 3));

// A double as it is read by a person: 15 significant digits times a power of ten.
struct Quindici {
    Intero128 cifre = 0;
    int esponente = 0;
};

Quindici quindiciCifre(double valore) {
    const QList<QByteArray> parti = QByteArray::number(valore, 'e', 14).split('e');
    Quindici q;
    for (const char c : parti.at(0)) {
        if (c >= '0' && c <= '9') q.cifre = q.cifre * 10 + (c - '0');
    }
    if (valore < 0) q.cifre = -q.cifre;
    q.esponente = parti.at(1).toInt() - 14;
    return q;
}

QString importoAtteso(double valore, int decimali) {
    const Quindici q = quindiciCifre(valore);
    const int sposta = q.esponente + decimali;
    const Intero128 unita =
        sposta >= 0 ? q.cifre * diecialla(sposta) : dividi(q.cifre, diecialla(-sposta), false);
    return importoMostrato(unita, decimali);
}

QString importo(int decimali) {
    return "###,##0." + QString(decimali, u'0');
}

}  // namespace

TEST(Format, GroupsThousandsWithDots) {
    EXPECT_EQ(Format(1234.5, u"###,##0.00"), "1.234,50");
    EXPECT_EQ(Format(1234567, u"###,##0"), "1.234.567");
    EXPECT_EQ(Format(999, u"###,##0"), "999");
    EXPECT_EQ(Format(100000, u"###,##0"), "100.000");
}

TEST(Format, GroupsByThreeWhereverTheSeparatorStands) {
    EXPECT_EQ(Format(1234567.5, u"###,###0.00"), "1.234.567,50");
    EXPECT_EQ(Format(1234567, u"###,###0"), "1.234.567");
}

TEST(Format, WithoutASeparatorDoesNotGroup) {
    EXPECT_EQ(Format(1234567.5, u"###0.00"), "1234567,50");
    EXPECT_EQ(Format(1234567, u"###0"), "1234567");
}

TEST(Format, ASeparatorThatIsNotBetweenDigitPlacesDoesNotGroup) {
    EXPECT_EQ(Format(1234567, u",0"), "1234567");
    EXPECT_EQ(Format(1234567, u"0,"), "1234567");
}

TEST(Format, KeepsTheCommaWhenNoDecimalsFollow) {
    EXPECT_EQ(Format(12.0, u"###,##0."), "12,");
}

TEST(Format, FillsWithZerosInFront) {
    EXPECT_EQ(Format(7, u"0000"), "0007");
    EXPECT_EQ(Format(42, u"00000"), "00042");
    EXPECT_EQ(Format(42, u"000000"), "000042");
    EXPECT_EQ(Format(5, u"0,000"), "0.005");
}

TEST(Format, AnOptionalPlaceBehindAZeroIsFilledToo) {
    EXPECT_EQ(Format(5, u"0##"), "005");
}

TEST(Format, NeverCutsDigitsInFront) {
    EXPECT_EQ(Format(123456, u"0000"), "123456");
}

TEST(Format, PutsTheSignBeforeFilledZeros) {
    EXPECT_EQ(Format(-7, u"0000"), "-0007");
}

TEST(Format, ShowsAnOptionalDecimalOnlyWhenItIsThere) {
    EXPECT_EQ(Format(1.5, u"0.0##"), "1,5");
    EXPECT_EQ(Format(1.25, u"0.0##"), "1,25");
    EXPECT_EQ(Format(1.0, u"0.0##"), "1,0");
    EXPECT_EQ(Format(1.0, u"0.##"), "1,");
}

TEST(Format, ShowsNoZeroInFrontWhenThePatternAsksForNone) {
    EXPECT_EQ(Format(0.5, u"#.00"), ",50");
}

TEST(Format, RoundsHalfAwayFromZeroOnTheDigitsAPersonReads) {
    EXPECT_EQ(Format(2.675, u"0.00"), "2,68");
    EXPECT_EQ(Format(1.005, u"0.00"), "1,01");
    EXPECT_EQ(Format(2.345, u"0.00"), "2,35");
    EXPECT_EQ(Format(0.5, u"###,##0"), "1");
    EXPECT_EQ(Format(2.5, u"###,##0"), "3");
}

TEST(Format, RoundsNegativeHalvesAwayFromZero) {
    EXPECT_EQ(Format(-2.675, u"0.00"), "-2,68");
    EXPECT_EQ(Format(-0.5, u"0"), "-1");
}

TEST(Format, CarriesThroughNines) {
    EXPECT_EQ(Format(999.995, u"###,##0.00"), "1.000,00");
    EXPECT_EQ(Format(0.999, u"0.00"), "1,00");
    EXPECT_EQ(Format(0.0095, u"0.000"), "0,010");
}

TEST(Format, AZeroResultHasNoSign) {
    EXPECT_EQ(Format(-0.004, u"0.00"), "0,00");
    EXPECT_EQ(Format(-0.0, u"0.00"), "0,00");
    EXPECT_EQ(Format(-1e-300, u"0.00"), "0,00");
    EXPECT_EQ(Format(Currency::daScalato(-49), u"0.00"), "0,00");
}

TEST(Format, ASingleShowsItsSevenDigits) {
    EXPECT_EQ(Format(0.1F, u"0.0000000000"), "0,1000000000");
    EXPECT_EQ(Format(2.675F, u"0.00"), "2,68");
    EXPECT_EQ(Format(1.005F, u"0.00"), "1,01");
}

TEST(Format, ACurrencyIsExactAtTheEndsOfItsRange) {
    EXPECT_EQ(Format(Currency::daScalato(std::numeric_limits<qint64>::max()), u"###,##0.0000"),
              "922.337.203.685.477,5807");
    EXPECT_EQ(Format(Currency::daScalato(std::numeric_limits<qint64>::min()), u"###,##0.00"),
              "-922.337.203.685.477,58");
}

TEST(Format, AWholeNumberIsExactAtTheEndsOfItsRange) {
    EXPECT_EQ(Format(std::numeric_limits<qint64>::min(), u"###,##0"), "-9.223.372.036.854.775.808");
}

TEST(Format, ALargeDoubleIsFilledWithZerosBehindItsDigits) {
    EXPECT_EQ(Format(1e20, u"###,##0.00"), "100.000.000.000.000.000.000,00");
    EXPECT_EQ(Format(9007199254740993.0, u"0"), "9007199254740990");
}

TEST(Format, RefusesWhatIsNotFinite) {
    EXPECT_EQ(numeroErrore([] { Format(std::nan(""), u"0"); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Format(HUGE_VAL, u"0"); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { Format(-HUGE_VALF, u"0"); }), RunTimeError::Overflow);
}

TEST(Format, RefusesAPatternItDoesNotKnow) {
    EXPECT_EQ(numeroErrore([] { Format(1, u"0%"); }), RunTimeError::ChiamataNonValida);
}

TEST(Format, DoublesAgreeWithTheExactComputation) {
    std::mt19937_64 caso(311213);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> esponente(-12, 12);
    for (int i = 0; i < 20000; ++i) {
        const double valore = mantissa(caso) * std::pow(10, esponente(caso));
        const int decimali = i % 7;
        ASSERT_EQ(Format(valore, importo(decimali)), importoAtteso(valore, decimali)) << valore;
    }
}

TEST(Format, WrittenTiesAgreeWithTheExactComputation) {
    std::mt19937_64 caso(5);
    std::uniform_int_distribution<qint64> millesimi(-10'000'000'000, 10'000'000'000);
    for (int i = 0; i < 20000; ++i) {
        const qint64 tie = millesimi(caso) * 10 + 5;
        const double valore = static_cast<double>(tie) / 1000;
        ASSERT_EQ(Format(valore, u"###,##0.00"), importoMostrato(dividi(tie, 10, false), 2)) << valore;
    }
}

TEST(Format, AmountsByTheThousandAgreeWithTheirPattern) {
    std::mt19937_64 caso(41);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    for (int i = 0; i < 20000; ++i) {
        const double valore = mantissa(caso) * std::pow(10, i % 15 - 4);
        const auto single = static_cast<float>(valore);
        const Currency soldi = Currency::daDouble(valore);
        const int decimali = i % 7;
        ASSERT_EQ(formatoMigliaia(valore, decimali), Format(valore, importo(decimali))) << valore;
        ASSERT_EQ(formatoMigliaia(single, decimali), Format(single, importo(decimali))) << valore;
        ASSERT_EQ(formatoMigliaia(soldi, decimali), Format(soldi, importo(decimali))) << valore;
    }
}

TEST(Format, AmountsByTheThousandWithoutDecimalsKeepTheComma) {
    EXPECT_EQ(formatoMigliaia(1234.5, 0), "1.235,");
    EXPECT_EQ(formatoMigliaia(1234.5, -1), "1.235,");
}

TEST(Format, CurrenciesAgreeWithTheExactComputation) {
    std::mt19937_64 caso(2013);
    std::uniform_int_distribution<qint64> tutto(std::numeric_limits<qint64>::min(),
                                                std::numeric_limits<qint64>::max());
    for (int i = 0; i < 20000; ++i) {
        const qint64 scalato = tutto(caso) >> (i % 60);
        const int decimali = i % 7;
        const Intero128 unita = decimali <= 4 ? dividi(scalato, diecialla(4 - decimali), false)
                                              : scalato * diecialla(decimali - 4);
        ASSERT_EQ(Format(Currency::daScalato(scalato), importo(decimali)), importoMostrato(unita, decimali))
            << scalato;
    }
}

TEST(FormatDate, WritesDayMonthYear) {
    EXPECT_EQ(Format(istante, u"DD/MM/YYYY"), "05/01/2013");
    EXPECT_EQ(Format(QDate(2013, 1, 5), u"DD/MM/YYYY"), "05/01/2013");
}

TEST(FormatDate, LetterCaseHasNoMeaning) {
    EXPECT_EQ(Format(istante, u"dd/mm/yyyy"), "05/01/2013");
}

TEST(FormatDate, WritesShortForms) {
    EXPECT_EQ(Format(istante, u"D/M/YY"), "5/1/13");
}

TEST(FormatDate, WritesHoursMinutesSeconds) {
    EXPECT_EQ(Format(istante, u"DD/MM/YYYY Hh:Nn:Ss"), "05/01/2013 09:07:03");
}

TEST(FormatDate, AfternoonHoursGoOnTo23) {
    EXPECT_EQ(Format(QDateTime(QDate(2013, 1, 5), QTime(23, 59, 58)), u"HH:Nn:Ss"), "23:59:58");
}

TEST(FormatDate, MonthsRightBehindHoursAreMinutes) {
    EXPECT_EQ(Format(istante, u"hh:mm"), "09:07");
    EXPECT_EQ(Format(istante, u"hh:mm DD/MM"), "09:07 05/01");
}

TEST(FormatDate, OtherCharactersStandForThemselves) {
    EXPECT_EQ(Format(istante, u"#MM-DD-YYYY#"), "#01-05-2013#");
}

TEST(FormatDate, AYearAloneHasFourDigits) {
    EXPECT_EQ(Format(QDate(45, 1, 1), u"YYYY"), "0045");
    EXPECT_EQ(Format(QDate(9999, 12, 31), u"D/M/YYYY"), "31/12/9999");
}

TEST(FormatDate, AnInvalidDateGivesAnEmptyText) {
    EXPECT_EQ(Format(QDate(2013, 2, 31), u"DD/MM/YYYY"), "");
    EXPECT_EQ(Format(QDateTime(), u"DD/MM/YYYY"), "");
}

TEST(FormatDate, ADateWithoutATimeIsMidnight) {
    EXPECT_EQ(Format(QDate(2013, 3, 31), u"Hh:Nn:Ss"), "00:00:00");
}
