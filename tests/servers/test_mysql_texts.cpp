#include "core/run_time_error.h"
#include "data/access_collation.h"
#include "servers/mysql_trial.h"

// Texts that a person may type: stored and read back as they are, or refused with a word; never a statement.

namespace {

class MySqlTexts : public testing::Test {
  protected:
    MySqlTexts() { esegui(*connessione, "INSERT INTO Prova (CODICE) VALUES ('guardia')"); }

    bool scrivi(const QString& colonna, const QString& testo) {
        return connessione->esegui(
            preparaSQL("INSERT INTO Prova (" + colonna + ", N) VALUES (" + testoSQL(testo) + ", 7)", MySql),
            nullptr);
    }
    QString riletto(const QString& colonna) {
        return valore(*connessione, "SELECT " + colonna + " FROM Prova WHERE N = 7").toString();
    }
    int quanti() { return valore(*connessione, "SELECT COUNT(*) FROM Prova").toInt(); }

    const DatabaseMySql database;
    const std::unique_ptr<MySqlConnection> connessione = database.apri();
};

class AnyText : public MySqlTexts, public testing::WithParamInterface<const char*> {};

}  // namespace

TEST_P(AnyText, IsStoredAndReadBackAsItIs) {
    ASSERT_TRUE(scrivi("NOTE", GetParam())) << connessione->errore().descrizione.toStdString();
    EXPECT_EQ(riletto("NOTE"), QString(GetParam()));
    EXPECT_EQ(quanti(), 2);
}

TEST_P(AnyText, IsFoundByItsValue) {
    ASSERT_TRUE(scrivi("CODICE", GetParam())) << connessione->errore().descrizione.toStdString();
    Recordset righe;
    ASSERT_TRUE(connessione->esegui(
        preparaSQL("SELECT TOP 5 N FROM Prova WHERE CODICE = " + testoSQL(GetParam()), MySql), &righe));
    ASSERT_EQ(righe.righe(), 1);
    EXPECT_EQ(righe.intero("N"), 7);
}

INSTANTIATE_TEST_SUITE_P(Typed, AnyText,
                         testing::Values("O'Brien", "'", "''", "\\", "\\'", "a\\", "\"", "`", "¤", "¤¤", "‡",
                                         "¿", "•M•x•/M•", "•A•", "(", ")", "FORMAT(a, 'x')", "a, b", "@01",
                                         "@@version", ";", "-- x", "# x", "/* x */",
                                         "'; DROP TABLE Prova; -- ", "') ; DELETE FROM Prova WHERE ('1'='1",
                                         "\\'; DROP TABLE Prova; #", "SELECT TOP 9 X", "%", "_", "?", ":a",
                                         "0x27", "\xE2\x80\x99", "\xF0\x9F\x98\x80", "e\xCC\x81",
                                         "\xD7\xA9\xD7\x9C", "a\nb\r\tc", "\x1A", "\x08", "NULL", "{ d 'x' }",
                                         "\xEE\x97\x8A",
                                         "\xEE\x97\x8A"
                                         "a",
                                         "&amp; %1 <b>"));

TEST_F(MySqlTexts, NulIsRefusedBeforeItIsSent) {
    EXPECT_THROW(testoSQL(QString(QChar(u'\0'))), RunTimeError);
    EXPECT_FALSE(connessione->eseguiNativo("SELECT 'a" + QString(QChar(u'\0')) + "'", nullptr));
    EXPECT_TRUE(connessione->errore().descrizione.contains("NUL"));
}

TEST_F(MySqlTexts, HalfACharacterIsRefused) {
    EXPECT_FALSE(scrivi("NOTE", QString(QChar(0xD83D))));
    EXPECT_TRUE(connessione->errore().descrizione.contains("mezzo carattere"));
    EXPECT_EQ(quanti(), 1);
}

TEST_F(MySqlTexts, AHundredThousandCharacters) {
    const QString testo = QString("à'\\\U0001F600").repeated(20000);
    ASSERT_TRUE(scrivi("NOTE", testo));
    EXPECT_TRUE(riletto("NOTE") == testo);
}

TEST_F(MySqlTexts, ATextTooLongIsRefusedAndNotCut) {
    EXPECT_TRUE(scrivi("CODICE", QString(50, u'x')));
    EXPECT_FALSE(scrivi("CODICE", QString(51, u'y')));
    EXPECT_EQ(connessione->errore().codice, 1406);
    EXPECT_TRUE(connessione->errore().descrizione.startsWith("Un testo è più lungo"));
    EXPECT_EQ(quanti(), 2);
}

TEST_F(MySqlTexts, ANumberOutOfRangeIsRefused) {
    EXPECT_FALSE(connessione->eseguiNativo("INSERT INTO Prova (N) VALUES (3000000000)", nullptr));
    EXPECT_EQ(connessione->errore().codice, 1264);
}

TEST_F(MySqlTexts, TwoStatementsInOneTextAreRefused) {
    EXPECT_FALSE(connessione->eseguiNativo("SELECT 1; DELETE FROM Prova", nullptr));
    EXPECT_EQ(quanti(), 1);
}

// ---- How texts compare

namespace {

bool ugualiSulServer(Connessione& connessione, const QString& a, const QString& b) {
    esegui(connessione, "DELETE FROM Prova");
    esegui(connessione, "INSERT INTO Prova (CODICE) VALUES ('" + a + "')");
    return valore(connessione, "SELECT COUNT(*) FROM Prova WHERE CODICE = '" + b + "'").toInt() == 1;
}

bool ugualiNellArchivio(const QString& a, const QString& b) {
    return dialetto::confronta(a.toStdString(), b.toStdString()) == 0;
}

}  // namespace

TEST_F(MySqlTexts, CodesCompareAsInTheEmbeddedArchive) {
    const std::pair<const char*, const char*> coppie[] = {
        {"abc", "ABC"},
        {"perché", "PERCHE"},
        {"è", "E"},
        {"é", "è"},
        {"ü", "u"},
        {"ñ", "N"},
        {"a ", "a"},
        {"a  ", "a"},
        {"a", " a"},
        {"a", "b"},
        {"a-b", "ab"},
        {"a b", "ab"},
        {"a.b", "ab"},
        {"1", "01"},
        {"a_b", "a-b"},
        {"o'", "o"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81"},
        {"€", "$"},
        {"e\xCC\x81", "é"},
        {"ß", "s"},
        {"ç", "c"},
        {"Å", "a"},
        {"m²", "m2x"},
    };
    for (const auto& [a, b] : coppie) {
        const QString altra = QString(b).replace("'", "''");
        EXPECT_EQ(ugualiSulServer(*connessione, QString(a).replace("'", "''"), altra),
                  ugualiNellArchivio(a, b))
            << a << " and " << b;
    }
}

// What differs, so that nobody wonders: the server takes these for one code, the embedded archive for two.
TEST_F(MySqlTexts, LettersThatTheServerTakesApart) {
    for (const auto& [a, b] : {std::pair("ß", "ss"), std::pair("æ", "ae"), std::pair("ø", "o")}) {
        EXPECT_FALSE(ugualiNellArchivio(a, b)) << a;
        EXPECT_TRUE(ugualiSulServer(*connessione, a, b)) << a;
    }
}

TEST_F(MySqlTexts, PartsAreFoundWhateverTheirCase) {
    esegui(*connessione, "INSERT INTO Prova (CODICE) VALUES ('Caffè macchiato')");
    EXPECT_EQ(valore(*connessione, "SELECT COUNT(*) FROM Prova WHERE CODICE LIKE '%CAFFE%'").toInt(), 1);
}
