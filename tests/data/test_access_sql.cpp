#include <gtest/gtest.h>

#include <QDateTime>
#include <QRandomGenerator>
#include <QTimeZone>

#include "core/clock.h"
#include "data/access_archive.h"
#include "data/access_tokens.h"

namespace {

class OrologioFermo final : public Clock {
  public:
    explicit OrologioFermo(QDateTime ora) : mOra(std::move(ora)) { impostaOrologio(this); }
    ~OrologioFermo() override { impostaOrologio(nullptr); }
    OrologioFermo(const OrologioFermo&) = delete;
    OrologioFermo& operator=(const OrologioFermo&) = delete;
    QDateTime adesso() const override { return mOra; }

  private:
    QDateTime mOra;
};

// A shop of a few rows; two sales in January and March 2013, one of them printed.
class AccessSQL : public testing::Test {
  protected:
    void SetUp() override {
        archivio.nativo(R"(
            CREATE TABLE TipoDocumenti (RID INTEGER PRIMARY KEY, CODICE TEXT COLLATE ACCESS_TEXT,
                                        DESCRIZIONE TEXT, FK_CAUSALE INTEGER, MOSTRAVB INTEGER);
            CREATE TABLE Causali (RID INTEGER PRIMARY KEY, ORIGINE INTEGER, DESTINAZIONE INTEGER);
            CREATE TABLE Anagrafiche (RID INTEGER PRIMARY KEY, NUMERO INTEGER, TIPO TEXT COLLATE ACCESS_TEXT,
                                      DENOMINAZIONE TEXT COLLATE ACCESS_TEXT);
            CREATE TABLE Movimenti (RID INTEGER PRIMARY KEY, PROGRESSIVO INTEGER, DATA TEXT, DATASTAMPA TEXT,
                                    ID_CASSA INTEGER, FK_TIPODOCUMENTO INTEGER, FK_CONTROPARTITA INTEGER,
                                    FK_DESTINAZIONE INTEGER);
            CREATE TABLE DettagliMovimento (RID INTEGER PRIMARY KEY, FK_MOVIMENTO INTEGER,
                                            FK_PRODOTTO INTEGER, EXTRAPROG INTEGER, QUANTITA REAL,
                                            PREZZONETTO REAL, ORA TEXT);
            CREATE TABLE Prodotti (RID INTEGER PRIMARY KEY, CODICE TEXT COLLATE ACCESS_TEXT, BARCODE TEXT,
                                   DESCRIZIONE TEXT COLLATE ACCESS_TEXT, DISABILITATO INTEGER,
                                   FK_SOSTITUITO INTEGER);
            CREATE TABLE Contatori (FK_NUMERATORE INTEGER, ANNO TEXT, NUMERO INTEGER, NOTE TEXT);
            INSERT INTO TipoDocumenti VALUES (1, 'VB', 'Vendita', 7, 1), (2, 'FA', 'Fattura', 8, 0);
            INSERT INTO Causali VALUES (7, 3, 1), (8, 2, 3);
            INSERT INTO Anagrafiche VALUES (1, 1, 'C', 'Cliente generico'), (2, 2, 'C', 'Caffè Élite'),
                                           (3, 3, 'F', 'Àncora'), (4, 4, 'c', 'ABBA');
            INSERT INTO Movimenti VALUES
                (10, 42, '2013-01-31 00:00:00', NULL, 255, 1, 2, NULL),
                (11, 43, '2013-03-05 00:00:00', '2013-03-05 00:00:00', 255, 1, 4, NULL),
                (12, 1, '2012-12-31 00:00:00', NULL, 255, 2, 2, 5),
                (13, 2, '2013-03-01 00:00:00', NULL, 255, 2, 3, 5);
            INSERT INTO DettagliMovimento VALUES (100, 10, 1, 1, 2, 3.5, NULL), (101, 10, 1, 2, 1, 3.5, NULL),
                (102, 11, 1, 1, -1, 4, NULL), (103, 12, 1, 1, 10, 2, NULL), (104, 13, 1, 1, -5, 3, NULL);
            INSERT INTO Prodotti VALUES (1, 'P1', '8001', 'Caffè', 0, NULL),
                (2, 'P2', '8002', 'caffettiera', 0, NULL),
                (3, 'p3', '8003', 'CAFFE'' nero', 0, NULL), (4, 'X', '8004', 'Tè', 1, NULL);
        )");
    }

