"""The rules of the house. Each takes a tree of sources and answers its breaches as lines of text; no line
means that the rule is held."""

import re
from pathlib import Path, PurePosixPath

# From the top: a folder of src/ includes only from those after it.
PIANI = ("app", "counter", "backoffice", "printing", "postings", "sale", "register", "kit", "data", "core")
RIGHE_MASSIME = 600
SUFFISSI_MISURATI = (".cpp", ".h", ".py", ".sh", ".cmake")


def piano(percorso):
    """The folder of src/ that a file belongs to, or None outside src/."""
    parti = PurePosixPath(percorso).parts
    return parti[1] if parti[0] == "src" and len(parti) > 2 else None


def nodo(percorso):
    """A folder as libraries are made of it: rules and windows apart."""
    nome = piano(percorso)
    return f"{nome}/ui" if nome and finestra(percorso) and nome != "app" else nome


def finestra(percorso):
    """Whether a file of src/ is made of widgets."""
    return piano(percorso) == "app" or "ui" in PurePosixPath(percorso).parts[2:-1]


def piani(albero):
    """A folder includes only from the folders below it; tools and tests from all but app."""
    for sorgente in albero.sorgenti:
        da = piano(sorgente)
        if sorgente.startswith("src/") and da not in PIANI:
            yield f"{sorgente}: not in a folder that has a floor"
            continue
        for incluso in albero.inclusi(sorgente):
            a = piano(incluso)
            if a is None and da is not None:
                yield f"{sorgente}: includes {incluso}, which is not of src/"
            elif a is not None and not puoIncludere(sorgente, da, incluso, a):
                yield f"{sorgente}: includes {incluso}, which is not below it"


def puoIncludere(sorgente, da, incluso, a):
    if da is None:
        return a != "app" or sorgente.startswith("tests/app/")
    if a not in PIANI or PIANI.index(a) < PIANI.index(da):
        return False
    return finestra(sorgente) or not finestra(incluso)


def risolti(albero):
    """Every include in double quotes of src/ is a path from src/ that exists."""
    for sorgente in albero.sorgenti:
        for include in albero.include(sorgente) if sorgente.startswith("src/") else ():
            generato = include.nome.endswith(".moc")
            if include.progetto and not generato and not (albero.radice / "src" / include.nome).is_file():
                yield f'{sorgente}: "{include.nome}" is not a path from src/'


def circolo(grafo):
    """The nodes of one circle of a graph (node -> nodes), the first one repeated at its end, or []."""
    visitati, cammino = set(), []

    def visita(n):
        if n in cammino:
            return cammino[cammino.index(n) :] + [n]
        if n in visitati:
            return []
        visitati.add(n)
        cammino.append(n)
        trovato = next((c for c in map(visita, sorted(grafo.get(n, ()))) if c), [])
        cammino.pop()
        return trovato

    return next((c for c in map(visita, sorted(grafo)) if c), [])


def circoliHeader(albero):
    """No header includes itself through others."""
    header = [s for s in albero.sorgenti if s.endswith(".h")]
    trovato = circolo({h: {i for i in albero.inclusi(h) if i.endswith(".h")} for h in header})
    if trovato:
        yield "circle of headers: " + " > ".join(trovato)


def circoliCartelle(albero):
    """No folder of src/ uses itself through others; its ui/ counts as a folder of its own."""
    grafo = {}
    for sorgente in filter(nodo, albero.sorgenti):
        mete = {nodo(i) for i in albero.inclusi(sorgente)} - {None, nodo(sorgente)}
        grafo.setdefault(nodo(sorgente), set()).update(mete)
    trovato = circolo(grafo)
    if trovato:
        yield "circle of folders: " + " > ".join(trovato)


def intestazioniWidget(cartella):
    """The header names that Qt's widgets library offers, as its own folder lists them."""
    nomi = {p.name for p in Path(cartella).iterdir() if p.is_file()}
    if "QWidget" not in nomi:
        raise ValueError(f"{cartella} does not hold the headers of QtWidgets")
    return nomi


def widgetAmmessi(sorgente):
    """Windows, those of tools, tests and benchmarks of windows, and the application object of those."""
    if sorgente.startswith("src/"):
        return finestra(sorgente)
    parti = PurePosixPath(sorgente).parts
    if parti[0] == "tools":
        return "ui" in parti[2:-1]
    if parti[0] == "bench":
        return parti[1] in ("bench_main.cpp", "bench_counter.cpp")
    return parti[0] == "tests" and (len(parti) == 2 or parti[1] == "app" or parti[1].endswith("_ui"))


def widget(albero, nomi):
    """Only ui/ folders and app know widgets: the rules run without a window."""
    for sorgente in albero.sorgenti:
        if widgetAmmessi(sorgente):
            continue
        for include in albero.include(sorgente):
            cartella, _, nome = include.nome.rpartition("/")
            if not include.progetto and (cartella == "QtWidgets" or (not cartella and nome in nomi)):
                yield f"{sorgente}: includes <{include.nome}>"


def lunghezze(albero):
    """A source has one subject: it stays short."""
    for percorso in albero.tutti():
        if percorso.endswith(SUFFISSI_MISURATI):
            righe = len((albero.testo(percorso) or "").splitlines())
            if righe >= RIGHE_MASSIME:
                yield f"{percorso}: {righe} lines"
