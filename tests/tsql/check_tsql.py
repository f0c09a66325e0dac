"""Checks the collected statements of the program as SQL Server would read them.

Usage: check_tsql.py FOLDER, with one file of JSON lines for each program that was run."""

import json
import re
import sys
from pathlib import Path

from tsql_rules import Schema, difetti

# Fewer mean that something was not collected.
FORME_MINIME = 120
TABELLE_MINIME = 40

# Programs that write rows with their keys, under IDENTITY_INSERT, and no texts of a person but Unicode ones.
ATTREZZI = {"archivio"}

VALORI = re.compile(r"N'(?:[^']|'')*'|\b\d+(?:\.\d+)?(?:E[+-]?\d+)?\b")


def raccolte(cartella):
    """The different statements, those that make the database first."""
    tutte = {}
    for file in sorted(Path(cartella).glob("*.jsonl")):
        with file.open(encoding="utf-8") as righe:
            tutte.update((json.loads(riga)[0], file.stem) for riga in righe)
    return sorted(tutte.items(), key=lambda voce: not voce[0].startswith("CREATE "))


def main(cartella):
    schema, sbagliate, lette = Schema(), 0, raccolte(cartella)
    for sql, programma in lette:
        schema.attrezzo = programma in ATTREZZI
        trovati = list(difetti(sql, schema))
        if trovati:
            sbagliate += 1
            print(f"{programma}: {'; '.join(trovati)}\n    {sql[:2000]}")
    forme = {VALORI.sub("?", sql) for sql, _ in lette if not sql.startswith("CREATE ")}
    print(f"{len(lette)} statements, {len(forme)} without their values, {len(schema.tabelle)} tables")
    print(f"{sbagliate} refused")
    if len(forme) < FORME_MINIME or len(schema.tabelle) < TABELLE_MINIME:
        print("too few were collected")
        return 1
    return 1 if sbagliate else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
