"""Statements that steer the session, the transaction and the keys: the parser knows them as opaque commands or
not at all, so that each must have one of the forms that the server's manual gives."""

import re

OPZIONI = (
    "ANSI_NULLS|ANSI_PADDING|ANSI_WARNINGS|ARITHABORT|CONCAT_NULL_YIELDS_NULL|QUOTED_IDENTIFIER|XACT_ABORT|"
    "NOCOUNT|IMPLICIT_TRANSACTIONS|NUMERIC_ROUNDABORT"
)
ISOLAMENTO = "READ UNCOMMITTED|READ COMMITTED|REPEATABLE READ|SNAPSHOT|SERIALIZABLE"
TABELLA = r"(?P<tabella>\w+)"

FORME = [
    re.compile(forma)
    for forma in (
        rf"SET (?:{OPZIONI})(?:, (?:{OPZIONI}))* (?:ON|OFF)",
        r"SET DATEFORMAT (?:mdy|dmy|ymd|ydm|myd|dym)",
        r"SET LOCK_TIMEOUT (?:-1|\d+)",
        r"SET TEXTSIZE \d+",
        r"SET ROWCOUNT \d+",
        rf"SET TRANSACTION ISOLATION LEVEL (?:{ISOLAMENTO})",
        rf"SET IDENTITY_INSERT {TABELLA} (?:ON|OFF)",
        r"(?:BEGIN|COMMIT|ROLLBACK) TRANSACTION",
        r"IF @@TRANCOUNT (?:=|>) 0 (?:BEGIN|ROLLBACK) TRANSACTION",
        r"DECLARE (?P<dichiara>@\w+) INT",
        r"EXEC (?P<usa>@\w+) = sp_getapplock @Resource = N'[^']{1,255}', @LockMode = 'Exclusive', "
        r"@LockOwner = '(?:Transaction|Session)', @LockTimeout = (?:-1|\d+)",
        r"SELECT (?P<legge>@\w+)",
        rf"ALTER TABLE {TABELLA} (?:NOCHECK|WITH CHECK CHECK) CONSTRAINT ALL",
        rf"DBCC CHECKIDENT \(N'{TABELLA}', RESEED, \d+\)",
        rf"DROP TABLE {TABELLA}",
        r"CREATE DATABASE \[(?:[^\]]|\]\])+\]",
    )
]
INIZIO = re.compile(r"SET (?!NOCOUNT ON )|BEGIN |COMMIT|ROLLBACK|IF |DECLARE |EXEC |ALTER |DBCC |DROP |CREATE DATABASE ")


def di_controllo(sql):
    return bool(INIZIO.match(sql))


def forma(istruzione):
    return next((m for m in (f.fullmatch(istruzione) for f in FORME) if m), None)


def difetti(sql, schema):
    """Of a batch of such statements, parted by semicolons."""
    dichiarate = set()
    for istruzione in sql.split("; "):
        trovata = forma(istruzione)
        if trovata is None:
            yield f"no statement of the server: {istruzione[:80]}"
            continue
        parti = trovata.groupdict()
        dichiarate.add(parti.get("dichiara"))
        for variabile in filter(None, (parti.get("usa"), parti.get("legge"))):
            if variabile not in dichiarate:
                yield f"{variabile} is not declared"
        tabella = parti.get("tabella")
        if tabella and tabella.upper() not in schema.tabelle:
            yield f"no table {tabella}"