    AccessArchive archivio;
};

// Words, marks and unfinished pieces of the dialect in any order.
QString zuppa(QRandomGenerator& caso) {
    static const QStringList pezzi = {
        "SELECT", "TOP", "DISTINCT", "9",      "FROM",  "T",    "WHERE",   "HAVING",  "GROUP",
        "BY",     "AND", "OR",       "NOT",    "UNION", "ALL",  "ORDER",   "IN",      "LIKE",
        "ISNULL", "(",   ")",        "(",      ")",     "&",    "&",       ",",       ";",
        ".",      "+",   "-",        "=",      "<>",    "True", "False",   "Left",    "A",
        "[a b]",  "`c`", "12.5",     "1e5",    "#x#",   "#",    "'testo'", "'it''s'", "#01/31/2013#",
        "'%a_'",  "''",  "/* c */",  "-- n\n", "SUM",   "AS",   "è",       "'x%'",    "\"doppio\"",
        "'",      "\"",  "[",        "`",      "/*",    "--",   "*",       "ESCAPE",  "\U0001F6D2",
    };
    QString sql;
    const int quanti = static_cast<int>(caso.bounded(40));
    for (int i = 0; i < quanti; ++i)
        sql += pezzi[caso.bounded(pezzi.size())] + (caso.bounded(3) == 0 ? "" : " ");
    return sql;
}

// What stands between the tokens, the texts and the quoted names, in their order.
QStringList pezziIntoccabili(const QString& sql) {
    QStringList pezzi;
    qsizetype finora = 0;
    for (const dialetto::Token& t : dialetto::tokenizza(sql)) {
        pezzi << sql.mid(finora, t.inizio - finora);
        const bool intoccabile = t.tipo == dialetto::Tipo::Testo || t.tipo == dialetto::Tipo::Nome;
        if (intoccabile) pezzi << t.testo.toString();
        finora = t.fine();
    }
    return pezzi << sql.mid(finora);
}

QString tradotto(const QString& sql) {
    return traduciAccessSQL(sql);
}

}  // namespace

// ---- statements of the counter -------------------------------------------------------------------------

TEST_F(AccessSQL, SuspendedSalesAreListedWithTheirNumber) {
    EXPECT_EQ(archivio.riga("SELECT TOP 9 M.RID, •A•(Format(M.PROGRESSIVO‡ \"00000\") & ¤/¤ & TD.CODICE)•/A•"
                            "•M•CONCAT(CAST(M.PROGRESSIVO ¿ CHAR)‡ ¤/¤‡ TD.CODICE)•/M• AS Numero, "
                            "A.DENOMINAZIONE AS CONTROPARTITA, M.Data, TD.DESCRIZIONE AS Documento "
                            "FROM (Movimenti M  INNER JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID) "
                            "LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID "
                            "WHERE M.FK_CONTROPARTITA <> 1 AND ISNULL(M.DATASTAMPA) AND "
                            "M.FK_TIPODOCUMENTO = 1 AND ID_CASSA = 255 ORDER BY A.DENOMINAZIONE  ASC"),
              "10|00042/VB|Caffè Élite|2013-01-31 00:00:00|Vendita");
}

TEST_F(AccessSQL, AveragePriceFiltersWithItsHaving) {
    const OrologioFermo orologio(QDateTime(QDate(2013, 3, 10), QTime(12, 0)));
    EXPECT_EQ(archivio.riga(
                  "SELECT Sum(Abs(dm.Quantita)) AS TotQta, Sum(Abs(dm.Quantita) * Abs(dm.PrezzoNetto)) AS "
                  "TotPrezzoNetto FROM (((Causali c INNER JOIN TipoDocumenti td ON c.RID = td.FK_Causale) "
                  "INNER JOIN Movimenti m ON td.RID = m.FK_TipoDocumento) INNER JOIN DettagliMovimento dm "
                  "ON  m.RID = dm.FK_Movimento) •A•HAVING m.Data >= DateAdd(¤m¤,-2,Date()) AND •/A•"
                  "•M•WHERE m.Data >= DATE_ADD(CURRENT_DATE(), INTERVAL -2 MONTH) AND •/M•"
                  "c.Destinazione = 3 AND (c.Origine = 3 OR c.Origine = 2) AND m.FK_Destinazione = 5"),
              "5.0|15.0");
}

