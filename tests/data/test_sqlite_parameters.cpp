#include <gtest/gtest.h>

#include "data/sqlite_parameters.h"

// Statements as they are prepared, and the values that are bound to them.

namespace {

QByteArray testo(const QByteArray& sql) {
    const auto esito = togliLetterali(sql);
    return esito ? esito->testo : QByteArray("(intera)");
}

template <class T>
T valore(const QByteArray& sql, size_t posizione = 0) {
    return std::get<T>(togliLetterali(sql).value().valori.at(posizione));
}

}  // namespace

TEST(SqliteParameters, TextBecomesAParameter) {
    EXPECT_EQ(testo("SELECT A FROM T WHERE B = 'x'"), "SELECT A FROM T WHERE B = ?");
    EXPECT_EQ(valore<QByteArray>("SELECT A FROM T WHERE B = 'x'"), "x");
}

TEST(SqliteParameters, DoubledQuoteIsOneInTheValue) {
    EXPECT_EQ(valore<QByteArray>("SELECT A FROM T WHERE B = 'O''Brien'''"), "O'Brien'");
}

TEST(SqliteParameters, EmptyTextIsAValue) {
    EXPECT_EQ(testo("SELECT A FROM T WHERE B = '' AND C = 1"), "SELECT A FROM T WHERE B = ? AND C = ?");
    EXPECT_EQ(valore<QByteArray>("SELECT A FROM T WHERE B = ''"), "");
}

TEST(SqliteParameters, ComparedNumberBecomesAParameter) {
    EXPECT_EQ(testo("SELECT A FROM T WHERE B = 12 AND C >= 1.5"), "SELECT A FROM T WHERE B = ? AND C >= ?");
    EXPECT_EQ(valore<qint64>("SELECT A FROM T WHERE B = 12"), 12);
    EXPECT_EQ(valore<double>("SELECT A FROM T WHERE B >= 1.5"), 1.5);
}

TEST(SqliteParameters, NumbersWithAMeaningByPlaceStay) {
    const QByteArray sql = "SELECT A, ROUND(B, 2) FROM T ORDER BY 1 LIMIT 9";
    EXPECT_EQ(testo(sql), sql);
}

TEST(SqliteParameters, DigitsInNamesStay) {
    const QByteArray sql = "SELECT LISTINO1, T2.SCONTO3 FROM T2 WHERE LISTINO1 = SCONTO3";
    EXPECT_EQ(testo(sql), sql);
}

TEST(SqliteParameters, InsertedValuesBecomeParameters) {
    EXPECT_EQ(testo("INSERT INTO T (A, B, C) VALUES (1, 'x', 2.50)"),
              "INSERT INTO T (A, B, C) VALUES (?, ?, ?)");
}

TEST(SqliteParameters, SignStaysBeforeItsNumber) {
    EXPECT_EQ(testo("SELECT A FROM T WHERE B = -1"), "SELECT A FROM T WHERE B = -1");
}

TEST(SqliteParameters, NumberBeyond64BitsStays) {
    const QByteArray sql = "SELECT A FROM T WHERE B = 99999999999999999999";
    EXPECT_EQ(testo(sql), sql);
}

TEST(SqliteParameters, QuotedNamesStay) {
    const QByteArray sql = R"(SELECT "a'b", `c'd`, [e'f] FROM T)";
    EXPECT_EQ(testo(sql), sql);
}

TEST(SqliteParameters, ValueMayHoldMarksOfParametersAndComments) {
    EXPECT_EQ(testo("SELECT A FROM T WHERE B = '? :a @b -- /* $c'"), "SELECT A FROM T WHERE B = ?");
}

TEST(SqliteParameters, WhatIsNotPlainIsLeftWhole) {
    for (const char* sql :
         {"PRAGMA user_version = 1", "BEGIN IMMEDIATE", "CREATE TABLE T (A DEFAULT 'x')",
          "SELECT A FROM T -- WHERE B = 1", "SELECT A /* 'x' */ FROM T", "SELECT A FROM T WHERE B = ?",
          "SELECT X'00' FROM T", "SELECT 'x FROM T", "SELECT \"x FROM T"}) {
        EXPECT_EQ(testo(sql), "(intera)") << sql;
    }
}
