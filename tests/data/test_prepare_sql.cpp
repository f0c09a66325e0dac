#include <gtest/gtest.h>

#include "core/run_time_error.h"
#include "data/prepare_sql.h"

namespace {

constexpr int serverSconosciuto = 7;

int numeroErrore(const QString& sql, int tipoServer) {
    try {
        preparaSQL(sql, tipoServer);
    } catch (const RunTimeError& errore) {
        return errore.numero();
    }
    return 0;
}

}  // namespace

TEST(PreparaSQL, TextWithoutMarksPassesUnchangedOnAccess) {
    const QString sql = "SELECT TOP 3 [a b], \"x\", Format(A, 'O'Brien') FROM T";
    EXPECT_EQ(preparaSQL(sql, Access), sql);
}

TEST(PreparaSQL, DelimitersBecomeQuotesAndQuotesAreDoubled) {
    EXPECT_EQ(preparaSQL("¤O'Brien¤", Access), "'O''Brien'");
}

TEST(PreparaSQL, LiteralQuoteBesideDelimitersIsDoubledToo) {
    EXPECT_EQ(preparaSQL("A = 'x' AND B = ¤y¤", SqlServer), "A = ''x'' AND B = 'y'");
}

TEST(PreparaSQL, EachServerKeepsItsOwnBlock) {
    const QString sql = "SELECT •A•a•/A••M•m•/M••S•s•/S• FROM T";
    EXPECT_EQ(preparaSQL(sql, Access), "SELECT a FROM T");
    EXPECT_EQ(preparaSQL(sql, MySql), "SELECT m FROM T");
    EXPECT_EQ(preparaSQL(sql, SqlServer), "SELECT s FROM T");
}

TEST(PreparaSQL, BothAccessAndMySqlBlocksVanishOnSqlServer) {
    EXPECT_EQ(preparaSQL("SELECT •A•a•/A••M•m•/M•x", SqlServer), "SELECT x");
}

TEST(PreparaSQL, IdenticalSecondBlockGoesWithTheFirst) {
    EXPECT_EQ(preparaSQL("1•M•m•/M•2•M•m•/M•3", Access), "123");
}

TEST(PreparaSQL, SecondBlockWithOtherContentsStaysWithItsTags) {
    EXPECT_EQ(preparaSQL("1•M•m•/M•2•M•n•/M•3", Access), "12•M•n•/M•3");
}

TEST(PreparaSQL, BlockTagsOfAnotherServerAreFoundInAnyCase) {
    EXPECT_EQ(preparaSQL("1•m•x•/m•2", Access), "12");
}

TEST(PreparaSQL, OwnTagsAreTakenOffInUpperCaseOnly) {
    EXPECT_EQ(preparaSQL("1•a•x•/a•2•A•y•/A•", Access), "1•a•x•/a•2y");
}

TEST(PreparaSQL, OpeningTagWithoutClosingTagStaysForOtherServers) {
    EXPECT_EQ(preparaSQL("1•M•m", Access), "1•M•m");
    EXPECT_EQ(preparaSQL("1•M•m", MySql), "1m");
}

TEST(PreparaSQL, ClosingTagFarBeforeTheOpeningOneIsACallError) {
    EXPECT_EQ(numeroErrore("1•/M• xxxx •M•", Access), RunTimeError::ChiamataNonValida);
}

TEST(PreparaSQL, ClosingTagRightBeforeTheOpeningOneRemovesNothing) {
    EXPECT_EQ(preparaSQL("1•/M••M•2", Access), "1•/M••M•2");
}

TEST(PreparaSQL, TopGoesToTheEndOnMySqlOnly) {
    const QString sql = "SELECT TOP 1 A FROM T";
    EXPECT_EQ(preparaSQL(sql, MySql), "SELECT A FROM T LIMIT 1");
    EXPECT_EQ(preparaSQL(sql, Access), sql);
    EXPECT_EQ(preparaSQL(sql, SqlServer), sql);
}

TEST(PreparaSQL, TopKeepsTheOrderBeforeTheLimit) {
    EXPECT_EQ(preparaSQL("SELECT TOP 9 M.RID FROM X ORDER BY Y", MySql),
              "SELECT M.RID FROM X ORDER BY Y LIMIT 9");
}

TEST(PreparaSQL, OnlyTheFirstTopIsChanged) {
    EXPECT_EQ(preparaSQL("SELECT TOP 2 A FROM (SELECT TOP 3 B FROM T)", MySql),
              "SELECT A FROM (SELECT TOP 3 B FROM T) LIMIT 2");
}

TEST(PreparaSQL, LowerCaseTopIsMovedButNotRenamed) {
    EXPECT_EQ(preparaSQL("select top 9 A from T", MySql), "select A from T top 9");
}

TEST(PreparaSQL, TopWithoutBlankBehindTheNumberIsACallError) {
    EXPECT_EQ(numeroErrore("SELECT TOP 9", MySql), RunTimeError::ChiamataNonValida);
}

