#include <gtest/gtest.h>

#include "data/gateway.h"
#include "doubles/child_process.h"

// Literals of the neutral dialect, for the three servers and for a type that does not exist.

namespace {

const QDateTime istante(QDate(2026, 2, 3), QTime(4, 5, 6));

QStringList perServer(QString (cAdoSqlServer::*letterale)(const QVariant&, int) const,
                      const QVariant& valore) {
    const cAdoSqlServer ado;
    QStringList testi;
    for (int tipo = 0; tipo <= 3; ++tipo) {
        testi << (ado.*letterale)(valore, tipo);
    }
    return testi;
}

}  // namespace

TEST(SqlLiterals, DateHasTheOrderOfItsServer) {
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLDate, istante),
              QStringList({"{ d ¤2026-02-03¤ }", "#02/03/2026#", "¤2026-02-03¤", ""}));
}

TEST(SqlLiterals, DateWithTimeHasBoth) {
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLDateTime, istante),
              QStringList({"¤2026-02-03 04:05:06¤", "#02/03/2026 04:05:06#", "¤2026-02-03 04:05:06¤", ""}));
}

TEST(SqlLiterals, TimeAlone) {
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLTime, istante),
              QStringList({"{ t ¤04:05:06¤ }", "#04:05:06#", "¤04:05:06¤", ""}));
}

TEST(SqlLiterals, AfternoonHoursRunTo23) {
    EXPECT_EQ(cAdoSqlServer().getSQLTime(QTime(23, 59, 58), 0), "{ t ¤23:59:58¤ }");
}

TEST(SqlLiterals, NullDateIsNullForEveryType) {
    const QStringList nulli{"Null", "Null", "Null", ""};
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLDate, QVariant()), nulli);
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLDateTime, QVariant()), nulli);
    EXPECT_EQ(perServer(&cAdoSqlServer::getSQLTime, QVariant()), nulli);
}

TEST(SqlLiterals, TextThatIsNoDateIsNull) {
    const cAdoSqlServer ado;
    for (const char* testo : {"", "(Auto)", "31/02/2026", "00/00/0000", "domani"}) {
        EXPECT_EQ(ado.getSQLDate(QString(testo), 1), "Null") << testo;
    }
}

TEST(SqlLiterals, ItalianDateTextIsDayFirst) {
    EXPECT_EQ(cAdoSqlServer().getSQLDate(QString("03/02/2026"), 1), "#02/03/2026#");
    EXPECT_EQ(cAdoSqlServer().getSQLDate(QString("29/02/2024"), 2), "¤2024-02-29¤");
}

TEST(SqlLiterals, ItalianDateTextMayCarryATime) {
    const cAdoSqlServer ado;
    EXPECT_EQ(ado.getSQLDateTime(QString("3/2/2026 4:05"), 1), "#02/03/2026 04:05:00#");
    EXPECT_EQ(ado.getSQLDateTime(QString("03/02/2026 14:05:06"), 1), "#02/03/2026 14:05:06#");
}

TEST(SqlLiterals, ItalianDateTextWithAGarbledTimeIsNull) {
    const cAdoSqlServer ado;
    for (const char* testo : {"03/02/2026 ", "03/02/2026 25:00", "03/02/2026 4", "03/02/2026 4:05 h"}) {
        EXPECT_EQ(ado.getSQLDateTime(QString(testo), 1), "Null") << testo;
    }
}

TEST(SqlLiterals, StoredDateTextIsADate) {
    const cAdoSqlServer ado;
    EXPECT_EQ(ado.getSQLDateTime(QString("2026-02-03 04:05:06"), 1), "#02/03/2026 04:05:06#");
    EXPECT_EQ(ado.getSQLDate(QString("2026-02-03"), 1), "#02/03/2026#");
}

TEST(SqlLiterals, MidnightThatTheClockSkippedIsStillWritten) {
    EXPECT_EQ(inUnFiglio([] {
                  // Summer time begins at midnight of the first Sunday of June.
                  if (setenv("TZ", "CET-1CEST,M6.1.0/0", 1) != 0) return 98;
                  tzset();
                  const cAdoSqlServer ado;
                  const QString atteso = "#06/01/1975 00:00:00#";
                  if (ado.getSQLDateTime(QDate(1975, 6, 1), 1) != atteso) return 1;
                  return ado.getSQLDateTime(QString("1/6/1975"), 1) == atteso ? 0 : 2;
              }),
              0);
}

TEST(SqlLiterals, NegativeTypeMeansTheOneInForce) {
    cAdoSqlServer ado;
    ado.TipoServer = 1;
    EXPECT_EQ(ado.getSQLDate(QDate(2026, 2, 3)), "#02/03/2026#");
    ado.TipoServer = 2;
    EXPECT_EQ(ado.getSQLDate(QDate(2026, 2, 3), -7), "¤2026-02-03¤");
}

TEST(SqlLiterals, NumbersHaveADecimalPoint) {
    EXPECT_EQ(getSqlNumber(12.5), "12.5");
    EXPECT_EQ(getSqlNumber(12.5F), "12.5");
    EXPECT_EQ(getSqlNumber(QString("12,5")), "12.5");
    EXPECT_EQ(getSqlNumber(QString("12.5")), "12.5");
    EXPECT_EQ(getSqlNumber(QString("1.234,56")), "1234.56");
    EXPECT_EQ(getSqlNumber(QString("-0,10")), "-0.1");
    EXPECT_EQ(getSqlNumber(Currency::daDouble(10.43)), "10.43");
}

TEST(SqlLiterals, SingleDoesNotShowItsBinaryTail) {
    EXPECT_EQ(getSqlNumber(0.1F), "0.1");
}

TEST(SqlLiterals, WhatIsNoNumberIsNull) {
    for (const char* testo : {"", "abc", "nan", "inf", "1e5", "0x27", "1,23,4", "12 OR 1=1"}) {
        EXPECT_EQ(getSqlNumber(QString(testo)), "Null") << testo;
    }
}

TEST(SqlLiterals, EmptyTextIsNullOrZero) {
    EXPECT_EQ(getSqlNumber(QString()), "Null");
    EXPECT_EQ(getSqlNumber(QVariant()), "Null");
    EXPECT_EQ(getSqlNumberOrZero(QString()), "0");
    EXPECT_EQ(getSqlNumberOrZero("12,5"), "12.5");
}
