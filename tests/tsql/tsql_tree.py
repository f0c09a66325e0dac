"""Rules on the tree of a statement: what SQL Server refuses though it parses."""

import re

from sqlglot import exp

import tsql_schema
from tsql_text import RISERVATE

CONDIZIONI = (exp.Predicate, exp.And, exp.Or, exp.Not, exp.Is, exp.Like, exp.In, exp.Between, exp.Exists)
NUMERICI = {"INT", "SMALLINT", "DECIMAL", "FLOAT", "DOUBLE"}


def nuda(nodo):
    """Without the brackets around it."""
    while isinstance(nodo, exp.Paren):
        nodo = nodo.this
    return nodo


def tabelle(albero):
    """Alias, or name, in upper case to the name of the table."""
    return {(t.alias or t.name).upper(): t.name.upper() for t in albero.find_all(exp.Table)}


def regola_tabelle(albero, schema):
    for nome in tabelle(albero).values():
        if nome not in schema.tabelle:
            yield f"no table {nome}"


def derivate(albero):
    """Alias of a query in the place of a table to the columns that it gives."""
    return {
        q.alias.upper(): {uscita.alias_or_name.upper() for uscita in q.this.expressions}
        for q in albero.find_all(exp.Subquery)
        if q.alias
    }


def regola_colonne(albero, schema):
    note, altre = tabelle(albero), derivate(albero)
    un_livello = len(list(albero.find_all(exp.Select))) <= 1
    uscite = {a.alias.upper() for a in albero.find_all(exp.Alias)}
    for colonna in albero.find_all(exp.Column):
        nome, di = colonna.name.upper(), colonna.table.upper()
        if nome.startswith("@@"):
            continue
        if di:
            if nome not in altre.get(di, ()) and not schema.ha(note.get(di, ""), nome):
                yield f"no column {di}.{nome}"
            continue
        possibili = [t for t in note.values() if schema.ha(t, nome)]
        if not possibili and not (nome in uscite and colonna.find_ancestor(exp.Order)):
            yield f"no column {nome}"
        if len(possibili) > 1 and un_livello:
            yield f"column {nome} of several tables"


def regola_condizioni(albero, _schema):
    """A condition is no value and a value no condition."""
    for nodo in albero.find_all(exp.Where, exp.Having, exp.Not):
        if not isinstance(nuda(nodo.this), CONDIZIONI):
            yield f"no condition: {nodo.this.sql()[:60]}"
    for nodo in albero.find_all(exp.And, exp.Or):
        for lato in (nodo.left, nodo.right):
            if not isinstance(nuda(lato), CONDIZIONI):
                yield f"no condition: {lato.sql()[:60]}"
    for join in albero.find_all(exp.Join):
        if not isinstance(nuda(join.args.get("on")), CONDIZIONI):
            yield f"a join without a condition: {join.sql()[:60]}"
    for nodo in albero.find_all(exp.EQ, exp.NEQ, exp.GT, exp.GTE, exp.LT, exp.LTE):
        for lato in (nodo.left, nodo.right):
            if isinstance(nuda(lato), CONDIZIONI):
                yield f"a condition as a value: {nodo.sql()[:60]}"


def tipo_di(colonna, note, schema):
    """The type of a column, as text; empty when it is not known."""
    possibili = [note.get(colonna.table.upper())] if colonna.table else list(note.values())
    for tabella in possibili:
        if tabella and schema.ha(tabella, colonna.name):
            return schema.tabelle[tabella][colonna.name.upper()].this.name
    return ""


def testo_in_numero(valore, tipo):
    """A text that is no number meets a number column."""
    return (
        isinstance(valore, exp.National)
        and tipo in NUMERICI
        and not re.fullmatch(r"\s*-?\d+(\.\d+)?\s*", valore.name)
    )


def numero_con_altro(valore, tipo):
    """A number is compared with a text or date column: all of the column would become numbers first."""
    return isinstance(valore, exp.Literal) and not valore.is_string and tipo not in NUMERICI and tipo != ""


