#include <QTemporaryDir>

#include "data/odbc_trial.h"
#include "data/prepare_sql.h"

// The way through QtSql and unixODBC, with the ODBC driver of SQLite on a scratch file.

namespace {

class OdbcPlumbing : public testing::Test {
  protected:
    OdbcPlumbing() : connessione(dati(mCartella.filePath("prova.db"))) {
        EXPECT_TRUE(connessione.connetti()) << connessione.errore().descrizione.toStdString();
        esegui(
            "CREATE TABLE T (RID INTEGER PRIMARY KEY, TESTO VARCHAR(200), N INTEGER, R DOUBLE, "
            "D DECIMAL(19,4), Q DATETIME, U VARCHAR(20) UNIQUE)");
    }

    static DatiConnessione dati(const QString& percorso) {
        DatiConnessione d;
        d.driver = "SQLite3";
        d.database = percorso;
        return d;
    }
    void esegui(const QString& sql) {
        EXPECT_TRUE(connessione.eseguiNativo(sql, nullptr)) << connessione.errore().descrizione.toStdString();
    }
    QVariant valore(const QString& sql) { return primo(connessione, sql); }

  private:
    QTemporaryDir mCartella;

  protected:
    OdbcDiProva connessione;
};

}  // namespace

TEST_F(OdbcPlumbing, WholeNumbers) {
    esegui("INSERT INTO T (N) VALUES (-7)");
    EXPECT_EQ(valore("SELECT N FROM T").typeId(), QMetaType::LongLong);
    EXPECT_EQ(valore("SELECT N FROM T").toLongLong(), -7);
}

TEST_F(OdbcPlumbing, FloatingNumbers) {
    esegui("INSERT INTO T (R) VALUES (12.5)");
    EXPECT_EQ(valore("SELECT R FROM T"), QVariant(12.5));
}

TEST_F(OdbcPlumbing, DatesHaveNoTimeZone) {
    esegui("INSERT INTO T (Q) VALUES ('2026-03-29 02:30:00')");
    EXPECT_EQ(valore("SELECT Q FROM T").toDateTime(), QDateTime(QDate(2026, 3, 29), QTime(2, 30), Qt::UTC));
}

TEST_F(OdbcPlumbing, NullsAreNull) {
    esegui("INSERT INTO T (RID) VALUES (1)");
    for (const char* colonna : {"TESTO", "N", "R", "D", "Q"})
        EXPECT_TRUE(valore(QString("SELECT ") + colonna + " FROM T").isNull()) << colonna;
}

TEST_F(OdbcPlumbing, RowsAndColumnsInTheirOrder) {
    esegui("INSERT INTO T (RID, N) VALUES (1, 10), (2, 20)");
    Recordset righe;
    ASSERT_TRUE(connessione.eseguiNativo("SELECT N AS Quanti, RID FROM T ORDER BY RID DESC", &righe));
    EXPECT_EQ(righe.colonne(), QStringList({"Quanti", "RID"}));
    EXPECT_EQ(righe.righe(), 2);
    EXPECT_EQ(righe.intero("QUANTI"), 20);
}

TEST_F(OdbcPlumbing, RowsAffected) {
    esegui("INSERT INTO T (RID, N) VALUES (1, 10), (2, 20)");
    esegui("UPDATE T SET N = 1 WHERE N > 5");
    EXPECT_EQ(connessione.righeModificate(), 2);
}

TEST_F(OdbcPlumbing, AFailureTellsTheServersText) {
    EXPECT_FALSE(connessione.eseguiNativo("SELECT * FROM NonEsiste", nullptr));
    EXPECT_EQ(connessione.errore().classe, ErroreServer::Classe::Altro);
    EXPECT_TRUE(connessione.errore().descrizione.contains("no such table: NonEsiste"))
        << connessione.errore().descrizione.toStdString();
}

TEST_F(OdbcPlumbing, TheNextStatementWorksAfterAFailure) {
    EXPECT_FALSE(connessione.eseguiNativo("INSERT INTO NonEsiste VALUES (1)", nullptr));
    EXPECT_EQ(valore("SELECT 1").toInt(), 1);
}