TEST_F(AccessSQL, AveragePriceWithoutAnyLoadIsOneRowOfNulls) {
    const OrologioFermo orologio(QDateTime(QDate(2020, 1, 1), QTime(12, 0)));
    EXPECT_EQ(
        archivio.riga("SELECT Sum(QUANTITA) FROM DettagliMovimento DM INNER JOIN Movimenti m ON "
                      "DM.FK_MOVIMENTO = m.RID HAVING m.Data >= DateAdd(¤m¤,-2,Date()) AND DM.RID <> 7"),
        "<null>");
}

TEST_F(AccessSQL, LastNumberOfAYear) {
    EXPECT_EQ(archivio.riga("SELECT MAX(PROGRESSIVO) FROM Movimenti WHERE YEAR(DATA) = 2013"), "43");
}

TEST_F(AccessSQL, SaleOfADayIsFoundByItsDateLiteral) {
    EXPECT_EQ(archivio.riga(
                  "SELECT TOP 1 M.PROGRESSIVO, DM.EXTRAPROG FROM DettagliMovimento DM INNER JOIN Movimenti M "
                  "ON DM.FK_MOVIMENTO = M.RID WHERE M.FK_TIPODOCUMENTO = 1 AND YEAR(M.DATA) = 2013 AND "
                  "DATA = #01/31/2013# AND M.ID_CASSA = 255 ORDER BY DM.EXTRAPROG DESC "),
              "42|2");
}

TEST_F(AccessSQL, PeriodTakesItsFirstAndItsLastDay) {
    EXPECT_EQ(
        archivio.riga("SELECT M.RID FROM Movimenti M WHERE M.DATA BETWEEN #01/31/2013# AND #03/05/2013# "
                      "ORDER BY M.RID"),
        "10 / 11 / 13");
}

TEST_F(AccessSQL, BackArrowFindsTheSaleBefore) {
    EXPECT_EQ(archivio.riga("SELECT TOP 1 M.RID, M.PROGRESSIVO, DM.EXTRAPROG FROM Movimenti M INNER JOIN "
                            "DettagliMovimento DM ON M.RID = DM.FK_MOVIMENTO WHERE YEAR(M.DATA) = 2013 AND "
                            "M.FK_TIPODOCUMENTO = 1 AND M.ID_CASSA = 255 AND M.PROGRESSIVO < 43 ORDER BY "
                            "M.PROGRESSIVO DESC, DM.EXTRAPROG DESC"),
              "10|42|2");
}

TEST_F(AccessSQL, CounterIsWrittenWithItsQuotedColumn) {
    EXPECT_EQ(archivio.riga(
                  "INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, `NOTE`) VALUES (3, ¤2013¤, 1, ¤n/d¤)"),
              "");
    EXPECT_EQ(
        archivio.riga("SELECT `NOTE`, [NUMERO] FROM Contatori WHERE FK_NUMERATORE = 3 AND ANNO =  ¤2013¤"),
        "n/d|1");
}

TEST_F(AccessSQL, RowIsStampedWithTheClockInForce) {
    const OrologioFermo orologio(QDateTime(QDate(2013, 3, 10), QTime(9, 5, 7)));
    EXPECT_EQ(archivio.riga("INSERT INTO DettagliMovimento (FK_MOVIMENTO, ORA) VALUES (99, Now()) "), "");
    EXPECT_EQ(archivio.riga("SELECT ORA FROM DettagliMovimento WHERE FK_MOVIMENTO = 99"),
              "2013-03-10 09:05:07");
}

TEST_F(AccessSQL, SearchFindsTheBeginningWithoutRegardToCaseAndAccents) {
    EXPECT_EQ(archivio.riga("SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Prodotti WHERE DISABILITATO = 0 AND "
                            "FK_SOSTITUITO IS NULL AND DESCRIZIONE LIKE ¤CAFFÈ%¤ ORDER BY DESCRIZIONE  ASC"),
              "1|P1|Caffè / 3|p3|CAFFE' nero / 2|P2|caffettiera");
}

TEST_F(AccessSQL, SearchAnywhereFindsTheMiddle) {
    EXPECT_EQ(archivio.riga("SELECT TOP 9 RID FROM Prodotti WHERE DESCRIZIONE LIKE ¤%NÈR%¤"), "3");
}

TEST_F(AccessSQL, SearchForAnApostropheFindsIt) {
    EXPECT_EQ(archivio.riga("SELECT TOP 9 RID FROM Prodotti WHERE DESCRIZIONE LIKE ¤caffe'%¤"), "3");
}

TEST_F(AccessSQL, SearchInANumberColumnFindsItsFirstDigits) {
    EXPECT_EQ(archivio.riga("SELECT TOP 9 RID FROM Movimenti WHERE PROGRESSIVO LIKE ¤4%¤ ORDER BY RID"),
              "10 / 11");
}