def regola_tipi(albero, schema):
    note = tabelle(albero)
    for nodo in albero.find_all(exp.EQ, exp.NEQ, exp.GT, exp.GTE, exp.LT, exp.LTE):
        if not isinstance(nodo.left, exp.Column):
            continue
        valore, tipo = nuda(nodo.right), tipo_di(nodo.left, note, schema)
        assegnata = isinstance(nodo.parent, exp.Update)
        if testo_in_numero(valore, tipo) or (not assegnata and numero_con_altro(valore, tipo)):
            yield f"types: {nodo.sql()[:60]}"
    if isinstance(albero, exp.Insert):
        prima = albero.args["expression"].expressions[0]
        for colonna, valore in zip(albero.this.expressions, prima.expressions):
            if testo_in_numero(valore, tipo_di(exp.column(colonna.name), note, schema)):
                yield f"types: {colonna.name} of {valore.sql()[:60]}"


def propri(nodi, select):
    """Those of the nodes that belong to the query itself and to none inside it."""
    return [n for n in nodi if n.find_ancestor(exp.Select) is select]


def senza_aggregati(nodo, select):
    """The columns of an expression of the query that stand in no aggregate."""
    return [c for c in propri(nodo.find_all(exp.Column), select) if not c.find_ancestor(exp.AggFunc)]


def regola_gruppi(albero, _schema):
    for select in albero.find_all(exp.Select):
        for uscita in select.expressions:
            if isinstance(nuda(uscita.unalias()), CONDIZIONI):
                yield f"a condition as a column: {uscita.sql()[:60]}"
        gruppo, having = select.args.get("group"), select.args.get("having")
        aggregata = any(propri(e.find_all(exp.AggFunc), select) for e in select.expressions)
        if not (gruppo or having or aggregata):
            continue
        ammesse = {c.sql().upper() for c in gruppo.expressions} if gruppo else set()
        uscite = {a.alias.upper() for a in select.find_all(exp.Alias)}
        parti = [*select.expressions, *filter(None, (having, select.args.get("order")))]
        libere = [p for p in parti if p.unalias().sql().upper() not in ammesse]
        for colonna in (c for parte in libere for c in senza_aggregati(parte, select)):
            if colonna.sql().upper() not in ammesse and colonna.sql().upper() not in uscite:
                yield f"{colonna.sql()} is neither grouped nor aggregated"


def regola_distinti(albero, _schema):
    for select in albero.find_all(exp.Select):
        if not select.args.get("distinct") or not select.args.get("order"):
            continue
        uscite = {e.unalias().sql().upper() for e in select.expressions}
        for ordine in select.args["order"].expressions:
            if ordine.this.sql().upper() not in uscite:
                yield f"DISTINCT ordered by {ordine.this.sql()}"


def regola_insert(albero, schema):
    if not isinstance(albero, exp.Insert):
        return
    tabella = albero.this.this.name.upper()
    colonne = [c.name for c in albero.this.expressions]
    for colonna in colonne:
        if not schema.ha(tabella, colonna):
            yield f"no column {tabella}.{colonna}"
        if not schema.attrezzo and schema.chiavi.get(tabella) == colonna.upper():
            yield f"{tabella}.{colonna} is given by the server"
    for riga in albero.args["expression"].expressions:
        if len(riga.expressions) != len(colonne):
            yield f"{len(riga.expressions)} values for {len(colonne)} columns"


def regola_update(albero, schema):
    if not isinstance(albero, exp.Update):
        return
    for assegnata in albero.expressions:
        if not isinstance(assegnata, exp.EQ) or not isinstance(assegnata.left, exp.Column):
            yield f"no assignment: {assegnata.sql()[:60]}"
        elif schema.chiavi.get(albero.this.name.upper()) == assegnata.left.name.upper():
            yield f"{assegnata.left.name} is given by the server"


def regola_riservate(albero, _schema):
    for nome in albero.find_all(exp.Identifier):
        if not nome.args.get("quoted") and nome.name.upper() in RISERVATE:
            yield f"the reserved word {nome.name} as a name"


REGOLE = (
    regola_tabelle,
    regola_colonne,
    regola_condizioni,
    regola_gruppi,
    regola_distinti,
    regola_insert,
    regola_update,
    regola_tipi,
    regola_riservate,
)


def difetti(albero, schema):
    for regola in REGOLE:
        yield from regola(albero, schema)


def difetti_indice(tabella, colonne, schema):
    """Of a CREATE INDEX, told by its table and columns."""
    mancanti = [c for c in colonne if not schema.ha(tabella, c)]
    if mancanti:
        yield f"no column {tabella}.{mancanti[0]}"
    elif sum(schema.larghezza(tabella, c) for c in colonne) > tsql_schema.BYTE_INDICE:
        yield f"an index key of more than {tsql_schema.BYTE_INDICE} bytes"
