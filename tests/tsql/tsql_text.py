"""Rules on the bare text of a statement: what a parser that knows many dialects would let through."""

import re

# A text of Unicode, a plain text, a quoted name, a word, a number, any other mark.
PEZZI = re.compile(
    r"""(?P<unicode>N'(?:[^']|'')*')|(?P<testo>'(?:[^']|'')*')|(?P<nome>"(?:[^"]|"")*")"""
    r"""|(?P<parola>[^\W\d]\w*|@@(?:TRANCOUNT|SPID))|(?P<numero>\d+(?:\.\d*)?(?:[eE][+-]?\d+)?|\.\d+)"""
    r"""|(?P<vuoto>\s+)|(?P<segno>.)""",
    re.DOTALL,
)

FUNZIONI = {
    "ABS", "AVG", "CAST", "COALESCE", "CONCAT", "COUNT", "DATEADD", "GETDATE", "ISNULL", "LEN", "MAX", "MIN",
    "OBJECT_ID", "REPLICATE", "SCOPE_IDENTITY", "SUBSTRING", "SUM", "XACT_STATE", "YEAR",
}
# Words that a bracket may follow without a call; types with a length among them.
PRIMA_DI_PARENTESI = {
    "AND", "AS", "BY", "CASE", "DECIMAL", "DATETIME2", "ELSE", "EXISTS", "FLOAT", "FROM", "HAVING",
    "IDENTITY", "IN", "JOIN", "KEY", "LIKE", "NOT", "NVARCHAR", "ON", "OR", "SELECT", "THEN", "TIME", "TOP",
    "VALUES", "WHEN", "WHERE",
}
VIETATE = {"LIMIT", "TRUE", "FALSE", "IFNULL", "NOW", "CURRENT_DATE", "INTERVAL", "IIF", "NZ", "VAL"}
SEGNI = set("(),.=<>*+-/")
# Reserved words of the server that a shop's table or column could be called by.
RISERVATE = set(
    """ADD ALL ALTER AND ANY AS ASC BACKUP BEGIN BETWEEN BREAK BROWSE BULK BY CASCADE CASE CHECK CHECKPOINT
    CLOSE CLUSTERED COALESCE COLLATE COLUMN COMMIT COMPUTE CONSTRAINT CONTAINS CONTINUE CONVERT CREATE
    CROSS CURRENT CURSOR DATABASE DBCC DEALLOCATE DECLARE DEFAULT DELETE DENY DESC DISK DISTINCT
    DISTRIBUTED DOUBLE DROP DUMP ELSE END ERRLVL ESCAPE EXCEPT EXEC EXECUTE EXISTS EXIT EXTERNAL FETCH
    FILE FILLFACTOR FOR FOREIGN FREETEXT FROM FULL FUNCTION GOTO GRANT GROUP HAVING HOLDLOCK IDENTITY
    IF IN INDEX INNER INSERT INTERSECT INTO IS JOIN KEY KILL LEFT LIKE LINENO LOAD MERGE NATIONAL
    NOCHECK NONCLUSTERED NOT NULL NULLIF OF OFF OFFSETS ON OPEN OPTION OR ORDER OUTER OVER PERCENT
    PIVOT PLAN PRECISION PRIMARY PRINT PROC PROCEDURE PUBLIC RAISERROR READ RECONFIGURE REFERENCES
    REPLICATION RESTORE RESTRICT RETURN REVERT REVOKE RIGHT ROLLBACK ROWCOUNT RULE SAVE SCHEMA SELECT
    SET SETUSER SHUTDOWN SOME STATISTICS TABLE TABLESAMPLE TEXTSIZE THEN TO TOP TRAN TRANSACTION
    TRIGGER TRUNCATE UNION UNIQUE UNPIVOT UPDATE USE USER VALUES VARYING VIEW WAITFOR WHEN WHERE WHILE
    WITH WRITETEXT""".split()
)


def pezzi(sql):
    """The statement as (kind, text), without blanks."""
    return [(m.lastgroup, m.group()) for m in PEZZI.finditer(sql) if m.lastgroup != "vuoto"]


def argomenti(lista, parentesi):
    """How many arguments the call has whose opening bracket stands at that place."""
    profondita, virgole = 0, 0
    for tipo, testo in lista[parentesi:]:
        if tipo != "segno":
            continue
        profondita += {"(": 1, ")": -1}.get(testo, 0)
        virgole += testo == "," and profondita == 1
        if profondita == 0:
            break
    vuota = lista[parentesi + 1] == ("segno", ")")
    return 0 if vuota else virgole + 1


def regola_segni(lista, schema):
    for i, (tipo, testo) in enumerate(lista):
        if tipo == "testo" and not (schema.attrezzo and testo.isascii()):
            yield f"a text that is not Unicode: {testo[:40]}"
        if tipo == "segno" and testo not in SEGNI:
            yield f"the mark {testo}"
        if lista[i : i + 2] == [("segno", "-"), ("segno", "-")]:
            yield "a comment"


def regola_spezzature(lista, _schema):
    for tipo, testo in lista:
        if tipo == "unicode" and re.search(r"\\[\r\n]", testo):
            yield "a backslash that the server drops with its line break"


def regola_funzioni(lista, schema):
    for i, (tipo, testo) in enumerate(lista[:-1]):
        if tipo != "parola" or lista[i + 1] != ("segno", "("):
            continue
        nome = testo.upper()
        tabella = i > 0 and lista[i - 1][1].upper() in ("INTO", "TABLE", "REFERENCES", "ON")
        if nome in PRIMA_DI_PARENTESI or (tabella and nome in schema.tabelle):
            continue
        if nome not in FUNZIONI:
            yield f"the function {testo}"
        elif nome == "ISNULL" and argomenti(lista, i + 1) != 2:
            yield "ISNULL without its two arguments"


def regola_parole(lista, _schema):
    for tipo, testo in lista:
        if tipo == "parola" and testo.upper() in VIETATE:
            yield f"the word {testo}"


def regola_nomi(lista, schema):
    for tipo, testo in lista:
        if tipo == "nome" and not schema.colonna_di_qualcuna(testo[1:-1]):
            yield f"{testo} is no column"


REGOLE = (regola_segni, regola_spezzature, regola_funzioni, regola_parole, regola_nomi)


def difetti(sql, schema):
    lista = pezzi(sql)
    for regola in REGOLE:
        yield from regola(lista, schema)
