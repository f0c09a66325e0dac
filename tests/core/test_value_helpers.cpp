#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "core/core_doubles.h"
#include "core/expect_error.h"
#include "core/numbers.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"

namespace {

const QVariant nullo;
const QVariant nulloDiTesto{QMetaType(QMetaType::QString)};
const QString quarantaCifre(40, u'9');
const QString quattrocentoCifre(400, u'9');

Currency euro(double valore) {
    return Currency::daDouble(valore);
}

class ValoreNonNumerico : public testing::TestWithParam<QString> {};

}  // namespace

TEST_P(ValoreNonNumerico, IsNoAmount) {
    EXPECT_EQ(getValoreCurrency(GetParam()), Currency());
}

TEST_P(ValoreNonNumerico, IsNoSingle) {
    EXPECT_EQ(getValoreSingle(GetParam()), 0.0F);
}

TEST_P(ValoreNonNumerico, IsShownAsZero) {
    EXPECT_EQ(formattaImporto(GetParam(), 3), "0,000");
}

TEST_P(ValoreNonNumerico, IsShownAsZeroFromAFieldToo) {
    EXPECT_EQ(formattaImporto(QVariant(GetParam()), 3), "0,000");
}

TEST_P(ValoreNonNumerico, IsNoKey) {
    EXPECT_EQ(getIDOrNullStr(GetParam()), "Null");
}

INSTANTIATE_TEST_SUITE_P(Testi, ValoreNonNumerico,
                         testing::Values(QString(""), QString("abc"), QString("nan"), QString("inf"),
                                         QString("1e5"), QString("1e400"), QString("1,23,4"), QString("--1"),
                                         QString("\u0661"), QString("\uff11"), QString("1; DROP TABLE x"),
                                         QString("1'"), QString("0x27"), QString(",")));

TEST(GetValoreNumerico, RemovesTheDotsOfThousands) {
    EXPECT_EQ(getValoreNumerico("1.234,5"), "1234,5");
}

TEST(GetValoreNumerico, AnswersThePlainTextOfTheNumber) {
    EXPECT_EQ(getValoreNumerico("1.234,50"), "1234,5");
    EXPECT_EQ(getValoreNumerico(" -007,00 "), "-7");
}

TEST(GetValoreNumerico, AnswersZeroForWhatIsNotNumeric) {
    EXPECT_EQ(getValoreNumerico("abc"), "0");
}

TEST(GetValoreNumerico, TellsTheOperatorWhatItFound) {
    OperatoreRegistrato operatore;
    getValoreNumerico("1.2x", &operatore);
    EXPECT_EQ(operatore.mostrati,
              QStringList("Bottegon|Attenzione! è stato riscontrata una incongruenza di valore:\n"
                          "Si attendeva un numero ed è stato trovato il valore: [1.2x]"));
}

TEST(GetValoreNumerico, TellsItWithAnExclamation) {
    OperatoreRegistrato operatore;
    getValoreNumerico("abc", &operatore);
    EXPECT_EQ(operatore.icone, std::vector{OperatorPort::Icona::Esclamazione});
}

TEST(GetValoreNumerico, TellsNothingOfANumber) {
    OperatoreRegistrato operatore;
    getValoreNumerico("12", &operatore);
    EXPECT_TRUE(operatore.mostrati.isEmpty());
}

TEST(GetValoreCurrency, ReadsAnItalianText) {
    EXPECT_EQ(getValoreCurrency(QString("1.234,50")), euro(1234.5));
    EXPECT_EQ(getValoreCurrency(QString("1234.5")), euro(12345));
    EXPECT_EQ(getValoreCurrency(QString("-0")), Currency());
    EXPECT_EQ(getValoreCurrency(QString("+1")), euro(1));
}

TEST(GetValoreCurrency, ReadsAField) {
    EXPECT_EQ(getValoreCurrency(QVariant(12.5)), euro(12.5));
    EXPECT_EQ(getValoreCurrency(QVariant(qlonglong{7})), euro(7));
    EXPECT_EQ(getValoreCurrency(QVariant(0.1F)), euro(0.1));
    EXPECT_EQ(getValoreCurrency(QVariant("12,5")), euro(12.5));
    EXPECT_EQ(getValoreCurrency(QVariant(true)), euro(-1));
}

