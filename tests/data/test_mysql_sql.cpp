#include "data/mysql_sql.h"

// A server that tells the case of table names and aliases apart gets one spelling of each.

TEST(MySqlNames, TablesGetTheSpellingOfTheSchema) {
    EXPECT_EQ(nomiTabelleMySql("select valore from opzioni where nome = 'x'"),
              "select valore from Opzioni where nome = 'x'");
    EXPECT_EQ(nomiTabelleMySql("UPDATE CONTATORI SET NUMERO = 1"), "UPDATE Contatori SET NUMERO = 1");
    EXPECT_EQ(nomiTabelleMySql("INSERT INTO PRIMANOTA (DATA) VALUES (1)"),
              "INSERT INTO PrimaNota (DATA) VALUES (1)");
    EXPECT_EQ(nomiTabelleMySql("DELETE FROM movimenti"), "DELETE FROM Movimenti");
    EXPECT_EQ(nomiTabelleMySql("SELECT RID FROM GruppoUtenti"), "SELECT RID FROM GRUPPOUTENTI");
}

TEST(MySqlNames, JoinsAndListsOfTables) {
    EXPECT_EQ(nomiTabelleMySql("SELECT 1 FROM (PRODOTTI P LEFT JOIN IVA I ON P.FK_IVA = I.RID), MARCHE"),
              "SELECT 1 FROM (Prodotti P LEFT JOIN Iva I ON P.FK_IVA = I.RID), Marche");
}

TEST(MySqlNames, QuotedNames) {
    EXPECT_EQ(nomiTabelleMySql("SELECT `x` FROM `OPZIONI`"), "SELECT `x` FROM `Opzioni`");
}

TEST(MySqlNames, ColumnsOfTheSameNameStay) {
    EXPECT_EQ(
        nomiTabelleMySql("SELECT IVA, DM.IVA FROM DettagliMovimento DM WHERE IVA > 0 GROUP BY IVA, iva"),
        "SELECT IVA, DM.IVA FROM DettagliMovimento DM WHERE IVA > 0 GROUP BY IVA, iva");
    EXPECT_EQ(nomiTabelleMySql("INSERT INTO DettagliMovimento (IVA, POS) SELECT IVA, 1 FROM iva"),
              "INSERT INTO DettagliMovimento (IVA, POS) SELECT IVA, 1 FROM Iva");
    EXPECT_EQ(nomiTabelleMySql("UPDATE DettagliMovimento SET IVA = 1, iva = 2"),
              "UPDATE DettagliMovimento SET IVA = 1, iva = 2");
}

TEST(MySqlNames, AnAliasHasTheSpellingOfItsFirstMention) {
    EXPECT_EQ(nomiTabelleMySql("SELECT m.RID FROM Movimenti M WHERE m.DATA > 1 ORDER BY M.RID"),
              "SELECT M.RID FROM Movimenti M WHERE M.DATA > 1 ORDER BY M.RID");
    EXPECT_EQ(nomiTabelleMySql("SELECT p.RID FROM prodotti AS P"), "SELECT P.RID FROM Prodotti AS P");
}

TEST(MySqlNames, AnInnerQueryWithTheSameAlias) {
    EXPECT_EQ(nomiTabelleMySql("SELECT M.RID FROM Movimenti M WHERE EXISTS (SELECT m.RID FROM Movimenti m)"),
              "SELECT M.RID FROM Movimenti M WHERE EXISTS (SELECT M.RID FROM Movimenti M)");
}

TEST(MySqlNames, AQueryInTheListOfTables) {
    EXPECT_EQ(nomiTabelleMySql("SELECT t.X FROM (SELECT 1 AS X FROM IVA) T, MARCHE m WHERE M.RID = t.X"),
              "SELECT T.X FROM (SELECT 1 AS X FROM Iva) T, Marche m WHERE m.RID = T.X");
}

TEST(MySqlNames, ATableAsAQualifier) {
    EXPECT_EQ(nomiTabelleMySql("SELECT prodotti.RID FROM PRODOTTI WHERE PRODOTTI.RID = 1"),
              "SELECT Prodotti.RID FROM Prodotti WHERE Prodotti.RID = 1");
}

TEST(MySqlNames, TextsAreNeverTouched) {
    const QString sql = "SELECT ' FROM opzioni o', \"from IVA\" FROM Opzioni WHERE NOME = 'update iva'''";
    EXPECT_EQ(nomiTabelleMySql(sql), sql);
}

TEST(MySqlNames, OtherTablesStay) {
    const QString sql = "SELECT * FROM prova, PROVA2 WHERE prova.x = PROVA2.x";
    EXPECT_EQ(nomiTabelleMySql(sql), sql);
}

TEST(MySqlNames, StatementsCutShort) {
    for (const char* sql : {"", "SELECT", "FROM", "SELECT * FROM", "SELECT * FROM (", ")))", "UPDATE IVA AS",
                            "FROM iva AS", ".", "FROM `iva", "FROM `"}) {
        EXPECT_EQ(nomiTabelleMySql(sql).size(), QString(sql).size()) << sql;
    }
}
