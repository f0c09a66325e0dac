#include <gtest/gtest.h>

#include <QDateTime>

#include "archivio/column_value.h"
#include "core/run_time_error.h"
#include "data/prepare_sql.h"

namespace {

using schema::Tipo;

schema::Colonna colonna(Tipo tipo, int lunghezza = 0) {
    schema::Colonna c;
    c.nome = "COLONNA";
    c.tipo = tipo;
    c.lunghezza = lunghezza;
    return c;
}

QString letterale(const schema::Colonna& c, const QVariant& valore, int tipoServer = MySql) {
    QString sql;
    aggiungiLetterale(sql, tipoServer, c, valoreEsatto(c, valore));
    return sql;
}

QString rifiuto(const schema::Colonna& c, const QVariant& valore) {
    try {
        valoreEsatto(c, valore);
    } catch (const RunTimeError& errore) {
        EXPECT_EQ(errore.numero(), RunTimeError::TipoNonCorrispondente);
        return errore.descrizione();
    }
    return {};
}

}  // namespace

TEST(ColumnValue, MoneyOfNineteenDigitsIsExactOnAServer) {
    EXPECT_EQ(letterale(colonna(Tipo::Importo), QString("-922337203685477.5807")), "-922337203685477.5807");
}

TEST(ColumnValue, MoneyOfADoubleHasFourDecimals) {
    EXPECT_EQ(letterale(colonna(Tipo::Importo), 5.32), "5.3200");
}

TEST(ColumnValue, SmallNegativeMoneyKeepsItsSign) {
    EXPECT_EQ(letterale(colonna(Tipo::Importo), -0.0001), "-0.0001");
}

TEST(ColumnValue, MoneyBeyondADoubleIsRefusedByAFile) {
    const auto c = colonna(Tipo::Importo);
    EXPECT_THROW(valoreFile(c, valoreEsatto(c, QString("922337203685477.5807"))), RunTimeError);
}

TEST(ColumnValue, MoneyOfAMillionIsKeptByAFile) {
    const auto c = colonna(Tipo::Importo);
    EXPECT_EQ(valoreFile(c, valoreEsatto(c, QString("1000000.0001"))).toDouble(), 1000000.0001);
}

TEST(ColumnValue, BackslashAndQuoteAreDataInALiteral) {
    EXPECT_EQ(letterale(colonna(Tipo::Note), "a\\'b"), "'a\\''b'");
}

TEST(ColumnValue, SqlServerTextIsUnicode) {
    EXPECT_EQ(letterale(colonna(Tipo::Note), "è", SqlServer), "N'è'");
}

TEST(ColumnValue, NulIsRefused) {
    EXPECT_TRUE(rifiuto(colonna(Tipo::Note), QString(QChar(u'\0'))).contains("carattere nullo"));
}

TEST(ColumnValue, HalfACharacterIsRefused) {
    EXPECT_TRUE(rifiuto(colonna(Tipo::Note), QString(QChar(0xD83D))).contains("a metà"));
}

TEST(ColumnValue, EmojiCountsAsOneCharacter) {
    EXPECT_EQ(rifiuto(colonna(Tipo::Testo, 1), "😀"), "");
}

TEST(ColumnValue, TooLongATextIsRefusedByLength) {
    EXPECT_EQ(rifiuto(colonna(Tipo::Testo, 2), "tre"),
              "COLONNA: il testo ha 3 caratteri, la colonna ne tiene 2");
}

TEST(ColumnValue, QuantityKeepsAllItsDigits) {
    EXPECT_EQ(letterale(colonna(Tipo::Reale), 0.1 + 0.2).toDouble(), 0.1 + 0.2);
}

TEST(ColumnValue, InfinityIsRefused) {
    EXPECT_FALSE(rifiuto(colonna(Tipo::Reale), std::numeric_limits<double>::infinity()).isEmpty());
}

TEST(ColumnValue, KeyBeyondThirtyTwoBitsIsRefused) {
    EXPECT_TRUE(rifiuto(colonna(Tipo::Intero), qlonglong(1) << 31).contains("troppo grande"));
}

TEST(ColumnValue, WordIsNoNumber) {
    EXPECT_TRUE(rifiuto(colonna(Tipo::Intero), "tre").contains("non è un numero intero"));
}

TEST(ColumnValue, DatesOfTheFirstAndLastDayAreKept) {
    const auto c = colonna(Tipo::DataOra);
    EXPECT_EQ(letterale(c, "1899-12-30 00:00:00"), "'1899-12-30 00:00:00'");
    EXPECT_EQ(letterale(c, "9999-12-31 23:59:59"), "'9999-12-31 23:59:59'");
}

TEST(ColumnValue, TextInADateColumnIsRefused) {
    EXPECT_TRUE(rifiuto(colonna(Tipo::DataOra), "domani").contains("non è una data"));
}

TEST(ColumnValue, TimeOfDayLosesItsDay) {
    EXPECT_EQ(letterale(colonna(Tipo::Ora), "1899-12-30 10:30:15"), "'10:30:15'");
}

TEST(ColumnValue, NullStaysNull) {
    EXPECT_EQ(letterale(colonna(Tipo::Importo), {}), "NULL");
}