TEST(GetValoreCurrency, WhatHoldsNoNumberIsZero) {
    EXPECT_EQ(getValoreCurrency(nullo), Currency());
    EXPECT_EQ(getValoreCurrency(nulloDiTesto), Currency());
    EXPECT_EQ(getValoreCurrency(QVariant(QDate(2013, 1, 1))), Currency());
}

TEST(GetValoreCurrency, BeyondTheRangeOverflows) {
    for (const QString& testo : {QString("9223372036854775808"), quarantaCifre, quattrocentoCifre}) {
        EXPECT_EQ(numeroErrore([&] { getValoreCurrency(testo); }), RunTimeError::Overflow);
    }
    EXPECT_EQ(numeroErrore([] { getValoreCurrency(QVariant(std::nan(""))); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { getValoreCurrency(QVariant(std::numeric_limits<qulonglong>::max())); }),
              RunTimeError::Overflow);
}

TEST(GetValoreSingle, ReadsAnItalianText) {
    EXPECT_EQ(getValoreSingle(QString("1.234,5")), 1234.5F);
    EXPECT_EQ(getValoreSingle(QString("0,1")), 0.1F);
}

TEST(GetValoreSingle, ReadsAField) {
    EXPECT_EQ(getValoreSingle(QVariant(0.1)), 0.1F);
    EXPECT_EQ(getValoreSingle(QVariant(0.1F)), 0.1F);
    EXPECT_EQ(getValoreSingle(QVariant(22)), 22.0F);
    EXPECT_EQ(getValoreSingle(QVariant("4,5")), 4.5F);
    EXPECT_EQ(getValoreSingle(nullo), 0.0F);
}

TEST(GetValoreSingle, BeyondTheRangeOverflows) {
    EXPECT_EQ(numeroErrore([] { getValoreSingle(quarantaCifre); }), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore([] { getValoreSingle(QVariant(1e300)); }), RunTimeError::Overflow);
}

TEST(FormattaImporto, ShowsThousandsAndDecimals) {
    EXPECT_EQ(formattaImporto(1234.5, 2), "1.234,50");
    EXPECT_EQ(formattaImporto(QVariant(1234.5), 2), "1.234,50");
    EXPECT_EQ(formattaImporto(QVariant("1234,5"), 2), "1.234,50");
    EXPECT_EQ(formattaImporto(QString("1.234,5"), 2), "1.234,50");
    EXPECT_EQ(formattaImporto(euro(1234.5), 2), "1.234,50");
    EXPECT_EQ(formattaImporto(1234.5F, 2), "1.234,50");
    EXPECT_EQ(formattaImporto(1234, 2), "1.234,00");
}

TEST(FormattaImporto, RoundsHalfAwayFromZero) {
    EXPECT_EQ(formattaImporto(2.345, 2), "2,35");
    EXPECT_EQ(formattaImporto(QString("-2,345"), 2), "-2,35");
    EXPECT_EQ(formattaImporto(euro(2.345), 2), "2,35");
    EXPECT_EQ(formattaImporto(2.345F, 2), "2,35");
    EXPECT_EQ(formattaImporto(QVariant(2.345F), 2), "2,35");
}

TEST(FormattaImporto, NullIsZero) {
    EXPECT_EQ(formattaImporto(nullo, 2), "0,00");
    EXPECT_EQ(formattaImporto(nulloDiTesto, 6), "0,000000");
}

TEST(FormattaImporto, ADateIsNoAmount) {
    EXPECT_EQ(formattaImporto(QVariant(QDate(2013, 1, 1)), 2), "0,00");
}

TEST(FormattaImporto, WithoutDecimalsTheCommaStays) {
    EXPECT_EQ(formattaImporto(12.0, 0), "12,");
    EXPECT_EQ(formattaImporto(nullo, 0), "0,");
}

TEST(FormattaImporto, ATrueIsMinusOne) {
    EXPECT_EQ(formattaImporto(QVariant(true), 2), "-1,00");
}

TEST(FormattaImporto, ShowsBigTextsByFifteenDigits) {
    EXPECT_EQ(formattaImporto(QString("9007199254740993"), 0), "9.007.199.254.740.990,");
}

TEST(FormattaImporto, AnInfiniteAmountIsAnError) {
    EXPECT_EQ(numeroErrore([] { formattaImporto(HUGE_VAL, 2); }), RunTimeError::Overflow);
}

TEST(FormattaImporto, ReadsBackAsTheRoundedAmount) {
    EXPECT_EQ(getValoreCurrency(formattaImporto(8.55 * 7 * 1.22, 2)), euro(73.02));
}

TEST(FormattaIntero, ShowsThousands) {
    EXPECT_EQ(formattaIntero(1234567), "1.234.567");
    EXPECT_EQ(formattaIntero("1234567"), "1.234.567");
    EXPECT_EQ(formattaIntero(QVariant(std::numeric_limits<qlonglong>::max())), "9.223.372.036.854.775.807");
}

TEST(FormattaIntero, RoundsHalfAwayFromZero) {
    EXPECT_EQ(formattaIntero(2.5), "3");
}

TEST(FormattaIntero, WhatHoldsNoNumberIsEmpty) {
    EXPECT_EQ(formattaIntero(nullo), "");
    EXPECT_EQ(formattaIntero("abc"), "");
    EXPECT_EQ(formattaIntero(""), "");
}

TEST(GetIDOrNullStr, AKeyIsItsNumber) {
    EXPECT_EQ(getIDOrNullStr("12"), "12");
    EXPECT_EQ(getIDOrNullStr(" 12 "), "12");
    EXPECT_EQ(getIDOrNullStr("1.234"), "1234");
    EXPECT_EQ(getIDOrNullStr(12), "12");
}

TEST(GetIDOrNullStr, WhatIsNotAboveZeroIsNull) {
    EXPECT_EQ(getIDOrNullStr("0"), "Null");
    EXPECT_EQ(getIDOrNullStr("-1"), "Null");
    EXPECT_EQ(getIDOrNullStr(0), "Null");
    EXPECT_EQ(getIDOrNullStr(-1), "Null");
}

TEST(GetIDOrNullStr, AFractionIsStillOneValueOfAStatement) {
    EXPECT_EQ(getIDOrNullStr("12,5"), "12.5");
}

TEST(GetChekByBool, NullIsOff) {
    EXPECT_EQ(getChekByBool(nullo), 0);
}

TEST(GetChekByBool, TrueInAnyFormIsOn) {
    EXPECT_EQ(getChekByBool(true), 1);
    EXPECT_EQ(getChekByBool(-1), 1);
    EXPECT_EQ(getChekByBool(1), 1);
    EXPECT_EQ(getChekByBool("-1"), 1);
}

TEST(GetChekByBool, FalseInAnyFormIsOff) {
    EXPECT_EQ(getChekByBool(false), 0);
    EXPECT_EQ(getChekByBool(0), 0);
    EXPECT_EQ(getChekByBool("0"), 0);
}

TEST(GetChekByBool, AFractionIsRoundedToEven) {
    EXPECT_EQ(getChekByBool(0.5), 0);
    EXPECT_EQ(getChekByBool(-1.5), 2);
}

TEST(GetChekByBool, WhatDoesNotFitIsOff) {
    EXPECT_EQ(getChekByBool(32767), 32767);
    EXPECT_EQ(getChekByBool(32768), 0);
    EXPECT_EQ(getChekByBool("abc"), 0);
    EXPECT_EQ(getChekByBool(std::nan("")), 0);
}

TEST(GetBoolByChek, NullIsFalse) {
    EXPECT_FALSE(getBoolByChek(nullo));
}

TEST(GetBoolByChek, ANumberIsTrueUnlessZero) {
    EXPECT_TRUE(getBoolByChek(1));
    EXPECT_TRUE(getBoolByChek(-1));
    EXPECT_TRUE(getBoolByChek(0.25));
    EXPECT_TRUE(getBoolByChek("0,01"));
    EXPECT_TRUE(getBoolByChek(true));
    EXPECT_FALSE(getBoolByChek(0));
    EXPECT_FALSE(getBoolByChek("0,00"));
    EXPECT_FALSE(getBoolByChek(false));
}

TEST(GetBoolByChek, AnotherTextCountsByItsHead) {
    EXPECT_TRUE(getBoolByChek("1x"));
    EXPECT_TRUE(getBoolByChek("1,2,3"));
    EXPECT_FALSE(getBoolByChek("abc"));
    EXPECT_FALSE(getBoolByChek(""));
    EXPECT_FALSE(getBoolByChek("0x27"));
}

TEST(GetBoolByChek, WhatCannotBeConvertedIsTrue) {
    EXPECT_TRUE(getBoolByChek(quattrocentoCifre));
    EXPECT_TRUE(getBoolByChek(quattrocentoCifre + "x"));
    EXPECT_TRUE(getBoolByChek(QVariant(QDate(2013, 1, 1))));
}

TEST(GetDataFineMese, IsTheLastDayOfTheMonth) {
    EXPECT_EQ(getDataFineMese(QDate(2013, 1, 15), 0), QDate(2013, 1, 31));
    EXPECT_EQ(getDataFineMese(QDate(2013, 12, 31), 0), QDate(2013, 12, 31));
}

TEST(GetDataFineMese, AddsTheDaysBeforeTheMonthIsTaken) {
    EXPECT_EQ(getDataFineMese(QDate(2013, 1, 31), 30), QDate(2013, 3, 31));
}

TEST(GetDataFineMese, KnowsLeapYears) {
    EXPECT_EQ(getDataFineMese(QDate(2012, 2, 1), 0), QDate(2012, 2, 29));
    EXPECT_EQ(getDataFineMese(QDate(2013, 1, 31), 28), QDate(2013, 2, 28));
}

TEST(GetDataFineMese, CrossesTheYear) {
    EXPECT_EQ(getDataFineMese(QDate(2013, 12, 15), 30), QDate(2014, 1, 31));
}

TEST(GetDataFineMese, NegativeDaysGoBack) {
    EXPECT_EQ(getDataFineMese(QDate(2013, 3, 1), -1), QDate(2013, 2, 28));
}

TEST(GetDataFineMese, AnInvalidDateStaysInvalid) {
    EXPECT_FALSE(getDataFineMese(QDate(), 30).isValid());
}

TEST(CheckPartitaIva, AcceptsARightCheckDigit) {
    EXPECT_TRUE(checkPartitaIva("12345678903"));
}

TEST(CheckPartitaIva, RefusesEveryOtherCheckDigit) {
    for (const char cifra : {'0', '1', '2', '4', '5', '6', '7', '8', '9'}) {
        EXPECT_FALSE(checkPartitaIva(QString("1234567890") + QLatin1Char(cifra))) << cifra;
    }
}

TEST(CheckPartitaIva, RefusesANumberWhoseCheckDigitIsZero) {
    // The 9, and the 5 doubled to 10 and counted as 1 + 0: a sum of 10.
    EXPECT_FALSE(checkPartitaIva("00000000950"));
}

TEST(CheckPartitaIva, RefusesWhatIsNotElevenDigits) {
    EXPECT_FALSE(checkPartitaIva(""));
    EXPECT_FALSE(checkPartitaIva("1234567890"));
    EXPECT_FALSE(checkPartitaIva("IT345678903"));
    EXPECT_FALSE(checkPartitaIva("\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669\u0660\u0663"));
}

TEST(GetEan13ChekDigit, CompletesACode) {
    EXPECT_EQ(getEAN13ChekDigit("400638133393"), 1);
    EXPECT_EQ(getEAN13ChekDigit("800000000000"), 2);
    EXPECT_EQ(getEAN13ChekDigit("000000000000"), 0);
}

TEST(GetEan13ChekDigit, RefusesWhatIsNotTwelveDigits) {
    EXPECT_EQ(getEAN13ChekDigit("40063813339"), -1);
    EXPECT_EQ(getEAN13ChekDigit("4006381333931"), -1);
    EXPECT_EQ(getEAN13ChekDigit("40063813339x"), -1);
}
