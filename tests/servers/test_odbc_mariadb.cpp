#include <QDateTime>

#include "data/odbc_trial.h"
#include "servers/mysql_trial.h"

// The way through QtSql and unixODBC, with the ODBC driver of MariaDB: a driver that knows every character.

namespace {

class OdbcMariaDb : public testing::Test {
  protected:
    OdbcMariaDb() : connessione(dati()) {
        EXPECT_TRUE(connessione.connetti()) << connessione.errore().descrizione.toStdString();
    }

    DatiConnessione dati() const {
        QString errore;
        auto d = leggiStringaConnessione(database.stringa(), MySql, errore).value_or(DatiConnessione());
        d.driver = "MariaDB Unicode";
        return d;
    }
    QVariant inserito(const QString& colonna, const QString& letterale) {
        esegui(connessione, "INSERT INTO Prova (" + colonna + ") VALUES (" + letterale + ")");
        return valore(connessione, "SELECT " + colonna + " FROM Prova");
    }

    DatabaseMySql database;
    OdbcDiProva connessione;
};

}  // namespace

TEST_F(OdbcMariaDb, TextsOfAnyScript) {
    const QString testo = "perché € 你好 \U0001F600 e\u0301";
    EXPECT_EQ(inserito("NOTE", "'" + testo + "'").toString(), testo);
}

TEST_F(OdbcMariaDb, AHundredThousandCharacters) {
    const QString testo = QString("àb\U0001F600").repeated(25000);
    EXPECT_TRUE(inserito("NOTE", "'" + testo + "'").toString() == testo);
}

TEST_F(OdbcMariaDb, WholeNumbers) {
    EXPECT_EQ(inserito("N", "-7"), QVariant(qlonglong(-7)));
}

TEST_F(OdbcMariaDb, DecimalsAreExact) {
    inserito("D", "123456789012345.6789");
    Recordset righe;
    ASSERT_TRUE(connessione.eseguiNativo("SELECT D FROM Prova", &righe));
    EXPECT_EQ(righe.importo("D"), Currency::daScalato(Q_INT64_C(1234567890123456789)));
}

TEST_F(OdbcMariaDb, FloatingNumbers) {
    EXPECT_EQ(inserito("R", "12.5"), QVariant(12.5));
}

TEST_F(OdbcMariaDb, DatesAndTimesOfDay) {
    EXPECT_EQ(inserito("Q", "'2026-03-16 10:30:00'"),
              QVariant(QDateTime(QDate(2026, 3, 16), QTime(10, 30), Qt::UTC)));
    esegui(connessione, "DELETE FROM Prova");
    EXPECT_EQ(inserito("G", "'2026-01-31'"), QVariant(QDateTime(QDate(2026, 1, 31), QTime(0, 0), Qt::UTC)));
    esegui(connessione, "DELETE FROM Prova");
    EXPECT_EQ(inserito("O", "'10:30:00'"), QVariant(QDateTime(QDate(1899, 12, 30), QTime(10, 30), Qt::UTC)));
}

TEST_F(OdbcMariaDb, NullsOfEveryColumn) {
    esegui(connessione, "INSERT INTO Prova (RID) VALUES (1)");
    for (const char* colonna : {"CODICE", "NOTE", "N", "D", "R", "Q", "G", "O"})
        EXPECT_FALSE(valore(connessione, QString("SELECT ") + colonna + " FROM Prova").isValid()) << colonna;
}

TEST_F(OdbcMariaDb, AFailureHasTheServersCodeAndText) {
    EXPECT_FALSE(connessione.eseguiNativo("INSERT INTO Figli (FK_PROVA) VALUES (77)", nullptr));
    EXPECT_EQ(connessione.errore().codice, 1452);
    EXPECT_TRUE(connessione.errore().descrizione.contains("foreign key constraint"));
}

TEST_F(OdbcMariaDb, ATransaction) {
    ASSERT_TRUE(connessione.inizia());
    esegui(connessione, "INSERT INTO Prova (N) VALUES (1)");
    EXPECT_EQ(database.altro.valore("SELECT COUNT(*) FROM Prova"), "0");
    ASSERT_TRUE(connessione.conferma());
    EXPECT_EQ(database.altro.valore("SELECT COUNT(*) FROM Prova"), "1");
}

TEST_F(OdbcMariaDb, AWrongPasswordIsNotShown) {
    DatiConnessione sbagliati = dati();
    sbagliati.password = "sbagliata;{x}";
    OdbcDiProva rifiutata(sbagliati);
    EXPECT_FALSE(rifiutata.connetti());
    EXPECT_FALSE(rifiutata.errore().descrizione.isEmpty());
    EXPECT_FALSE(rifiutata.errore().descrizione.contains("sbagliata"));
}
