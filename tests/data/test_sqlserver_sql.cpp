#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

#include <QElapsedTimer>

#include "core/globals.h"
#include "core/run_time_error.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/sqlserver_sql.h"

namespace {

// What the ODBC driver is handed for a neutral statement.
QString tsql(const QString& neutra) {
    return traduciSqlServer(preparaSQL(neutra, SqlServer));
}

// Reads texts as SQL Server does, without the code under test: N'..', two quotes for one, a backslash that
// vanishes with the line break behind it, and sums of texts in brackets.
class LettoreTSql {
  public:
    explicit LettoreTSql(QString sql) : mSql(std::move(sql)) {}

    // The value of the text that begins at `posizione`, which moves behind it; nothing when none begins.
    std::optional<QString> testo(qsizetype& posizione) const {
        if (!inizia(posizione, "(")) return letterale(posizione);
        qsizetype i = posizione + 1;
        const QString vuoto = "CAST(N'' AS NVARCHAR(MAX))";
        if (!inizia(i, vuoto)) return {};
        i += vuoto.size();
        QString somma;
        while (inizia(i, " + ")) {
            i += 3;
            const auto pezzo = letterale(i);
            if (!pezzo) return {};
            somma += *pezzo;
        }
        if (!inizia(i, ")")) return {};
        posizione = i + 1;
        return somma;
    }

  private:
    bool inizia(qsizetype i, const QString& cosa) const { return QStringView(mSql).mid(i).startsWith(cosa); }

    std::optional<QString> letterale(qsizetype& posizione) const {
        if (!inizia(posizione, "N'")) return {};
        QString valore;
        for (qsizetype i = posizione + 2; i < mSql.size(); ++i) {
            if (mSql[i] == '\'') {
                if (!inizia(i, "''")) {
                    posizione = i + 1;
                    return valore;
                }
                ++i;
            } else if (mSql[i] == '\\' && (inizia(i + 1, "\n") || inizia(i + 1, "\r"))) {
                i += inizia(i + 1, "\r\n") ? 2 : 1;
                continue;
            }
            valore += mSql[i];
        }
        return {};
    }

    QString mSql;
};

// The statement is `prima`, one text, `dopo`; the value of that text.
std::optional<QString> valoreTra(const QString& sql, const QString& prima, const QString& dopo) {
    if (!sql.startsWith(prima)) return {};
    qsizetype i = prima.size();
    const auto valore = LettoreTSql(sql).testo(i);
    return valore && sql.mid(i) == dopo ? valore : std::nullopt;
}

const QString primaDelValore = "UPDATE Prodotti SET DESCRIZIONE = ";
const QString dopoIlValore = ", DATAULTIMOSCARICO = GETDATE() WHERE ((BARCODE) IS NULL) AND RID = 1";

// What the server would store for a value.
std::optional<QString> scritto(const QString& valore) {
    return valoreTra(tsql(primaDelValore + testoSQL(valore) +
                          ", DATAULTIMOSCARICO = Now() WHERE ISNULL(BARCODE) AND RID = 1"),
                     primaDelValore, dopoIlValore);
}

class MesiPrezzoMedio {
  public:
    explicit MesiPrezzoMedio(int mesi) { gMesiPrezzoMedio = mesi; }
    ~MesiPrezzoMedio() { ripristinaGlobali(); }
    MesiPrezzoMedio(const MesiPrezzoMedio&) = delete;
    MesiPrezzoMedio& operator=(const MesiPrezzoMedio&) = delete;
};

const QString mediaPrima =
    "SELECT Sum(Abs(dm.Quantita)) AS TotQta, Sum(Abs(dm.Quantita) * Abs(dm.PrezzoNetto)) AS TotPrezzoNetto "
    "FROM ((((Causali c INNER JOIN TipoDocumenti td ON c.RID = td.FK_Causale) INNER JOIN Movimenti m ON "
    "td.RID = m.FK_TipoDocumento) INNER JOIN DettagliMovimento dm ON  m.RID = dm.FK_Movimento) INNER JOIN "
    "Prodotti p ON p.RID = dm.FK_Prodotto ) ";
const QString mediaBlocchi =
    "•A•HAVING m.Data >= DateAdd(¤m¤,-6,Date()) AND •/A•"
    "•M•WHERE m.Data >= DATE_ADD(CURRENT_DATE(), INTERVAL -6 MONTH) AND •/M•";
const QString mediaDopo =
    "c.Destinazione = 3 AND (c.Origine = 3 OR c.Origine = 2) AND p.RID = 5 AND m.FK_Destinazione = 1";

const QString sospesePrima = "SELECT TOP 9 M.RID, ";
const QString sospeseBlocchi =
    "•A•(Format(M.PROGRESSIVO‡ \"00000\") & ¤/¤ & TD.CODICE)•/A•"
    "•M•CONCAT(CAST(M.PROGRESSIVO ¿ CHAR)‡ ¤/¤‡ TD.CODICE)•/M•";
const QString sospeseDopo =
    "AS Numero, A.DENOMINAZIONE AS CONTROPARTITA FROM (Movimenti M  INNER JOIN TipoDocumenti TD ON "
    "M.FK_TIPODOCUMENTO = TD.RID) LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID WHERE "
    "M.FK_CONTROPARTITA <> 1 AND ";
const QString numero = "CONCAT(REPLICATE(N'0', 5 - LEN(M.PROGRESSIVO)), M.PROGRESSIVO, N'/', TD.CODICE) ";

}  // namespace