TEST_F(AccessSQL, NextPageComparesTheKeyLikeTheOrderDoes) {
    EXPECT_EQ(
        archivio.riga("SELECT TOP 2 RID, DENOMINAZIONE FROM Anagrafiche WHERE TIPO = ¤C¤ AND DENOMINAZIONE > "
                      "¤abba¤  ORDER BY DENOMINAZIONE  ASC"),
        "2|Caffè Élite / 1|Cliente generico");
}

TEST_F(AccessSQL, CodeIsFoundInAnyCase) {
    EXPECT_EQ(archivio.riga("SELECT RID FROM Prodotti P WHERE P.BARCODE = ¤P3¤ OR P.CODICE = ¤P3¤"), "3");
}

TEST_F(AccessSQL, ListOfCodesKeepsItsCommas) {
    EXPECT_EQ(archivio.riga(
                  "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM TipoDocumenti WHERE MOSTRAVB = 1 OR RID = 9 "
                  "OR CODICE IN (¤fa¤,¤zz¤) ORDER BY RID"),
              "1|VB|Vendita / 2|FA|Fattura");
}

// ---- TOP -----------------------------------------------------------------------------------------------

TEST_F(AccessSQL, TopInASubqueryLimitsTheSubqueryOnly) {
    EXPECT_EQ(
        archivio.riga(
            "SELECT RID FROM Movimenti WHERE RID IN (SELECT TOP 2 RID FROM Movimenti ORDER BY RID DESC) "
            "ORDER BY RID"),
        "12 / 13");
}

TEST_F(AccessSQL, TopInsideAndOutsideEachKeepTheirOwn) {
    EXPECT_EQ(archivio.riga(
                  "SELECT TOP 1 RID FROM (SELECT TOP 2 RID FROM Movimenti ORDER BY RID DESC) X ORDER BY RID"),
              "12");
}

TEST_F(AccessSQL, TopBehindDistinct) {
    EXPECT_EQ(
        archivio.riga("SELECT DISTINCT TOP 1 FK_TIPODOCUMENTO FROM Movimenti ORDER BY FK_TIPODOCUMENTO DESC"),
        "2");
}

TEST_F(AccessSQL, TopInBothBranchesOfAUnion) {
    EXPECT_EQ(archivio.riga(
                  "SELECT TOP 1 RID FROM Movimenti WHERE RID > 10 UNION ALL SELECT TOP 1 RID FROM Prodotti "
                  "ORDER BY RID"),
              "1 / 11");
}

TEST_F(AccessSQL, TopOfAFirstBranchDoesNotCutTheSecond) {
    EXPECT_EQ(archivio.riga("SELECT TOP 1 RID FROM Movimenti UNION SELECT RID FROM Causali ORDER BY RID"),
              "7 / 8 / 10");
}

TEST_F(AccessSQL, TopOfAnInsertedSelect) {
    EXPECT_EQ(
        archivio.riga("INSERT INTO Contatori (NUMERO) SELECT TOP 2 RID FROM Prodotti ORDER BY RID DESC"), "");
    EXPECT_EQ(archivio.riga("SELECT NUMERO FROM Contatori ORDER BY NUMERO"), "3 / 4");
}

TEST_F(AccessSQL, TopBeforeAClosingComment) {
    EXPECT_EQ(archivio.riga("SELECT TOP 1 RID FROM Prodotti ORDER BY RID -- the first"), "1");
}

TEST(TraduciAccessSQL, TopWithoutANumberIsLeftAlone) {
    EXPECT_EQ(tradotto("SELECT TOP FROM T"), "SELECT TOP FROM T");
}

// ---- HAVING --------------------------------------------------------------------------------------------

TEST_F(AccessSQL, HavingBesideAWhereMustHoldToo) {
    EXPECT_EQ(
        archivio.riga("SELECT COUNT(*) FROM Movimenti WHERE RID = 10 OR RID = 11 HAVING PROGRESSIVO = 1 OR "
                      "PROGRESSIVO = 43"),
        "1");
}

TEST_F(AccessSQL, HavingWithGroupByStaysAsItIs) {
    EXPECT_EQ(
        archivio.riga("SELECT FK_MOVIMENTO FROM DettagliMovimento GROUP BY FK_MOVIMENTO HAVING COUNT(*) > 1"),
        "10");
}

