#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "core/run_time_error.h"
#include "data/access_archive.h"
#include "data/prepare_sql.h"

namespace {

// Pieces that mean something to the rewrite, to a server, or to the encoding itself.
const QStringList insidie = {
    "'",
    "''",
    "\"",
    "`",
    "\\",
    "\\'",
    ";",
    "--",
    "/*",
    "*/",
    "%",
    "_",
    "#",
    "[",
    "]",
    "?",
    ":a",
    "@",
    "@01",
    "@@",
    "¤",
    "‡",
    "¿",
    "•",
    "•A•",
    "•/A•",
    "•M•",
    "•/M•",
    "•S•",
    "•/S•",
    "•m•",
    "(",
    ")",
    ",",
    " ",
    "FORMAT(",
    "format(a, 'x')",
    "SELECT TOP 9 ",
    "select top 1 ",
    "ſelect top ",
    "TOP",
    "SELECT",
    "LIMIT",
    "0x27",
    "’",
    "\t",
    "\r\n",
    "¥",
    "|",
    "+",
    "ß",
    "İ",
    "ı",
    "è",
    "e\u0301",
    "\U0001F6D2",
    "عربى",
    "\u200B",
    "\uE5CA",
    "\uE5CAa",
    "\uE5CAk",
    "\uE5CAl",
    "a",
    "k",
    "l",
    "%1",
    "{ d '2013-01-01' }",
    "TRUE",
    "Now()",
    "&",
    "x' OR 'a'='a",
};

QString valoreACaso(QRandomGenerator& caso) {
    QString valore;
    const int pezzi = static_cast<int>(caso.bounded(12));
    for (int i = 0; i < pezzi; ++i) {
        const bool surrogatoSolo = caso.bounded(40) == 0;
        valore += surrogatoSolo ? QString(QChar(0xD800)) : insidie[caso.bounded(insidie.size())];
    }
    return valore;
}

// What a server reads: the text between the quotes, doubled ones single, the encoding undone.
QString valoreLetto(QString letterale) {
    letterale.chop(1);
    return decodificaTestoSQL(letterale.mid(1).replace("''", "'"));
}

// Where a server's parser ends the literal that begins at `da`.
qsizetype fineLetterale(const QString& sql, qsizetype da) {
    qsizetype i = da + 1;
    while (i < sql.size() && (sql[i] != '\'' || (i + 1 < sql.size() && sql[i + 1] == '\''))) {
        i += sql[i] == '\'' ? 2 : 1;
    }
    return i + 1;
}

}  // namespace

TEST(TestoSQL, PlainValueStandsBetweenDelimitersAsItIs) {
    EXPECT_EQ(testoSQL("Rossi d'Este"), "¤Rossi d'Este¤");
}

TEST(TestoSQL, EncodedValueHoldsNoMarkOfTheDialect) {
    const QString testo = testoSQL("¤‡¿•`\\(),@ select top 1 x");
    const QString corpo = testo.mid(1, testo.size() - 2);
    for (const QChar segno : QString("¤‡¿•`\\(),@ "))
        EXPECT_FALSE(corpo.contains(segno)) << int{segno.unicode()};
}

TEST(TestoSQL, NullCharacterIsACallErrorWithAnItalianText) {
    try {
        testoSQL(QString("a") + QChar(u'\0') + "b");
        FAIL() << "no error";
    } catch (const RunTimeError& errore) {
        EXPECT_EQ(errore.numero(), RunTimeError::ChiamataNonValida);
        EXPECT_TRUE(errore.descrizione().startsWith("Il testo contiene un carattere nullo"));
    }
}

TEST(DecodificaTestoSQL, TextWithoutEncodingComesBackAsItIs) {
    EXPECT_EQ(decodificaTestoSQL("¤O''Brien (x), y"), "¤O''Brien (x), y");
}

TEST(DecodificaTestoSQL, EscapeCharacterThatEncodesNothingStays) {
    EXPECT_EQ(decodificaTestoSQL("a\uE5CA?b\uE5CA"), "a\uE5CA?b\uE5CA");
}

TEST(TestoSQL, AnyValueComesBackFromItsStatementOnEveryServer) {
    QRandomGenerator caso(20130131);
    for (int giro = 0; giro < 20000; ++giro) {
        const QString valore = valoreACaso(caso);
        for (const int server : {SqlServer, Access, MySql}) {
            const QString sql = preparaSQL("SELECT " + testoSQL(valore), server);
            ASSERT_TRUE(sql.startsWith("SELECT '")) << sql.toStdString();
            ASSERT_EQ(valoreLetto(sql.mid(7)), valore) << sql.toStdString();
        }
    }
}

TEST(TestoSQL, AnyValueLeavesTheRestOfItsStatementAlone) {
    QRandomGenerator caso(4711);
    for (int giro = 0; giro < 20000; ++giro) {
        const QString valore = valoreACaso(caso);
        for (const int server : {SqlServer, Access, MySql}) {
            const QString atteso = server == MySql
                                       ? "SELECT A FROM T WHERE A = '' AND FB = 1 LIMIT 9"
                                       : "SELECT TOP 9 A FROM T WHERE A = '' AND FORMAT(B,'0') = 1";
            QString sql = preparaSQL(
                "SELECT TOP 9 A FROM T WHERE A = " + testoSQL(valore) + " AND FORMAT(B,¤0¤) = 1", server);
            const qsizetype inizio = sql.indexOf('\'');
            sql.remove(inizio + 1, fineLetterale(sql, inizio) - inizio - 2);
            ASSERT_EQ(sql, atteso) << valore.toStdString();
        }
    }
}

TEST(TestoSQL, AnyValueIsStoredAndFoundAgainInTheArchive) {
    AccessArchive archivio;
    archivio.nativo("CREATE TABLE T (RID INTEGER PRIMARY KEY, A TEXT)");
    QRandomGenerator caso(99);
    for (int giro = 0; giro < 2000; ++giro) {
        QString valore = valoreACaso(caso);
        valore.remove(QChar(0xD800));  // no UTF-8 for half a character
        archivio.righe("DELETE FROM T");
        ASSERT_EQ(archivio.riga("INSERT INTO T (A) VALUES (" + testoSQL(valore) + ")"), "");
        ASSERT_EQ(archivio.riga("SELECT A FROM T WHERE A = " + testoSQL(valore)), valore)
            << valore.toStdString();
    }
}