TEST_F(OdbcPlumbing, NulIsRefused) {
    EXPECT_FALSE(connessione.eseguiNativo("SELECT 'a" + QString(QChar(u'\0')) + "b'", nullptr));
    EXPECT_TRUE(connessione.errore().descrizione.contains("NUL"));
}

TEST_F(OdbcPlumbing, HalfACharacterIsRefused) {
    EXPECT_FALSE(connessione.eseguiNativo("SELECT '" + QString(QChar(0xD83D)) + "'", nullptr));
    EXPECT_TRUE(connessione.errore().descrizione.contains("mezzo carattere"));
}

TEST_F(OdbcPlumbing, ATransactionIsKept) {
    ASSERT_TRUE(connessione.inizia());
    EXPECT_TRUE(connessione.inTransazione());
    esegui("INSERT INTO T (N) VALUES (1)");
    EXPECT_TRUE(connessione.conferma());
    EXPECT_FALSE(connessione.inTransazione());
    EXPECT_EQ(valore("SELECT COUNT(*) FROM T").toInt(), 1);
}

TEST_F(OdbcPlumbing, ATransactionIsRolledBack) {
    ASSERT_TRUE(connessione.inizia());
    esegui("INSERT INTO T (N) VALUES (1)");
    EXPECT_TRUE(connessione.annulla());
    EXPECT_EQ(valore("SELECT COUNT(*) FROM T").toInt(), 0);
}

TEST(OdbcOpening, UnknownDriverIsSaid) {
    DatiConnessione dati;
    dati.driver = "Non c'è";
    dati.database = "x";
    OdbcDiProva connessione(dati);
    EXPECT_FALSE(connessione.connetti());
    EXPECT_FALSE(connessione.errore().descrizione.isEmpty());
}

// ---- The string for the driver

namespace {

QString stringaDi(const QString& scritta) {
    QString errore;
    const auto dati = leggiStringaConnessione(scritta, SqlServer, errore);
    EXPECT_TRUE(dati) << errore.toStdString();
    return stringaOdbc(dati.value_or(DatiConnessione()), 15);
}

}  // namespace

TEST(OdbcString, FreeTdsUnlessSaidOtherwise) {
    EXPECT_EQ(stringaDi("Server=tcp:srv,1444;Initial Catalog=negozio;User Id=anna;Password=segreta"),
              "DRIVER=FreeTDS;SERVER=srv;PORT=1444;DATABASE=negozio;UID=anna;PWD=segreta;TDS_Version=7.4;"
              "ClientCharset=UTF-8;Timeout=15;Encryption=request");
}

TEST(OdbcString, TheUsualPortUnlessSaidOtherwise) {
    EXPECT_TRUE(stringaDi("Server=srv;Database=d").contains(";PORT=1433;"));
}

TEST(OdbcString, ANamedInstanceTellsItsPortByItself) {
    EXPECT_FALSE(stringaDi("Server=srv\\X;Database=d").contains("PORT="));
}

TEST(OdbcString, AnswersAreWaitedForAsLongAsSaid) {
    EXPECT_TRUE(stringaDi("Server=srv;Database=d;Command Timeout=90").contains("Timeout=90;"));
}

TEST(OdbcString, AnotherDriverIsTakenAtItsWord) {
    const QString stringa =
        stringaDi("Driver={ODBC Driver 18 for SQL Server};Server=srv,1444;Database=d;Encrypt=yes");
    EXPECT_EQ(stringa,
              "DRIVER=ODBC Driver 18 for SQL Server;SERVER=srv,1444;DATABASE=d;Encrypt=yes;"
              "TrustServerCertificate=yes");
}

TEST(OdbcString, PasswordsCannotAddAKey) {
    EXPECT_TRUE(
        stringaDi("Server=s;Database=d;Pwd=\"a;DATABASE=altro\"").contains("PWD={a;DATABASE=altro};"));
    EXPECT_TRUE(stringaDi("Server=s;Database=d;Pwd=\"{a\"").contains("PWD={{a};"));
    EXPECT_TRUE(stringaDi("Driver=Altro;Server=s;Database=d;Pwd=\"a;}b\"").endsWith("PWD={a;}}b}"));
}
