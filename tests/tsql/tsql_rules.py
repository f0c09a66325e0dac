"""Reads T-SQL as the server would, and tells what it would refuse."""

import re

from sqlglot import exp, parse
from sqlglot.errors import ParseError

import tsql_control
import tsql_text
import tsql_tree
from tsql_schema import BYTE_TESTO, Schema

LOTTO = re.compile(
    r"SET NOCOUNT ON (?P<istruzione>.*) (?P<chiave>SELECT SCOPE_IDENTITY\(\)) SET NOCOUNT OFF", re.DOTALL
)
INDICE = re.compile(r"CREATE (?:UNIQUE )?INDEX \w+ ON (?P<tabella>\w+) \((?P<colonne>\w+(?:, \w+)*)\)")
# The parser does not know how a key numbers itself.
NUMERATA = re.compile(r"\bINT IDENTITY\(1,1\) PRIMARY KEY\b")
TIPI = (exp.Select, exp.Insert, exp.Update, exp.Delete, exp.Create)


def istruzioni(sql):
    """The statements that one text holds: a batch with NOCOUNT is two."""
    lotto = LOTTO.fullmatch(sql)
    return [lotto["istruzione"], lotto["chiave"]] if lotto else [sql]


def leggi(sql):
    """The tree of one statement; ValueError when it is none that the server knows."""
    try:
        alberi = parse(NUMERATA.sub("INT PRIMARY KEY", sql), read="tsql")
    except (ParseError, ValueError, TypeError) as errore:
        raise ValueError(f"does not parse: {str(errore)[:300]}") from errore
    if len(alberi) != 1 or not isinstance(alberi[0], TIPI) or alberi[0].find(exp.Command):
        raise ValueError("is no single SELECT, INSERT, UPDATE or DELETE")
    return alberi[0]


def difetti_ddl(sql, schema):
    """Takes the table in."""
    try:
        albero = leggi(sql)
    except ValueError as errore:
        yield str(errore)
        return
    indice = INDICE.fullmatch(sql)
    if indice:
        yield from tsql_tree.difetti_indice(indice["tabella"], indice["colonne"].split(", "), schema)
        return
    if albero.args.get("kind") != "TABLE":
        yield "makes no table"
        return
    schema.crea(albero)
    yield from tsql_text.regola_segni(tsql_text.pezzi(sql), schema)
    yield from tsql_tree.regola_riservate(albero, schema)
    for tipo in albero.find_all(exp.DataType):
        if tipo.this == exp.DataType.Type.NVARCHAR and 2 * int(tipo.expressions[0].name) > BYTE_TESTO:
            yield f"a text column of {tipo.expressions[0].name} characters"


def difetti(sql, schema):
    """Of what is sent as one text."""
    if tsql_control.di_controllo(sql):
        yield from tsql_control.difetti(sql, schema)
        return
    if sql.startswith("CREATE "):
        yield from difetti_ddl(sql, schema)
        return
    for istruzione in istruzioni(sql):
        yield from tsql_text.difetti(istruzione, schema)
        try:
            albero = leggi(istruzione)
        except ValueError as errore:
            yield str(errore)
        else:
            yield from tsql_tree.difetti(albero, schema)


__all__ = ["Schema", "difetti"]
