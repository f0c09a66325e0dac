"""Checks one rule of the house on a checkout; says every breach.

check_house.py RULE ROOT [FOLDER_OF_QTWIDGETS]
"""

import sys
from functools import partial

import house_rules
from source_tree import Albero

REGOLE = {
    "floors": house_rules.piani,
    "include_paths": house_rules.risolti,
    "header_circles": house_rules.circoliHeader,
    "folder_circles": house_rules.circoliCartelle,
    "widgets": house_rules.widget,
    "lengths": house_rules.lunghezze,
}


def main(argomenti):
    if len(argomenti) not in (2, 3) or argomenti[0] not in REGOLE:
        print(__doc__, "Rules:", " ".join(REGOLE), file=sys.stderr)
        return 2
    regola, albero = REGOLE[argomenti[0]], Albero(argomenti[1])
    if not albero.sorgenti:
        print(f"no sources under {argomenti[1]}", file=sys.stderr)
        return 2
    if len(argomenti) == 3:
        regola = partial(regola, nomi=house_rules.intestazioniWidget(argomenti[2]))
    violazioni = list(regola(albero))
    for violazione in violazioni:
        print(violazione)
    return 1 if violazioni else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