TEST_F(AccessSQL, HavingOverTheWholeSetStaysAsItIs) {
    EXPECT_EQ(archivio.riga("SELECT COUNT(*) FROM Movimenti HAVING (SUM(PROGRESSIVO) > 1000)"), "");
}

TEST_F(AccessSQL, HavingInASubqueryIsThatSubquerysFilter) {
    EXPECT_EQ(
        archivio.riga("SELECT (SELECT COUNT(*) FROM Movimenti HAVING RID > 11), COUNT(*) FROM Movimenti"),
        "2|4");
}

// ---- texts and "&" -------------------------------------------------------------------------------------

TEST_F(AccessSQL, NullIsAnEmptyTextForConcatenation) {
    EXPECT_EQ(archivio.riga("SELECT \"a\" & NULL & \"b\", NULL & NULL"), "ab|");
}

TEST_F(AccessSQL, SumsBindTighterThanConcatenation) {
    EXPECT_EQ(archivio.riga("SELECT 1 + 2 & 3 * 4"), "312");
}

TEST_F(AccessSQL, ComparisonsBindLooserThanConcatenation) {
    EXPECT_EQ(
        archivio.riga(
            "SELECT RID FROM Prodotti WHERE ¤P¤ & RID = CODICE AND BARCODE LIKE ¤80¤ & ¤%¤ ORDER BY RID"),
        "1 / 2 / 3");
}

TEST_F(AccessSQL, ConcatenationInsideAFunctionAndBrackets) {
    EXPECT_EQ(archivio.riga("SELECT Len(\"ab\" & (\"c\" & \"d\")) & \"!\" AS X"), "4!");
}

TEST_F(AccessSQL, ConcatenationWithAnAliasAndAQualifiedName) {
    EXPECT_EQ(
        archivio.riga(
            "SELECT TD.CODICE & ¤-¤ & TD.[DESCRIZIONE] N, 1 FROM TipoDocumenti TD WHERE NOT RID & ¤¤ = ¤2¤"),
        "VB-Vendita|1");
}

TEST_F(AccessSQL, ConcatenationOfNegativeAndDecimalNumbers) {
    EXPECT_EQ(archivio.riga("SELECT -1 & ¤/¤ & 12.5"), "-1/12,5");
}

TEST_F(AccessSQL, ConcatenationBehindTop) {
    EXPECT_EQ(archivio.riga("SELECT TOP 1 CODICE & ¤!¤ FROM Prodotti ORDER BY RID"), "P1!");
}

TEST_F(AccessSQL, DoubleQuotedTextKeepsQuotesOfBothKinds) {
    EXPECT_EQ(archivio.riga("SELECT \"it's \"\"so\"\"\""), "it's \"so\"");
}

TEST_F(AccessSQL, NamesInBracketsMayHoldAnything) {
    EXPECT_EQ(archivio.riga("SELECT [TOP #1 & 'x'] FROM (SELECT 5 AS [TOP #1 & 'x'])"), "5");
}

TEST_F(AccessSQL, WordsOfTheDialectInsideATextAreText) {
    const QString testo = "SELECT TOP 1 #01/31/2013# & ISNULL(x) HAVING True \"q\" -- Now()";
    EXPECT_EQ(archivio.riga("SELECT " + testoSQL(testo)), testo);
}

// ---- the rest ------------------------------------------------------------------------------------------

TEST_F(AccessSQL, IsNullOfAnExpression) {
    EXPECT_EQ(
        archivio.riga("SELECT RID FROM Movimenti WHERE NOT ISNULL((DATASTAMPA)) OR IsNull(NULL & NULL)"),
        "11");
}

TEST_F(AccessSQL, TrueIsMinusOneAndFalseIsZero) {
    EXPECT_EQ(archivio.riga("SELECT True, 5-True, false"), "-1|6|0");
}

TEST(TraduciAccessSQL, ColumnsNamedLikeConstantsStayColumns) {
    EXPECT_EQ(tradotto("SELECT x.True, False.y"), "SELECT x.True, False.y");
}

TEST_F(AccessSQL, LeftIsAFunctionAndAJoin) {
    EXPECT_EQ(
        archivio.riga(
            "SELECT Left(P.CODICE, 1), Right(P.CODICE, 1) FROM Prodotti P LEFT JOIN Causali C ON C.RID = "
            "P.RID WHERE P.RID = 1"),
        "P|1");
}