TEST(PreparaSQL, TopWithTwoBlanksCutsBeforeTheNumber) {
    EXPECT_EQ(preparaSQL("SELECT TOP  9 A FROM T", MySql), "SELECT 9 A FROM T LIMIT ");
}

TEST(PreparaSQL, FormatLeavesItsFirstLetterOnMySql) {
    EXPECT_EQ(preparaSQL("SELECT FORMAT(A, 'X') FROM T", MySql), "SELECT FA FROM T");
}

TEST(PreparaSQL, FormatWithTheSameTailTwiceLosesBothTails) {
    EXPECT_EQ(preparaSQL("SELECT FORMAT(A,'X'), FORMAT(B,'X') FROM T", MySql), "SELECT FA, B FROM T");
}

TEST(PreparaSQL, FormatWithoutCommaIsAnOverflowOnMySqlOnly) {
    EXPECT_EQ(numeroErrore("SELECT FORMAT(A) FROM T", MySql), RunTimeError::Overflow);
    EXPECT_EQ(numeroErrore("SELECT FORMAT(A) FROM T", Access), 0);
}

TEST(PreparaSQL, FormatWhoseBracketClosesFarBeforeTheCommaIsACallError) {
    EXPECT_EQ(numeroErrore("SELECT FORMAT(A) AS X, B FROM T", MySql), RunTimeError::ChiamataNonValida);
}

TEST(PreparaSQL, FormatWhoseBracketClosesRightBeforeTheCommaLosesItsHeadOnly) {
    EXPECT_EQ(preparaSQL("SELECT FORMAT(A), B FROM T", MySql), "SELECT FA), B FROM T");
}

TEST(PreparaSQL, FormatIsNotTouchedInsideARemovedAccessBlock) {
    EXPECT_EQ(preparaSQL("SELECT •A•Format(A‡ \"0\")•/A••M•A•/M• FROM T", MySql), "SELECT A FROM T");
}

TEST(PreparaSQL, BackticksBecomeDoubleQuotesOnSqlServerOnly) {
    EXPECT_EQ(preparaSQL("SELECT `NOTE` FROM T", SqlServer), "SELECT \"NOTE\" FROM T");
    EXPECT_EQ(preparaSQL("SELECT `NOTE` FROM T", MySql), "SELECT `NOTE` FROM T");
    EXPECT_EQ(preparaSQL("SELECT `NOTE` FROM T", Access), "SELECT `NOTE` FROM T");
}

TEST(PreparaSQL, ProtectedCommaInsideALiteralBecomesACommaOnAllServers) {
    for (const int server : {SqlServer, Access, MySql})
        EXPECT_EQ(preparaSQL("¤a‡b¤", server), "'a,b'");
}

TEST(PreparaSQL, AliasWordBecomesAs) {
    EXPECT_EQ(preparaSQL("CAST(A ¿ CHAR)", MySql), "CAST(A AS CHAR)");
}

TEST(PreparaSQL, UnknownServerGetsQuotesCommasAndAliasOnly) {
    EXPECT_EQ(preparaSQL("SELECT TOP 1 •A•`x`•/A•‡ ¤'¤ ¿ Y", serverSconosciuto),
              "SELECT TOP 1 •A•`x`•/A•, '''' AS Y");
}

TEST(PreparaSQL, LetterThatGrowsInUpperCaseDoesNotShiftTheCut) {
    EXPECT_EQ(preparaSQL("/*ßßß*/ SELECT TOP 1 A FROM T", MySql), "/*ßßß*/ SELECT A FROM T LIMIT 1");
}

TEST(PreparaSQL, EmptyTextStaysEmpty) {
    EXPECT_EQ(preparaSQL("", MySql), "");
}

TEST(ParteSQL, MySqlFragmentGetsBlocksAndFormatButNoTop) {
    EXPECT_EQ(parteSQLPerTipoServer("SELECT TOP 1 •A•x•/A••M•FORMAT(A, 'X')•/M•", MySql), "SELECT TOP 1 FA");
}

TEST(ParteSQL, SqlServerFragmentKeepsItsBackticks) {
    EXPECT_EQ(parteSQLPerTipoServer("•M•m•/M•`a`", SqlServer), "`a`");
}

TEST(ParteSQL, QuotesCommasAndAliasAreNotTouched) {
    EXPECT_EQ(parteSQLPerTipoServer("¤'¤‡¿", Access), "¤'¤‡¿");
}

TEST(ParteSQL, UnknownServerLeavesTheFragment) {
    EXPECT_EQ(parteSQLPerTipoServer("•A•x•/A•", serverSconosciuto), "•A•x•/A•");
}

TEST(ParteSQL, WithoutProtectedCommasTurnsEveryOneIntoAComma) {
    EXPECT_EQ(getPartSQLWithoutSP("a‡b‡¿"), "a,b,¿");
}
