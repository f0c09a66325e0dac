#include <QDateTime>
#include <QTemporaryDir>

#include "data/sqlite_connection.h"
#include "servers/mysql_trial.h"

// What comes back from the server, and that it is what the embedded archive would give.

namespace {

class MySqlValues : public testing::Test {
  protected:
    QVariant inserito(const QString& colonna, const QString& letterale) {
        esegui(*connessione, "INSERT INTO Prova (" + colonna + ") VALUES (" + letterale + ")");
        return valore(*connessione, "SELECT " + colonna + " FROM Prova");
    }
    const DatabaseMySql database;
    const std::unique_ptr<MySqlConnection> connessione = database.apri();
};

}  // namespace

TEST_F(MySqlValues, WholeNumbersOfEverySize) {
    for (const char* colonna : {"N", "F", "T"}) {
        const QVariant letto = inserito(colonna, "-5");
        EXPECT_EQ(letto.typeId(), QMetaType::LongLong) << colonna;
        EXPECT_EQ(letto.toLongLong(), -5) << colonna;
        esegui(*connessione, "DELETE FROM Prova");
    }
}

TEST_F(MySqlValues, Bits) {
    EXPECT_EQ(inserito("B", "b'101'"), QVariant(qlonglong(5)));
}

TEST_F(MySqlValues, TheLargestUnsignedNumberKeepsItsDigits) {
    EXPECT_EQ(inserito("M", "18446744073709551615"), QVariant("18446744073709551615"));
}

TEST_F(MySqlValues, Decimals) {
    EXPECT_EQ(inserito("D", "12.5"), QVariant(12.5));
}

TEST_F(MySqlValues, DecimalsOfManyDigitsAreExact) {
    inserito("D", "123456789012345.6789");
    Recordset righe;
    ASSERT_TRUE(connessione->eseguiNativo("SELECT D FROM Prova", &righe));
    EXPECT_EQ(righe.importo("D"), Currency::daScalato(Q_INT64_C(1234567890123456789)));
}

TEST_F(MySqlValues, FloatingNumbersKeepEveryBit) {
    EXPECT_EQ(inserito("R", "0.1e0 + 0.2e0"), QVariant(0.1 + 0.2));
}

TEST_F(MySqlValues, DatesHaveNoTimeZone) {
    // An hour that the shop's wall clock never shows.
    EXPECT_EQ(inserito("Q", "'2026-03-29 02:30:00'"),
              QVariant(QDateTime(QDate(2026, 3, 29), QTime(2, 30), Qt::UTC)));
}

TEST_F(MySqlValues, DaysAreDatesAtMidnight) {
    EXPECT_EQ(inserito("G", "'2026-01-31'"), QVariant(QDateTime(QDate(2026, 1, 31), QTime(0, 0), Qt::UTC)));
}

TEST_F(MySqlValues, TheFirstAndTheLastDate) {
    EXPECT_EQ(inserito("Q", "'1899-12-30'").toDateTime().date(), QDate(1899, 12, 30));
    esegui(*connessione, "DELETE FROM Prova");
    EXPECT_EQ(inserito("Q", "'9999-12-31 23:59:59'").toDateTime().time(), QTime(23, 59, 59));
}

TEST_F(MySqlValues, TimesOfDayStandOnTheDayOfTheFileArchive) {
    EXPECT_EQ(inserito("O", "'10:30:00'"), QVariant(QDateTime(QDate(1899, 12, 30), QTime(10, 30), Qt::UTC)));
}

TEST_F(MySqlValues, NullsOfEveryColumn) {
    esegui(*connessione, "INSERT INTO Prova (RID) VALUES (1)");
    Recordset righe;
    ASSERT_TRUE(connessione->eseguiNativo("SELECT * FROM Prova", &righe));
    for (const QString& colonna : righe.colonne().mid(1))
        EXPECT_FALSE(righe.campo(colonna).isValid()) << colonna.toStdString();
}

TEST_F(MySqlValues, CountsSumsAndAverages) {
    esegui(*connessione, "INSERT INTO Prova (N, D) VALUES (1, 1.25), (2, 2.5)");
    EXPECT_EQ(valore(*connessione, "SELECT COUNT(*) FROM Prova"), QVariant(qlonglong(2)));
    EXPECT_EQ(valore(*connessione, "SELECT SUM(N) FROM Prova"), QVariant(qlonglong(3)));
    EXPECT_EQ(valore(*connessione, "SELECT SUM(D) FROM Prova"), QVariant(3.75));
    EXPECT_EQ(valore(*connessione, "SELECT AVG(D) FROM Prova"), QVariant(1.875));
    EXPECT_FALSE(valore(*connessione, "SELECT MAX(N) FROM Prova WHERE N > 5").isValid());
}

TEST_F(MySqlValues, TheServersClockIsADate) {
    EXPECT_EQ(valore(*connessione, "SELECT Now()").typeId(), QMetaType::QDateTime);
}

TEST_F(MySqlValues, RowsAffectedAreThoseFound) {
    esegui(*connessione, "INSERT INTO Prova (N) VALUES (1), (2)");
    esegui(*connessione, "UPDATE Prova SET N = 1");
    EXPECT_EQ(connessione->righeModificate(), 2);
    esegui(*connessione, "UPDATE Prova SET N = 1");
    EXPECT_EQ(connessione->righeModificate(), 2);
}

TEST_F(MySqlValues, TheSameKindsAsTheEmbeddedArchive) {
    const QTemporaryDir cartella;
    ErroreServer errore;
    const auto archivio = SqliteConnection::crea(cartella.filePath("prova.db"), errore);
    ASSERT_TRUE(archivio);
    ASSERT_TRUE(
        archivio->eseguiNativo("CREATE TABLE Prova (RID INTEGER PRIMARY KEY, CODICE VARCHAR(50), "
                               "N INTEGER, D DECIMAL(19,4), R DOUBLE, Q DATETIME, F SMALLINT)"));
    const QString riga =
        "INSERT INTO Prova (CODICE, N, D, R, Q, F) VALUES ('perché', 7, 12.25, 2.5, "
        "'2026-03-16 10:30:00', 1)";
    Recordset daFile, daServer;
    const QString lettura = "SELECT CODICE, N, D, R, Q, F, COUNT(*), SUM(D), MAX(N) FROM Prova";
    ASSERT_TRUE(archivio->eseguiNativo(riga) && archivio->eseguiNativo(lettura, &daFile));
    ASSERT_TRUE(esegui(*connessione, riga) && connessione->eseguiNativo(lettura, &daServer));
    for (int i = 0; i < daFile.campi(); ++i) {
        EXPECT_EQ(daServer.campo(i), daFile.campo(i)) << daFile.colonne()[i].toStdString();
        EXPECT_EQ(daServer.campo(i).typeId(), daFile.campo(i).typeId()) << daFile.colonne()[i].toStdString();
    }
}
