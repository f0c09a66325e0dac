#include <gtest/gtest.h>

#include <QDateTime>

#include "core/clock.h"
#include "data/access_archive.h"

namespace {

class FunzioniAccess : public testing::Test {
  protected:
    // The value of an expression in neutral words.
    QString valore(const QString& espressione) { return archivio.riga("SELECT " + espressione); }

    AccessArchive archivio;
};

// The clock says 31 January 2013, 14:05:09, until the end of the test.
class TempoFermo final : public Clock {
  public:
    TempoFermo() { impostaOrologio(this); }
    ~TempoFermo() override { impostaOrologio(nullptr); }
    TempoFermo(const TempoFermo&) = delete;
    TempoFermo& operator=(const TempoFermo&) = delete;
    QDateTime adesso() const override { return {QDate(2013, 1, 31), QTime(14, 5, 9)}; }
};

}  // namespace

TEST_F(FunzioniAccess, NowAndGetDateAreTheClockInForce) {
    const TempoFermo tempo;
    EXPECT_EQ(valore("Now(), GetDate()"), "2013-01-31 14:05:09|2013-01-31 14:05:09");
}

TEST_F(FunzioniAccess, DateIsMidnightOfTheDay) {
    const TempoFermo tempo;
    EXPECT_EQ(valore("Date()"), "2013-01-31 00:00:00");
}

TEST_F(FunzioniAccess, YearMonthAndDayOfAStoredDate) {
    EXPECT_EQ(valore("YEAR(#01/31/2013#), Month(#01/31/2013 10:00:00#), day(¤2013-01-31¤)"), "2013|1|31");
}

TEST_F(FunzioniAccess, YearOfWhatIsNoDateIsNull) {
    for (const QString testo :
         {"¤¤", "¤2013¤", "¤31/01/2013¤", "¤2013-02-30 00:00:00¤", "¤2013-01-31x¤", "7", "Null"}) {
        EXPECT_EQ(valore("YEAR(" + testo + ")"), "<null>") << testo.toStdString();
    }
}

TEST_F(FunzioniAccess, DateAddKnowsEveryInterval) {
    const QString data = ", #01/31/2012 10:00:00#)";
    EXPECT_EQ(valore("DateAdd(¤yyyy¤, 1" + data), "2013-01-31 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤q¤, 1" + data), "2012-04-30 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤m¤, 1" + data), "2012-02-29 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤y¤, 1" + data), "2012-02-01 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤d¤, -31" + data), "2011-12-31 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤w¤, 1" + data), "2012-02-01 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤ww¤, 1" + data), "2012-02-07 10:00:00");
    EXPECT_EQ(valore("DateAdd(¤h¤, 14" + data), "2012-02-01 00:00:00");
    EXPECT_EQ(valore("DateAdd(¤n¤, 90" + data), "2012-01-31 11:30:00");
    EXPECT_EQ(valore("DateAdd(¤S¤, -1" + data), "2012-01-31 09:59:59");
}

TEST_F(FunzioniAccess, DateAddGoesThroughTheHourThatSummerTimeSkips) {
    EXPECT_EQ(valore("DateAdd(¤h¤, 1, #03/31/2013 01:30:00#)"), "2013-03-31 02:30:00");
}

TEST_F(FunzioniAccess, DateAddOfAnUnknownIntervalIsAnError) {
    EXPECT_EQ(valore("DateAdd(¤x¤, 1, #01/31/2013#)"), "errore: Chiamata di routine o argomento non validi");
}

TEST_F(FunzioniAccess, DateAddBeyondAllYearsIsAnError) {
    for (const QString quanti : {"9000", "2147483647", "-2147483648", "-2000"}) {
        EXPECT_TRUE(valore("DateAdd(¤yyyy¤, " + quanti + ", #01/31/2013#)").startsWith("errore: "))
            << quanti.toStdString();
    }
}

TEST_F(FunzioniAccess, DateAddToWhatIsNoDateIsATypeError) {
    EXPECT_EQ(valore("DateAdd(¤m¤, 1, ¤ieri¤)"), "errore: Tipo non corrispondente");
}

TEST_F(FunzioniAccess, FormatOfNumbersAndNumericTexts) {
    EXPECT_EQ(valore("Format(42, \"00000\")"), "00042");
    EXPECT_EQ(valore("Format(1234.5, \"#,##0.00\")"), "1.234,50");
    EXPECT_EQ(valore("Format(¤42¤, \"00000\")"), "00042");
}

TEST_F(FunzioniAccess, FormatOfAStoredDate) {
    EXPECT_EQ(valore("Format(#01/31/2013 09:05:00#, \"DD/MM/YYYY Hh:Nn\")"), "31/01/2013 09:05");
}

TEST_F(FunzioniAccess, FormatLeavesOtherTextsAlone) {
    EXPECT_EQ(valore("Format(¤abc¤, \"000\")"), "abc");
}

TEST_F(FunzioniAccess, ValIsTheNumberAtTheHead) {
    EXPECT_EQ(valore("Val(¤12abc¤), Val(¤x¤), Val(2.5)"), "12.0|0.0|2.5");
}