TEST(SqlServerSql, PlainStatementsStayAsTheyAre) {
    for (const char* sql :
         {"SELECT TOP 1 TAGLIO FROM DettagliProdotto WHERE FK_PRODOTTO = 1 AND QUANTITA > 0 ORDER BY RID",
          "SELECT MAX(PROGRESSIVO) FROM PrimaNota WHERE YEAR(DATA) = 2026", "SELECT GetDate()",
          "DELETE FROM Scadenze WHERE FK_PrimaNota = 7"}) {
        EXPECT_EQ(tsql(sql), sql);
    }
}

TEST(SqlServerSql, TextsBecomeUnicode) {
    EXPECT_EQ(tsql("SELECT RID FROM Venditori WHERE CODICE = ¤O'Brien¤ OR CODICEEXTRA = ¤¤"),
              "SELECT RID FROM Venditori WHERE CODICE = N'O''Brien' OR CODICEEXTRA = N''");
}

TEST(SqlServerSql, TextsThatAreUnicodeAlreadyStay) {
    const QString sql = tsql("SELECT RID FROM Iva WHERE CODICE = " + testoSQL("a¤b\\\nc"));
    EXPECT_EQ(traduciSqlServer(sql), sql);
}

TEST(SqlServerSql, NowIsTheTimeOfTheServer) {
    EXPECT_EQ(tsql("INSERT INTO DettagliMovimento (Pos, Ora) VALUES (1, Now()) "),
              "INSERT INTO DettagliMovimento (Pos, Ora) VALUES (1, GETDATE()) ");
}

TEST(SqlServerSql, DateIsTheDayOfTheServer) {
    EXPECT_EQ(tsql("SELECT RID FROM Movimenti WHERE DATA = Date()"),
              "SELECT RID FROM Movimenti WHERE DATA = CAST(GETDATE() AS DATE)");
}

TEST(SqlServerSql, IsNullOfOneArgumentIsACondition) {
    EXPECT_EQ(tsql("SELECT RID FROM Movimenti WHERE ISNULL(DATASTAMPA) AND ID_CASSA = 1"),
              "SELECT RID FROM Movimenti WHERE ((DATASTAMPA) IS NULL) AND ID_CASSA = 1");
}

TEST(SqlServerSql, IsNullOfTwoArgumentsStays) {
    EXPECT_EQ(tsql("SELECT ISNULL(SUM(DARE), 0) FROM PrimaNotaDettagli"),
              "SELECT ISNULL(SUM(DARE), 0) FROM PrimaNotaDettagli");
}

TEST(SqlServerSql, TruthIsANumber) {
    EXPECT_EQ(tsql("SELECT RID FROM Causali WHERE MOSTRAVB = True OR TAGLIO = false"),
              "SELECT RID FROM Causali WHERE MOSTRAVB = 1 OR TAGLIO = 0");
}

TEST(SqlServerSql, JoinedTextsAreConcatenated) {
    EXPECT_EQ(tsql("SELECT CODICE & ¤-¤ & DESCRIZIONE AS T FROM Iva"),
              "SELECT CONCAT(CODICE , N'-' , DESCRIZIONE) AS T FROM Iva");
}

TEST(SqlServerSql, DateAddNamesItsInterval) {
    EXPECT_EQ(tsql("SELECT RID FROM Scadenze WHERE DATA < DateAdd(¤m¤,-2,Date())"),
              "SELECT RID FROM Scadenze WHERE DATA < DateAdd(month,-2,CAST(GETDATE() AS DATE))");
}

