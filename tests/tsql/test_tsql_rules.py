"""The checker refuses what SQL Server would refuse."""

import unittest

from tsql_rules import Schema, difetti, istruzioni

DDL = (
    "CREATE TABLE Iva (RID INT IDENTITY(1,1) PRIMARY KEY, CODICE NVARCHAR(20), NOTE NVARCHAR(MAX), "
    "VALORE FLOAT(53))",
    "CREATE TABLE Prodotti (RID INT IDENTITY(1,1) PRIMARY KEY, CODICE NVARCHAR(40), FK_IVA INT, "
    "DATA DATETIME2(0), FOREIGN KEY (FK_IVA) REFERENCES Iva (RID))",
)

GIUSTE = (
    "SELECT TOP 9 RID, CODICE FROM Iva WHERE CODICE LIKE N'a''b%' ORDER BY CODICE DESC",
    "SELECT P.RID, I.VALORE AS V FROM (Prodotti P INNER JOIN Iva I ON P.FK_IVA = I.RID) "
    "WHERE ((P.DATA) IS NULL)",
    "SELECT FK_IVA, SUM(RID) AS S FROM Prodotti WHERE DATA = CAST(N'20260316' AS DATE) GROUP BY FK_IVA "
    "ORDER BY S",
    "SELECT YEAR(DATA) AS ANNO, COUNT(*) AS N FROM Prodotti GROUP BY YEAR(DATA)",
    "SELECT I.CODICE, S.N FROM Iva I LEFT JOIN (SELECT FK_IVA, COUNT(*) AS N FROM Prodotti GROUP BY FK_IVA) S "
    "ON S.FK_IVA = I.RID",
    "SELECT DISTINCT TOP 3 CODICE FROM Iva ORDER BY CODICE",
    "SELECT CONCAT(REPLICATE(N'0', 5 - LEN(RID)), RID, N'/') AS N FROM Iva",
    "INSERT INTO Iva (CODICE, \"NOTE\") VALUES (N'22', (CAST(N'' AS NVARCHAR(MAX)) + N'a\\' + N'\nb'))",
    "SET NOCOUNT ON INSERT INTO Iva (CODICE) VALUES (N'x SELECT 1')  SELECT SCOPE_IDENTITY() SET NOCOUNT OFF",
    "UPDATE Prodotti SET DATA = GETDATE(), CODICE = Null WHERE RID = 1",
    "DELETE FROM Prodotti WHERE DATA >= DATEADD(month, -3, CAST(GETDATE() AS DATE))",
    "UPDATE Iva SET VALORE = N'22' WHERE CODICE = N'22' AND VALORE = 10",
    "INSERT INTO Iva (VALORE, CODICE) VALUES (N'4', 22)",
    "CREATE UNIQUE INDEX IX ON Iva (CODICE)",
    "SET ANSI_NULLS, XACT_ABORT ON; SET NOCOUNT OFF; SET LOCK_TIMEOUT 1000",
    "SET TRANSACTION ISOLATION LEVEL READ COMMITTED",
    "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION",
    "DECLARE @r INT; EXEC @r = sp_getapplock @Resource = N'Negozio', @LockMode = 'Exclusive', "
    "@LockOwner = 'Session', @LockTimeout = 0; SELECT @r",
    "SELECT @@TRANCOUNT, XACT_STATE()",
    "SET IDENTITY_INSERT Iva ON",
    "ALTER TABLE Iva WITH CHECK CHECK CONSTRAINT ALL",
    "DBCC CHECKIDENT (N'Iva', RESEED, 12)",
    "SELECT TABLE_NAME, COLUMN_NAME FROM INFORMATION_SCHEMA.COLUMNS",
)