TEST(TraduciAccessSQL, DateLiteralsTakeTheFormOfStoredDates) {
    EXPECT_EQ(tradotto("#01/31/2013#"), "'2013-01-31 00:00:00'");
    EXPECT_EQ(tradotto("#02/29/2012 09:05:07#"), "'2012-02-29 09:05:07'");
    EXPECT_EQ(tradotto("#12/01/2013 23:59#"), "'2013-12-01 23:59:00'");
    EXPECT_EQ(tradotto("#08:30:00#"), "'1899-12-30 08:30:00'");
}

TEST(TraduciAccessSQL, LiteralsThatAreNoDatesAreLeftForTheServerToRefuse) {
    for (const QString testo : {"#31/01/2013#", "#02/29/2013#", "#01-31-2013#", "#01/31/2013 25:00#", "##",
                                "#x#", "#01/31/2013T10:00#", "#1/1/2013#", "#01/31/2013 #"}) {
        EXPECT_EQ(tradotto(testo), testo);
    }
}

TEST(TraduciAccessSQL, StatementWithNothingToChangeIsTheSameText) {
    const QString sql =
        "SELECT RID, CODICE FROM Prodotti P LEFT JOIN Iva I ON P.FK_Iva = I.RID WHERE P.RID = 12";
    EXPECT_TRUE(tradotto(sql).isSharedWith(sql));
}

TEST(TraduciAccessSQL, LikeThatBindsToSomethingElseGetsNoRange) {
    for (const QString sql :
         {"SELECT RID FROM T WHERE NOT A LIKE 'x%'", "SELECT RID FROM T WHERE A LIKE 'x%' ESCAPE '!'",
          "SELECT RID FROM T WHERE A LIKE '%x'", "SELECT RID FROM T WHERE A LIKE '-1%'",
          "SELECT RID FROM T WHERE Left(A) LIKE 'x%'", "SELECT RID FROM T WHERE A LIKE B"}) {
        EXPECT_FALSE(tradotto(sql).contains("BETWEEN")) << sql.toStdString();
    }
}

TEST_F(AccessSQL, SearchFromABeginningUsesTheIndex) {
    archivio.nativo("CREATE INDEX I_P_D ON Prodotti (DESCRIZIONE)");
    const QString piano = archivio.riga(
        "EXPLAIN QUERY PLAN SELECT TOP 9 P.RID FROM Prodotti P WHERE DISABILITATO = 0 AND "
        "P.DESCRIZIONE LIKE ¤caff%¤ ORDER BY P.DESCRIZIONE  ASC");
    EXPECT_TRUE(piano.contains("SEARCH P USING INDEX I_P_D (DESCRIZIONE>? AND DESCRIZIONE<?)"))
        << piano.toStdString();
    EXPECT_FALSE(piano.contains("TEMP B-TREE")) << piano.toStdString();
}

TEST_F(AccessSQL, LastNumberOfAYearUsesAnIndexOnTheYear) {
    archivio.nativo("CREATE INDEX I_M_A ON Movimenti (YEAR(DATA), PROGRESSIVO)");
    const QString piano =
        archivio.riga("EXPLAIN QUERY PLAN SELECT MAX(PROGRESSIVO) FROM Movimenti WHERE YEAR(DATA) = 2013");
    EXPECT_TRUE(piano.contains("I_M_A")) << piano.toStdString();
}

TEST(TraduciAccessSQL, AnySoupOfTokensKeepsItsTextsNamesAndComments) {
    QRandomGenerator caso(20260101);
    for (int giro = 0; giro < 20000; ++giro) {
        const QString sql = zuppa(caso);
        const QString uscita = tradotto(sql);
        qsizetype posizione = 0;
        for (const QString& pezzo : pezziIntoccabili(sql)) {
            posizione = uscita.indexOf(pezzo, posizione);
            ASSERT_GE(posizione, 0) << pezzo.toStdString() << " of " << sql.toStdString() << "\n"
                                    << uscita.toStdString();
            posizione += pezzo.size();
        }
    }
}

TEST(Tokenizza, TokensAndWhatLiesBetweenMakeUpTheStatement) {
    const QString sql = "SELECT/*c*/A.b,[x]]+'a''b'\"\"-- z\n#01/01/2013#<=.5e3 `n` ";
    QStringList testi;
    for (const dialetto::Token& t : dialetto::tokenizza(sql)) {
        EXPECT_EQ(QStringView(sql).mid(t.inizio, t.testo.size()), t.testo);
        testi << t.testo.toString();
    }
    EXPECT_EQ(testi.join(' '), "SELECT A . b , [x] ] + 'a''b' \"\" #01/01/2013# <= .5e3 `n`");
}