TEST(SqlServerSql, DistinctStandsBeforeTop) {
    EXPECT_EQ(tsql("SELECT TOP 5 DISTINCT CODICE FROM Iva"), "SELECT DISTINCT TOP 5  CODICE FROM Iva");
}

TEST(SqlServerSql, AHavingThatFiltersRowsIsAWhere) {
    EXPECT_EQ(tsql("SELECT RID FROM Iva HAVING VALORE > 4"), "SELECT RID FROM Iva WHERE VALORE > 4");
}

TEST(SqlServerSql, AHavingOfGroupsStays) {
    const char* sql = "SELECT TOP 3 CODICE FROM Iva GROUP BY CODICE HAVING COUNT(*) > 1";
    EXPECT_EQ(tsql(sql), sql);
}

TEST(SqlServerSql, QuotedNamesStayQuoted) {
    EXPECT_EQ(
        tsql("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, `NOTE`) VALUES (1, ¤2026¤, 1, ¤n/d¤)"),
        "INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, \"NOTE\") VALUES (1, N'2026', 1, N'n/d')");
}

TEST(SqlServerSql, ADayIsReadTheSameInEveryLanguage) {
    const QString sql = "SELECT RID FROM Movimenti WHERE DATA = ";
    EXPECT_EQ(tsql(sql + cAdoSqlServer().getSQLDate(QDate(2026, 3, 4), SqlServer)),
              sql + "CAST(N'20260304' AS DATE)");
}

TEST(SqlServerSql, ATimeOfDayIsOne) {
    EXPECT_EQ(tsql("UPDATE Movimenti SET ORACONS = " + cAdoSqlServer().getSQLTime(QTime(9, 5), SqlServer)),
              "UPDATE Movimenti SET ORACONS = CAST(N'09:05:00' AS TIME(0))");
}

TEST(SqlServerSql, BracesAroundNoDateStay) {
    EXPECT_EQ(tsql("SELECT { d ¤2026-13-45¤ }"), "SELECT { d N'2026-13-45' }");
}

TEST(SqlServerSql, WordsInsideTextsAndNamesAreNoWords) {
    EXPECT_EQ(tsql("SELECT \"Now()\" FROM T WHERE A = ¤Now() ISNULL(x) True & { d \"x\" } N°¤"),
              "SELECT \"Now()\" FROM T WHERE A = N'Now() ISNULL(x) True & { d \"x\" } N°'");
}

TEST(SqlServerSql, CommentsStay) {
    EXPECT_EQ(tsql("SELECT 1 /* Now() 'x' */ -- True"), "SELECT 1 /* Now() 'x' */ -- True");
}

TEST(SqlServerSql, AnInsertInItsBatchIsTranslated) {
    EXPECT_EQ(traduciSqlServer("SET NOCOUNT ON INSERT INTO T (A, B) VALUES ('x', Now())  SELECT "
                               "SCOPE_IDENTITY() SET NOCOUNT OFF"),
              "SET NOCOUNT ON INSERT INTO T (A, B) VALUES (N'x', GETDATE())  SELECT SCOPE_IDENTITY() SET "
              "NOCOUNT OFF");
}

TEST(SqlServerSql, ABracketInALikeStandsForItself) {
    EXPECT_EQ(tsql("SELECT RID FROM Iva WHERE CODICE LIKE ¤%[a]%¤ AND CODICE <> ¤[a]¤"),
              "SELECT RID FROM Iva WHERE CODICE LIKE N'%[[]a]%' AND CODICE <> N'[a]'");
}

TEST(SqlServerSql, TheAveragePriceGetsItsMonthsBack) {
    const MesiPrezzoMedio mesi(6);
    EXPECT_EQ(tsql(mediaPrima + mediaBlocchi + mediaDopo),
              mediaPrima + "WHERE m.Data >= DATEADD(month, -6, CAST(GETDATE() AS DATE)) AND " + mediaDopo);
}

TEST(SqlServerSql, TheAveragePriceKeepsTheRowLeftOut) {
    const MesiPrezzoMedio mesi(6);
    EXPECT_EQ(tsql(mediaPrima + mediaBlocchi + "dm.RID <> 9 AND " + mediaDopo),
              mediaPrima +
                  "WHERE m.Data >= DATEADD(month, -6, CAST(GETDATE() AS DATE)) AND dm.RID <> 9 AND " +
                  mediaDopo);
}

