#include <cstdio>

#include <QFile>
#include <QFileInfo>

#include "scenari/scena.h"

// Plays a scene and compares what the shop saw with the golden text beside it.

namespace {

const char* const uso =
    "Usage: bottegon-scena [--aggiorna | --stampa] scene.scena\n"
    "Plays the scene and compares it with scene.atteso beside it; the differences are printed.\n"
    "  --aggiorna  write what was seen as the new scene.atteso\n"
    "  --stampa    print what was seen, compare nothing\n";

QStringList righe(const QString& percorso, bool& letto) {
    QFile file(percorso);
    letto = file.open(QIODevice::ReadOnly);
    if (!letto) return {};
    QStringList tutte = QString::fromUtf8(file.readAll()).split('\n');
    if (tutte.last().isEmpty()) tutte.removeLast();
    return tutte;
}

void stampa(const QString& prima, const QStringList& tutte) {
    for (const QString& riga : tutte) {
        std::printf("%s%s\n", qUtf8Printable(prima), qUtf8Printable(riga));
    }
}

// The lines that differ, between what both have in front and behind.
void stampaDifferenze(const QStringList& atteso, const QStringList& visto) {
    qsizetype davanti = 0;
    while (davanti < std::min(atteso.size(), visto.size()) && atteso[davanti] == visto[davanti]) {
        ++davanti;
    }
    qsizetype dietro = 0;
    while (dietro < std::min(atteso.size(), visto.size()) - davanti &&
           atteso[atteso.size() - 1 - dietro] == visto[visto.size() - 1 - dietro]) {
        ++dietro;
    }
    std::printf("@ %lld\n", static_cast<long long>(davanti + 1));
    stampa(" ", atteso.mid(std::max<qsizetype>(0, davanti - 3), std::min<qsizetype>(3, davanti)));
    stampa("-", atteso.mid(davanti, atteso.size() - davanti - dietro));
    stampa("+", visto.mid(davanti, visto.size() - davanti - dietro));
    stampa(" ", atteso.mid(atteso.size() - dietro, 3));
}

bool aggiorna(const QString& percorso, const QStringList& visto) {
    QFile file(percorso);
    const QByteArray testo = (visto.join('\n') + '\n').toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(testo) == testo.size();
}

bool confronta(const QString& percorso, const QStringList& visto) {
    bool letto = false;
    const QStringList atteso = righe(percorso, letto);
    if (!letto) std::printf("manca %s\n", qUtf8Printable(percorso));
    if (letto && atteso == visto) return true;
    stampaDifferenze(atteso, visto);
    return false;
}

}  // namespace

int main(int quanti, char** argomenti) {
    const QString opzione = quanti == 3 ? argomenti[1] : "";
    if (quanti < 2 || quanti > 3 || (quanti == 3 && opzione != "--aggiorna" && opzione != "--stampa")) {
        std::fputs(uso, stderr);
        return 2;
    }
    const QFileInfo scena(QString::fromLocal8Bit(argomenti[quanti - 1]));
    bool letto = false;
    const QStringList copione = righe(scena.filePath(), letto);
    if (!letto) {
        std::fprintf(stderr, "%s: cannot be read\n", qUtf8Printable(scena.filePath()));
        return 2;
    }
    Scena recita;
    const bool riuscita = recita.recita(copione);
    const QString atteso = scena.path() + "/" + scena.completeBaseName() + ".atteso";
    if (opzione == "--stampa") stampa("", recita.protocollo());
    if (opzione == "--aggiorna" && (!riuscita || !aggiorna(atteso, recita.protocollo()))) {
        stampa("", recita.protocollo());
        return 1;
    }
    if (!opzione.isEmpty()) return riuscita ? 0 : 1;
    return confronta(atteso, recita.protocollo()) && riuscita ? 0 : 1;
}