TEST_F(FunzioniAccess, CDblReadsTheDecimalComma) {
    EXPECT_EQ(valore("CDbl(¤1.234,5¤), CDbl(2)"), "1234.5|2.0");
}

TEST_F(FunzioniAccess, CDblOfWhatIsNoNumberIsATypeError) {
    EXPECT_EQ(valore("CDbl(¤x¤)"), "errore: Tipo non corrispondente");
}

TEST_F(FunzioniAccess, IntGoesDown) {
    EXPECT_EQ(valore("Int(2.7), Int(-2.1), Int(5), Int(¤2,5¤)"), "2|-3|5|2");
}

TEST_F(FunzioniAccess, CStrWritesTheDecimalComma) {
    EXPECT_EQ(valore("CStr(12.5), CStr(3), CStr(¤a¤)"), "12,5|3|a");
}

TEST_F(FunzioniAccess, NzReplacesNullOnly) {
    EXPECT_EQ(valore("Nz(Null, 5), Nz(3, 5), Nz(Null), Nz(0)"), "5|3||0");
}

TEST_F(FunzioniAccess, IIfTakesAnythingButZeroAsTrue) {
    EXPECT_EQ(valore("IIf(2 > 1, ¤s¤, ¤n¤), IIf(-1, 1, 2), IIf(Null, 1, 2)"), "s|1|2");
}

TEST_F(FunzioniAccess, PiecesOfATextCountFromOne) {
    EXPECT_EQ(valore("Left(¤perché¤, 3), Right(¤perché¤, 2), Mid(¤perché¤, 2, 3), Mid(¤perché¤, 6)"),
              "per|hé|erc|é");
}

TEST_F(FunzioniAccess, PiecesBeyondTheEndAreWhatIsThere) {
    EXPECT_EQ(valore("Left(¤ab¤, 9), Right(¤ab¤, 9), Mid(¤ab¤, 9), Mid(¤ab¤, 2, 9)"), "ab|ab||b");
}

TEST_F(FunzioniAccess, PiecesOfNegativeLengthAreErrors) {
    for (const QString chiamata : {"Left(¤a¤, -1)", "Right(¤a¤, -1)", "Mid(¤a¤, 0)", "Mid(¤a¤, 1, -1)"}) {
        EXPECT_TRUE(valore(chiamata).startsWith("errore: ")) << chiamata.toStdString();
    }
}

TEST_F(FunzioniAccess, LenCountsCharactersNotBytes) {
    EXPECT_EQ(valore("Len(¤perché¤), Len(¤¤)"), "6|0");
}

TEST_F(FunzioniAccess, UpperAndLowerCaseKnowAccents) {
    EXPECT_EQ(valore("UCase(¤perché¤), LCase(¤PERCHÉ¤)"), "PERCHÉ|perché");
}

TEST_F(FunzioniAccess, TrimTakesBlanksFromBothEnds) {
    EXPECT_EQ(valore("Trim(¤  a b ¤) & ¤!¤"), "a b!");
}

TEST_F(FunzioniAccess, InStrFindsInAnyCaseFromAPlace) {
    EXPECT_EQ(
        valore("InStr(¤abcABC¤, ¤B¤), InStr(3, ¤abcABC¤, ¤b¤), InStr(¤abc¤, ¤z¤), InStr(9, ¤abc¤, ¤a¤)"),
        "2|5|0|0");
}

TEST_F(FunzioniAccess, ConcatTakesNullAsEmpty) {
    EXPECT_EQ(valore("CONCAT(¤a¤, Null, 1), CONCAT()"), "a1|");
}

TEST_F(FunzioniAccess, NullGoesThroughTheOtherFunctions) {
    for (const QString chiamata :
         {"DateAdd(¤m¤, 1, Null)", "Format(Null, \"0\")", "Val(Null)", "CDbl(Null)", "Int(Null)", "Abs(Null)",
          "CStr(Null)", "Len(Null)", "Left(Null, 1)", "Mid(Null, 1)", "UCase(Null)", "Trim(Null)",
          "InStr(Null, ¤a¤)", "Null LIKE ¤a¤"}) {
        EXPECT_EQ(valore(chiamata), "<null>") << chiamata.toStdString();
    }
}

TEST_F(FunzioniAccess, LikeKnowsNoCaseAndNoAccents) {
    EXPECT_EQ(valore("¤CAFFÈ¤ LIKE ¤caffe¤, ¤abc¤ LIKE ¤A_C¤, ¤50%¤ LIKE ¤50!%¤ ESCAPE ¤!¤, ¤505¤ LIKE "
                     "¤50!%¤ ESCAPE ¤!¤"),
              "1|1|1|0");
}

TEST_F(FunzioniAccess, UniqueCodesCompareLikeTheCollation) {
    archivio.nativo("CREATE TABLE T (C TEXT COLLATE ACCESS_TEXT UNIQUE); INSERT INTO T VALUES ('caffè')");
    EXPECT_EQ(archivio.riga("INSERT INTO T VALUES (¤CAFFE ¤)"), "errore: UNIQUE constraint failed: T.C");
}