SBAGLIATE = (
    "SELECT CODICE FROM Iva WHERE RID = ",
    "SELECT CODICE FROM Iva LIMIT 1",
    "SELECT `CODICE` FROM Iva",
    "SELECT CODICE FROM Iva WHERE CODICE = '22'",
    'SELECT CODICE FROM Iva WHERE CODICE = "22"',
    "SELECT CODICE FROM Iva WHERE ISNULL(CODICE)",
    "SELECT CODICE FROM Iva WHERE VALORE = True",
    "SELECT CODICE & N'x' AS T FROM Iva",
    "SELECT RID FROM Prodotti WHERE DATA = #01/01/2026#",
    "SELECT RID FROM Prodotti WHERE DATA = { d N'2026-01-01' }",
    "SELECT RID FROM Prodotti WHERE DATA = Date()",
    "UPDATE Prodotti SET DATA = Now()",
    "SELECT Format(RID, N'00000') AS F FROM Iva",
    "SELECT RID FROM Prodotti WHERE YEAR(DATA, 1)",
    "SELECT RID FROM Aliquote",
    "SELECT SCONTO FROM Iva",
    "SELECT I.SCONTO FROM Iva I",
    "SELECT X.CODICE FROM Iva I",
    "SELECT CODICE FROM Prodotti P INNER JOIN Iva I ON P.FK_IVA = I.RID",
    "SELECT CODICE FROM Iva WHERE VALORE",
    "SELECT CODICE FROM Iva WHERE VALORE > 1 AND RID",
    "SELECT (RID = 1) AS UNO FROM Iva",
    "SELECT CODICE FROM Iva WHERE (VALORE > 1) = 1",
    "SELECT RID FROM Prodotti P INNER JOIN Iva I",
    "SELECT SUM(VALORE), CODICE FROM Iva",
    "SELECT CODICE FROM Iva HAVING VALORE > 1",
    "SELECT DATA, COUNT(*) AS N FROM Prodotti GROUP BY YEAR(DATA)",
    "SELECT I.CODICE, S.M FROM Iva I LEFT JOIN (SELECT FK_IVA, COUNT(*) AS N FROM Prodotti GROUP BY FK_IVA) S "
    "ON S.FK_IVA = I.RID",
    "SELECT FK_IVA FROM Prodotti GROUP BY FK_IVA ORDER BY DATA",
    "SELECT DISTINCT CODICE FROM Iva ORDER BY VALORE",
    "SELECT TOP 5 DISTINCT CODICE FROM Iva",
    "INSERT INTO Iva (RID, CODICE) VALUES (1, N'22')",
    "INSERT INTO Iva (CODICE, VALORE) VALUES (N'22')",
    "INSERT INTO Iva (NOME) VALUES (N'22')",
    "UPDATE Iva SET RID = 3 WHERE RID = 1",
    "UPDATE Iva SET NOME = 3 WHERE RID = 1",
    "SELECT CODICE AS Order FROM Iva",
    "SELECT CODICE AS PLAN FROM Iva",
    "SELECT CODICE FROM Iva; DELETE FROM Iva",
    "SELECT CODICE FROM Iva -- WHERE",
    "UPDATE Iva SET CODICE = N'a\\\nb'",
    "SET NOCOUNT ON SELECT 1",
    "SELECT RID FROM Iva WHERE VALORE = N'22%'",
    "SELECT RID FROM Iva I WHERE I.CODICE = 22",
    "SELECT RID FROM Prodotti WHERE DATA >= 20260101",
    "INSERT INTO Iva (VALORE) VALUES (N'')",
    "UPDATE Iva SET VALORE = N'' WHERE RID = 1",
    "EXEC sp_who",
    "",
    "CREATE TABLE Piano (RID INT IDENTITY(1,1) PRIMARY KEY, PLAN NVARCHAR(20))",
    "CREATE TABLE Lunga (RID INT IDENTITY(1,1) PRIMARY KEY, T NVARCHAR(4001))",
    "CREATE INDEX IX ON Iva (NOTE)",
    "CREATE INDEX IX ON Iva (NOME)",
    "CREATE VIEW V AS SELECT RID FROM Iva",
    "SET ANSI_NULL ON",
    "SET LOCK_TIMEOUT",
    "SET IDENTITY_INSERT Aliquote ON",
    "IF @@TRANCOUNT > 0 COMMIT",
    "DECLARE @r INT; EXEC @s = sp_getapplock @Resource = N'N', @LockMode = 'Exclusive', "
    "@LockOwner = 'Session', @LockTimeout = 0; SELECT @r",
    "EXEC @r = sp_getapplock @Resource = N'N', @LockMode = 'Exclusive', @LockOwner = 'Session', @LockTimeout = 0",
    "ALTER TABLE Iva CHECK CONSTRAINT",
    "DBCC CHECKIDENT ('Iva', RESEED, 12)",
    "START TRANSACTION",
)


def schema():
    nuovo = Schema()
    for sql in DDL:
        assert not list(difetti(sql, nuovo))
    return nuovo


class Regole(unittest.TestCase):
    def test_what_the_server_takes_has_no_fault(self):
        for sql in GIUSTE:
            with self.subTest(sql):
                self.assertEqual(list(difetti(sql, schema())), [])

    def test_what_the_server_refuses_has_a_fault(self):
        for sql in SBAGLIATE:
            with self.subTest(sql):
                self.assertNotEqual(list(difetti(sql, schema())), [])

    def test_a_plain_text_is_taken_only_from_the_tool_and_without_accents(self):
        attrezzo = schema()
        attrezzo.attrezzo = True
        self.assertEqual(list(difetti("SELECT RID FROM Iva WHERE CODICE = 'x'", attrezzo)), [])
        self.assertNotEqual(list(difetti("SELECT RID FROM Iva WHERE CODICE = 'è'", attrezzo)), [])

    def test_a_key_is_told_only_where_the_server_was_asked_to_take_it(self):
        attrezzo = schema()
        attrezzo.attrezzo = True
        sql = "INSERT INTO Iva (RID, CODICE) VALUES (1, N'22')"
        self.assertEqual(list(difetti(sql, attrezzo)), [])

    def test_a_batch_is_two_statements(self):
        lotto = "SET NOCOUNT ON DELETE FROM Iva SELECT SCOPE_IDENTITY() SET NOCOUNT OFF"
        self.assertEqual(istruzioni(lotto), ["DELETE FROM Iva", "SELECT SCOPE_IDENTITY()"])


if __name__ == "__main__":
    unittest.main()