TEST(SqlServerSql, AnAveragePriceWithItsOwnConditionKeepsIt) {
    const MesiPrezzoMedio mesi(6);
    EXPECT_EQ(tsql(mediaPrima + mediaBlocchi + "•S•WHERE m.Data >= 1 AND •/S•" + mediaDopo),
              mediaPrima + "WHERE m.Data >= 1 AND " + mediaDopo);
}

TEST(SqlServerSql, MonthsBelowZeroOpenNoComment) {
    const MesiPrezzoMedio mesi(-2);
    EXPECT_EQ(tsql(mediaPrima + mediaBlocchi + mediaDopo),
              mediaPrima + "WHERE m.Data >= DATEADD(month, 2, CAST(GETDATE() AS DATE)) AND " + mediaDopo);
}

TEST(SqlServerSql, SuspendedSalesGetTheirNumberBack) {
    EXPECT_EQ(tsql(sospesePrima + sospeseBlocchi + " " + sospeseDopo + "ISNULL(M.DATASTAMPA)"),
              sospesePrima + " " + numero + sospeseDopo + "((M.DATASTAMPA) IS NULL)");
}

TEST(SqlServerSql, SuspendedSalesAreSearchedByTheirNumber) {
    EXPECT_EQ(tsql(sospesePrima + sospeseBlocchi + " " + sospeseDopo + "ID_CASSA = 1 AND  LIKE ¤00%¤"),
              sospesePrima + " " + numero + sospeseDopo + "ID_CASSA = 1 AND  " + numero + "LIKE N'00%'");
}

TEST(SqlServerSql, EveryDelimiterInAValueStaysInIt) {
    for (const char* valore : {"¤",
                               "‡",
                               "¿",
                               "•A•x•/A•",
                               "`",
                               "\\",
                               "'",
                               "''",
                               "\"",
                               "(",
                               ")",
                               ",",
                               "@01",
                               ";",
                               "--",
                               "/*",
                               "*/",
                               "{ d '2026-01-01' }",
                               "N'x'",
                               "[",
                               "]",
                               "%",
                               "#1/1/2026#",
                               "&",
                               "\\'",
                               "'; DROP TABLE Iva --",
                               "SELECT TOP 9 x",
                               "FORMAT(a, 'b')",
                               "€ 1.000 naïve 日本 \U0001F600",
                               "\xEE\x97\x8A",
                               "\xEE\x97\x8A"
                               "a"}) {
        EXPECT_EQ(scritto(valore), QString(valore)) << valore;
    }
}

TEST(SqlServerSql, ABackslashBeforeALineBreakStays) {
    for (const char* valore : {"a\\\nb", "a\\\r\nb", "\\\n", "\\\\\n\\\n", "\\\r", "x'\\\n'y", "\\n"}) {
        EXPECT_EQ(scritto(valore), QString(valore)) << valore;
    }
}

TEST(SqlServerSql, AllPairsOfMarksStayInTheValue) {
    const QString segni = "¤‡¿•`\\'\"(),@;-/*{}[]#&\n\r\t %N+";
    for (const QChar a : segni) {
        for (const QChar b : segni) {
            const QString valore = QString("x") + a + b + a;
            ASSERT_EQ(scritto(valore), valore) << valore.toStdString();
        }
    }
}

TEST(SqlServerSql, LongValuesStayWhole) {
    for (const char* pezzo : {"è", "'", "\\\n", "¤", "\U0001F600"}) {
        const QString valore = QString(pezzo).repeated(100000);
        EXPECT_TRUE(scritto(valore) == valore) << pezzo;
    }
}

TEST(SqlServerSql, ANulIsRefused) {
    EXPECT_THROW(tsql("SELECT " + testoSQL(QString("a") + QChar(u'\0') + "b")), RunTimeError);
}

TEST(SqlServerSql, TimeGrowsWithTheLengthOnly) {
    const auto durata = [](int volte) {
        const QString sql =
            "SELECT RID FROM T WHERE " + QString("A = 'x\\\n' AND ISNULL(B) AND ").repeated(volte) + "C = 1";
        qint64 migliore = std::numeric_limits<qint64>::max();
        for (int giro = 0; giro < 3; ++giro) {
            QElapsedTimer orologio;
            orologio.start();
            EXPECT_GT(traduciSqlServer(sql).size(), sql.size());
            migliore = std::min(migliore, orologio.nsecsElapsed());
        }
        return migliore;
    };
    EXPECT_LT(durata(10000), durata(500) * 100);  // five times what a straight line needs
}
