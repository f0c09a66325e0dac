"""The sources of a checkout and what each of them includes."""

import re
from dataclasses import dataclass
from pathlib import Path

CARTELLE_SORGENTI = ("src", "tools", "tests", "bench")
CARTELLE_ESCLUSE = ("build", ".git", ".cache")

RIGA_INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
COMMENTI = re.compile(r"/\*.*?\*/|//[^\n]*", re.DOTALL)


@dataclass(frozen=True)
class Include:
    nome: str  # as written
    progetto: bool  # in double quotes: a file of this project


class Albero:
    """Paths are texts with "/", relative to the root."""

    def __init__(self, radice):
        self.radice = Path(radice)
        self.sorgenti = sorted(
            self._relativo(p)
            for cartella in CARTELLE_SORGENTI
            for p in (self.radice / cartella).rglob("*")
            if p.suffix in (".cpp", ".h")
        )

    def _relativo(self, percorso):
        return percorso.relative_to(self.radice).as_posix()

    def tutti(self):
        """Every file that is not a product of a build."""
        for p in sorted(self.radice.rglob("*")):
            if p.is_file() and p.relative_to(self.radice).parts[0] not in CARTELLE_ESCLUSE:
                yield self._relativo(p)

    def testo(self, percorso):
        """None for a file that is no text."""
        try:
            return (self.radice / percorso).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            return None

    def include(self, percorso):
        testo = COMMENTI.sub("", self.testo(percorso) or "")
        return [Include(a or b, bool(a)) for a, b in RIGA_INCLUDE.findall(testo)]

    def trova(self, percorso, include):
        """The file behind an include in double quotes, or None: as seen from src/, tools/ or tests/, or
        beside the source."""
        for cartella in ("src", "tools", "tests", Path(percorso).parent.as_posix()):
            candidato = f"{cartella}/{include.nome}"
            if (self.radice / candidato).is_file():
                return candidato
        return None

    def inclusi(self, percorso):
        """The project's files that a source includes."""
        trovati = (self.trova(percorso, i) for i in self.include(percorso) if i.progetto)
        return [t for t in trovati if t]
